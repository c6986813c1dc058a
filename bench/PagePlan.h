// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

/// A page of channel strips in panels: a meter in each, a dial above it, or one of both.
namespace meterpage {

/// Positions of a dial.
constexpr int DialRows = 21;

enum class With { MetersAlone, DialsAlone, MetersAndDials };

/// What stands on a page and where, in device-independent pixels. All pages of one plan have as many
/// controls, as large, made in the same order and at the same places.
struct Plan
{
    With with = With::MetersAlone;
    /// What is behind the controls shines through their pictures.
    bool translucent = false;
    /// Between strips. With an odd one most places lie between the pixels of a screen that is scaled
    /// by a fraction.
    int gap = 0;
    /// All controls stand on the window itself, where they would stand on panels.
    bool oneParent = false;
    QSize panels{5, 5};
    QSize stripsInPanel{10, 2};

    bool hasMeters() const { return with != With::DialsAlone; }
    bool hasDials() const { return with != With::MetersAlone; }
    int panelCount() const { return panels.width() * panels.height(); }
    int stripsOfPanel() const { return stripsInPanel.width() * stripsInPanel.height(); }
    int strips() const { return panelCount() * stripsOfPanel(); }

    QSize stripSize() const;
    QSize panelSize() const;
    QSize size() const; ///< of the page
    /// A panel in the page.
    QRect panel(int number) const;
    /// A strip's controls in their panel.
    QRect dial(int strip) const;
    QRect meter(int strip) const;

    /// Adds a panel to the page's window. What is behind translucent controls is another colour at each
    /// height.
    QWidget *addPanel(QWidget &window, int number) const;
};

/// What the controls are drawn from: two of a meter's size, and the dial's positions below one another.
struct Pictures
{
    QPixmap lit;
    QPixmap unlit;
    QPixmap dial;
};

/// The same ones each time.
const Pictures &opaquePictures();
const Pictures &translucentPictures();
inline const Pictures &pictures(const Plan &plan)
{
    return plan.translucent ? translucentPictures() : opaquePictures();
}

/// The level code of a meter in a frame; in two successive frames the bar has two lengths.
int codeAt(int meter, int frame);
/// How long the bar is at a code.
int lengthAt(int code);
/// The position of a dial in a frame.
int stepAt(int dial, int frame);

} // namespace meterpage
