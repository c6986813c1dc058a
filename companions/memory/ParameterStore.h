// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ConsoleModel.h"

#include <array>
#include <atomic>
#include <memory>
#include <vector>

/// One stored value. Any thread. Two to a cache line, so that threads that write different values
/// seldom meet.
struct alignas(32) ValueCell
{
    /// What `state` is made of; see ChangeDelivery for how it changes.
    enum State : quint64 {
        Observed = 1,  ///< a proxy is registered on the value
        OneChange = 2, ///< added by every write since the last delivery
    };

    std::atomic<int> value{0};
    std::atomic<quint64> state{0};
    ValueCell *next = nullptr; ///< in the list of changed cells
};

/// The values of all parameters of a model. Addresses are found through tables that never change,
/// so that any thread may read and write without lock or allocation.
class ParameterStore
{
public:
    /// The model must outlive the store. All values start as the defaults.
    explicit ParameterStore(const ConsoleModel &model);

    /// A parameter and its cells; one with neither where there is no parameter.
    struct Entry
    {
        const ConsoleModel::Parameter *parameter = nullptr;
        ValueCell *cells = nullptr;
        quint32 elements = 0;
        int minimum = 0;
        int maximum = 0;

        bool has(int element) const { return static_cast<quint32>(element) < elements; }
        /// Null when there is no such element.
        ValueCell *cell(int element) const { return has(element) ? cells + element : nullptr; }
    };

    const Entry &entry(int group, int index) const
    {
        static constexpr Entry none;
        if (static_cast<quint32>(group) >= m_groups.size())
            return none;
        const Group &found = m_groups[group];
        return static_cast<quint32>(index) < found.indexes ? found.entries[index] : none;
    }
    /// Null when there is no such parameter or element.
    ValueCell *cell(int group, int index, int element) const
    {
        return entry(group, index).cell(element);
    }

    size_t cellCount() const { return m_cellCount; }
    /// The place of a cell among all, from 0.
    size_t numberOf(const ValueCell &cell) const
    {
        return static_cast<size_t>(&cell - m_cells.get());
    }
    ValueCell &cellNumbered(size_t number) const { return m_cells[number]; }

private:
    struct Group
    {
        quint32 indexes = 0; ///< the highest index, plus 1
        const Entry *entries = nullptr;
    };

    void makeEntries(const ConsoleModel &model);

    std::array<Group, ConsoleModel::GroupCount> m_groups;
    std::vector<Entry> m_entries; ///< of all groups, with gaps where an index is not used
    std::unique_ptr<ValueCell[]> m_cells;
    size_t m_cellCount = 0;
};
