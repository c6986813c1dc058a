// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/forms/FormFinding.h"
#include "widgets/forms/FormReader.h"

#include <QPointer>
#include <QWidget>

#include <memory>

/// A form's widgets.
struct BuiltForm
{
    QWidget *root = nullptr; ///< null when there is none
    /// In the order in which they were made.
    QList<QPointer<QWidget>> widgets;
    /// Without file and line.
    FormFindings findings;
};

/// Makes widgets from prepared forms. What does not fit is left out and reported: a widget of an
/// unknown class is replaced by one of the same size. GUI thread.
class FormBuilder
{
public:
    FormBuilder();
    ~FormBuilder();

    /// For a channel, counted from 1, its number takes the place of "{ch}" in all texts, and that of
    /// its element the place of "{element}"; for 0 these stay. `fileName` tells the folder only.
    BuiltForm build(const PreparedForm &form, const QString &fileName, int channel,
                    QWidget *parent);

    /// A text of a form, for that channel.
    static QString forChannel(QString text, int channel);

private:
    class Loader;
    const std::unique_ptr<Loader> m_loader;
};
