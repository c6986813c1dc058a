// SPDX-License-Identifier: MIT
#include "widgets/forms/FormRepeater.h"

#include "widgets/forms/FormLoader.h"

#include <QBoxLayout>
#include <QDir>
#include <QFileInfo>

namespace {

QBoxLayout *newRow(QWidget *owner, Qt::Orientation orientation, int spacing)
{
    const auto direction =
        orientation == Qt::Horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
    auto *row = new QBoxLayout(direction, owner);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

} // namespace

struct FormRepeater::Private
{
    QString form;
    int firstChannel = 1;
    int channels = 1;
    Qt::Orientation orientation = Qt::Horizontal;
    int spacing = 2;

    qint64 lastWanted() const { return qint64(firstChannel) + channels - 1; }
};

FormRepeater::FormRepeater(QWidget *parent, const char *name)
    : QWidget(parent), d(std::make_unique<Private>())
{
    setObjectName(QString::fromUtf8(name));
}

FormRepeater::~FormRepeater() = default;

QString FormRepeater::form() const
{
    return d->form;
}

int FormRepeater::firstChannel() const
{
    return d->firstChannel;
}

int FormRepeater::channels() const
{
    return d->channels;
}

Qt::Orientation FormRepeater::orientation() const
{
    return d->orientation;
}

int FormRepeater::spacing() const
{
    return d->spacing;
}

QString FormRepeater::fault() const
{
    if (d->form.isEmpty())
        return tr("its property 'form' is empty");
    return d->lastWanted() > HighestChannel ? tr("no channels above %1").arg(HighestChannel)
                                            : QString();
}

int FormRepeater::lastChannel() const
{
    // The numbers come from a file.
    return static_cast<int>(qMin<qint64>(d->lastWanted(), HighestChannel));
}

void FormRepeater::fill(FormLoader &loader, const QString &holder)
{
    qDeleteAll(findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    delete layout();
    if (const QString wrong = fault(); !wrong.isEmpty())
        loader.addProblem(tr("%1: widget '%2': %3").arg(holder, objectName(), wrong));
    if (d->form.isEmpty())
        return;
    const QString file = QFileInfo(holder).absoluteDir().filePath(d->form);
    QBoxLayout *panels = newRow(this, d->orientation, 2 * d->spacing + 4);
    QBoxLayout *panel = nullptr;
    for (int channel = d->firstChannel; channel <= lastChannel(); ++channel) {
        if ((channel - d->firstChannel) % PanelSize == 0) {
            auto *owner = new QWidget(this);
            panel = newRow(owner, d->orientation, d->spacing);
            panels->addWidget(owner);
        }
        QWidget *strip = loader.loadForChannel(file, channel, panel->parentWidget());
        if (!strip)
            return;
        panel->addWidget(strip);
    }
}

void FormRepeater::setForm(const QString &form)
{
    d->form = form;
}

void FormRepeater::setFirstChannel(int channel)
{
    d->firstChannel = qMax(1, channel);
}

void FormRepeater::setChannels(int count)
{
    d->channels = qMax(0, count);
}

void FormRepeater::setOrientation(Qt::Orientation orientation)
{
    d->orientation = orientation;
}

void FormRepeater::setSpacing(int pixels)
{
    d->spacing = qMax(0, pixels);
}
