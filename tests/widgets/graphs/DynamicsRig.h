// SPDX-License-Identifier: MIT
#pragma once

#include "testkit/RecordingMemory.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>

/// A graph of 91 x 91 pixels, bound to a threshold of a recording memory.
template<class Graph>
struct DynamicsRig
{
    static constexpr int Group = 57;
    static constexpr int Element = 2;
    enum Index { Type = 1, Threshold = 9, Range = 10, Ratio = 13, Gain = 14, Knee = 15 };

    DynamicsRig()
    {
        set(Type, 0, 6, 0);
        set(Threshold, -720, 0, 0);
        set(Range, -70, 0, 0);
        set(Ratio, 0, 15, 0);
        set(Gain, 0, 180, 0);
        set(Knee, 0, 5, 0);
        graph.resize(91, 91);
    }

    void set(int index, int minimum, int maximum, int value)
    {
        RecordingMemory::Parameter &parameter = memory.at(Group, index, Element);
        parameter.minimum = minimum;
        parameter.maximum = maximum;
        parameter.value = value;
    }
    void setValue(int index, int value) { memory.at(Group, index, Element).value = value; }
    void bind()
    {
        memory.bind(graph, Group, Threshold, Element);
        refresh();
        memory.take();
    }
    void refresh() { graph.process(nullptr, 0, 0); }

    /// Where the topmost pixel of the curve is in each column, as output level in dB; 99: nowhere.
    int levelAt(int input)
    {
        const QImage image = graph.erasePixmap().toImage();
        for (int row = 0; row < image.height(); ++row) {
            if (image.pixelColor(input + 72, row) == QColor(255, 255, 0))
                return 18 - row;
        }
        return 99;
    }

    static QStringList calls(const char *name, const QList<int> &indices, const char *rest = "")
    {
        QStringList all;
        for (const int index : indices)
            all += QLatin1String(name) + u' '
                   + QString::number(packedAddress(Group, qint16(index), Element))
                   + QLatin1String(rest);
        return all;
    }

    RecordingMemory memory;
    Graph graph;
};
