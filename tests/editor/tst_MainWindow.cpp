// SPDX-License-Identifier: MIT
#include "editor/MainWindow.h"

#include "editor/ProxyCommands.h"
#include "editor/soak/WindowPicture.h"
#include "tests/editor/EditorRig.h"
#include "widgets/controls/CDial.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSpinBox>
#include <QStatusBar>
#include <QUndoStack>

namespace {

const QString Strips = "channel-strips";
const QString Gain = "kInputHA/kGain";

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_rig = std::make_unique<EditorRig>(); }
    void cleanup() { m_rig.reset(); }

    void dragIsUndoneAndRedoneFromTheMenu();
    void statusLineFollowsPointerFocusAndWheel();
    void statusLineForgetsAControlThatDies();
    void contextMenuActsOnItsControl();
    void pasteFitsOnlyTheSameParameter();
    void controlClickResetsToTheControlsOwnDefault();
    void channelChooserRebindsTheSelectedChannel();
    void onlineLampFollowsTheConsole();
    void aMessageInTheStatusBarLeavesNothingBehind();
    void verticalDragIsSwitchedFromTheMenu();

private:
    QString status(const char *name) const
    {
        return m_rig->window->findChild<QLabel *>(name)->text();
    }
    QAction *command(const QString &menuText, const QString &text) const;
    static QAction *actionIn(const QWidget *menu, const QString &text);
    void dragUp(QWidget *control, int pixels) const;

    std::unique_ptr<EditorRig> m_rig;
};

QAction *TestMainWindow::actionIn(const QWidget *menu, const QString &text)
{
    for (QAction *action : menu->actions()) {
        if (QString(action->text()).remove('&').startsWith(text))
            return action;
    }
    return nullptr;
}

QAction *TestMainWindow::command(const QString &menuText, const QString &text) const
{
    return actionIn(actionIn(m_rig->window->menuBar(), menuText)->menu(), text);
}

void TestMainWindow::dragUp(QWidget *control, int pixels) const
{
    const QPoint from = control->rect().center() + QPoint(0, 10);
    QTest::mousePress(control, Qt::LeftButton, {}, from);
    for (int moved = 1; moved <= pixels; ++moved) {
        const QPointF at = from - QPoint(0, moved);
        QMouseEvent move(QEvent::MouseMove, at, control->mapToGlobal(at), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(control, &move);
    }
    QTest::mouseRelease(control, Qt::LeftButton, {}, from - QPoint(0, pixels));
}

void TestMainWindow::dragIsUndoneAndRedoneFromTheMenu()
{
    CDial::setVerticalMode(true);
    QWidget *gain = m_rig->control(Strips, "Input 2 gain");
    const int before = m_rig->value(Gain, 1);
    dragUp(gain, 9);
    CDial::setVerticalMode(false);
    const int after = m_rig->value(Gain, 1);
    QVERIFY(after > before);

    QAction *undo = command("Edit", "Undo");
    QCOMPARE(QString(undo->text()).remove('&'), QString("Undo Input 2 HA Gain"));
    undo->trigger();
    QCOMPARE(m_rig->value(Gain, 1), before);
    QVERIFY(!undo->isEnabled());
    QApplication::processEvents();
    QCOMPARE(static_cast<CDial *>(gain)->value(), before);
    command("Edit", "Redo")->trigger();
    QCOMPARE(m_rig->value(Gain, 1), after);
}

void TestMainWindow::statusLineFollowsPointerFocusAndWheel()
{
    QWidget *gain = m_rig->control(Strips, "Input 10 gain");
    QWidget *pan = m_rig->control(Strips, "Input 12 pan");
    const QString idle = status("touchedName");

    const auto point = [gain] {
        QEnterEvent enter({5, 5}, {5, 5}, gain->mapToGlobal(QPointF(5, 5)));
        QApplication::sendEvent(gain, &enter);
    };
    const auto leave = [gain] {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(gain, &event);
    };
    point();
    QCOMPARE(status("touchedName"), QString("Input 10 gain"));
    QCOMPARE(status("touchedValue"), QString("-10 dB"));
    QCOMPARE(status("touchedAddress"), QString("09kInputHA/kGain"));
    m_rig->memory.writeValue(10, 0, 9, -40, 0);
    QApplication::processEvents();
    QCOMPARE(status("touchedValue"), QString("-40 dB"));

    pan->setFocus();
    QCOMPARE(status("touchedName"), QString("Input 12 pan"));
    point();
    leave();
    QCOMPARE(status("touchedName"), QString("Input 12 pan"));
    gesture::wheel(*gain, 2);
    QCOMPARE(status("touchedName"), QString("Input 10 gain"));
    QCOMPARE(status("touchedValue"), QString("-38 dB"));
    leave();
    QCOMPARE(status("touchedName"), QString("Input 10 gain"));

    gain->clearFocus();
    QCOMPARE(status("touchedName"), idle);
    QVERIFY(status("touchedValue").isEmpty());
}

void TestMainWindow::statusLineForgetsAControlThatDies()
{
    QWidget *gain = m_rig->control(Strips, "Input 1 gain");
    gain->setFocus();
    QCOMPARE(status("touchedName"), QString("Input 1 gain"));
    delete gain;
    QVERIFY(!m_rig->window->touchedControl().control());
    QVERIFY(status("touchedValue").isEmpty());
    command("Control", "Reset")->trigger();
}

void TestMainWindow::contextMenuActsOnItsControl()
{
    QWidget *first = m_rig->control(Strips, "Input 1 gain");
    QWidget *second = m_rig->control(Strips, "Input 2 gain");
    gesture::wheel(*first, 10);
    const int copied = m_rig->value(Gain, 0);
    const auto open = [](QWidget *control) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5},
                                control->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(control, &event);
        return control->findChild<QMenu *>();
    };
    QMenu *menu = open(first);
    QVERIFY(menu && menu->isVisible());
    actionIn(menu, "Copy")->trigger();
    menu->close();
    QCOMPARE(QApplication::clipboard()->text(), QString("0 dB"));

    menu = open(second);
    actionIn(menu, "Paste")->trigger();
    QCOMPARE(m_rig->value(Gain, 1), copied);
    actionIn(menu, "Undo")->trigger();
    QCOMPARE(m_rig->value(Gain, 1), -10);
    actionIn(menu, "Enter value")->trigger();
    QVERIFY(second->findChild<QFrame *>());
    menu->close();
}

void TestMainWindow::pasteFitsOnlyTheSameParameter()
{
    QWidget *gain = m_rig->control(Strips, "Input 1 gain");
    QWidget *pan = m_rig->control(Strips, "Input 1 pan");
    ProxyCommands::copy(gain);
    QVERIFY(ProxyCommands::canPaste(m_rig->control(Strips, "Input 48 gain")));
    QVERIFY(!ProxyCommands::canPaste(pan));
    ProxyCommands::paste(pan);
    QCOMPARE(m_rig->value("kInputPan/kPan", 0), 0);

    for (const QByteArray &bytes : {QByteArray(), QByteArray("CP"), QByteArray(64, '\xff')}) {
        auto *data = new QMimeData;
        data->setData(ProxyCommands::MimeType, bytes);
        QApplication::clipboard()->setMimeData(data);
        QVERIFY(!ProxyCommands::canPaste(gain));
        ProxyCommands::paste(gain);
    }
    QApplication::clipboard()->setText("0 dB");
    QVERIFY(!ProxyCommands::canPaste(gain));
    QCOMPARE(m_rig->memory.undoStack()->count(), 0);
}

void TestMainWindow::controlClickResetsToTheControlsOwnDefault()
{
    QWidget *pan = m_rig->control(Strips, "Input 5 pan");
    gesture::wheel(*pan, 10);
    QVERIFY(m_rig->value("kInputPan/kPan", 4) != 0);
    QTest::mouseClick(pan, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(m_rig->value("kInputPan/kPan", 4), 0);
    command("Edit", "Undo")->trigger();
    QVERIFY(m_rig->value("kInputPan/kPan", 4) != 0);

    // A send stands at minus infinity by default; its knob resets to 0 dB.
    QWidget *send = m_rig->control(Strips, "Input 5 send to mix 1");
    QTest::mouseClick(send, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(m_rig->value("kInputSend/kMix01Level", 4), 0);

    send->setEnabled(false);
    ProxyCommands::resetToDefault(send);
    QTest::mouseClick(send, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(m_rig->value("kInputSend/kMix01Level", 4), 0);
}

void TestMainWindow::channelChooserRebindsTheSelectedChannel()
{
    QWidget *gain = m_rig->control("selected-channel", "Head amp gain");
    auto *chooser = m_rig->window->findChild<QSpinBox *>("channelNumber");
    QVERIFY(chooser->isVisible());
    QCOMPARE(chooser->maximum(), 48);
    gesture::wheel(*gain, 2);
    QCOMPARE(m_rig->value(Gain, 0), -8);

    chooser->setValue(20);
    QCOMPARE(static_cast<CDial *>(gain)->value(), -10);
    gesture::wheel(*gain, -2);
    QCOMPARE(m_rig->value(Gain, 19), -12);
    QCOMPARE(m_rig->value(Gain, 0), -8);
    QVERIFY(m_rig->window->pages().tabText(1).endsWith("20"));

    m_rig->screen(Strips);
    QVERIFY(!chooser->isVisible());
}

void TestMainWindow::onlineLampFollowsTheConsole()
{
    QCOMPARE(status("onlineWord"), QString("Online"));
    command("Console", "Online")->trigger();
    m_rig->console.step(1000);
    QTRY_COMPARE(status("onlineWord"), QString("Offline"));
    command("Console", "Online")->trigger();
    m_rig->console.step(1000);
    QTRY_COMPARE(status("onlineWord"), QString("Online"));
}

// Some letters reach beyond the place that a status bar paints anew for another message.
void TestMainWindow::aMessageInTheStatusBarLeavesNothingBehind()
{
    MainWindow &window = *m_rig->window;
    m_rig->screen("bus-patch");
    for (char first = '!'; first <= '~'; ++first) {
        const QString message(QLatin1Char{first});
        window.statusBar()->showMessage(message);
        windowpicture::repainted(window);
        window.statusBar()->showMessage("-");
        const QImage shown = windowpicture::present(window);
        QVERIFY2(windowpicture::differing(shown, windowpicture::repainted(window)).isEmpty(),
                 qPrintable(message));
    }
}

void TestMainWindow::verticalDragIsSwitchedFromTheMenu()
{
    QAction *vertical = command("Control", "Vertical drag");
    QVERIFY(!CDial::verticalMode());
    vertical->trigger();
    QVERIFY(CDial::verticalMode());
    vertical->trigger();
    QVERIFY(!CDial::verticalMode());
}

QTEST_MAIN(TestMainWindow)
#include "tst_MainWindow.moc"
