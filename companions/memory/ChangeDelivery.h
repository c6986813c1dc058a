// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/DirtyStack.h"
#include "companions/memory/ParameterStore.h"
#include "companions/memory/ProxyRecord.h"

#include <QObject>
#include <QVarLengthArray>

/// Brings changes of parameters, made on any thread, to the proxies that are registered on them: on
/// the GUI thread, gathered, at most one process() per proxy in a turn of the event loop.
///
/// Why no change is lost. A writer stores the value and then counts a change in the cell's state
/// with a read-modify-write; the delivery sets the count back with a read-modify-write and lets the
/// proxies read the value only after that. All of these are on one atomic and thus in one order. A
/// writer that comes before the setting back hands its value over through it (its operation, or a
/// later one of the same release sequence, is what the setting back reads). A writer that comes
/// after it finds no change counted and puts the cell into the list again. Setting back with a
/// plain store would break the chain: the value could be read before the writer's store is seen.
///
/// Why a cell is in the list at most once. Only the first change of an observed cell pushes it, and
/// Observed is taken away either from a cell without changes, hence not in the list, or by the
/// delivery, which has just taken the cell out and leaves it its count. Such a cell goes on
/// counting, and its writers leave the list and the GUI thread alone.
///
/// The writer counts, instead of setting a bit, because an addition is one operation whose result
/// tells all; setting a bit and learning the others is a loop of reading and exchanging.
class ChangeDelivery : public QObject
{
public:
    ChangeDelivery() = default;
    ~ChangeDelivery() override;

    /// Before anything is registered.
    void setStore(ParameterStore *store);

    /// A value was stored in the cell. Any thread.
    void changed(ValueCell &cell)
    {
        const quint64 before =
            cell.state.fetch_add(ValueCell::OneChange, std::memory_order_acq_rel);
        if (before == ValueCell::Observed)
            list(cell);
    }
    /// Asks for one process() of the record's proxy. Any thread.
    void post(ProxyRecord &record)
    {
        if (!record.pending.exchange(true, std::memory_order_acq_rel)
            && m_pendingRecords.push(record))
            schedule();
    }
    /// Asks for one process() of every proxy. Any thread.
    void postAll();

    /// The proxy's record, made when there is none.
    ProxyRecord &recordOf(TMemProxyBasic &proxy);
    /// Null when there is none. Any thread while the proxy is bound.
    static ProxyRecord *findRecord(const TMemProxyBasic &proxy);
    /// Forgets the proxy.
    void release(ProxyRecord &record);
    /// One of the proxies known, null when there is none.
    TMemProxyBasic *anyProxy() const;

    void attach(ProxyRecord &record, ValueCell &cell);
    void detach(ProxyRecord &record, ValueCell &cell);

protected:
    bool event(QEvent *event) override;

private:
    void list(ValueCell &cell);
    void schedule();
    void deliver();
    void collectCells();
    void collectRecords();
    void putInRowOrder();
    void enqueue(ProxyRecord &record);
    void dropObserver(ProxyRecord &record, size_t number);
    void reclaim(ProxyRecord &record);

    /// A proxy that is about to be called.
    struct Turn
    {
        ProxyRecord *record;
        quint64 rowOrder; ///< where its widget stands
    };
    using Observers = QVarLengthArray<ProxyRecord *, 1>; ///< mostly there is one

    // What all threads write stands apart from what the GUI thread writes at every call.
    static constexpr size_t CacheLine = 64;

    alignas(CacheLine) DirtyStack<ValueCell> m_changedCells;
    DirtyStack<ProxyRecord> m_pendingRecords;
    std::atomic<bool> m_scheduled{false};
    std::atomic<bool> m_allPending{false};

    alignas(CacheLine) ParameterStore *m_store = nullptr;
    std::vector<Observers> m_observers;                  ///< by number of cell
    std::vector<std::unique_ptr<ProxyRecord>> m_records; ///< released ones while still queued
    std::vector<Turn> m_batch;                           ///< up to m_delivered already served
    size_t m_delivered = 0;
    bool m_unordered = false; ///< widgets are among those that came last
};
