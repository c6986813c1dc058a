// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

/// Raises a proxy's silent counter for its lifetime, so that nothing is written back. `operation` is
/// the process() operation that is being carried out (0 outside of one); all of them are silent.
class TMemSilentHelper
{
public:
    /// `counter` lives as long as this object, or dismiss() is called.
    TMemSilentHelper(unsigned char &counter, int operation) : m_counter(&counter)
    {
        Q_UNUSED(operation)
        ++*m_counter;
    }
    ~TMemSilentHelper()
    {
        if (m_counter)
            --*m_counter;
    }
    Q_DISABLE_COPY_MOVE(TMemSilentHelper)

    /// The proxy died meanwhile, and its counter with it.
    void dismiss() { m_counter = nullptr; }

private:
    unsigned char *m_counter;
};

/// Says, for its lifetime, on whose behalf the memory is written: the memory reads the proxy's undo
/// properties from it and gathers the writes of one control into undo steps. GUI thread.
class TMemOriginHelper
{
public:
    /// `memory` may be null; nothing happens then.
    TMemOriginHelper(IMemAPI *memory, TMemProxy *proxy)
        : m_memory(memory), m_previous(memory ? memory->m_writeOrigin : nullptr)
    {
        if (m_memory)
            m_memory->m_writeOrigin = proxy;
    }
    ~TMemOriginHelper()
    {
        if (m_memory)
            m_memory->m_writeOrigin = m_previous;
    }
    Q_DISABLE_COPY_MOVE(TMemOriginHelper)

    /// The proxy goes away.
    static void forget(IMemAPI &memory, const TMemProxy *proxy)
    {
        if (memory.m_writeOrigin == proxy)
            memory.m_writeOrigin = nullptr;
    }

private:
    IMemAPI *m_memory;
    TMemProxy *m_previous;
};

/// Asks the memory's delivery to look at parameters again. Any thread.
class MemAPITask
{
public:
    /// `memory` outlives the task.
    explicit MemAPITask(IMemAPI &memory) : m_memory(memory) {}

    /// Every bound proxy gets one observer event.
    void alert() { m_memory.alert(-1, -1, -1); }
    /// Every proxy on one parameter gets one observer event.
    void alertProxy(int group, int index, int element) { m_memory.alert(group, index, element); }

private:
    IMemAPI &m_memory;
};
