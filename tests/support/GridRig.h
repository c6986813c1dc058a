// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/CSimpleNotifier.h"
#include "testkit/Gestures.h"
#include "testkit/RecordingMemory.h"
#include "widgets/lists/CGrid.h"

#include <QApplication>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <limits>

/// A recording memory that gives undo records and notes what goes into them: "undo 65538: 3 7 2 = 1".
class GridTestMemory : public RecordingMemory
{
public:
    struct Record : IUndoRecord
    {
        void add(int key, const TParamInfo &before) override
        {
            notes.append(QStringLiteral("undo %1: %2 %3 %4 = %5")
                             .arg(key)
                             .arg(before.group)
                             .arg(before.index)
                             .arg(before.element)
                             .arg(before.value));
        }
        QStringList notes;
    };

    std::unique_ptr<IUndoRecord> openUndoRecord(const QString &) override
    {
        return std::make_unique<Record>();
    }
    void commitUndoRecord(std::unique_ptr<IUndoRecord> record) override
    {
        committed.append(static_cast<Record &>(*record).notes);
    }
    int writeValue(int group, int index, int element, int value, int undoToken) override
    {
        const int result = RecordingMemory::writeValue(group, index, element, value, undoToken);
        return failsWrites ? Failed : result;
    }

    /// The notes of the records committed, one list for each.
    QList<QStringList> committed;
    bool failsWrites = false;
};

/// A grid of 6 rows and 8 columns in a window, channels across, whose channels' values are the elements
/// of parameter (3, 7) of its memory. Its balls are green.
struct GridRig
{
    static constexpr int Group = 3;
    static constexpr int Index = 7;

    explicit GridRig(bool masks = true, CGrid::GridOrientation orientation = CGrid::ChannelsAcross)
    {
        window.resize(400, 300);
        grid.move(20, 20);
        grid.setHorCount(6);
        grid.setVerCount(8);
        grid.setOrientation(orientation);
        grid.setValueAsBitMask(masks);
        grid.setBallImg(ball());
        for (int channel = 0; channel < 16; ++channel) {
            RecordingMemory::Parameter &each = value(channel);
            each.minimum = std::numeric_limits<int>::min();
            each.maximum = std::numeric_limits<int>::max();
        }
    }

    void bind()
    {
        grid.setAddresses({{{Group, 0, Index}, 0, 0}});
        memory.bind(grid, Group, Index, 0);
        memory.take();
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
        memory.take();
    }
    /// The parameters by which the fields of a multi-address patch name channels: elements of (40, 0).
    void appendFields(int count, int offset = 0, int alternateOffset = 0)
    {
        for (int field = 0; field < count; ++field) {
            memory.at(40, 0, field).maximum = 1000;
            grid.appendAddress(40, 0, short(field), offset, alternateOffset);
        }
        memory.take();
    }

    RecordingMemory::Parameter &value(int channel) { return memory.at(Group, Index, channel); }
    QStringList writes() { return memory.take({QStringLiteral("writeValue")}); }
    QStringList reads() { return memory.take({QStringLiteral("readValue")}); }

    QPoint centre(int row, int column) const
    {
        QRect cell;
        grid.index2PixelRect({column, row}, cell);
        return cell.center();
    }
    void click(int row, int column)
    {
        QTest::mouseClick(&grid, Qt::LeftButton, {}, centre(row, column));
    }
    void moveTo(const QPoint &point, Qt::MouseButtons buttons = Qt::NoButton)
    {
        gesture::moveTo(grid, point, buttons);
    }
    QColor pixel(int row, int column)
    {
        return grid.grab().toImage().pixelColor(centre(row, column));
    }
    bool hasBall(int row, int column) { return pixel(row, column) == QColor(Qt::green); }

    /// A green disc on black, which the grid makes transparent.
    static QPixmap ball()
    {
        QPixmap picture(9, 9);
        picture.fill(Qt::black);
        QPainter painter(&picture);
        painter.fillRect(2, 2, 5, 5, Qt::green);
        return picture;
    }

    GridTestMemory memory;
    QWidget window;
    CGrid grid{&window};
};
