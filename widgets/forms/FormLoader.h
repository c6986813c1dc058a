// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/Export.h"

#include <QStringList>

#include <memory>

class QWidget;

/// Builds widgets from form files (.ui) at run time. Knows Qt's own widgets and all of the
/// WidgetRegistry. Pictures are named as resources or relative to the form's folder; on a scaled
/// screen the file with twice the pixels is taken.
///
/// Bad input is told, one line each (file, widget, property, reason), and the rest of the form works:
/// a widget of an unknown class is replaced by one of the same size, a property or connection that
/// does not fit is left out. GUI thread.
class CONSOLEWIDGETS_EXPORT FormLoader
{
public:
    FormLoader();
    ~FormLoader();
    Q_DISABLE_COPY_MOVE(FormLoader)

    /// The form's widget; null when the file is missing or holds no form.
    QWidget *load(const QString &fileName, QWidget *parent = nullptr);

    /// The same for one of many channels, counted from 1: "{ch}" stands for the channel and
    /// "{element}" for its element in every text and name of the form, and the form's widget gets
    /// the property `channelElement`, by which the memory binds it to that element.
    QWidget *loadForChannel(const QString &fileName, int channel, QWidget *parent = nullptr);

    /// What was wrong with the forms so far. Each line has also gone to qWarning once.
    QStringList problems() const;
    /// Adds a line, unless it is there already.
    void addProblem(const QString &line);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
