// SPDX-License-Identifier: MIT
// scene-writer FILE FIRST: stores scenes, numbered from FIRST on, until it is killed. Prints the
// number of each that the library reported as stored.
#include "companions/scenes/SceneLibrary.h"
#include "tests/companions/scenes/CrashScenes.h"

#include <QCoreApplication>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return 2;
    ParameterMemory memory;
    SceneLibrary library;
    QString error;
    bool done = memory.load(ParameterMemory::builtInModel(), &error)
                && library.open(QString::fromLocal8Bit(argv[1]), &error);
    for (int number = std::atoi(argv[2]); done; ++number) {
        done =
            library.store(crashscenes::slotOf(number), crashscenes::scene(memory, number), &error);
        if (done) {
            std::printf("%d\n", number);
            std::fflush(stdout);
        }
    }
    std::fprintf(stderr, "scene-writer: %s\n", qPrintable(error));
    return 1;
}
