// SPDX-License-Identifier: MIT
#include "companions/memory/UndoStep.h"

#include <algorithm>

UndoStep::UndoStep(UndoHistory &history, const QString &text)
    : QUndoCommand(text), m_history(history)
{
}

UndoStep::~UndoStep()
{
    m_history.stepIsGone(this);
}

void UndoStep::note(const TParamInfo &before, int after)
{
    const auto sameAddress = [&](const Change &change) {
        TParamInfo known = change.before;
        known.value = before.value;
        return known == before;
    };
    const auto known = std::find_if(m_changes.begin(), m_changes.end(), sameAddress);
    if (known != m_changes.end())
        known->after = after;
    else
        m_changes.push_back({before, after});
}

bool UndoStep::isUnchanged() const
{
    return std::all_of(m_changes.begin(), m_changes.end(),
                       [](const Change &change) { return change.after == change.before.value; });
}

void UndoStep::undo()
{
    for (auto change = m_changes.rbegin(); change != m_changes.rend(); ++change)
        m_history.m_parameters.write(change->before);
}

void UndoStep::redo()
{
    // The stack calls this once when the step is entered; the values are stored already then.
    if (!std::exchange(m_pushed, true))
        return;
    for (const Change &change : m_changes) {
        TParamInfo after = change.before;
        after.value = change.after;
        m_history.m_parameters.write(after);
    }
}

ExchangeStep::ExchangeStep(UndoHistory::Parameters &parameters, const QString &text,
                           std::vector<TParamInfo> noted)
    : QUndoCommand(text), m_parameters(parameters), m_noted(std::move(noted))
{
}

void ExchangeStep::exchange(TParamInfo &noted)
{
    const int stored = m_parameters.read(noted);
    m_parameters.write(noted);
    noted.value = stored;
}

void ExchangeStep::undo()
{
    std::for_each(m_noted.rbegin(), m_noted.rend(), [this](TParamInfo &noted) { exchange(noted); });
}

void ExchangeStep::redo()
{
    if (!std::exchange(m_pushed, true))
        return;
    for (TParamInfo &noted : m_noted)
        exchange(noted);
}
