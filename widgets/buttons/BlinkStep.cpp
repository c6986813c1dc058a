// SPDX-License-Identifier: MIT
#include "widgets/buttons/BlinkStep.h"

#include <QWidget>

#include <algorithm>

QList<QPointer<QWidget>> *BlinkStep::s_gathered = nullptr;

BlinkStep::BlinkStep(QObject &clock) : QObject(&clock)
{
    connect(&clock, SIGNAL(timeout()), this, SLOT(carryOut()));
}

BlinkStep *BlinkStep::of(QObject &clock)
{
    auto *known = clock.findChild<BlinkStep *>(QString(), Qt::FindDirectChildrenOnly);
    return known ? known : new BlinkStep(clock);
}

void BlinkStep::repaint(QWidget &key)
{
    if (!s_gathered) {
        key.repaint();
        return;
    }
    key.update();
    const bool known = std::any_of(s_gathered->cbegin(), s_gathered->cend(), [&](const auto &each) {
        return each && each->window() == key.window();
    });
    if (!known && key.isVisible())
        s_gathered->append(&key);
}

void BlinkStep::carryOut()
{
    QList<QPointer<QWidget>> gathered;
    s_gathered = &gathered;
    Q_EMIT step();
    s_gathered = nullptr;
    // A repaint at once paints everything in its window that is due.
    for (const QPointer<QWidget> &key : std::as_const(gathered)) {
        if (key)
            key->repaint();
    }
}
