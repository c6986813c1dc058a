// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QFrame>

class QLineEdit;

namespace NS_Utilities {

/// A small popup for typing a number: opened over a control, it proposes what was typed and closes.
/// Return proposes, Escape or a click elsewhere leaves without. Decimal point and comma both work, a
/// trailing unit is ignored and "k" multiplies by 1000; what is no number is not proposed, and the
/// field says so. GUI thread.
class CONSOLECOMPANIONS_EXPORT CNumEdit : public QFrame
{
    Q_OBJECT

public:
    /// Hidden until doEdit().
    explicit CNumEdit(QWidget *parent = nullptr);
    ~CNumEdit() override;

    /// Opens the field under `anchor` (global coordinates), on the same screen, holding `text`, all of
    /// it selected when `selectAll` is true (else the cursor stands behind it). Deletes itself when
    /// closed.
    void doEdit(const QRect &anchor, const QString &text, bool selectAll = true);

    /// The number that a typed text means; false and `number` untouched when there is none.
    static bool parse(const QString &text, double &number);

Q_SIGNALS:
    /// A number was typed and Return pressed; without its unit, times 1000 for "k".
    void numberProposed(double number);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void propose();

    QLineEdit *m_field;
};

} // namespace NS_Utilities
