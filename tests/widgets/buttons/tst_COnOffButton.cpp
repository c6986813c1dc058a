// SPDX-License-Identifier: MIT
#include "interfaces/CSimpleNotifier.h"
#include "testkit/RecordingMemory.h"
#include "tests/support/KeyStrip.h"
#include "tests/support/Table.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/buttons/COnOffButton.h"

#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <thread>

using keystrip::grey;
using keystrip::shown;
using teststrip::colour;

namespace {

constexpr int Group = 3;
constexpr int Index = 7;
constexpr int Element = 2;

/// A key in a window, bound to one parameter, with on, off, held and disabled pictures.
struct Rig
{
    explicit Rig(int value = 0, int rows = 4)
    {
        memory.at(Group, Index, Element).value = value;
        key.setnSubImages(rows);
        key.setCombinedImage(keystrip::make(rows));
        window.resize(100, 100);
    }
    void bind()
    {
        memory.bind(key, Group, Index, Element);
        key.process(nullptr, TMemProxy::Refresh, 0);
        memory.take();
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);
    }
    void setMemory(int value)
    {
        memory.at(Group, Index, Element).value = value;
        key.process(nullptr, TMemProxy::Refresh, 0);
    }
    int memoryValue() { return memory.at(Group, Index, Element).value; }
    void click() { QTest::mouseClick(&key, Qt::LeftButton); }
    QStringList writes() { return memory.take({QStringLiteral("writeValue")}); }

    RecordingMemory memory;
    QWidget window;
    COnOffButton key{&window, "key"};
};

/// A value holder of its own, and a proxy with an address of its own.
class Holder : public CSimpleNotifier
{
public:
    class Proxy : public TMemProxy
    {
    public:
        void connectMemAPI() override {}
        void disconnectMemAPI() override {}
        void process(const Q_UINT8 *, int, Q_UINT32) override {}
    };

    Holder() : CSimpleNotifier(nullptr) {}
    int value() const override { return held; }
    void setValue(int value) override { held = value; }
    TMemProxy *valueHolder() override { return &proxy; }

    int held = 0;
    Proxy proxy;
};

class Server : public QWidget, public TCacheServer
{
public:
    explicit Server(const QString &caption) : TCacheServer(caption) {}
};

class CommandKey : public COnOffButton
{
public:
    CommandKey() { disconnectAutomaticObserver(); }
};

} // namespace

class tst_COnOffButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsWhatTheMemoryMeans_data();
    void showsWhatTheMemoryMeans();
    void writesWhatAClickMeans_data();
    void writesWhatAClickMeans();
    void everyClickIsAnUndoStepOfItsOwn();
    void pressSwitchesWithThePushTrigger();
    void heldPictureStaysAMoment();
    void secondPressWithinThatMomentIsRefused();
    void refusesOperationWithDisabledUI();
    void alternativeDefaultIsNotForKeys();
    void showsARawValueWithoutAMemory();
    void selectionObjectIsReadFirstAndWrittenLast();
    void selectionObjectIsCopied();
    void unreadyMemoryLeavesTheWriteToTheSelectionObject();
    void commandKeyWritesNothing();
    void tellsItsValueAtFirstAndWhenItChanges();

    void picture_data();
    void picture();
    void heldPictureOfFewRows();
    void columnsOutsideAreIgnored();
    void oneColumnGivesUpTheStrip();
    void densePicturesHaveHalfTheSize();
    void iconGrowsTheKey();
    void keyThatNeedNotBePaintedShowsItsBackground();
    void keysOfOneNameShareTheirLook();

    void windowThatGoesAwayLetsTheKeyGo();
    void spaceWorksTheKey_data();
    void spaceWorksTheKey();
    void focusLostLetsTheKeyGo();
    void speaksAsSomethingChecked();
    void mayDieInItsOwnClick_data();
    void mayDieInItsOwnClick();
};

void tst_COnOffButton::showsWhatTheMemoryMeans_data()
{
    Table<int, bool, int, bool>()
        .row("plain 0", 0, false, 0, false)
        .row("plain 1", 0, false, 1, true)
        .row("plain 2 is not on", 0, false, 2, false)
        .row("inverted 0", 0, true, 0, true)
        .row("inverted 1", 0, true, 1, false)
        .row("choice 3 holds 2", 3, false, 2, true)
        .row("choice 3 holds 3", 3, false, 3, false)
        .row("choice 1 holds 0", 1, false, 0, true)
        .row("inverted choice 3 holds 2", 3, true, 2, false)
        .row("inverted choice 3 holds 0", 3, true, 0, true);
}

void tst_COnOffButton::showsWhatTheMemoryMeans()
{
    const auto [clip, inverted, value, on] = Table<int, bool, int, bool>::fetch();
    Rig rig(value);
    rig.key.setBoolClipValue(clip);
    rig.key.setInvertedLogic(inverted);
    rig.bind();
    QCOMPARE(rig.key.isOn(), on);
    QCOMPARE(rig.key.state() == COnOffButton::On, on);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_COnOffButton::writesWhatAClickMeans_data()
{
    // written: -1: nothing
    Table<int, bool, bool, int, int>()
        .row("plain on", 0, false, false, 0, 1)
        .row("plain off", 0, false, false, 1, 0)
        .row("inverted on", 0, true, false, 1, 0)
        .row("inverted off", 0, true, false, 0, 1)
        .row("choice on", 3, false, false, 0, 2)
        .row("choice off is refused", 3, false, false, 2, -1)
        .row("choice off with off state", 3, false, true, 2, 0)
        .row("choice of 0 on", 1, false, false, 4, 0)
        .row("inverted choice on is refused", 3, true, false, 2, -1)
        .row("inverted choice on with off state", 3, true, true, 2, 0)
        .row("inverted choice off", 3, true, false, 0, 2);
}

void tst_COnOffButton::writesWhatAClickMeans()
{
    const auto [clip, inverted, offState, value, written] =
        Table<int, bool, bool, int, int>::fetch();
    Rig rig(value);
    rig.key.setBoolClipValue(clip);
    rig.key.setInvertedLogic(inverted);
    rig.key.setHasOffState(offState);
    rig.bind();
    const bool before = rig.key.isOn();
    rig.click();
    if (written < 0) { // whichever way
        QTest::keyClick(&rig.key, Qt::Key_Space);
        QAccessible::queryAccessibleInterface(&rig.key)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    }
    const QStringList expected =
        written < 0 ? QStringList()
                    : QStringList{QStringLiteral("writeValue 3 7 2 = %1 token 9").arg(written)};
    QCOMPARE(rig.writes(), expected);
    QCOMPARE(rig.key.isOn() != before, written >= 0);
}

void tst_COnOffButton::everyClickIsAnUndoStepOfItsOwn()
{
    Rig rig;
    rig.bind();
    rig.click();
    QCOMPARE(rig.memory.take({"beginGesture", "undoToken", "writeValue", "endGesture"}),
             QStringList(
                 {"beginGesture", "undoToken 0 1", "writeValue 3 7 2 = 1 token 9", "endGesture"}));
}

void tst_COnOffButton::pressSwitchesWithThePushTrigger()
{
    Rig rig;
    rig.key.setOnStateTrigger(COnOffButton::buttonPush);
    rig.bind();
    QTest::mousePress(&rig.key, Qt::LeftButton);
    QVERIFY(rig.key.isOn());
    QCOMPARE(rig.writes().size(), 1);
    QTest::mouseRelease(&rig.key, Qt::LeftButton);
    QVERIFY(rig.key.isOn());
    QCOMPARE(rig.writes(), QStringList());
    // Off waits for the release.
    QTRY_VERIFY(!rig.key.setClicked(false));
    QTest::mousePress(&rig.key, Qt::LeftButton);
    QVERIFY(rig.key.isOn());
    QTest::mouseRelease(&rig.key, Qt::LeftButton);
    QVERIFY(!rig.key.isOn());
}

void tst_COnOffButton::heldPictureStaysAMoment()
{
    Rig rig;
    rig.bind();
    rig.show();
    QTest::mousePress(&rig.key, Qt::LeftButton);
    QCOMPARE(shown(rig.key), colour(0, keystrip::Held));
    QTest::mouseRelease(&rig.key, Qt::LeftButton);
    QVERIFY(rig.key.isOn());
    QCOMPARE(shown(rig.key), colour(0, keystrip::Held));
    QTRY_COMPARE_WITH_TIMEOUT(shown(rig.key), colour(0, keystrip::On), 500);
}

void tst_COnOffButton::secondPressWithinThatMomentIsRefused()
{
    Rig rig;
    rig.bind();
    rig.click();
    rig.click();
    QCOMPARE(rig.writes().size(), 1);
    QTest::qWait(250);
    rig.click();
    QCOMPARE(rig.writes().size(), 1);
    QVERIFY(!rig.key.isOn());
}

void tst_COnOffButton::refusesOperationWithDisabledUI()
{
    Rig rig;
    rig.bind();
    rig.key.setDisabledUI(true);
    rig.click();
    QTest::keyClick(&rig.key, Qt::Key_Space);
    rig.key.click();
    QTest::mouseClick(&rig.key, Qt::RightButton);
    QVERIFY(!rig.key.isOn() && rig.key.isEnabled());
    QCOMPARE(rig.writes(), QStringList());
    QCOMPARE(shown(rig.key), colour(0, keystrip::Off));
}

void tst_COnOffButton::alternativeDefaultIsNotForKeys()
{
    Rig rig;
    rig.memory.at(Group, Index, Element) = {0, 1, 0, 1, 1, true};
    rig.bind();
    rig.key.process(nullptr, TMemProxy::ResetToAlternativeDefault, 0);
    QVERIFY(!rig.key.isOn());
    rig.key.process(nullptr, TMemProxy::ResetToDefault, 0);
    QVERIFY(rig.key.isOn());
}

void tst_COnOffButton::showsARawValueWithoutAMemory()
{
    COnOffButton key;
    key.setBoolClipValue(5);
    key.setNonBoolValue(4);
    QVERIFY(key.isOn());
    key.setNonBoolValue(-1);
    QVERIFY(!key.isOn());
    // Nobody to ask for a repeat: nothing happens.
    std::thread([&] { key.setNonBoolValue(4); }).join();
    QVERIFY(!key.isOn());
}

void tst_COnOffButton::selectionObjectIsReadFirstAndWrittenLast()
{
    Rig rig;
    Holder holder;
    rig.bind();
    rig.key.setSelectionObject(&holder);
    holder.held = 1;
    rig.key.process(nullptr, TMemProxy::Refresh, 0);
    QVERIFY(rig.key.isOn());
    rig.click();
    QCOMPARE(rig.writes(), QStringList{QStringLiteral("writeValue 3 7 2 = 0 token 9")});
    QCOMPARE(holder.held, 1);
}

void tst_COnOffButton::selectionObjectIsCopied()
{
    Rig rig;
    Holder holder;
    rig.bind();
    rig.memory.at(8, 1, 5).value = 1;
    rig.memory.bind(holder.proxy, 8, 1, 5);
    rig.key.setSelectionObject(&holder);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    rig.key.copyParameters(out, 0);
    QDataStream in(bytes);
    QCOMPARE(TParamInfoReader(&in).info(), (TParamInfo{8, 5, 1, 1}));
    rig.key.process(nullptr, TMemProxy::ResetToDefault, 0);
    QVERIFY(rig.memory.take({"readDefault"}).contains(QStringLiteral("readDefault 8 1 5 0")));
}

void tst_COnOffButton::unreadyMemoryLeavesTheWriteToTheSelectionObject()
{
    Rig rig;
    Holder holder;
    rig.bind();
    rig.key.setSelectionObject(&holder);
    rig.memory.readyNow = false;
    rig.click();
    QCOMPARE(holder.held, 1);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_COnOffButton::commandKeyWritesNothing()
{
    RecordingMemory memory;
    CommandKey key;
    memory.bind(key, Group, Index, Element);
    memory.take();
    const QSignalSpy states(&key, &COnOffButton::stateChanged);
    key.click();
    QCOMPARE(states.size(), 1);
    QCOMPARE(memory.take({"writeValue"}), QStringList());
}

void tst_COnOffButton::tellsItsValueAtFirstAndWhenItChanges()
{
    Rig rig;
    const QSignalSpy values(&rig.key, &COnOffButton::memoryAPIValueChange);
    const QSignalSpy states(&rig.key, &COnOffButton::stateChanged);
    rig.bind();
    QCOMPARE(values.size(), 1);
    rig.key.process(nullptr, TMemProxy::Refresh, 0);
    QCOMPARE(values.size(), 1);
    rig.key.process(nullptr, TMemProxy::Refresh, 1);
    QCOMPARE(values.size(), 2);
    rig.click();
    QCOMPARE(values.size(), 3);
    QCOMPARE(values.last().first().toInt(), 1);
    QCOMPARE(states.last().first().toInt(), int(COnOffButton::On));
}

// Pictures --------------------------------------------------------------------------------------

void tst_COnOffButton::picture_data()
{
    const auto at = [](int row) { return colour(0, row); };
    Table<int, bool, bool, bool, bool, QColor>()
        .row("on", 4, true, true, false, false, at(0))
        .row("off", 4, false, true, false, false, at(1))
        .row("swapped on", 4, true, true, true, false, at(1))
        .row("swapped off", 4, false, true, true, false, at(0))
        .row("4 rows disabled", 4, true, false, false, false, at(3))
        .row("3 rows, last for disabled", 3, true, false, false, true, at(2))
        .row("6 rows, last for disabled", 6, false, false, false, true, at(5))
        .row("2 rows disabled on", 2, true, false, false, false, grey(at(0)))
        .row("2 rows disabled off", 2, false, false, false, false, grey(at(1)))
        .row("swapped disabled on", 3, true, false, true, false, grey(at(1)));
}

void tst_COnOffButton::picture()
{
    const auto [rows, on, enabled, swapped, ownDisabled, expected] =
        Table<int, bool, bool, bool, bool, QColor>::fetch();
    Rig rig(on, rows);
    rig.key.setimagesSwapped(swapped);
    rig.key.setHasDisableImage(ownDisabled);
    rig.bind();
    rig.show();
    rig.key.setEnabled(enabled);
    QCOMPARE(shown(rig.key), expected);
    QCOMPARE(rig.key.erasePixmap().toImage().pixelColor(5, 5), expected);
}

void tst_COnOffButton::heldPictureOfFewRows()
{
    Rig rig(0, 2);
    rig.bind();
    rig.show();
    QTest::mousePress(&rig.key, Qt::LeftButton);
    QCOMPARE(shown(rig.key), colour(0, keystrip::On));
    rig.key.clickDelayDone();
    rig.key.setUseTrackingImage(false);
    rig.key.setClicked(true);
    QCOMPARE(shown(rig.key), colour(0, keystrip::Off));
}

void tst_COnOffButton::columnsOutsideAreIgnored()
{
    Rig rig;
    rig.key.setnImageCategories(3);
    rig.key.setCombinedImage(keystrip::make(4, 3));
    rig.bind();
    rig.key.setCurrentImage(2);
    QCOMPARE(shown(rig.key), colour(2, keystrip::Off));
    rig.key.setCurrentImage(-1);
    rig.key.setCurrentImage(3);
    QCOMPARE(shown(rig.key), colour(2, keystrip::Off));
    QVERIFY(!rig.key.combinedImage().isNull());
}

void tst_COnOffButton::oneColumnGivesUpTheStrip()
{
    Rig rig;
    QVERIFY(!rig.key.combinedImage().isNull());
    rig.show();
    QVERIFY(rig.key.combinedImage().isNull());
    QCOMPARE(shown(rig.key), colour(0, keystrip::Off));
    rig.key.setCombinedImage(keystrip::make(4));
    QVERIFY(rig.key.combinedImage().isNull());
}

void tst_COnOffButton::densePicturesHaveHalfTheSize()
{
    COnOffButton key;
    key.setnSubImages(4);
    key.setCombinedImage(keystrip::make(4, 1, 2));
    QCOMPARE(key.size(), keystrip::Cell);
    QCOMPARE(key.staticPixmap().size(), keystrip::Cell * 2);
    QCOMPARE(key.staticPixmap().devicePixelRatio(), 2.0);
}

void tst_COnOffButton::iconGrowsTheKey()
{
    COnOffButton key;
    QPixmap icon(50, 40);
    icon.fill(Qt::magenta);
    key.setIconSize(icon.size());
    key.setIcon(icon);
    key.setnSubImages(2);
    key.setCombinedImage(keystrip::make(2));
    QCOMPARE(key.size(), icon.size());
    const QImage image = key.staticPixmap().toImage();
    QCOMPARE(image.pixelColor(2, 2), QColor(Qt::magenta));
    QCOMPARE(image.pixelColor(10, 10), colour(0, keystrip::Off));
    QCOMPARE(image.pixelColor(39, 29), colour(0, keystrip::Off));
    QCOMPARE(image.pixelColor(40, 30), QColor(Qt::magenta));
}

void tst_COnOffButton::keyThatNeedNotBePaintedShowsItsBackground()
{
    Rig rig;
    rig.bind();
    rig.show();
    QCOMPARE(shown(rig.key), colour(0, keystrip::Off));
    // Stored only: nothing is to be seen of it until the look is taken anew.
    rig.key.setimagesSwapped(true);
    QCOMPARE(shown(rig.key), colour(0, keystrip::Off));
    rig.key.updateErasePixmapSlot();
    QCOMPARE(shown(rig.key), colour(0, keystrip::On));
}

void tst_COnOffButton::keysOfOneNameShareTheirLook()
{
    Server server(QStringLiteral("page"));
    Server other(QStringLiteral("other"));
    COnOffButton first(&server, "mute");
    COnOffButton second(&server, "mute");
    COnOffButton stranger(&other, "mute");
    for (COnOffButton *key : {&first, &stranger}) {
        key->setnSubImages(4);
        key->setCombinedImage(keystrip::make(4));
    }
    first.setBoolClipValue(4);
    for (COnOffButton *key : {&first, &second, &stranger})
        key->ensurePolished();
    QCOMPARE(second.boolClipValue(), 4);
    QCOMPARE(second.size(), keystrip::Cell);
    QCOMPARE(second.staticPixmap().cacheKey(), first.staticPixmap().cacheKey());
    QVERIFY(stranger.staticPixmap().cacheKey() != first.staticPixmap().cacheKey());
    QCOMPARE(stranger.boolClipValue(), 0);
    // While it is shared nobody cuts it again.
    const qint64 before = first.staticPixmap().cacheKey();
    second.setCombinedImage(keystrip::make(4));
    QCOMPARE(first.staticPixmap().cacheKey(), before);
}

// The operator's hands --------------------------------------------------------------------------

void tst_COnOffButton::windowThatGoesAwayLetsTheKeyGo()
{
    Rig rig;
    rig.key.setAutoRepeat(true);
    rig.key.setAutoRepeatDelay(10000);
    rig.bind();
    rig.show();
    QTest::mousePress(&rig.key, Qt::LeftButton);
    QVERIFY(rig.key.isDown());
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    QVERIFY(!rig.key.isDown());
    QVERIFY(rig.key.isOn());
    // Once only.
    QApplication::setActiveWindow(&rig.window);
    QVERIFY(rig.key.isOn());
}

void tst_COnOffButton::spaceWorksTheKey_data()
{
    Table<bool>().row("on release", false).row("on press", true);
}

void tst_COnOffButton::spaceWorksTheKey()
{
    const auto [push] = Table<bool>::fetch();
    Rig rig;
    rig.key.setOnStateTrigger(push ? COnOffButton::buttonPush : COnOffButton::buttonRelease);
    rig.bind();
    QVERIFY(rig.key.focusPolicy() & Qt::TabFocus);
    QTest::keyPress(&rig.key, Qt::Key_Space);
    QCOMPARE(rig.key.isOn(), push);
    QTest::keyRelease(&rig.key, Qt::Key_Space);
    QVERIFY(rig.key.isOn());
    QCOMPARE(rig.writes().size(), 1);
}

void tst_COnOffButton::focusLostLetsTheKeyGo()
{
    Rig rig;
    QLineEdit elsewhere(&rig.window);
    rig.bind();
    rig.show();
    rig.key.setFocus();
    QTest::keyPress(&rig.key, Qt::Key_Space);
    elsewhere.setFocus();
    QCOMPARE(rig.writes(), QStringList());
    rig.click();
    QCOMPARE(rig.writes().size(), 1);
}

void tst_COnOffButton::speaksAsSomethingChecked()
{
    Rig rig(1);
    rig.key.setNamedAddress(QStringLiteral("kInputOn/kOn"));
    rig.bind();
    QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.key);
    QCOMPARE(speaker->role(), QAccessible::CheckBox);
    QVERIFY(speaker->state().checkable && speaker->state().checked && speaker->state().focusable);
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Input On On 3"));
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("<1>"));
    speaker->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    QVERIFY(!speaker->state().checked);
    QCOMPARE(rig.writes().size(), 1);
}

void tst_COnOffButton::mayDieInItsOwnClick_data()
{
    Table<bool, bool>()
        .row("on release", false, false)
        .row("on press", true, false)
        .row("by Space", true, true);
}

void tst_COnOffButton::mayDieInItsOwnClick()
{
    const auto [push, keyboard] = Table<bool, bool>::fetch();
    for (const char *signal : {SIGNAL(stateChanged(int)), SIGNAL(memoryAPIValueChange(int)),
                               SIGNAL(textualValueChange(QString)), SIGNAL(altAddressMode(bool)),
                               SIGNAL(pressed()), SIGNAL(released()), SIGNAL(clicked())}) {
        RecordingMemory memory;
        QWidget window;
        QAction fate;
        const QPointer<COnOffButton> key = new COnOffButton(&window);
        key->setOnStateTrigger(push ? COnOffButton::buttonPush : COnOffButton::buttonRelease);
        memory.bind(*key, Group, Index, Element);
        window.show();
        connect(key, signal, &fate, SLOT(trigger()));
        connect(&fate, &QAction::triggered, this, [&] { delete key; });
        keyboard ? QTest::keyPress(key.data(), Qt::Key_Space)
                 : QTest::mousePress(key.data(), Qt::LeftButton);
        if (key)
            keyboard ? QTest::keyRelease(key.data(), Qt::Key_Space)
                     : QTest::mouseRelease(key.data(), Qt::LeftButton);
        QVERIFY2(!key, signal);
    }
    QTest::qWait(150); // longer than a key stays held
}

QTEST_MAIN(tst_COnOffButton)
#include "tst_COnOffButton.moc"
