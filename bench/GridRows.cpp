// SPDX-License-Identifier: MIT
// What a large grid costs: a cell, a view, a cursor move, and what it keeps.
#include "bench/references/BareGrid.h"
#include "bench/references/EmptyChild.h"
#include "bench/Rounds.h"
#include "bench/Rows.h"
#include "bench/Stage.h"
#include "companions/memory/ParameterMemory.h"
#include "widgets/lists/CGrid.h"

#include <QMouseEvent>
#include <QTemporaryDir>

#include <malloc.h>

namespace {

constexpr int Side = 256;
constexpr int FieldsOfAMask = 32;
constexpr double CacheUnit = 8 * 1024 * 1024;

/// A console with a patch: a number for each of 256 channels.
constexpr char Model[] = R"({"name": "Patch", "tables": [], "meterTables": [], "preferences": {},
"blocks": [{"name": "kPatch", "group": 1, "label": "Patch", "elements": 256, "parameters": [
{"name": "kPatch", "index": 0, "min": -2147483648, "max": 2147483647, "default": 0, "label": "Patch"}
]}]})";

QPixmap ball()
{
    QPixmap picture(11, 11);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::green);
    painter.drawEllipse(1, 1, 9, 9);
    return picture;
}

/// Every third cell or so.
bool isOn(int channel, int field)
{
    return (channel * 7 + (field % FieldsOfAMask) * 5) % 3 == 0;
}

/// A grid of 256 x 256 on a stage that shows 1200 x 800 pixels of it. Like the dial it is not registered
/// in the memory: refreshes are called by hand.
class GridScene
{
public:
    explicit GridScene(bool masks)
    {
        load();
        grid.setHorCount(Side);
        grid.setVerCount(Side);
        grid.setGridWidths(QString("1,").repeated(Side));
        grid.setGridHeights(QString("1,").repeated(Side));
        grid.setBallImg(ball());
        grid.setValueAsBitMask(masks);
        grid.setNamedAddress(QStringLiteral("kPatch/kPatch"));
        grid.show();
        memory.bind(&grid);
        for (int channel = 0; channel < Side; ++channel)
            write(channel, masks ? maskOf(channel) : 0);
        Stage::frame();
        memory.detachProxy(&grid, grid.packed());
        refresh(0, 0);
        // Wherever the pointer is, it is not here.
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&grid, &leave);
        Stage::frame();
        if (grid.visibleRegion().boundingRect().size() != QSize(1200, 800))
            qFatal("the grid is not as it must be");
    }

    static int maskOf(int channel)
    {
        quint32 mask = 0;
        for (int field = 0; field < FieldsOfAMask; ++field)
            mask |= quint32(isOn(channel, field)) << field;
        return static_cast<int>(mask);
    }
    void write(int channel, int value)
    {
        memory.writeValue(grid.group, grid.index, channel, value, 0);
    }
    void refresh(int row, int column)
    {
        grid.process(nullptr, CGrid::Refresh, Q_UINT32(row) * 65536 + Q_UINT32(column));
    }

    ParameterMemory memory;
    Stage stage;
    CGrid grid{&stage.window()};

private:
    void load()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath("patch.json"));
        QString error;
        const bool written = file.open(QIODevice::WriteOnly) && file.write(Model) > 0;
        file.close();
        if (!written || !memory.load(file.fileName(), &error))
            qFatal("%s", qPrintable(error));
    }
};

struct BareScene
{
    explicit BareScene(const QPixmap &picture) : grid(Side, picture, &stage.window())
    {
        for (int channel = 0; channel < Side; ++channel) {
            for (int field = 0; field < Side; ++field)
                grid.set(field, channel, isOn(channel, field));
        }
        grid.show();
        Stage::frame();
    }

    Stage stage;
    BareGrid grid;
};

rounds::Case changeAndFrame(const char *name, const std::function<void()> &change)
{
    return {name, [change](benchmark::State &state) {
                for (auto _ : state) {
                    change();
                    Stage::frame();
                }
            }};
}

void sendMove(CGrid &grid, const QPointF &at)
{
    QMouseEvent move(QEvent::MouseMove, at, at, Qt::NoButton, Qt::NoButton, {});
    QCoreApplication::sendEvent(&grid, &move);
}

} // namespace

Measurement gridCell()
{
    constexpr int Row = 21;
    constexpr int Column = 34;
    GridScene scene(false);
    Stage stage;
    EmptyChild empty(&stage.window());
    empty.setGeometry(400, 300, BareGrid::Cell, BareGrid::Cell);
    empty.show();
    Stage::frame();
    const PaintCounter counter(scene.grid);
    bool on = false;
    const auto toggle = [&] {
        on = !on;
        scene.write(Column, on ? Row + 1 : 0);
        scene.refresh(Row, Column);
    };
    toggle();
    Stage::frame();
    if (counter.paints != 1)
        qFatal("a toggled cell is not painted as it must be");
    return rounds::compare({changeAndFrame("grid", toggle),
                            changeAndFrame("empty child", [&empty] { empty.update(); })},
                           rounds::firstToSecond);
}

Measurement gridView()
{
    GridScene scene(true);
    BareScene bare(scene.grid.ballImg());
    const QRect view(0, 0, 1200, 800);
    if (scene.grid.grab(view).toImage() != bare.grid.grab(view).toImage())
        qFatal("the grids do not look the same");
    const auto repaint = [](const char *name, QWidget &grid) {
        return rounds::Case{name, rounds::worked([&grid] {
                                grid.update();
                                Stage::frame();
                            })};
    };
    return rounds::compare({repaint("grid", scene.grid), repaint("bare grid", bare.grid)},
                           rounds::firstToSecond);
}

Measurement gridCursor()
{
    GridScene scene(true);
    const QPointF corner;
    QEnterEvent enter(corner, corner, corner);
    QCoreApplication::sendEvent(&scene.grid, &enter);
    int step = 0;
    const auto move = [&] {
        step = (step + 1) % 40;
        const int pixel = step * (BareGrid::Cell + BareGrid::Line) + 5;
        sendMove(scene.grid, QPointF(pixel, pixel));
    };
    return rounds::compare(
        {changeAndFrame("cursor", move), changeAndFrame("view", [&scene] { scene.grid.update(); })},
        rounds::firstToSecond);
}

Measurement gridCache()
{
    GridScene scene(true);
    scene.grid.clearBG();
    Stage::frame();
    const auto inUse = [] {
        const struct mallinfo2 heap = mallinfo2();
        return double(heap.uordblks + heap.hblkhd);
    };
    CGrid before(nullptr);
    const double without = inUse();
    CGrid large(nullptr);
    large.setHorCount(Side);
    large.setVerCount(Side);
    large.setBallImg(ball());
    const QPixmap picture = large.grab();
    const double pictureBytes = double(picture.width()) * picture.height() * 4;
    return counted(std::max(0.0, inUse() - without - pictureBytes) / CacheUnit);
}
