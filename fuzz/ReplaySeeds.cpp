// SPDX-License-Identifier: MIT
// Stands in for libFuzzer: gives an entry point every file of a folder, and then inputs that are nearly
// those, the same ones every time. An input that fails is left in the file FAILED for
// another run.
#include "fuzz/Mutator.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size);

namespace {

void give(const QByteArray &input)
{
    // A copy of its own length: the sanitizer sees what reads past the end.
    const std::vector<unsigned char> bytes(input.begin(), input.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

/// The contents of a file, or of all files in a folder.
QList<QByteArray> readInputs(const QFileInfo &place)
{
    QList<QByteArray> inputs;
    const QFileInfoList files =
        place.isDir() ? QDir(place.filePath()).entryInfoList(QDir::Files) : QFileInfoList{place};
    for (const QFileInfo &each : files) {
        QFile file(each.filePath());
        if (file.open(QIODevice::ReadOnly))
            inputs << file.readAll();
        else
            std::fprintf(stderr, "cannot read %s\n", qPrintable(each.filePath()));
    }
    return inputs;
}

/// Gives inputs that are nearly seeds, and keeps each in a file while it is tried.
bool giveMutations(const QList<QByteArray> &seeds, int count, const QString &keptIn)
{
    QFile kept(keptIn);
    if (!kept.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    Mutator mutator(seeds);
    for (int i = 0; i < count; ++i) {
        const QByteArray input = mutator.next();
        kept.resize(0);
        kept.seek(0);
        kept.write(input);
        give(input);
    }
    return kept.remove();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2 && argc != 4) {
        std::fprintf(stderr, "usage: %s FOLDER-OR-FILE [COUNT FAILED]\n", argv[0]);
        return 2;
    }
    const QList<QByteArray> seeds = readInputs(QFileInfo(QString::fromLocal8Bit(argv[1])));
    if (seeds.isEmpty())
        return 1;
    for (const QByteArray &seed : seeds)
        give(seed);
    LLVMFuzzerTestOneInput(nullptr, 0);
    if (argc == 2)
        return 0;
    return giveMutations(seeds, QByteArray(argv[2]).toInt(), QString::fromLocal8Bit(argv[3])) ? 0
                                                                                              : 1;
}
