// SPDX-License-Identifier: MIT
#include "testkit/RecordingMemory.h"
#include "testkit/TestStrip.h"
#include "tests/support/Table.h"
#include "widgets/buttons/CMenuObject.h"
#include "widgets/buttons/CPullDownMenu.h"

#include <QAccessible>
#include <QApplication>
#include <QBackingStore>
#include <QElapsedTimer>
#include <QEnterEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {

/// A pull-down menu in a window, bound to parameter (3, 7, 2) of a recording memory.
struct Rig
{
    explicit Rig(const QString &list = {}, int minimum = 0, int value = 0, bool sorted = false)
    {
        parameter().minimum = minimum;
        parameter().maximum = minimum + 1000;
        parameter().value = value;
        window.resize(300, 200);
        widget->setGeometry(20, 20, 120, 24);
        widget->setSorted(sorted);
        widget->setMenuItemList(list);
        memory.bind(*widget, 3, 7, 2);
        memory.take();
    }

    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QApplication::setActiveWindow(&window);
    }
    RecordingMemory::Parameter &parameter() { return memory.at(3, 7, 2); }
    void change(int value)
    {
        parameter().value = value;
        widget->process(nullptr, 0, 0);
    }
    QStringList writes() { return memory.take({QStringLiteral("writeValue")}); }
    CMenuObject *menu() { return widget->findChild<CMenuObject *>(); }
    QStringList lines()
    {
        QStringList texts;
        for (const QAction *action : menu()->actions())
            texts << action->text();
        return texts;
    }
    QAction *line(int number) { return menu()->actions().at(number); }
    void choose(int number)
    {
        QTest::mouseClick(menu(), Qt::LeftButton, {},
                          menu()->actionGeometry(line(number)).center());
    }
    void press() { QTest::mousePress(widget, Qt::LeftButton); }

    RecordingMemory memory;
    QWidget window;
    CPullDownMenu *widget = new CPullDownMenu(&window);
};

QString written(int value)
{
    return QStringLiteral("writeValue 3 7 2 = %1 token 9").arg(value);
}

} // namespace

class tst_CPullDownMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheListInItsOrderOrSorted_data();
    void showsTheListInItsOrderOrSorted();
    void valuesWithoutAnItemLeaveTheDisplay_data();
    void valuesWithoutAnItemLeaveTheDisplay();
    void choosingWritesItsValueAsOneUndoStep();
    void aSortedMenuTranslatesBothWays();
    void anItemWithoutAPlaceCannotBeChosen();
    void anEmptyListKeepsTheMenuAndRefusesEveryPosition();
    void theStartPositionIsWrittenOnlyIfAnotherWasShown();
    void defaultIsShownAndAlternativeIsNot();
    void aListSetWhileBoundShowsTheValueAndWritesNothing();
    void tellsItsPositionEveryTimeAndItsValueWhenItChanges();
    void twoMenusThatFollowEachOtherComeToAnEnd();
    void checksTheCurrentItemOnly();
    void stepsThroughPictures();
    void aStripFixesTheSize_data();
    void aStripFixesTheSize();
    void opensUnderItsBottomRow();
    void opensByKeyWhileItsFocusShows_data();
    void opensByKeyWhileItsFocusShows();
    void isUsedByKeyboard();
    void goesToTypedLetters();
    void aSecondPressClosesIt();
    void isLitWhileThePointerIsOverIt();
    void refusesToOpenWhileItIsLocked();
    void mayDieAtAnyTime_data();
    void mayDieAtAnyTime();
    void aListChangedWhileOpenClosesTheMenu();
    void survivesHostileLists_data();
    void survivesHostileLists();
    void speaksAsAComboBox();
};

void tst_CPullDownMenu::showsTheListInItsOrderOrSorted_data()
{
    Table<QString, bool, QStringList>()
        .row("as given", "Low;Mid;High", false, {"Low", "Mid", "High"})
        .row("empty parts", ";;Low;;High;", false, {"Low", "High"})
        .row("ampersands", "A&B;&&", false, {"A&&B", "&&&&"})
        .row("tabs and line breaks", "A\tB;C\nD", false, {"A B", "C D"})
        .row("numbers", "10;2;33", true, {"2", "10", "33"})
        .row("descending numbers", "3;2;1", true, {"1", "2", "3"})
        .row("negative and equal numbers", "5;-3;5", true, {"-3", "5", "5"})
        .row("no plain decimals", "07;10; 3;2;+1;zero;0", true,
             {"0", "2", "10", "07", " 3", "+1", "zero"})
        .row("beyond an integer", "99999999999;4", true, {"4", "99999999999"});
}

void tst_CPullDownMenu::showsTheListInItsOrderOrSorted()
{
    const auto [list, sorted, lines] = Table<QString, bool, QStringList>::fetch();
    Rig rig(list, 0, 0, sorted);
    QCOMPARE(rig.lines(), lines);
    // The order of the properties in a form does not matter.
    Rig late(list);
    late.widget->setSorted(sorted);
    QCOMPARE(late.lines(), lines);
}

void tst_CPullDownMenu::valuesWithoutAnItemLeaveTheDisplay_data()
{
    Table<int, QString>()
        .row("lowest", -5, "Low")
        .row("highest", -3, "High")
        .row("below the lowest", -6, "Mid")
        .row("above the highest", -2, "Mid")
        .row("lowest integer", std::numeric_limits<int>::min(), "Mid")
        .row("highest integer", std::numeric_limits<int>::max(), "Mid");
}

void tst_CPullDownMenu::valuesWithoutAnItemLeaveTheDisplay()
{
    const auto [value, shown] = Table<int, QString>::fetch();
    Rig rig("Low;Mid;High", -5, -4);
    QCOMPARE(rig.widget->text(), "Mid");
    rig.change(value);
    QCOMPARE(rig.widget->text(), shown);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CPullDownMenu::choosingWritesItsValueAsOneUndoStep()
{
    Rig rig("Low;Mid;High", 10, 12);
    rig.show();
    rig.press();
    rig.choose(0);
    const QStringList calls = rig.memory.take({"beginGesture", "endGesture", "undo", "write"});
    QCOMPARE(calls, QStringList({"beginGesture", "undoToken 0 1", written(10), "endGesture"}));
    QCOMPARE(rig.widget->text(), "Low");
    QVERIFY(!rig.menu()->isVisible() && !rig.menu()->openedFor());
    rig.press();
    rig.choose(0);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CPullDownMenu::aSortedMenuTranslatesBothWays()
{
    Rig rig("10;2;33", 100, 100, true);
    QCOMPARE(rig.widget->text(), "10");
    QCOMPARE(rig.widget->selectedItem(), 1);
    rig.line(0)->trigger();
    QCOMPARE(rig.writes(), QStringList(written(101)));
    rig.change(102);
    QCOMPARE(rig.widget->text(), "33");
    QCOMPARE(rig.widget->memapiToMenu(0), 1);
    QCOMPARE(rig.widget->menuToMemapi(1), 0);
    QCOMPARE(rig.widget->menuToMemapi(-1), -1);
    QCOMPARE(rig.widget->menuToMemapi(77), 77);
}

void tst_CPullDownMenu::anItemWithoutAPlaceCannotBeChosen()
{
    Rig rig("07;3;5", 0, 1, true);
    QCOMPARE(rig.lines(), QStringList({"3", "5", "07"}));
    rig.change(0);
    QCOMPARE(rig.widget->text(), "3");
    rig.line(2)->trigger();
    QCOMPARE(rig.writes(), QStringList());
    QCOMPARE(rig.widget->text(), "3");
}

void tst_CPullDownMenu::anEmptyListKeepsTheMenuAndRefusesEveryPosition()
{
    Rig rig("Low;Mid;High");
    rig.widget->setMenuItemList(";");
    QCOMPARE(rig.widget->menuItemList(), QString());
    QCOMPARE(rig.lines().size(), 3);
    rig.line(1)->trigger();
    rig.change(2);
    rig.widget->indexChanged(0);
    QCOMPARE(rig.widget->selectedItem(), 0);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CPullDownMenu::theStartPositionIsWrittenOnlyIfAnotherWasShown()
{
    Rig rig("Low;Mid;High", 0, 50);
    rig.line(0)->trigger();
    QCOMPARE(rig.writes(), QStringList());
    rig.line(1)->trigger();
    rig.line(0)->trigger();
    QCOMPARE(rig.writes(), QStringList({written(1), written(0)}));
}

void tst_CPullDownMenu::defaultIsShownAndAlternativeIsNot()
{
    Rig rig("Low;Mid;High", 0, 1);
    rig.parameter() = {0, 2, 1, 2, 0, true};
    rig.widget->process(nullptr, TMemProxy::ResetToAlternativeDefault, 0);
    QCOMPARE(rig.widget->text(), "Mid");
    rig.widget->process(nullptr, TMemProxy::ResetToDefault, 0);
    QCOMPARE(rig.widget->text(), "High");
}

void tst_CPullDownMenu::aListSetWhileBoundShowsTheValueAndWritesNothing()
{
    Rig rig({}, 20, 22);
    rig.widget->setMenuItemList("Low;Mid;High");
    QCOMPARE(rig.widget->text(), "High");
    QCOMPARE(rig.writes(), QStringList());
    rig.memory.take();
    rig.widget->setMenuItemList("Low;Mid;High");
    QCOMPARE(rig.memory.take(), QStringList());
    CPullDownMenu unbound;
    unbound.setMenuItemList("Low;Mid;High");
    QCOMPARE(unbound.text(), "Low");
}

void tst_CPullDownMenu::tellsItsPositionEveryTimeAndItsValueWhenItChanges()
{
    Rig rig("10;2;33", 5, 5, true);
    const QSignalSpy position(rig.widget, &CPullDownMenu::valueChanged);
    const QSignalSpy number(rig.widget, &CPullDownMenu::memoryAPIValueChange);
    const QSignalSpy text(rig.widget, &CPullDownMenu::textualValueChange);
    rig.change(6);
    rig.change(6);
    QCOMPARE(position, QList<QVariantList>({{0}, {0}}));
    QCOMPARE(number, QList<QVariantList>({{6}}));
    QCOMPARE(text, QList<QVariantList>({{"2"}}));
    rig.widget->process(nullptr, 0, 1);
    QCOMPARE(number.count(), 2);
}

void tst_CPullDownMenu::twoMenusThatFollowEachOtherComeToAnEnd()
{
    Rig rig("A;B;C");
    CPullDownMenu other;
    other.setMenuItemList("A;B;C");
    connect(rig.widget, &CPullDownMenu::valueChanged, &other, &CPullDownMenu::setCurrentImage);
    connect(&other, &CPullDownMenu::valueChanged, rig.widget, &CPullDownMenu::setCurrentImage);
    rig.change(2);
    QCOMPARE(other.selectedItem(), 2);
    other.setCurrentImage(1);
    QCOMPARE(rig.writes(), QStringList(written(1)));
}

void tst_CPullDownMenu::checksTheCurrentItemOnly()
{
    Rig rig("10;2;33", 0, 0, true);
    const auto checked = [&rig] {
        QStringList texts;
        for (const QAction *action : rig.menu()->actions()) {
            if (action->isChecked())
                texts << action->text();
        }
        return texts.join(u' ');
    };
    QCOMPARE(checked(), "");
    rig.widget->setWantCheck(true);
    QCOMPARE(checked(), "10");
    rig.change(2);
    QCOMPARE(checked(), "33");
    rig.menu()->actions().constLast()->trigger();
    QCOMPARE(checked(), "33");
    rig.widget->indexChanged(0);
    QCOMPARE(checked(), "2");
    rig.widget->setWantCheck(false);
    QCOMPARE(checked(), "");
}

void tst_CPullDownMenu::stepsThroughPictures()
{
    Rig rig("A;B;C");
    rig.widget->setnSubImages(3);
    rig.widget->setCombinedImage(teststrip::make(1, 3, {40, 20}));
    const QSignalSpy pictures(rig.widget, &CPullDownMenu::pixmapValueChange);
    rig.widget->decMenu();
    QCOMPARE(rig.writes(), QStringList());
    rig.widget->incMenu();
    rig.widget->incMenu();
    rig.widget->incMenu();
    QCOMPARE(rig.writes(), QStringList({written(1), written(2)}));
    QCOMPARE(rig.widget->grab().toImage().pixelColor(20, 10), teststrip::colour(0, 2));
    rig.widget->toggleImage();
    QCOMPARE(rig.writes(), QStringList(written(0)));
    rig.widget->setCurrentImage(3);
    rig.widget->setCurrentImage(-1);
    QCOMPARE(rig.widget->selectedItem(), 0);
    QCOMPARE(pictures.count(), 3);
    QCOMPARE(pictures.last().first().value<QPixmap>().size(), QSize(40, 20));
}

void tst_CPullDownMenu::aStripFixesTheSize_data()
{
    Table<int, int, QSize>()
        .row("four pictures", 4, 1, QSize(40, 20))
        .row("at two pixels per point", 4, 2, QSize(40, 20))
        .row("one picture", 1, 1, QSize(40, 80))
        .row("no pictures", 0, 1, QSize(40, 80));
}

void tst_CPullDownMenu::aStripFixesTheSize()
{
    const auto [count, ratio, size] = Table<int, int, QSize>::fetch();
    CPullDownMenu menu;
    menu.setnSubImages(count);
    menu.setCombinedImage(teststrip::make(1, 4, {40, 20}, ratio));
    QCOMPARE(menu.minimumSize(), size);
    QCOMPARE(menu.maximumSize(), size);
    menu.grab();
}

void tst_CPullDownMenu::opensUnderItsBottomRow()
{
    Rig rig("Low;Mid;High");
    rig.show();
    QTest::mousePress(rig.widget, Qt::RightButton);
    QVERIFY(!rig.menu()->isVisible());
    rig.press();
    QVERIFY(rig.menu()->isVisible());
    QCOMPARE(rig.menu()->openedFor(), rig.widget);
    QCOMPARE(rig.menu()->pos(), rig.widget->mapToGlobal(QPoint(0, rig.widget->height() - 1)));
    QVERIFY(!rig.menu()->activeAction());
}

void tst_CPullDownMenu::opensByKeyWhileItsFocusShows_data()
{
    Table<int, bool, bool>()
        .row("Space", int(Qt::Key_Space), true, true)
        .row("Return", int(Qt::Key_Return), true, true)
        .row("a letter", int(Qt::Key_A), true, false)
        .row("Space without focus rectangle", int(Qt::Key_Space), false, false);
}

void tst_CPullDownMenu::opensByKeyWhileItsFocusShows()
{
    const auto [key, focusRect, opens] = Table<int, bool, bool>::fetch();
    Rig rig("Low;Mid;High");
    rig.show();
    rig.widget->setEnableFocusRect(focusRect);
    rig.widget->setFocus();
    QTest::keyClick(rig.widget, Qt::Key(key));
    QCOMPARE(rig.menu()->isVisible(), opens);
}

void tst_CPullDownMenu::isUsedByKeyboard()
{
    Rig rig("Low;Mid;High");
    rig.show();
    rig.widget->setFocus();
    QTest::keyClick(rig.widget, Qt::Key_Return);
    QTest::keyClick(rig.menu(), Qt::Key_Down);
    QTest::keyClick(rig.menu(), Qt::Key_Down);
    QTest::keyClick(rig.menu(), Qt::Key_Escape);
    QVERIFY(!rig.menu()->isVisible());
    QCOMPARE(rig.writes(), QStringList());
    QTest::keyClick(rig.widget, Qt::Key_Space);
    QTest::keyClick(rig.menu(), Qt::Key_Up);
    QTest::keyClick(rig.menu(), Qt::Key_Return);
    QCOMPARE(rig.writes(), QStringList(written(2)));
    QVERIFY(rig.widget->hasFocus());
}

void tst_CPullDownMenu::goesToTypedLetters()
{
    Rig rig("Gate;Ducking;Compander H;Compander S;De & esser");
    rig.show();
    rig.press();
    const auto type = [&rig](const char *letters) {
        for (; *letters; ++letters)
            QTest::keyClick(rig.menu(), *letters);
        return rig.menu()->actions().indexOf(rig.menu()->activeAction());
    };
    QCOMPARE(type("c"), 2);
    QCOMPARE(type("c"), 3);
    QTest::qWait(1100);
    QCOMPARE(type("de & e"), 4);
    QTest::keyClick(rig.menu(), Qt::Key_Return);
    QCOMPARE(rig.writes(), QStringList(written(4)));
}

void tst_CPullDownMenu::aSecondPressClosesIt()
{
    Rig rig("Low;Mid;High");
    rig.show();
    rig.press();
    // While a popup is open every press goes to it.
    const QPoint point = rig.menu()->mapFromGlobal(rig.widget->mapToGlobal(QPoint(5, 5)));
    QTest::mousePress(rig.menu(), Qt::LeftButton, {}, point);
    QApplication::processEvents();
    QVERIFY(!rig.menu()->isVisible());
}

void tst_CPullDownMenu::isLitWhileThePointerIsOverIt()
{
    QApplication::setStyle("Fusion");
    Rig rig("Low;Mid;High");
    rig.show();
    const auto shown = [&rig] {
        const auto *store = static_cast<QImage *>(rig.window.backingStore()->paintDevice());
        return store->copy(rig.widget->geometry());
    };
    for (const bool inside : {true, false, true, false}) {
        rig.widget->setAttribute(Qt::WA_UnderMouse, inside);
        QEnterEvent enter({5, 5}, {25, 25}, rig.widget->mapToGlobal(QPointF(5, 5)));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(rig.widget, inside ? &enter : &leave);
        QApplication::processEvents();
        const QImage present = shown();
        rig.widget->repaint();
        QCOMPARE(present, shown());
    }
}

void tst_CPullDownMenu::refusesToOpenWhileItIsLocked()
{
    Rig rig("Low;Mid;High");
    rig.show();
    rig.widget->setDisabledUI(true);
    rig.press();
    QVERIFY(!rig.menu()->isVisible());
    rig.widget->setDisabledUI(false);
    rig.press();
    rig.widget->setEnabled(false);
    QVERIFY(!rig.menu()->isVisible());
    rig.widget->setEnabled(true);
    rig.press();
    rig.widget->hide();
    QVERIFY(!rig.menu()->isVisible());
}

void tst_CPullDownMenu::mayDieAtAnyTime_data()
{
    Table<QByteArray>()
        .row("while open", {})
        .row("position", SIGNAL(valueChanged(int)))
        .row("value", SIGNAL(memoryAPIValueChange(int)))
        .row("text", SIGNAL(textualValueChange(QString)));
}

void tst_CPullDownMenu::mayDieAtAnyTime()
{
    const auto [signal] = Table<QByteArray>::fetch();
    for (const bool byMouse : {true, false}) {
        Rig rig("Low;Mid;High");
        rig.show();
        const QPointer<CPullDownMenu> widget(rig.widget);
        QAction fate;
        connect(&fate, &QAction::triggered, this, [&rig] { delete rig.widget; });
        rig.press();
        if (signal.isEmpty()) {
            fate.trigger();
        } else {
            // The widget dies in the middle of the emission.
            connect(rig.widget, signal, &fate, SLOT(trigger()));
            if (!byMouse) {
                QTest::keyClick(rig.menu(), Qt::Key_Down);
                QTest::keyClick(rig.menu(), Qt::Key_Down);
            }
            byMouse ? rig.choose(1) : QTest::keyClick(rig.menu(), Qt::Key_Return);
        }
        QVERIFY(!widget);
        QApplication::processEvents();
    }
}

void tst_CPullDownMenu::aListChangedWhileOpenClosesTheMenu()
{
    Rig rig("Low;Mid;High");
    rig.show();
    rig.press();
    rig.widget->setMenuItemList("One;Two");
    QVERIFY(!rig.menu()->isVisible());
    rig.press();
    QVERIFY(rig.menu()->isVisible());
    // By the choice itself, too.
    connect(rig.widget, &CPullDownMenu::valueChanged, rig.widget,
            [&rig] { rig.widget->setMenuItemList("A;B;C"); });
    rig.choose(1);
    QApplication::processEvents();
    QCOMPARE(rig.lines(), QStringList({"A", "B", "C"}));
    QCOMPARE(rig.writes(), QStringList(written(1)));
}

void tst_CPullDownMenu::survivesHostileLists_data()
{
    QTest::addColumn<QString>("list");
    QTest::addColumn<int>("lines");
    QStringList many;
    for (int item = 0; item < 10000; ++item)
        many << QString::number((item * 7919) % 10000);
    QTest::newRow("separators only") << QStringLiteral(";;;;") << 0;
    QTest::newRow("one item") << QStringLiteral("Only") << 1;
    QTest::newRow("control characters") << QString::fromUtf8("\1\177;\0x;\xe2\x80\xa8", 9) << 3;
    QTest::newRow("ten thousand items") << many.join(u';') << 10000;
    QTest::newRow("ten thousand times the same") << QStringLiteral("5;").repeated(10000) << 10000;
}

void tst_CPullDownMenu::survivesHostileLists()
{
    QFETCH(QString, list);
    for (const bool sorted : {false, true}) {
        QElapsedTimer timer;
        timer.start();
        Rig rig(list, 0, 0, sorted);
        QTEST(int(rig.lines().size()), "lines");
        rig.show();
        rig.press();
        QCOMPARE(rig.menu()->isVisible(), !list.startsWith(u";;"));
        QTest::keyClick(rig.menu(), Qt::Key_Up);
        QTest::keyClick(rig.menu(), Qt::Key_Return);
        rig.widget->setWantCheck(true);
        for (const bool open : {false, true}) {
            for (int value = 0; value < 200; ++value)
                rig.change(value);
            if (!open)
                rig.press();
        }
        rig.widget->setMenuItemList("A;B");
        QCOMPARE(rig.lines(), QStringList({"A", "B"}));
        QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    }
}

void tst_CPullDownMenu::speaksAsAComboBox()
{
    Rig rig("Low;Mid;High", 0, 1);
    rig.widget->setAccessibleName("Gate type");
    rig.show();
    QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(rig.widget);
    QVERIFY(speaker);
    QCOMPARE(speaker->role(), QAccessible::ComboBox);
    QCOMPARE(speaker->text(QAccessible::Name), "Gate type");
    QCOMPARE(speaker->text(QAccessible::Value), "Mid");
    QVERIFY(speaker->state().collapsed);
    speaker->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(rig.menu()->isVisible() && speaker->state().expanded);
}

QTEST_MAIN(tst_CPullDownMenu)
#include "tst_CPullDownMenu.moc"
