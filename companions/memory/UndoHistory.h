// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/TestedExport.h"
#include "interfaces/IUndoRecord.h"

#include <QElapsedTimer>
#include <QUndoStack>

#include <memory>
#include <vector>

class TMemProxyBasic;
class UndoStep;

/// Gathers the operator's writes into undo steps on a QUndoStack.
///
/// A gesture (a drag) is one step. Outside of gestures, writes of one control to one parameter are
/// one step as long as they follow each other within a second and nothing else is done between
/// them. A step that leads back to where it began is taken off again: undoing it would do nothing.
/// GUI thread.
class CONSOLECOMPANIONS_TESTED UndoHistory : public QObject
{
public:
    /// How undo steps reach the parameters.
    class Parameters
    {
    public:
        virtual int read(const TParamInfo &address) const = 0;
        virtual void write(const TParamInfo &addressAndValue) = 0;
        /// "Input 12 Gain".
        virtual QString label(const TParamInfo &address) const = 0;

    protected:
        ~Parameters() = default;
    };

    static constexpr int MostSteps = 1000;
    static constexpr qint64 BurstMilliseconds = 1000;

    explicit UndoHistory(Parameters &parameters);
    ~UndoHistory() override;

    QUndoStack *stack() { return &m_stack; }

    /// A token for a write on behalf of `origin`, which may be null. Never 0.
    int token(const TMemProxyBasic *origin);
    /// A write under that token changed a parameter from `before` to `after`.
    void note(int token, const TParamInfo &before, int after);

    void beginGesture(const TMemProxyBasic *proxy);
    void endGesture(const TMemProxyBasic *proxy);
    /// The proxy goes away.
    void forget(const TMemProxyBasic *proxy);

    static std::unique_ptr<IUndoRecord> openRecord(const QString &text);
    void commit(std::unique_ptr<IUndoRecord> record);
    /// Enters a step of its own: the parameters that were changed, and their values before. Without
    /// any there is no step.
    void push(const QString &text, std::vector<TParamInfo> replaced);

private:
    friend class UndoStep;

    /// A step that may still grow.
    struct OpenStep
    {
        int token = 0; ///< 0: there is none
        const TMemProxyBasic *origin = nullptr;
        UndoStep *step = nullptr; ///< null until something is written, and after it is gone
        TParamInfo lastWrite = {};
        qint64 lastTime = 0;
    };

    void grow(OpenStep &open, const TParamInfo &before, int after);
    bool continuesBurst(const TParamInfo &address) const;
    void dropIfUnchanged(OpenStep &open);
    void stepIsGone(const UndoStep *step);
    void closeAll();
    int nextToken();

    Parameters &m_parameters;
    OpenStep m_gesture;
    OpenStep m_burst;
    QElapsedTimer m_clock;
    int m_lastToken = 0;
    bool m_changingStack = false;
    QUndoStack m_stack; ///< last: its steps report to the rest while it is destroyed
};
