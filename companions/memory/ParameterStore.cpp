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

    m_entries.resize(1);
    ValueCell *next = m_cells.get();
    for (const ConsoleModel::Parameter &parameter : parameters) {
        m_entries.push_back({&parameter, next, static_cast<quint32>(parameter.elements),
                             parameter.minimum, parameter.maximum});
        for (int element = 0; element < parameter.elements; ++element, ++next)
            next->value.store(parameter.defaultOf(element), std::memory_order_relaxed);
    }
    indexEntries(model);
}

void ParameterStore::indexEntries(const ConsoleModel &model)
{
    for (const ConsoleModel::Parameter &parameter : model.parameters()) {
        quint32 &indexes = m_groups[model.groupOf(parameter)].indexes;
        indexes = std::max(indexes, static_cast<quint32>(parameter.index) + 1);
    }
    std::array<quint32, ConsoleModel::GroupCount> first;
    quint32 size = 0;
    for (size_t group = 0; group < m_groups.size(); ++group) {
        first[group] = size;
        size += m_groups[group].indexes;
    }
    m_entryNumbers.assign(size, 0);
    for (size_t group = 0; group < m_groups.size(); ++group)
        m_groups[group].entryOfIndex = m_entryNumbers.data() + first[group];
    quint16 number = 0;
    for (const ConsoleModel::Parameter &parameter : model.parameters())
        m_entryNumbers[first[model.groupOf(parameter)] + parameter.index] = ++number;
}
