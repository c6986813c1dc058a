// SPDX-License-Identifier: MIT
#include "editor/soak/Operator.h"

#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "editor/soak/SoakWindows.h"
#include "interfaces/TMemProxy.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>

#include <array>

namespace {

struct Key
{
    Qt::Key key;
    const char *text;
};

constexpr std::array Keys{
    Key{Qt::Key_Up, ""},         Key{Qt::Key_Down, ""},   Key{Qt::Key_Left, ""},
    Key{Qt::Key_Right, ""},      Key{Qt::Key_PageUp, ""}, Key{Qt::Key_PageDown, ""},
    Key{Qt::Key_Home, ""},       Key{Qt::Key_End, ""},    Key{Qt::Key_Tab, "\t"},
    Key{Qt::Key_Backtab, ""},    Key{Qt::Key_Space, " "}, Key{Qt::Key_Return, "\r"},
    Key{Qt::Key_Escape, "\x1b"}, Key{Qt::Key_5, "5"},     Key{Qt::Key_Minus, "-"},
    Key{Qt::Key_F2, ""},         Key{Qt::Key_Delete, ""}, Key{Qt::Key_A, "a"},
};

/// The keys with which an operator gets out of a popup: a number, Return, Escape.
constexpr std::array PopupKeys{Key{Qt::Key_Down, ""}, Key{Qt::Key_3, "3"},
                               Key{Qt::Key_Return, "\r"}, Key{Qt::Key_Escape, "\x1b"}};

bool isBound(const QWidget *widget)
{
    const auto *proxy = dynamic_cast<const TMemProxy *>(widget);
    return proxy && proxy->isAttached();
}

/// Commands that leave the window as it is, and open no box that waits for an answer elsewhere.
bool isHarmless(const QAction &action)
{
    return action.isEnabled() && !action.isSeparator() && !action.menu() && action.parent()
           && !action.text().isEmpty();
}

} // namespace

void Operator::act()
{
    if (m_hand.isHolding() && m_movesLeft > 0) {
        --m_movesLeft;
        m_hand.moveBy(m_way * m_dice.between(-0.3, 1));
    } else if (m_hand.isHolding()) {
        m_hand.release();
    } else if (!answerPopup() && !answerBox()) {
        begin();
    }
}

void Operator::begin()
{
    const QPointer<QWidget> control = anyControl();
    if (!control)
        return;
    ++m_operations;
    if (QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(control))
        spoken->text(QAccessible::Value);
    struct Gesture
    {
        double share;
        const char *name;
        void (Operator::*make)(QWidget &);
    };
    static constexpr Gesture gestures[] = {{0.35, "drag", &Operator::drag},
                                           {0.25, "click", &Operator::click},
                                           {0.15, "wheel", &Operator::wheel},
                                           {0.22, "keys", &Operator::typeKeys},
                                           {1, "menu command", &Operator::useCommand}};
    double left = m_dice.unit();
    const Gesture *chosen = gestures;
    while (left >= chosen->share)
        left -= chosen++->share;
    m_gesture = chosen->name;
    (this->*chosen->make)(*control);
}

void Operator::drag(QWidget &control)
{
    m_movesLeft = m_dice.below(12);
    m_way = {m_dice.between(-15, 15), m_dice.between(-15, 15)};
    m_hand.press(&control, placeIn(control));
}

void Operator::click(QWidget &control)
{
    const QPointF at = placeIn(control);
    const double choice = m_dice.unit();
    if (choice < 0.1) {
        m_hand.doubleClick(&control, at);
        return;
    }
    const Qt::MouseButton button = choice < 0.2 ? Qt::RightButton : Qt::LeftButton;
    const auto modifiers = choice > 0.95   ? Qt::KeyboardModifiers(Qt::ControlModifier)
                           : choice > 0.92 ? Qt::KeyboardModifiers(Qt::ShiftModifier)
                                           : Qt::KeyboardModifiers();
    m_movesLeft = 0;
    m_hand.press(&control, at, button, modifiers);
}

void Operator::wheel(QWidget &control)
{
    const int delta =
        m_dice.below(2) ? QWheelEvent::DefaultDeltasPerStep : -QWheelEvent::DefaultDeltasPerStep;
    m_hand.wheel(&control, placeIn(control), delta);
}

void Operator::typeKeys(QWidget &control)
{
    QWidget *window = control.window();
    if (!window->isActiveWindow())
        window->activateWindow();
    if (m_dice.below(2))
        control.setFocus(Qt::OtherFocusReason);
    const Key &key = Keys[static_cast<size_t>(m_dice.below(static_cast<int>(Keys.size())))];
    m_hand.key(window, key.key, QString::fromLatin1(key.text),
               m_dice.below(10) ? Qt::NoModifier : Qt::ShiftModifier);
}

/// A command of a window's menus.
void Operator::useCommand(QWidget &)
{
    auto *window = qobject_cast<QMainWindow *>(anyWindow());
    if (!window)
        return;
    const QList<QAction *> menus = window->menuBar()->actions();
    QMenu *menu = menus[m_dice.below(static_cast<int>(menus.size()))]->menu();
    const QList<QAction *> commands = menu ? menu->actions() : QList<QAction *>();
    if (commands.isEmpty())
        return;
    QAction *command = commands[m_dice.below(static_cast<int>(commands.size()))];
    if (isHarmless(*command))
        command->trigger();
}

/// True when a popup was open: it is worked at until it closes.
bool Operator::answerPopup()
{
    QWidget *popup = QApplication::activePopupWidget();
    if (!popup)
        return false;
    m_gesture = "popup";
    if (m_dice.below(3) == 0) {
        m_movesLeft = 0;
        m_hand.press(popup, placeIn(*popup));
        return true;
    }
    const Key &key =
        PopupKeys[static_cast<size_t>(m_dice.below(static_cast<int>(PopupKeys.size())))];
    m_hand.key(popup, key.key, QString::fromLatin1(key.text));
    return true;
}

/// True when a box waited for an answer: it gets one.
bool Operator::answerBox()
{
    QWidget *box = QApplication::activeModalWidget();
    if (!box)
        return false;
    m_gesture = "answer";
    const auto answers = box->findChildren<QAbstractButton *>();
    if (answers.isEmpty() || m_dice.below(3) == 0) {
        m_hand.key(box, Qt::Key_Escape, QStringLiteral("\x1b"));
        return true;
    }
    QAbstractButton *answer = answers[m_dice.below(static_cast<int>(answers.size()))];
    m_movesLeft = 0;
    m_hand.press(answer, QRectF(answer->rect()).center());
    return true;
}

QWidget *Operator::anyWindow()
{
    return m_windows.window(m_dice.below(m_windows.count()));
}

/// Of a window that is open, on its current page, and in sight there. Now and then it is something else
/// than a control: a key of a list, a tab, a part of the page.
QWidget *Operator::anyControl()
{
    auto *window = static_cast<MainWindow *>(anyWindow());
    if (!window || !window->isVisible())
        return nullptr;
    QScrollArea *page = window->pages().page(window->pages().currentIndex());
    constexpr int tries = 20;
    QWidget *found = page;
    for (int i = 0; i < tries; ++i) {
        QWidget *view = page->viewport();
        const QPoint at(m_dice.below(std::max(1, view->width())),
                        m_dice.below(std::max(1, view->height())));
        found = view->childAt(at);
        if (found && (isBound(found) || m_dice.below(tries) == 0))
            return found;
    }
    return found ? found : page->viewport();
}

QPointF Operator::placeIn(const QWidget &widget)
{
    return {m_dice.unit() * widget.width(), m_dice.unit() * widget.height()};
}
