// SPDX-License-Identifier: MIT
#include "bench/Scale.h"

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/ParameterMemory.h"

void scale::load(ParameterMemory &memory)
{
    QString error;
    if (!memory.load(ParameterMemory::builtInModel(), &error))
        qFatal("%s", qPrintable(error));
}

std::vector<ScaleParameter> scale::parameters(const ParameterMemory &memory, size_t count)
{
    const ConsoleModel &model = memory.model();
    std::vector<ScaleParameter> all;
    for (const ConsoleModel::Parameter &each : model.parameters()) {
        if (each.maximum - each.minimum < Steps)
            continue;
        for (int element = 0; element < each.elements && all.size() < count; ++element)
            all.push_back(
                {model.addressOf(each), model.groupOf(each), each.index, element, each.minimum});
    }
    if (all.size() < count)
        qFatal("the console has only %zu parameters with %d steps", all.size(), Steps);
    return all;
}
