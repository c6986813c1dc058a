// SPDX-License-Identifier: MIT
#include "editor/DemonstrationScenes.h"

#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"

namespace {

struct Example
{
    int slot;
    const char *title;
    int minutes; ///< after the first one
    bool isProtected = false;
};

constexpr Example examples[] = {
    {1, "Walk-in music", 0},
    {2, "House announcements", 6, true},
    {3, "Line check", 18},
    {5, "Overture", 95},
    {6, "Act I - Harbour", 107},
    {7, "Act I - The letter", 124},
    {8, "Act I - Storm", 126},
    {9, "Act I - Duet", 141},
    {10, "Act I - Finale", 163, true},
    {12, "Interval", 171, true},
    {13, "Act II - Prelude", 188},
    {14, "Act II - Chorus", 204},
    {15, "Act II - Trial scene", 221},
    {16, "Act II - Aria", 230},
    {17, "Act II - Finale", 252},
    {18, "Bows", 255, true},
    {20, "Walk-out music", 257},
};

} // namespace

void demonstrationscenes::fill(SceneLibrary &library, const ParameterMemory &memory)
{
    const QDateTime first(QDate(2026, 3, 14), QTime(13, 5), Qt::UTC);
    const ParameterSnapshot now = memory.snapshot();
    for (const Example &each : examples) {
        library.put(each.slot, {each.title, first.addSecs(60 * each.minutes), now});
        if (each.isProtected)
            library.setProtected(each.slot, true);
        library.forgetUndo(each.slot);
    }
    library.setReadOnly(3, true);
}
