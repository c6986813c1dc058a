// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QVarLengthArray>

#include <optional>
#include <unordered_map>
#include <vector>

class QObject;
class QWidget;

/// Which of a widget's children lie under others of them. GUI thread.
class StackedChildren
{
public:
    /// Takes in how the children of `parent` stand now. What is derived from that is kept as long as
    /// they stand the same. False while it is unknown, since some are being destroyed.
    bool look(const QWidget &parent);

    /// Whether another child that is stacked above this one reaches into its rectangle.
    bool isCovered(const QWidget &child) const;
    /// What the children above this one take of its rectangle, in the parent's coordinates.
    QVarLengthArray<QRect, 2> above(const QWidget &child) const;

private:
    struct Child
    {
        const QObject *object;
        QRect reach; ///< in the parent, with the effect that it has; empty if it is not seen

        friend bool operator==(const Child &, const Child &) = default;
    };

    void compare();

    std::vector<Child> m_children;          ///< lowest first
    std::vector<const QObject *> m_covered; ///< sorted
};

/// Where controls stand in their windows, and which of them stand clear: wholly inside all ancestors, no
/// sibling of the control or of an ancestor above it, no visible child, no native window, effect or mask
/// on the way, in a window that shows what is drawn into its backing store.
///
/// All of that is looked at in every turn, as it is then: not all of it is told by an event, and an
/// application may keep events from us. What takes long, who covers whom, is kept with the rectangles
/// that it was derived from. GUI thread.
class ClearPlaces
{
public:
    /// A turn begins or ends: what was seen before holds no longer.
    void beginTurn();

    /// The control's corner in its window, if it stands clear.
    std::optional<QPoint> find(const QWidget &control);
    /// The window of the control that was found last.
    QWidget *window() const { return m_lastPanel->window; }

private:
    /// A widget that has children, as it is in this turn.
    struct Panel
    {
        qint64 turn = 0;
        bool clear = false; ///< so far as it and what is around it are concerned
        QWidget *window = nullptr;
        QPoint corner;                   ///< in it
        QRect visible;                   ///< what is inside all ancestors, in own coordinates
        QVarLengthArray<QRect, 2> above; ///< what is stacked above it, in own coordinates
        StackedChildren children;
    };

    const Panel &panel(const QWidget &widget);
    void look(const QWidget &widget, Panel &panel);

    std::unordered_map<const QWidget *, Panel> m_panels;
    qint64 m_turn = 0;
    const QWidget *m_last = nullptr; ///< asked for before, and its panel
    const Panel *m_lastPanel = nullptr;
};
