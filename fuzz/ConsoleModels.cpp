// SPDX-License-Identifier: MIT
// Console models: JSON of any kind.
#include "companions/memory/ConsoleModel.h"
#include "fuzz/FuzzApplication.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    const fuzz::Input input{data, size};
    QString error;
    const auto model = ConsoleModel::parse(input.bytes(), QStringLiteral("model.json"), &error);
    fuzz::require(model.has_value() == error.isEmpty());
    if (!model)
        return 0;
    for (const ConsoleModel::Parameter &each : model->parameters()) {
        fuzz::require(each.minimum <= each.maximum && each.elements >= 1
                      && each.elements <= ConsoleModel::ElementCount);
        fuzz::require(each.defaultOf(each.elements - 1) <= each.maximum);
        model->addressOf(each);
        model->labelOf(each, each.elements - 1);
    }
    return 0;
}
