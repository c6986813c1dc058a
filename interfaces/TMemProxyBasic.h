// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

/// What a memory delivers to. Controls derive from TMemProxy.
class CONSOLEINTERFACES_EXPORT TMemProxyBasic
{
public:
    /// What process() is asked to do.
    enum Operation {
        DirectValue = -1, ///< on/off keys only: `extra` is the value to show
        Refresh = 0,
        ResetToDefault = 1,
        Paste = 2, ///< `data` is a QDataStream to read from
        Copy = 3,  ///< `data` is a QDataStream to write into
        ResetToAlternativeDefault = 4,
    };

    TMemProxyBasic() = default;
    virtual ~TMemProxyBasic() = default;
    Q_DISABLE_COPY_MOVE(TMemProxyBasic)

    /// The parameter changed, or an operation on it is wanted. `data` depends on the operation and is
    /// null for a plain refresh; `extra` 1 forces the value signals. Any thread.
    virtual void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) = 0;

    /// Writes of this proxy make no undo step of themselves, whatever its undoEnable says, because
    /// its owner records them.
    virtual bool autoUndoDisabled() const { return false; }

    /// The memory's own record of this proxy; nobody else reads or sets it.
    void *memoryRecord() const { return m_memoryRecord; }
    void setMemoryRecord(void *record) { m_memoryRecord = record; }

private:
    void *m_memoryRecord = nullptr;
};

/// Asks `memory` to repeat the observer call of `proxy` on the GUI thread. Any thread.
inline void MAPI_postObserverEvent(IMemAPI *memory, TMemProxyBasic *proxy)
{
    memory->postObserverEvent(proxy);
}
