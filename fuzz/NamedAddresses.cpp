// SPDX-License-Identifier: MIT
// Named addresses, lists of them, and the extra addressing text of controls.
#include "fuzz/FuzzMemory.h"
#include "interfaces/CSimpleNotifier.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    ParameterMemory &memory = fuzz::memory();
    const fuzz::Input input{data, size};
    const int element = static_cast<int>(input.choice()) - 64;
    const QString name = input.rest().text();

    IMemAPI::TSingleBaseAddress at;
    if (memory.resolve(name, element, at)) {
        fuzz::require(memory.parameterExists(at.group, at.index, at.element));
        // A list names one parameter for each kind of channel.
        fuzz::require(name.contains(memory.nameOf(at.group, at.index)));
    } else {
        const QString nearest = memory.nearestName(name);
        fuzz::require(nearest.isEmpty() || memory.lookUp(nearest, 0, at) == IParameterNames::Found);
    }
    IMemAPI::TXtraInfo info;
    info.text = name;
    memory.resolveXtraInfo(info);
    QObject receiver;
    memory.createNotifier(&receiver, name, element, SLOT(deleteLater()), nullptr, nullptr);
    return 0;
}
