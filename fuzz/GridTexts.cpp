// SPDX-License-Identifier: MIT
// The text properties of a grid, set to whatever comes: the first byte chooses the property, the rest,
// read as UTF-8, is its text. What was set before stays for a while, as it does in an editor.
#include "widgets/lists/CGrid.h"

#include <QApplication>

#include <cstdlib>
#include <memory>

namespace {

constexpr const char *Properties[] = {"cellWidths", "cellHeights",    "gridWidths",    "gridHeights",
                                      "bitOrder",   "disabledRects", "channelTitles", "fieldTitles"};
constexpr int InputsPerGrid = 16;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

/// What holds whatever the texts were.
void checkGrid(const CGrid &grid)
{
    require(grid.rows() == 16 && grid.cols() == 16);
    for (int column = 0; column < grid.cols(); ++column) {
        const int size = grid.cellRight(column) - grid.cellLeft(column);
        const int line = grid.cellLeft(column + 1) - grid.cellRight(column);
        require(size >= 2 && size <= 50 && line >= 1 && line <= 14);
        require(grid.pixelToIndexX(grid.cellLeft(column)) == column);
    }
    for (int row = 0; row < grid.rows(); ++row) {
        grid.isCellDisabled(row, row);
        grid.valueAt(row, row);
        grid.channelTitle(row);
        grid.fieldTitle(row);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, std::size_t size)
{
    static int argumentCount = 1;
    static char programName[] = "fuzz-grid-texts";
    static char *arguments[] = {programName, nullptr};
    static const bool offscreen = qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QApplication application(argumentCount, arguments);
    static std::unique_ptr<CGrid> grid;
    static int inputs = 0;
    if (size == 0 || !offscreen)
        return 0;
    if (inputs++ % InputsPerGrid == 0)
        grid = std::make_unique<CGrid>();
    const char *property = Properties[data[0] % std::size(Properties)];
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data) + 1,
                                           static_cast<qsizetype>(size) - 1);
    grid->setProperty(property, text);
    checkGrid(*grid);
    grid->grab();
    return 0;
}
