// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/UndoHistory.h"

#include <QUndoCommand>

#include <vector>

/// The values of an undo step: what they were before and what they are after it.
class UndoStep : public QUndoCommand
{
public:
    UndoStep(UndoHistory &history, const QString &text);
    ~UndoStep() override;

    /// A parameter went from `before` to `after`. The first value it ever had in this step and the
    /// last one count.
    void note(const TParamInfo &before, int after);
    /// All values are where they were before the step.
    bool isUnchanged() const;

    void undo() override;
    void redo() override;

private:
    struct Change
    {
        TParamInfo before;
        int after = 0;
    };

    UndoHistory &m_history;
    std::vector<Change> m_changes;
    bool m_pushed = false;
};

/// A step whose values were noted by proxies before they edited: undoing exchanges the noted values
/// and the stored ones.
class ExchangeStep : public QUndoCommand
{
public:
    ExchangeStep(UndoHistory::Parameters &parameters, const QString &text,
                 std::vector<TParamInfo> noted);

    void undo() override;
    void redo() override;

private:
    void exchange(TParamInfo &noted);

    UndoHistory::Parameters &m_parameters;
    std::vector<TParamInfo> m_noted;
    bool m_pushed = false;
};
