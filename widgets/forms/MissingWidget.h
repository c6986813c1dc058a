// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Stands in a form where a widget of an unknown class belongs: takes its place and size, so that the
/// layout holds, and says the class.
class MissingWidget : public QWidget
{
    Q_OBJECT

public:
    explicit MissingWidget(const QString &className, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_className;
};
