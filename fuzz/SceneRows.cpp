// SPDX-License-Identifier: MIT
// A scene library some of whose rows say something else: the first byte chooses which, the rest is what
// they say.
#include "companions/memory/ParameterLayout.h"
#include "companions/scenes/SceneFile.h"
#include "companions/scenes/SceneLibrary.h"
#include "fuzz/FuzzMemory.h"

#include <QTemporaryDir>

namespace {

constexpr int Slot = 3;

/// Statements with one value, and back again what they change.
constexpr const char *Changes[] = {
    "UPDATE layouts SET description = ?", "UPDATE contents SET data = ?",
    "UPDATE contents SET checksum = ?",   "UPDATE contents SET layout = ?",
    "UPDATE scenes SET title = ?",        "UPDATE scenes SET stored = ?",
    "UPDATE scenes SET protected = ?",    "UPDATE OR IGNORE scenes SET slot = ?",
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    ParameterMemory &memory = fuzz::memory();
    static const ParameterSnapshot sound = memory.snapshot();
    static const QTemporaryDir folder;
    static const QString name = folder.filePath(QStringLiteral("scenes.sqlite"));
    const fuzz::Input input{data, size};
    const QByteArray bytes = input.rest().bytes();
    if (const auto layout = ParameterLayout::fromDescription(bytes)) {
        const auto again = ParameterLayout::fromDescription(layout->description());
        fuzz::require(again && again->fingerprint() == layout->fingerprint());
    }

    for (const char *ending : {"", "-wal", "-shm"})
        QFile::remove(name + QLatin1StringView(ending));
    {
        SceneLibrary library;
        fuzz::require(library.open(name) && library.store(Slot, sound));
    }
    {
        SceneFile file;
        file.open(name);
        const char *change = Changes[input.choice() % std::size(Changes)];
        try {
            file.run(QLatin1StringView(change),
                     {input.choice() < 128 ? QVariant(bytes) : QVariant(input.rest().text())});
        } catch (...) {
            return 0; // the table does not take it
        }
    }
    SceneLibrary library;
    if (!library.open(name))
        return 0;
    for (int slot = 1; slot <= SceneLibrary::SlotCount; ++slot)
        library.scene(slot);
    if (const auto snapshot = library.recall(Slot)) {
        fuzz::require(snapshot->isWhole());
        memory.apply(*snapshot, QString());
    }
    library.read(Slot);
    return 0;
}
