// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

class QWidget;

/// Brings the steps of one blink clock to all keys that blink with it, and has what they changed
/// painted at once in one pass per window: a console full of blinking keys costs one timer and one
/// paint pass per step. A child of the clock. GUI thread.
class BlinkStep : public QObject
{
    Q_OBJECT

public:
    /// The one that follows `clock`, an object with a signal timeout().
    static BlinkStep *of(QObject &clock);

    /// Has `key` painted at once; inside a step, together with the others at its end.
    static void repaint(QWidget &key);

Q_SIGNALS:
    /// The clock has gone on: take the look anew.
    void step();

private Q_SLOTS:
    void carryOut();

private:
    explicit BlinkStep(QObject &clock);

    static QList<QPointer<QWidget>> *s_gathered; ///< a key per window, while a step is carried out
};
