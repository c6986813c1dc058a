// SPDX-License-Identifier: MIT
// Scenes of a console with 20,000 parameters: into the library and back.
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "tests/support/SyntheticModel.h"

#include <QCryptographicHash>
#include <QUndoStack>

#include <chrono>
#include <functional>
#include <unistd.h>

namespace {

constexpr int Parameters = 20'000;
constexpr int Different = 100; ///< values that a typical recall changes

/// A memory of that size with a library; and the same values in a file of its own, for reference.
class SceneBench
{
public:
    SceneBench() : m_model(20, 10, 100), m_file(m_folder.filePath("values"))
    {
        QString error;
        if (!memory.load(m_model.fileName(), &error)
            || !library.open(m_folder.filePath("scenes.sqlite"), &error))
            qFatal("%s", qPrintable(error));
        if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            qFatal("no file");
        first = second = memory.snapshot();
        for (qint32 &value : second.values)
            ++value;
        if (second.values.size() != Parameters)
            qFatal("another size");
        if (!library.store(1, first) || !library.store(2, second))
            qFatal("not stored");
    }

    void append()
    {
        const auto size = static_cast<qint64>(second.values.size() * sizeof(qint32));
        if (m_file.write(reinterpret_cast<const char *>(second.values.data()), size) != size
            || ::fdatasync(m_file.handle()) != 0)
            qFatal("not written");
    }
    /// Reads the file, makes sure of what is in it, and writes value by value, each that much greater.
    void writeEach(int change)
    {
        m_file.seek(0);
        const QByteArray bytes = m_file.read(static_cast<qint64>(Parameters * sizeof(qint32)));
        if (QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).isEmpty())
            qFatal("no checksum");
        const auto *values = reinterpret_cast<const qint32 *>(bytes.constData());
        for (const ParameterLayout::Parameter &each : first.layout->parameters()) {
            for (int element = 0; element < each.elements; ++element)
                memory.writeValue(each.group, each.index, element, *values++ + change, 0);
        }
    }

    ParameterMemory memory;
    SceneLibrary library;
    ParameterSnapshot first;
    ParameterSnapshot second; ///< differs from the first in every value

private:
    SyntheticModel m_model;
    QTemporaryDir m_folder;
    QFile m_file;
};

/// In wall time, as the disk is waited for; `step` gets the number of the iteration.
rounds::Case timed(const char *name, const std::function<void(int)> &step)
{
    constexpr int iterations = 4;
    const auto once = [step, number = 0]() mutable {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point start = Clock::now();
        step(number++);
        return std::chrono::duration<double>(Clock::now() - start).count();
    };
    return {name, once, iterations};
}

/// In processor time.
rounds::Case worked(const char *name, const std::function<void(int)> &step)
{
    return {name, rounds::worked([step, number = 0]() mutable { step(number++); })};
}

} // namespace

Measurement sceneStore()
{
    SceneBench bench;
    const auto store = [&bench](int number) {
        if (!bench.library.store(1 + number % 10, bench.memory.snapshot()))
            qFatal("not stored");
    };
    return rounds::compare({timed("store a scene", store),
                            timed("append its values to a file", [&](int) { bench.append(); })},
                           rounds::firstToSecond);
}

Measurement sceneRecall()
{
    SceneBench bench;
    bench.append();
    const auto recall = [&bench](int number) {
        // Slots take turns, so that every value differs; the very first time none may.
        const int written = bench.memory.apply(*bench.library.recall(1 + number % 2), "Recall");
        if (number > 0 && written != Parameters)
            qFatal("not all were written");
        bench.memory.undoStack()->clear();
    };
    // Writes what no slot holds.
    const auto reference = [&bench](int number) { bench.writeEach(1 + number % 2); };
    return rounds::compare(
        {worked("recall a scene", recall), worked("check and write its values", reference)},
        rounds::firstToSecond);
}

Measurement sceneWrites()
{
    SceneBench bench;
    ParameterSnapshot near = bench.first;
    for (size_t i = 0; i < Different; ++i)
        near.values[i * near.values.size() / Different] += 1;
    bench.memory.apply(near, "Before");
    return counted(double(bench.memory.apply(*bench.library.recall(1), "Recall")) / Different);
}
