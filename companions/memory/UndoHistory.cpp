// SPDX-License-Identifier: MIT
#include "companions/memory/UndoHistory.h"

#include "companions/memory/UndoStep.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace {

bool sameAddress(const TParamInfo &one, const TParamInfo &other)
{
    return one.group == other.group && one.index == other.index && one.element == other.element;
}

class UndoRecord : public IUndoRecord
{
public:
    explicit UndoRecord(const QString &shown) : text(shown) {}

    // The key is for proxies that keep more than values; an address identifies a value by itself.
    void add(int, const TParamInfo &before) override
    {
        const auto known = [&](const TParamInfo &each) { return sameAddress(each, before); };
        if (std::none_of(noted.begin(), noted.end(), known))
            noted.push_back(before);
    }

    QString text;
    std::vector<TParamInfo> noted;
};

} // namespace

UndoHistory::UndoHistory(Parameters &parameters) : m_parameters(parameters)
{
    m_clock.start();
    m_stack.setUndoLimit(MostSteps);
    // Undo, redo and clearing end whatever was still growing.
    connect(&m_stack, &QUndoStack::indexChanged, this, [this] {
        if (!m_changingStack)
            closeAll();
    });
}

UndoHistory::~UndoHistory()
{
    m_changingStack = true;
}

int UndoHistory::nextToken()
{
    m_lastToken = m_lastToken == std::numeric_limits<int>::max() ? 1 : m_lastToken + 1;
    return m_lastToken;
}

int UndoHistory::token(const TMemProxyBasic *origin)
{
    if (m_gesture.token && origin == m_gesture.origin)
        return m_gesture.token;
    const bool goesOn =
        m_burst.token && origin && origin == m_burst.origin
        && (!m_burst.step || m_clock.elapsed() - m_burst.lastTime < BurstMilliseconds);
    if (!goesOn)
        m_burst = {.token = nextToken(), .origin = origin};
    return m_burst.token;
}

void UndoHistory::note(int token, const TParamInfo &before, int after)
{
    if (before.value == after)
        return;
    if (token == m_gesture.token) {
        m_burst = {};
        grow(m_gesture, before, after);
        return;
    }
    if (token != m_burst.token)
        m_burst = {};
    else if (!continuesBurst(before))
        m_burst.step = nullptr;
    grow(m_burst, before, after);
}

bool UndoHistory::continuesBurst(const TParamInfo &address) const
{
    return m_burst.step && sameAddress(m_burst.lastWrite, address);
}

void UndoHistory::grow(OpenStep &open, const TParamInfo &before, int after)
{
    open.lastWrite = before;
    open.lastTime = m_clock.elapsed();
    if (!open.step) {
        open.step = new UndoStep(*this, m_parameters.label(before));
        open.step->note(before, after);
        const QScopedValueRollback changing(m_changingStack, true);
        m_stack.push(open.step);
        return;
    }
    open.step->note(before, after);
    dropIfUnchanged(open);
}

void UndoHistory::dropIfUnchanged(OpenStep &open)
{
    if (!open.step->isUnchanged() || m_stack.command(m_stack.index() - 1) != open.step)
        return;
    // An obsolete step is deleted when it is undone, which it does without writing.
    open.step->setObsolete(true);
    const QScopedValueRollback changing(m_changingStack, true);
    m_stack.undo();
}

void UndoHistory::stepIsGone(const UndoStep *step)
{
    for (OpenStep *open : {&m_gesture, &m_burst}) {
        if (open->step == step)
            open->step = nullptr;
    }
}

void UndoHistory::closeAll()
{
    m_burst = {};
    m_gesture.step = nullptr;
}

void UndoHistory::beginGesture(const TMemProxyBasic *proxy)
{
    m_burst = {};
    m_gesture = {.token = nextToken(), .origin = proxy};
}

void UndoHistory::endGesture(const TMemProxyBasic *proxy)
{
    if (!m_gesture.token || m_gesture.origin != proxy)
        return;
    m_burst = {};
    m_gesture = {};
}

void UndoHistory::forget(const TMemProxyBasic *proxy)
{
    endGesture(proxy);
    if (m_burst.origin == proxy)
        m_burst = {};
}

std::unique_ptr<IUndoRecord> UndoHistory::openRecord(const QString &text)
{
    return std::make_unique<UndoRecord>(text);
}

void UndoHistory::commit(std::unique_ptr<IUndoRecord> record)
{
    auto *own = dynamic_cast<UndoRecord *>(record.get());
    if (own)
        push(own->text, std::move(own->noted));
}

void UndoHistory::push(const QString &text, std::vector<TParamInfo> replaced)
{
    if (replaced.empty())
        return;
    closeAll();
    const QScopedValueRollback changing(m_changingStack, true);
    m_stack.push(new ExchangeStep(m_parameters, text, std::move(replaced)));
}
