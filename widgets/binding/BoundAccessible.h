// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QAbstractSlider>
#include <QAccessibleWidget>

class TMemProxy;

/// How a bound control speaks to assistive tools: its name is the accessible name or else its address
/// in words with the channel number, its value the display text that the memory gives, never a
/// percentage. GUI thread.
class CONSOLEWIDGETS_EXPORT BoundAccessible : public QAccessibleWidget
{
public:
    /// `proxy` is the same object as `widget`.
    BoundAccessible(QWidget *widget, TMemProxy &proxy, QAccessible::Role role);

    QString text(QAccessible::Text kind) const override;

protected:
    /// The channel that the name ends with, counted from 0.
    virtual int channel() const;

private:
    TMemProxy &m_proxy;
};

/// A bound control with a range: the value can be read and set as a number, too, and stepped.
class CONSOLEWIDGETS_EXPORT BoundSliderAccessible : public BoundAccessible,
                                                    public QAccessibleValueInterface
{
public:
    /// `proxy` is the same object as `slider`.
    BoundSliderAccessible(QAbstractSlider *slider, TMemProxy &proxy, QAccessible::Role role);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QStringList actionNames() const override;
    void doAction(const QString &name) override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    QAbstractSlider *slider() const;
};
