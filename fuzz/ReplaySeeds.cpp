// SPDX-License-Identifier: MIT
// Gives an entry point every file of a folder: the seeds are tests where there is no libFuzzer.
#include <QDir>
#include <QFile>

#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size);

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    const QFileInfoList seeds = QDir(QString::fromLocal8Bit(argv[1])).entryInfoList(QDir::Files);
    for (const QFileInfo &seed : seeds) {
        QFile file(seed.filePath());
        if (!file.open(QIODevice::ReadOnly))
            return 1;
        const QByteArray bytes = file.readAll();
        std::printf("%s\n", qPrintable(seed.fileName()));
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char *>(bytes.constData()),
                               static_cast<std::size_t>(bytes.size()));
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    return seeds.isEmpty() ? 1 : 0;
}
