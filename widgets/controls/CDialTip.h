// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QLabel>
#include <QPointer>

/// The small yellow popup that tells a dial's value while the pointer is on the dial. It hangs under
/// the dial's left edge, a sibling of the dial (a tool tip window when the dial has no parent).
class CONSOLEWIDGETS_TESTED CDialTip : public QLabel
{
    Q_OBJECT

public:
    explicit CDialTip(QWidget &dial);

    /// Shows the value text; the popup fits itself to it.
    void setText(const QString &text);

    /// Shows the popup above its siblings, under the dial's present place.
    void appear();

    /// The value was stepped: an open popup takes its place above its siblings again.
    void refresh();

private:
    void place();

    QPointer<QWidget> m_dial;
};
