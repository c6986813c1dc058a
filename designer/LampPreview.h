// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class StateDisplayBit;

/// Lamps show nothing before they have a memory, and a form editor has none: there every second lamp is
/// lit, so that authors see both pictures and where one lamp ends.
class LampPreview : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the lamps.
    explicit LampPreview(StateDisplayBit &lamps);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paint();

    StateDisplayBit &m_lamps;
};
