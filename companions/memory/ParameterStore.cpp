// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterStore.h"

#include <algorithm>
#include <numeric>

ParameterStore::ParameterStore(const ConsoleModel &model)
{
    const auto &parameters = model.parameters();
    m_cellCount = std::accumulate(
        parameters.begin(), parameters.end(), size_t(0),
        [](size_t sum, const ConsoleModel::Parameter &each) { return sum + each.elements; });
    m_cells = std::make_unique<ValueCell[]>(m_cellCount);
    makeEntries(model);
}

void ParameterStore::makeEntries(const ConsoleModel &model)
{
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        quint32 &indexes = m_groups[model.groupOf(parameter)].indexes;
        indexes = std::max(indexes, static_cast<quint32>(parameter.index) + 1);
    }
    std::array<Entry *, ConsoleModel::GroupCount> first;
    m_entries.resize(
        std::accumulate(m_groups.begin(), m_groups.end(), size_t(0),
                        [](size_t sum, const Group &group) { return sum + group.indexes; }));
    Entry *nextEntry = m_entries.data();
    for (size_t group = 0; group < m_groups.size(); ++group) {
        m_groups[group].entries = first[group] = nextEntry;
        nextEntry += m_groups[group].indexes;
    }
    ValueCell *nextCell = m_cells.get();
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        first[model.groupOf(parameter)][parameter.index] = {
            &parameter, nextCell, static_cast<quint32>(parameter.elements), parameter.minimum,
            parameter.maximum};
        for (int element = 0; element < parameter.elements; ++element, ++nextCell)
            nextCell->value.store(parameter.defaultOf(element), std::memory_order_relaxed);
    }
}
