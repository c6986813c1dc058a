// SPDX-License-Identifier: MIT
#include "companions/memory/ChangeDelivery.h"

#include "interfaces/TMemProxyBasic.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <algorithm>

namespace {

QEvent::Type deliveryEvent()
{
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

/// Grows from left to right and then from top to bottom of a window; 0 for what is not seen.
quint64 rowOrderOf(const QWidget *widget)
{
    if (!widget || !widget->isVisible())
        return 0;
    QPoint at;
    for (; widget && !widget->isWindow(); widget = widget->parentWidget())
        at += widget->pos();
    const auto unsignedOf = [](int number) { return static_cast<quint32>(number) ^ 0x80000000U; };
    return static_cast<quint64>(unsignedOf(at.y())) << 32 | unsignedOf(at.x());
}

} // namespace

ChangeDelivery::~ChangeDelivery()
{
    for (const auto &record : m_records) {
        if (record->proxy)
            record->proxy->setMemoryRecord(nullptr);
    }
}

void ChangeDelivery::setStore(ParameterStore *store)
{
    m_store = store;
    m_observers.resize(store->cellCount());
}

void ChangeDelivery::postAll()
{
    m_allPending.store(true, std::memory_order_release);
    schedule();
}

void ChangeDelivery::list(ValueCell &cell)
{
    if (m_changedCells.push(cell))
        schedule();
}

void ChangeDelivery::schedule()
{
    auto event = std::make_unique<QEvent>(deliveryEvent());
    if (!m_scheduled.exchange(true, std::memory_order_acq_rel))
        QCoreApplication::postEvent(this, event.release());
}

ProxyRecord *ChangeDelivery::findRecord(const TMemProxyBasic &proxy)
{
    return static_cast<ProxyRecord *>(proxy.memoryRecord());
}

ProxyRecord &ChangeDelivery::recordOf(TMemProxyBasic &proxy)
{
    if (ProxyRecord *known = findRecord(proxy))
        return *known;
    ProxyRecord &record = *m_records.emplace_back(std::make_unique<ProxyRecord>(proxy));
    record.place = m_records.size() - 1;
    record.widget = dynamic_cast<const QWidget *>(&proxy);
    proxy.setMemoryRecord(&record);
    return record;
}

TMemProxyBasic *ChangeDelivery::anyProxy() const
{
    const auto found = std::find_if(m_records.rbegin(), m_records.rend(),
                                    [](const auto &record) { return record->proxy; });
    return found == m_records.rend() ? nullptr : (*found)->proxy;
}

void ChangeDelivery::release(ProxyRecord &record)
{
    for (const size_t number : std::exchange(record.cells, {}))
        dropObserver(record, number);
    record.proxy->setMemoryRecord(nullptr);
    record.proxy = nullptr;
    record.widget = nullptr;
    if (!record.batched && !record.pending.load(std::memory_order_acquire))
        reclaim(record);
}

void ChangeDelivery::reclaim(ProxyRecord &record)
{
    const size_t place = record.place;
    m_records.back()->place = place;
    std::swap(m_records[place], m_records.back());
    m_records.pop_back();
}

void ChangeDelivery::attach(ProxyRecord &record, ValueCell &cell)
{
    const size_t number = m_store->numberOf(cell);
    if (std::find(record.cells.begin(), record.cells.end(), number) != record.cells.end())
        return;
    record.cells.push_back(number);
    m_observers[number].push_back(&record);
    // Changes counted so far are old news: what is in the cell the proxy reads in the call that it
    // gets now anyway.
    if (!(cell.state.load(std::memory_order_relaxed) & ValueCell::Observed))
        cell.state.exchange(ValueCell::Observed, std::memory_order_acq_rel);
    post(record);
}

void ChangeDelivery::detach(ProxyRecord &record, ValueCell &cell)
{
    const size_t number = m_store->numberOf(cell);
    if (std::erase(record.cells, number) > 0)
        dropObserver(record, number);
}

void ChangeDelivery::dropObserver(ProxyRecord &record, size_t number)
{
    m_observers[number].removeOne(&record);
    if (!m_observers[number].isEmpty())
        return;
    // A cell that is in the list stays observed until the delivery finds that nobody is left.
    quint64 quiet = ValueCell::Observed;
    m_store->cellNumbered(number).state.compare_exchange_strong(quiet, 0,
                                                                std::memory_order_acq_rel);
}

bool ChangeDelivery::event(QEvent *event)
{
    // The flag comes first: with it the thread that set it hands over the event that it has made.
    if (!m_scheduled.load(std::memory_order_acquire) || event->type() != deliveryEvent())
        return QObject::event(event);
    deliver();
    return true;
}

void ChangeDelivery::deliver()
{
    m_scheduled.exchange(false, std::memory_order_acq_rel);
    collectCells();
    collectRecords();
    if (m_delivered == m_batch.size())
        return;
    putInRowOrder();
    // Any process() may run an event loop of its own, a message box for one, or destroy proxies, or
    // this memory. The event posted here lets such a loop go on with the rest of the batch.
    schedule();
    const QPointer<ChangeDelivery> alive(this);
    while (m_delivered < m_batch.size()) {
        ProxyRecord &record = *m_batch[m_delivered++].record;
        record.batched = false;
        if (record.proxy)
            record.proxy->process(nullptr, TMemProxyBasic::Refresh, 0);
        else if (!record.pending.load(std::memory_order_acquire))
            reclaim(record);
        if (!alive)
            return;
    }
    m_batch.clear();
    m_delivered = 0;
}

void ChangeDelivery::collectCells()
{
    ValueCell *next = m_changedCells.takeAll();
    while (next) {
        ValueCell &cell = *next;
        next = cell.next; // once the count is back, a writer may link the cell anew
        const Observers &observers = m_observers[m_store->numberOf(cell)];
        const quint64 kept =
            observers.isEmpty() ? ~quint64(ValueCell::Observed) : quint64(ValueCell::Observed);
        cell.state.fetch_and(kept, std::memory_order_acq_rel);
        for (ProxyRecord *record : observers)
            enqueue(*record);
    }
}

void ChangeDelivery::collectRecords()
{
    ProxyRecord *next = m_pendingRecords.takeAll();
    while (next) {
        ProxyRecord &record = *next;
        next = record.next;
        record.pending.exchange(false, std::memory_order_acq_rel);
        if (record.proxy)
            enqueue(record);
        else if (!record.batched)
            reclaim(record);
    }
    if (m_allPending.exchange(false, std::memory_order_acq_rel)) {
        for (const auto &record : m_records) {
            if (record->proxy)
                enqueue(*record);
        }
    }
}

/// What asks for a paint from the top left to the bottom right gets it much cheaper than out of order:
/// the window's changed region then only grows at its end.
void ChangeDelivery::putInRowOrder()
{
    if (!std::exchange(m_unordered, false))
        return;
    const auto first = m_batch.begin() + static_cast<std::ptrdiff_t>(m_delivered);
    quint64 last = 0;
    bool inOrder = true;
    for (auto each = first; each != m_batch.end(); ++each) {
        each->rowOrder = rowOrderOf(each->record->widget);
        inOrder = inOrder && last <= each->rowOrder;
        last = each->rowOrder;
    }
    if (!inOrder)
        std::stable_sort(first, m_batch.end(), [](const Turn &one, const Turn &other) {
            return one.rowOrder < other.rowOrder;
        });
}

void ChangeDelivery::enqueue(ProxyRecord &record)
{
    if (std::exchange(record.batched, true))
        return;
    m_batch.push_back({&record, 0});
    m_unordered = m_unordered || record.widget;
}
