// SPDX-License-Identifier: MIT
#include "editor/ProxyCommands.h"

#include "companions/memory/ParameterMemory.h"
#include "editor/BoundControls.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QUndoStack>

using boundcontrols::proxyOf;

namespace {

bool takesNumbers(const QWidget &control)
{
    return control.metaObject()->indexOfMethod("editNumber()") >= 0;
}

/// The default that resets a control and stands in its menu.
constexpr int AlternativeDefault = 1;

QByteArray copiedBytes(TMemProxy &proxy)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    proxy.copyParameters(out, 0);
    return bytes;
}

QByteArray clipboardBytes()
{
    const QMimeData *data = QApplication::clipboard()->mimeData();
    return data ? data->data(ProxyCommands::MimeType) : QByteArray();
}

} // namespace

ProxyCommands::ProxyCommands(ParameterMemory &memory, QObject *parent)
    : QObject(parent), m_memory(memory)
{
}

void ProxyCommands::watch(QWidget *control)
{
    control->installEventFilter(this);
}

void ProxyCommands::enterValue(QWidget *control)
{
    if (control && control->isEnabled() && takesNumbers(*control))
        QMetaObject::invokeMethod(control, "editNumber");
}

void ProxyCommands::resetToDefault(QWidget *control)
{
    TMemProxy *proxy = proxyOf(control);
    if (!proxy || !control->isEnabled() || proxy->disabledUI())
        return;
    if (proxy->numDefaultKind() == AlternativeDefault)
        proxy->reset2AltDefaults(0);
    else
        proxy->reset2defaults(0);
}

void ProxyCommands::copy(QWidget *control)
{
    TMemProxy *proxy = proxyOf(control);
    if (!proxy || !proxy->isAttached())
        return;
    auto *data = new QMimeData;
    data->setData(MimeType, copiedBytes(*proxy));
    data->setText(boundcontrols::valueTextOf(control));
    QApplication::clipboard()->setMimeData(data);
}

void ProxyCommands::paste(QWidget *control)
{
    if (!canPaste(control))
        return;
    const QByteArray bytes = clipboardBytes();
    const QDataStream in(bytes);
    proxyOf(control)->pasteParameters(in, 0);
}

bool ProxyCommands::canPaste(QWidget *control)
{
    const TMemProxy *proxy = proxyOf(control);
    if (!proxy || !proxy->isAttached() || !control->isEnabled() || proxy->disabledUI())
        return false;
    const QByteArray bytes = clipboardBytes();
    QDataStream in(bytes);
    const TParamInfoReader reader(&in);
    const IMemAPI::TSingleBaseAddress at = proxy->valueAddress();
    return reader.isValid() && reader.info().group == at.group && reader.info().index == at.index;
}

QMenu *ProxyCommands::contextMenu(QWidget *control) const
{
    auto *menu = new QMenu(control);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPointer<QWidget> target(control);
    const bool editable = control->isEnabled() && !proxyOf(control)->disabledUI();
    const auto add = [&](const QString &text, bool enabled, void (*command)(QWidget *)) {
        QAction *action = menu->addAction(text, menu, [=] { command(target); });
        action->setEnabled(enabled);
    };
    menu->addSection(boundcontrols::nameOf(control, m_memory));
    add(tr("&Enter value..."), editable && takesNumbers(*control), enterValue);
    add(tr("&Reset to default"), editable, resetToDefault);
    menu->addSeparator();
    add(tr("&Copy"), proxyOf(control)->isAttached(), copy);
    add(tr("&Paste"), canPaste(control), paste);
    menu->addSeparator();
    QAction *undo = m_memory.undoStack()->createUndoAction(menu, tr("&Undo"));
    menu->addAction(undo);
    return menu;
}

bool ProxyCommands::eventFilter(QObject *watched, QEvent *event)
{
    auto *control = static_cast<QWidget *>(watched);
    if (event->type() == QEvent::ContextMenu) {
        contextMenu(control)->popup(static_cast<QContextMenuEvent *>(event)->globalPos());
        return true;
    }
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
        return false;
    const auto *press = static_cast<QMouseEvent *>(event);
    if (press->button() != Qt::LeftButton || press->modifiers() != Qt::ControlModifier)
        return false;
    resetToDefault(control);
    return true;
}
