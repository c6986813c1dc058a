// SPDX-License-Identifier: MIT
// All values of a memory at once.
#include "companions/memory/ParameterMemoryPrivate.h"
#include "companions/memory/ParameterSnapshot.h"

#include <algorithm>

namespace {

/// Brings the values of a snapshot into cells and notes what they replace.
class SnapshotWriter
{
public:
    SnapshotWriter(ChangeDelivery &delivery, const qint32 *values)
        : m_delivery(delivery), m_values(values)
    {
    }

    /// The next `count` values are those of `to`, as far as that has elements.
    void write(const ParameterStore::Entry &to, const IMemAPI::TSingleBaseAddress &address,
               int count)
    {
        const int elements = std::min(count, static_cast<int>(to.elements));
        for (int element = 0; element < elements; ++element) {
            const int value = std::clamp(m_values[element], to.minimum, to.maximum);
            ValueCell &cell = *to.cell(element);
            if (cell.value.load(std::memory_order_acquire) == value)
                continue;
            const int before = cell.value.exchange(value, std::memory_order_acq_rel);
            m_delivery.changed(cell);
            m_replaced.push_back(
                {address.group, static_cast<qint16>(element), address.index, before});
        }
        m_values += count;
    }

    std::vector<TParamInfo> takeReplaced() { return std::move(m_replaced); }

private:
    ChangeDelivery &m_delivery;
    const qint32 *m_values;
    std::vector<TParamInfo> m_replaced;
};

} // namespace

ParameterSnapshot ParameterMemory::snapshot() const
{
    if (!d->loaded)
        return {};
    const ParameterStore &store = d->loaded->store;
    ParameterSnapshot snapshot{d->loaded->layout, {}};
    snapshot.values.resize(store.cellCount());
    for (size_t number = 0; number < snapshot.values.size(); ++number)
        snapshot.values[number] = store.cellNumbered(number).value.load(std::memory_order_acquire);
    return snapshot;
}

int ParameterMemory::apply(const ParameterSnapshot &snapshot, const QString &text)
{
    if (!d->loaded || !snapshot.isWhole())
        return 0;
    const bool sameModel = snapshot.layout->fingerprint() == d->loaded->layout->fingerprint();
    SnapshotWriter writer(d->delivery, snapshot.values.data());
    for (const ParameterLayout::Parameter &each : snapshot.layout->parameters()) {
        TSingleBaseAddress at{static_cast<qint16>(each.group), 0, static_cast<qint16>(each.index)};
        // Another model may have given the numbers to something else. Names it keeps.
        if (!sameModel && !resolve(each.name, 0, at))
            at = {-1, -1, -1};
        writer.write(d->entry(at.group, at.index), at, each.elements);
    }
    std::vector<TParamInfo> replaced = writer.takeReplaced();
    const int count = static_cast<int>(replaced.size());
    d->history.push(text, std::move(replaced));
    return count;
}
