// SPDX-License-Identifier: MIT
#include "editor/OutputPatch.h"

#include "companions/memory/ParameterMemory.h"
#include "widgets/lists/CGrid.h"

namespace {

const QString OutputParameter = QStringLiteral("kPatchOutOmni/kPatchOut");
/// What stands for the first mix, behind nothing and 48 direct outputs.
constexpr int FirstMix = 49;

} // namespace

void outputpatch::appendAddresses(QWidget *page, const ParameterMemory &memory)
{
    auto *grid = page->findChild<CGrid *>(QStringLiteral("outputPatch"));
    if (!grid)
        return;
    IMemAPI::TSingleBaseAddress at;
    for (int output = 0; output < grid->fields(); ++output) {
        if (memory.resolve(OutputParameter, output, at))
            grid->appendAddress(at.group, at.index, at.element, FirstMix, 0);
    }
}
