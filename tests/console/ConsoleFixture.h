// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"

#include <memory>
#include <vector>

/// A memory with the model that ships.
inline std::unique_ptr<ParameterMemory> loadedMemory()
{
    auto memory = std::make_unique<ParameterMemory>();
    QString error;
    if (!memory->load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));
    return memory;
}

inline void setValue(ParameterMemory &memory, const QString &name, int element, int value)
{
    IMemAPI::TSingleBaseAddress at;
    if (!memory.resolve(name, element, at))
        qFatal("no %s", qPrintable(name));
    memory.writeValue(at.group, at.index, at.element, value, 0);
}

/// Calls `visit` with every parameter and its value, element by element, in a fixed order.
template<typename Visit>
void forEachValue(const ParameterMemory &memory, const Visit &visit)
{
    for (const ConsoleModel::Parameter &parameter : memory.model().parameters()) {
        const int group = memory.model().groupOf(parameter);
        for (int element = 0; element < parameter.elements; ++element)
            visit(parameter, memory.readValue(group, parameter.index, element, 0, 0));
    }
}

inline std::vector<int> values(const ParameterMemory &memory)
{
    std::vector<int> all;
    forEachValue(memory, [&all](const auto &, int value) { all.push_back(value); });
    return all;
}
