// SPDX-License-Identifier: MIT
#include "widgets/buttons/CMenuObject.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace {

/// A pause in typing after which a new search begins.
constexpr int ForgetTypedAfter = 1000;

/// More lines than this do not fit on a screen in columns; and as an open menu lays itself out anew
/// when an action changes, that takes too long with more.
constexpr int LongMenu = 500;

/// Tabs would begin a shortcut, and line breaks a second line.
QString menuText(QString text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar each) { return each.category() == QChar::Other_Control; }, u' ');
    return text.replace(u'&', QLatin1String("&&"));
}

QString plainText(const QAction &action)
{
    return action.text().replace(QLatin1String("&&"), QLatin1String("&"));
}

} // namespace

CMenuObject::CMenuObject(QWidget *parent) : QMenu(parent)
{
    m_forget.setSingleShot(true);
    m_forget.setInterval(ForgetTypedAfter);
    connect(&m_forget, &QTimer::timeout, this, [this] { m_typed.clear(); });
    connect(this, &QMenu::aboutToHide, this, [this] {
        m_widget = nullptr;
        m_typed.clear();
    });
    connect(this, &QMenu::triggered, this, [this](const QAction *action) {
        m_telling = true;
        Q_EMIT chosen(action->data().toInt());
        m_telling = false;
    });
}

void CMenuObject::discard()
{
    disconnect();
    if (!m_telling) {
        delete this;
        return;
    }
    // A menu goes on with itself after it has told.
    close();
    setParent(nullptr);
    deleteLater();
}

void CMenuObject::clearItems()
{
    close();
    m_actions.clear();
    m_wanted = nullptr;
    m_checked = nullptr;
    // The last first: a menu searches its actions from the front for each one that goes. Later,
    // because one of them may be telling just now that it was chosen.
    const QList<QAction *> all = actions();
    for (auto action = all.crbegin(); action != all.crend(); ++action) {
        removeAction(*action);
        (*action)->deleteLater();
    }
}

void CMenuObject::appendItem(const QString &text, int identifier)
{
    auto *action = new QAction(menuText(text), this);
    action->setData(identifier);
    addAction(action);
    if (!m_actions.contains(identifier))
        m_actions.insert(identifier, action);
}

void CMenuObject::checkItem(int identifier)
{
    m_wanted = m_actions.value(identifier);
    applyCheck();
}

void CMenuObject::uncheck()
{
    m_wanted = nullptr;
    applyCheck();
}

/// Only the checked item is checkable: the others would show an empty box.
void CMenuObject::applyCheck()
{
    if (isVisible() && actions().size() > LongMenu)
        return;
    if (m_checked && m_checked != m_wanted) {
        m_checked->setChecked(false);
        m_checked->setCheckable(false);
    }
    m_checked = m_wanted;
    if (m_checked) {
        m_checked->setCheckable(true);
        m_checked->setChecked(true);
    }
}

void CMenuObject::openFor(QWidget *widget)
{
    if (actions().isEmpty())
        return;
    m_widget = widget;
    applyCheck();
    if (actions().size() > LongMenu)
        setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
    else if (!styleSheet().isEmpty())
        setStyleSheet(QString());
    // Deliberate: the bottom row of the widget, not the one below, so that they overlap by one.
    popup(widget->mapToGlobal(widget->rect().bottomLeft()));
}

void CMenuObject::keyPressEvent(QKeyEvent *event)
{
    if (typeAhead(*event))
        event->accept();
    else
        QMenu::keyPressEvent(event);
}

/// Goes to the next item that begins with what was typed; one letter again and again steps through
/// the items with that letter. A space belongs to a search, but does not begin one.
bool CMenuObject::typeAhead(const QKeyEvent &event)
{
    const QString text = event.text();
    const bool plain = !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
    if (!plain || text.size() != 1 || !text.at(0).isPrint() || (text == u" " && m_typed.isEmpty()))
        return false;
    m_forget.start();
    if (m_typed != text)
        m_typed += text;
    const QList<QAction *> all = actions();
    const qsizetype from = all.indexOf(activeAction()) + (m_typed.size() == 1 ? 1 : 0);
    for (qsizetype step = 0; step < all.size(); ++step) {
        QAction *action = all.at((std::max<qsizetype>(from, 0) + step) % all.size());
        if (plainText(*action).startsWith(m_typed, Qt::CaseInsensitive)) {
            setActiveAction(action);
            break;
        }
    }
    return true;
}

void CMenuObject::mousePressEvent(QMouseEvent *event)
{
    // A press on the open widget closes the menu; handed on to the widget it would open it again.
    const QPoint point = event->globalPosition().toPoint();
    if (m_widget && m_widget->rect().contains(m_widget->mapFromGlobal(point))
        && !rect().contains(event->position().toPoint()))
        setAttribute(Qt::WA_NoMouseReplay);
    QMenu::mousePressEvent(event);
}
