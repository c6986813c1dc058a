// SPDX-License-Identifier: MIT
// The embedded memory does what controls rely on in every memory.
#include "companions/memory/ParameterMemory.h"
#include "testkit/MemoryContract.h"

#include <QApplication>
#include <QTest>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const auto make = [] {
        auto memory = std::make_unique<ParameterMemory>();
        memory->load(ParameterMemory::builtInModel());
        return memory;
    };
    IMemAPI::TSingleBaseAddress fader;
    if (!make()->resolve(QStringLiteral("kInputFader/kFader"), 3, fader))
        return EXIT_FAILURE;
    MemoryContract contract(fader, make);
    return QTest::qExec(&contract, argc, argv);
}
