// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/MemHelpers.h"
#include "interfaces/TMemProxy.h"
#include "widgets/Export.h"

#include <QPixmap>
#include <QPointer>
#include <QString>

/// The steps that bound controls share: every control's connectMemAPI(), disconnectMemAPI() and
/// process() are written with these verbs, in the sequence that is the control's own. GUI thread,
/// unless it says `Any thread.`
namespace binding {

/// A parameter's bounds.
struct Range
{
    int minimum; ///< as stored in the memory
    int maximum; ///< not below the minimum
};

/// What a value looks like: a picture when there is one, else a text.
struct Display
{
    QString text;   ///< with its unit
    QPixmap pixmap; ///< null: the text is shown
};

/// Raises the silent counter for its lifetime. The control may die meanwhile.
class SilentScope
{
public:
    /// `control` may be destroyed while this lives; `operation` is that of process().
    template<class Control>
    explicit SilentScope(Control &control, int operation = TMemProxyBasic::Refresh)
        : m_control(&control), m_helper(control.silentCounter(), operation)
    {
    }
    ~SilentScope()
    {
        if (!m_control)
            m_helper.dismiss();
    }
    Q_DISABLE_COPY_MOVE(SilentScope)

    /// False when the control has died.
    explicit operator bool() const { return m_control; }

private:
    QPointer<QObject> m_control;
    TMemSilentHelper m_helper;
};

/// Whether the proxy has a memory that may be used. Any thread.
inline bool ready(const TMemProxy &proxy)
{
    return proxy.memAPIReady();
}

/// Registers the proxy at its present address.
CONSOLEWIDGETS_EXPORT void attach(TMemProxy &proxy);

/// Unregisters an attached proxy; clears its attached flag in every case.
CONSOLEWIDGETS_EXPORT void detach(TMemProxy &proxy);

/// On another thread than the main one: asks for the observer call on the main thread, and says true:
/// the caller returns. Any thread.
CONSOLEWIDGETS_EXPORT bool handOverToMainThread(TMemProxy &proxy);

/// The bounds of the parameter that the control shows. Any thread.
CONSOLEWIDGETS_EXPORT Range range(const TMemProxy &proxy);
/// The stored value of that parameter; 0 when it does not exist. Any thread.
CONSOLEWIDGETS_EXPORT int read(const TMemProxy &proxy);

/// The value that a process() call means: stored, default, alternative default (the plain one where
/// there is none) or pasted; a copy writes the stored value into the stream. `data` is the QDataStream
/// of a copy or paste; without one, and for other operations, it is the stored value.
CONSOLEWIDGETS_EXPORT int incomingValue(TMemProxy &proxy, const Q_UINT8 *data, int operation);

/// Stores an edit with undo, and says what the memory made of it. Without a memory it is `value`.
CONSOLEWIDGETS_EXPORT int write(TMemProxy &proxy, int value);

/// The same as an undo step of its own, whatever was done just before: a key was pressed.
CONSOLEWIDGETS_EXPORT int writeAsOwnStep(TMemProxy &proxy, int value);

/// One gesture's writes are one undo step.
CONSOLEWIDGETS_EXPORT void beginGesture(TMemProxy &proxy);
/// Ends what beginGesture() began; ignored when nothing runs.
CONSOLEWIDGETS_EXPORT void endGesture(TMemProxy &proxy);

/// The display text or picture of a value of a control with these bounds.
CONSOLEWIDGETS_EXPORT Display display(const TMemProxy &proxy, int value, Range bounds);

/// Emits the value signals of a control with these bounds; in between it may die.
template<class Control>
void announce(Control &control, int value, Range bounds)
{
    const QPointer<Control> alive(&control);
    Q_EMIT control.memoryAPIValueChange(value);
    if (!alive || !ready(control))
        return;
    const Display shown = display(control, value, bounds);
    if (shown.pixmap.isNull())
        Q_EMIT control.textualValueChange(shown.text);
    else
        Q_EMIT control.pixmapValueChange(shown.pixmap);
    if (alive)
        Q_EMIT control.altAddressMode(value == bounds.minimum);
}

/// An address as people say it: "01kInputEQ/kLowMidGain" is "Input EQ Low Mid Gain".
CONSOLEWIDGETS_EXPORT QString addressInWords(const QString &namedAddress);

} // namespace binding
