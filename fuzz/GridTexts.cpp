// SPDX-License-Identifier: MIT
// The text properties of a grid, set to whatever comes: the first byte chooses the property, the rest,
// read as UTF-8, is its text. What was set before stays for a while, as it does in an editor.
#include "fuzz/FuzzApplication.h"
#include "widgets/lists/CGrid.h"

#include <memory>

using fuzz::require;

namespace {

constexpr const char *Properties[] = {"cellWidths",    "cellHeights", "gridWidths",
                                      "gridHeights",   "bitOrder",    "disabledRects",
                                      "channelTitles", "fieldTitles"};
constexpr int InputsPerGrid = 16;

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
    fuzz::start();
    static auto &grid = *new std::unique_ptr<CGrid>; // not destroyed at the exit
    static int inputs = 0;
    if (inputs++ % InputsPerGrid == 0)
        grid = std::make_unique<CGrid>();
    const fuzz::Input input{data, size};
    grid->setProperty(Properties[input.choice() % std::size(Properties)], input.rest().text());
    checkGrid(*grid);
    grid->grab();
    return 0;
}
