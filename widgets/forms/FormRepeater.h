// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"
#include "widgets/Export.h"

#include <QWidget>

#include <memory>

class FormLoader;

/// A row of one form, placed once per channel: sixteen, forty-eight or a hundred channel strips from
/// one drawing of a strip. In a form editor it is an empty widget promoted to this class; the form
/// loader fills it. See FormLoader::loadForChannel() for what differs from strip to strip.
///
/// The strips stand in panels of eight, with a wider gap between panels: banks that the eye finds, and
/// no parent with hundreds of children.
class CONSOLEWIDGETS_EXPORT FormRepeater : public QWidget
{
    Q_OBJECT
    /// The form of one strip: a resource, or a file relative to the form that holds this widget.
    Q_PROPERTY(QString form READ form WRITE setForm)
    /// The first strip's channel, counted from 1.
    Q_PROPERTY(int firstChannel READ firstChannel WRITE setFirstChannel)
    /// How many strips there are.
    Q_PROPERTY(int channels READ channels WRITE setChannels)
    /// Whether the strips stand side by side or one below the other.
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)
    /// Pixels between two strips; between two panels twice as much and four more.
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing)

public:
    /// The property by which everything inside a widget is bound to one element.
    static constexpr const char *ElementProperty = IMemAPI::ElementProperty;
    /// How many strips stand together before the wider gap.
    static constexpr int PanelSize = 8;
    /// Channels beyond it are not placed.
    static constexpr int HighestChannel = 2048;
    /// Forms that repeat forms that repeat forms: deeper than this they contain each other.
    static constexpr int DeepestForm = 4;

    explicit FormRepeater(QWidget *parent = nullptr, const char *name = nullptr);
    ~FormRepeater() override;

    QString form() const;
    int firstChannel() const;
    int channels() const;
    Qt::Orientation orientation() const;
    int spacing() const;

    /// What keeps it from being filled as its properties say; empty when nothing does.
    QString fault() const;
    /// The last channel that there is a strip for.
    int lastChannel() const;

    /// Makes the strips, in place of those that are there. `holder` is the file of the form that holds
    /// this widget. What is wrong goes into the loader's problems.
    void fill(FormLoader &loader, const QString &holder);

public Q_SLOTS:
    // These take effect with the next fill().
    void setForm(const QString &form);
    void setFirstChannel(int channel);
    void setChannels(int count);
    void setOrientation(Qt::Orientation orientation);
    void setSpacing(int pixels);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
