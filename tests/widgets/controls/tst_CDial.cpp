// SPDX-License-Identifier: MIT
// The dial in the operator's hands: real mouse, wheel and key events, pictures on the screen.
#include "interfaces/IEditorExtensions.h"
#include "tests/support/DialRig.h"
#include "tests/support/PaintWatch.h"
#include "tests/support/Table.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/controls/CDialTip.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPixmapCache>

Q_DECLARE_METATYPE(Qt::KeyboardModifiers)

namespace {

/// A container that is an editor and a cache scope.
class Frame : public QWidget, public TCacheServer, public IEditorExtensions
{
public:
    explicit Frame(const QString &caption) : TCacheServer(caption) {}
    void controlStepped(QWidget *control) override { stepped.append(control); }
    QList<QWidget *> stepped;
};

QColor centreOf(QWidget &widget)
{
    const QImage image = widget.grab().toImage();
    return image.pixelColor(image.rect().center());
}

} // namespace

class tst_CDial : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void startsOutsideEveryParametersRange();
    void aClickChangesNothing();
    void circularDragWritesEveryStepInOneGesture();
    void pressesThatTheDialLeavesToOthers_data();
    void pressesThatTheDialLeavesToOthers();
    void movesAreToldOnce();
    void verticalDragFollowsStraightMovement_data();
    void verticalDragFollowsStraightMovement();
    void verticalDragAddsUpFractionsOfPixels();
    void hidingOrDisablingEndsADrag_data();
    void hidingOrDisablingEndsADrag();
    void wheelStepsByWholeNotches_data();
    void wheelStepsByWholeNotches();
    void wheelTellsTheNearestEditor();
    void keysStep_data();
    void keysStep();
    void stepperTakesItsStepsFromTheMemory();
    void otherKeysGoOnToTheParent();
    void typedNumbersAreWritten_data();
    void typedNumbersAreWritten();
    void aTypedDigitOpensTheFieldAndReturnWritesOnce();
    void tipFollowsPointerAndText();
    void picturesFollowTheValue();
    void disabledLook_data();
    void disabledLook();
    void greyIsTakenFromColumnZero();
    void categoriesAreKeptInThreeBits();
    void sharpPicturesKeepTheirSize();
    void nothingIsPaintedForAValueInTheSameRow();
    void transparentDialsLetTheParentThrough();
    void erasePixmapsAreSharedByCaptionNameAndRow();
    void speaksTheDisplayText();
};

void tst_CDial::cleanup()
{
    CDial::setVerticalMode(false);
    QPixmapCache::clear();
}

void tst_CDial::startsOutsideEveryParametersRange()
{
    const CDial dial(nullptr, "gain");
    QCOMPARE(dial.minimum(), -559038801);
    QCOMPARE(dial.maximum(), 2125315823);
    QCOMPARE(dial.value(), -559038801);
    QCOMPARE(dial.pageStep(), 10);
    QCOMPARE(int(dial.focusPolicy()), 15);
    QVERIFY(!dial.wrapping());
    QCOMPARE(dial.objectName(), QStringLiteral("gain"));
}

void tst_CDial::aClickChangesNothing()
{
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.show();
    QSignalSpy released(&rig.dial, &CDial::sliderReleased);
    rig.press(rig.around(90));
    QVERIFY(rig.dial.isSliderDown());
    rig.release(rig.around(90));
    QCOMPARE(released.count(), 1);
    QVERIFY(!rig.dial.isSliderDown());
    QCOMPARE(rig.dial.value(), 40);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CDial::circularDragWritesEveryStepInOneGesture()
{
    DialRig rig(0, 270, 135);
    rig.bind();
    rig.show();
    rig.press(rig.around(0));
    rig.memory.take();
    rig.moveTo(rig.around(10));
    const QStringList calls =
        rig.memory.take({"beginGesture", "undoToken", "writeValue", "endGesture"});
    QCOMPARE(calls.size(), 3);
    QCOMPARE(calls.at(0), QStringLiteral("beginGesture"));
    QCOMPARE(calls.at(1), QStringLiteral("undoToken 0 1"));
    QCOMPARE(calls.at(2), QStringLiteral("writeValue 3 7 2 = %1 token 9").arg(rig.dial.value()));
    QVERIFY(qAbs(rig.dial.value() - 145) <= 1);
    rig.moveTo(rig.around(20));
    rig.release(rig.around(20));
    const QStringList rest = rig.memory.take({"writeValue", "endGesture"});
    QCOMPARE(rest.size(), 2);
    QCOMPARE(rest.last(), QStringLiteral("endGesture"));
}

void tst_CDial::pressesThatTheDialLeavesToOthers_data()
{
    Table<Qt::MouseButton, Qt::KeyboardModifiers>()
        .row("right", Qt::RightButton, Qt::KeyboardModifiers())
        .row("with Shift", Qt::LeftButton, Qt::KeyboardModifiers(Qt::ShiftModifier))
        .row("with Ctrl", Qt::LeftButton, Qt::KeyboardModifiers(Qt::ControlModifier));
}

void tst_CDial::pressesThatTheDialLeavesToOthers()
{
    const auto [button, modifiers] = Table<Qt::MouseButton, Qt::KeyboardModifiers>::fetch();
    DialRig rig(0, 100, 40);
    rig.bind();
    rig.show();
    rig.press(rig.around(0), button, modifiers);
    rig.moveTo(rig.around(40), button);
    QVERIFY(!rig.dial.isSliderDown());
    QCOMPARE(rig.dial.value(), 40);
    QCOMPARE(rig.writes(), QStringList());
}

void tst_CDial::movesAreToldOnce()
{
    DialRig rig(0, 10, 5);
    rig.bind();
    rig.show();
    rig.press(rig.around(0));
    rig.moveTo(rig.around(0));
    QSignalSpy moved(&rig.dial, &CDial::sliderMoved);
    rig.moveTo(rig.around(2));
    QCOMPARE(moved.count(), 1);
    rig.moveTo(rig.around(60));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.last().first().toInt(), rig.dial.value());
}

void tst_CDial::verticalDragFollowsStraightMovement_data()
{
    Table<int, QPoint, int>()
        .row("up raises", 100, QPoint(0, -5), 55)
        .row("right raises", 100, QPoint(5, 0), 55)
        .row("down lowers", 100, QPoint(0, 5), 45)
        .row("held at the maximum", 100, QPoint(0, -200), 100)
        .row("held at the minimum", 100, QPoint(-200, 0), 0)
        .row("a range of 1000 goes by 7 a pixel", 1000, QPoint(0, -1), 57);
}

void tst_CDial::verticalDragFollowsStraightMovement()
{
    const auto [maximum, moved, value] = Table<int, QPoint, int>::fetch();
    DialRig rig(0, maximum, 50);
    rig.bind();
    rig.show();
    CDial::setVerticalMode(true);
    const QPoint from(50, 50);
    rig.press(from);
    rig.moveTo(from);
    QCOMPARE(rig.writes(), QStringList());
    rig.moveTo(from + moved);
    QCOMPARE(rig.dial.value(), value);
    QCOMPARE(rig.parameter().value, rig.dial.value());
}

void tst_CDial::verticalDragAddsUpFractionsOfPixels()
{
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    CDial::setVerticalMode(true);
    rig.press({50, 50});
    for (double y = 50; y >= 40; y -= 0.5)
        rig.moveTo(QPointF(50, y));
    QCOMPARE(rig.dial.value(), 60);
}

void tst_CDial::hidingOrDisablingEndsADrag_data()
{
    Table<bool>().row("hidden", true).row("disabled", false);
}

void tst_CDial::hidingOrDisablingEndsADrag()
{
    const auto [hide] = Table<bool>::fetch();
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    rig.press(rig.around(0));
    rig.moveTo(rig.around(10));
    rig.memory.take();
    hide ? rig.dial.hide() : rig.dial.setEnabled(false);
    QCOMPARE(rig.memory.take({"endGesture"}).size(), 1);
    QVERIFY(!rig.dial.isSliderDown());
    const int value = rig.dial.value();
    rig.moveTo(rig.around(80));
    QCOMPARE(rig.dial.value(), value);
}

void tst_CDial::wheelStepsByWholeNotches_data()
{
    Table<int, QPointF, int>()
        .row("a notch up", 120, QPointF(50, 50), 51)
        .row("a notch down", -120, QPointF(50, 50), 49)
        .row("three notches", 360, QPointF(50, 50), 53)
        .row("half a notch", 60, QPointF(50, 50), 50)
        .row("truncated towards zero", -239, QPointF(50, 50), 49)
        .row("outside the dial", 120, QPointF(150, 50), 50);
}

void tst_CDial::wheelStepsByWholeNotches()
{
    const auto [delta, at, value] = Table<int, QPointF, int>::fetch();
    DialRig rig(0, 100, 50);
    rig.bind();
    gesture::wheelBy(rig.dial, delta, at);
    QCOMPARE(rig.dial.value(), value);
    QCOMPARE(rig.writes().size(), rig.dial.value() == 50 ? 0 : 1);
}

void tst_CDial::wheelTellsTheNearestEditor()
{
    Frame editor({});
    Frame inner({});
    inner.setParent(&editor);
    auto *panel = new QWidget(&inner);
    auto *dial = new CDial(panel);
    dial->resize(20, 20);
    gesture::wheel(*dial, 1);
    QCOMPARE(inner.stepped, QList<QWidget *>{dial});
    QVERIFY(editor.stepped.isEmpty());
    inner.setParent(nullptr);
}

void tst_CDial::keysStep_data()
{
    Table<Qt::Key, int>()
        .row("Left", Qt::Key_Left, 49)
        .row("Down", Qt::Key_Down, 49)
        .row("Right", Qt::Key_Right, 51)
        .row("Up", Qt::Key_Up, 51)
        .row("Page Up", Qt::Key_PageUp, 60)
        .row("Page Down", Qt::Key_PageDown, 40)
        .row("Home is the base class's", Qt::Key_Home, 0);
}

void tst_CDial::keysStep()
{
    const auto [key, value] = Table<Qt::Key, int>::fetch();
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    QTest::keyClick(&rig.dial, key);
    QCOMPARE(rig.dial.value(), value);
    QCOMPARE(rig.writes().size(), 1);
}

void tst_CDial::stepperTakesItsStepsFromTheMemory()
{
    DialRig rig(0, 100, 50);
    rig.dial.setTableId(-7);
    rig.bind();
    rig.memory.steppedValue = 63;
    QTest::keyClick(&rig.dial, Qt::Key_Up);
    const QStringList calls = rig.memory.take({"stepValue", "writeValue"});
    QCOMPARE(calls.size(), 2);
    QCOMPARE(calls.first(), QStringLiteral("stepValue 50 0"));
    QCOMPARE(rig.dial.value(), 63);
}

void tst_CDial::otherKeysGoOnToTheParent()
{
    DialRig rig;
    rig.bind();
    QKeyEvent event(QEvent::KeyPress, Qt::Key_F5, {});
    QApplication::sendEvent(&rig.dial, &event);
    QVERIFY(!event.isAccepted());
}

void tst_CDial::typedNumbersAreWritten_data()
{
    const QString convert = QStringLiteral("numberToValue 2.5 %1");
    const QString write = QStringLiteral("writeValue 3 7 2 = %1 token 9");
    Table<int, int, QStringList>()
        .row("own table, from zero", 0, -50, {"setNumberContext", convert.arg(0), write.arg(-30)})
        .row("own table, minimum 0", 0, 0, {"setNumberContext", convert.arg(0), write.arg(20)})
        .row("table by number", 4, -50, {convert.arg(4), write.arg(-30)})
        .row("unshifted", -7, -50, {"setNumberContext", convert.arg(-7), write.arg(20)});
}

void tst_CDial::typedNumbersAreWritten()
{
    const auto [table, minimum, calls] = Table<int, int, QStringList>::fetch();
    DialRig rig(minimum, 50, 1);
    rig.dial.setTableId(table);
    rig.bind();
    rig.memory.typedValue = 20;
    rig.dial.acceptNum(2.5);
    QCOMPARE(rig.memory.take({"setNumberContext", "numberToValue", "writeValue"}), calls);
}

void tst_CDial::aTypedDigitOpensTheFieldAndReturnWritesOnce()
{
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    rig.memory.typedValue = 42;
    QVERIFY(gesture::typeNumber(rig.dial, QStringLiteral("42")));
    QCOMPARE(rig.memory.take({"numberToValue", "writeValue"}),
             QStringList({"numberToValue 42 0", "writeValue 3 7 2 = 42 token 9"}));
    QCOMPARE(rig.dial.value(), 42);
}

void tst_CDial::tipFollowsPointerAndText()
{
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    rig.dial.setNumberToolTip(true);
    auto *tip = rig.window.findChild<CDialTip *>();
    QVERIFY(tip && !tip->isVisible());
    QCOMPARE(tip->text(), QStringLiteral("<50>"));
    QCOMPARE(tip->palette().color(QPalette::Window), QColor(255, 255, 60));
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(&rig.dial, &enter);
    QVERIFY(tip->isVisible() && tip->width() > 0);
    gesture::wheel(rig.dial, 1);
    QCOMPARE(tip->text(), QStringLiteral("<51>"));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&rig.dial, &leave);
    QVERIFY(!tip->isVisible());
    rig.dial.setNumberToolTip(false);
    QVERIFY(!rig.window.findChild<CDialTip *>());
}

void tst_CDial::picturesFollowTheValue()
{
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    QCOMPARE(centreOf(rig.dial), teststrip::colour(0, 5));
    QTest::keyClick(&rig.dial, Qt::Key_PageUp);
    QCOMPARE(centreOf(rig.dial), teststrip::colour(0, 6));
    rig.dial.setInverted(true);
    QCOMPARE(centreOf(rig.dial), teststrip::colour(0, 3));
    rig.dial.setnSubImages(0);
    QCOMPARE(centreOf(rig.dial), rig.dial.palette().color(rig.dial.backgroundRole()));
}

void tst_CDial::disabledLook_data()
{
    Table<int, bool>().row("own picture", 9, false).row("grey", -1, true);
}

void tst_CDial::disabledLook()
{
    const auto [disabledRow, grey] = Table<int, bool>::fetch();
    DialRig rig(0, 100, 50);
    rig.dial.setdisabledImageIndex(disabledRow);
    rig.bind();
    rig.show();
    rig.dial.setEnabled(false);
    const QColor seen = centreOf(rig.dial);
    QCOMPARE(seen.saturation() == 0, grey);
    if (!grey)
        QCOMPARE(seen, teststrip::colour(0, 9));
    rig.dial.setEnabled(true);
    QCOMPARE(centreOf(rig.dial), teststrip::colour(0, grey ? 5 : 4));
}

void tst_CDial::greyIsTakenFromColumnZero()
{
    DialRig rig(0, 100, 50);
    rig.dial.setnImageCategories(2);
    rig.dial.setCombinedImage(teststrip::make(2, 10, {100, 100}));
    rig.bind();
    rig.show();
    rig.dial.setEnabled(false);
    const QColor first = centreOf(rig.dial);
    rig.dial.setCurrentImage(1);
    QCOMPARE(centreOf(rig.dial), first);
    rig.dial.setEnabled(true);
    QCOMPARE(centreOf(rig.dial), teststrip::colour(1, 5));
    rig.dial.setCurrentImage(2);
    QCOMPARE(centreOf(rig.dial), teststrip::colour(1, 5));
}

void tst_CDial::categoriesAreKeptInThreeBits()
{
    CDial dial;
    dial.setnImageCategories(9);
    QCOMPARE(dial.nImageCategories(), 1);
    dial.setnImageCategories(7);
    QCOMPARE(dial.nImageCategories(), 7);
}

void tst_CDial::sharpPicturesKeepTheirSize()
{
    DialRig rig(0, 100, 50);
    rig.dial.setCombinedImage(teststrip::make(1, 10, {100, 100}, 2));
    rig.bind();
    rig.show();
    QCOMPARE(rig.dial.sizeHint(), QSize(100, 100));
    const QImage image = rig.dial.grab().toImage();
    for (const QPoint &corner : {QPoint(0, 0), QPoint(99, 0), QPoint(0, 99), QPoint(99, 99)})
        QCOMPARE(image.pixelColor(corner), teststrip::colour(0, 5));
}

void tst_CDial::nothingIsPaintedForAValueInTheSameRow()
{
    DialRig rig(0, 100, 50);
    rig.bind();
    rig.show();
    PaintWatch paints(rig.dial);
    paints.take();
    rig.parameter().value = 52;
    rig.dial.process(nullptr, 0, 0);
    QCOMPARE(rig.dial.value(), 52);
    QVERIFY(paints.take().isEmpty());
    rig.parameter().value = 60;
    rig.dial.process(nullptr, 0, 0);
    QVERIFY(!paints.take().isEmpty());
}

void tst_CDial::transparentDialsLetTheParentThrough()
{
    DialRig rig(0, 100, 50);
    QPixmap round(100, 1000);
    round.fill(Qt::transparent);
    QPainter painter(&round);
    for (int row = 0; row < 10; ++row)
        painter.fillRect(QRect(30, row * 100 + 30, 40, 40), Qt::blue);
    painter.end();
    rig.dial.setCombinedImage(round);
    rig.dial.setTransparent(true);
    QPalette colours;
    colours.setColor(QPalette::Window, Qt::red);
    rig.window.setPalette(colours);
    rig.bind();
    rig.show();
    const QImage seen = rig.window.grab().toImage();
    QCOMPARE(seen.pixelColor(100, 100), QColor(Qt::blue));
    QCOMPARE(seen.pixelColor(60, 60), QColor(Qt::red));
    rig.press({5, 5});
    QVERIFY(!rig.dial.isSliderDown());
    rig.press({50, 50});
    QVERIFY(rig.dial.isSliderDown());
}

void tst_CDial::erasePixmapsAreSharedByCaptionNameAndRow()
{
    Frame left(QStringLiteral("left-"));
    Frame right(QStringLiteral("right-"));
    Frame unnamed({});
    const auto put = [](Frame &frame) {
        auto *dial = new CDial(&frame, "gain");
        dial->setFixedSize(30, 30);
        dial->setRange(0, 9);
        dial->setnSubImages(10);
        dial->setCombinedImage(teststrip::make(1, 10, {30, 30}));
        dial->setValue(4);
        frame.grab();
        return dial;
    };
    CDial *first = put(left);
    QPixmap held;
    QVERIFY(QPixmapCache::find(QStringLiteral("left-tv9k-CDial-gain4"), &held));
    QCOMPARE(held.toImage().pixelColor(15, 15), teststrip::colour(0, 4));
    QVERIFY(!QPixmapCache::find(QStringLiteral("right-tv9k-CDial-gain4"), &held));
    put(right);
    QVERIFY(QPixmapCache::find(QStringLiteral("right-tv9k-CDial-gain4"), &held));
    put(unnamed);
    QVERIFY(!QPixmapCache::find(QStringLiteral("tv9k-CDial-gain4"), &held));

    first->setValue(7);
    QVERIFY(!QPixmapCache::find(QStringLiteral("left-tv9k-CDial-gain7"), &held));
    left.grab();
    QVERIFY(QPixmapCache::find(QStringLiteral("left-tv9k-CDial-gain7"), &held));
    QCOMPARE(first->erasePixmap().toImage().pixelColor(15, 15), teststrip::colour(0, 7));

    first->setnSubImages(0);
    left.grab();
    QVERIFY(!QPixmapCache::find(QStringLiteral("left-tv9k-CDial-gain0"), &held));
}

void tst_CDial::speaksTheDisplayText()
{
    DialRig rig(0, 100, 50);
    rig.dial.setNamedAddress(QStringLiteral("kInputEQ/kLowMidGain"));
    rig.bind();
    QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(&rig.dial);
    QVERIFY(speaker);
    QCOMPARE(speaker->role(), QAccessible::Dial);
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Input EQ Low Mid Gain 3"));
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("<50>"));
    rig.dial.setAccessibleName(QStringLiteral("Low mid gain"));
    QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Low mid gain"));
    speaker->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    QCOMPARE(speaker->text(QAccessible::Value), QStringLiteral("<51>"));
    QCOMPARE(speaker->valueInterface()->currentValue().toInt(), 51);
}

QTEST_MAIN(tst_CDial)
#include "tst_CDial.moc"
