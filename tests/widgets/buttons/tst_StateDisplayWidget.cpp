// SPDX-License-Identifier: MIT
#include "testkit/RecordingMemory.h"
#include "testkit/TestStrip.h"
#include "tests/support/PaintWatch.h"
#include "tests/support/Table.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/buttons/StateDisplayWidget.h"

#include <QAccessible>
#include <QPixmapCache>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <thread>

namespace {

/// A display of five pictures at (3, 7, 2) of a recording memory, channel offset 4.
struct Rig
{
    explicit Rig(QWidget *parent = nullptr) : window(parent)
    {
        window.resize(100, 100);
        display->setnSubImages(5);
        display->setCombinedImage(teststrip::make(1, 5, {30, 20}));
    }
    void bind()
    {
        memory.bind(*display, 3, 7, 2, 4);
        memory.take();
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }
    void change(int value)
    {
        memory.at(3, 7, 2).value = value;
        display->process(nullptr, 0, 0);
    }
    QColor shown() { return display->grab().toImage().pixelColor(15, 10); }

    RecordingMemory memory;
    QWidget window;
    StateDisplayWidget *display = new StateDisplayWidget(&window, "state");
};

} // namespace

class tst_StateDisplayWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAsRequired();
    void choosesThePicture_data();
    void choosesThePicture();
    void theFirstValueAlwaysRepaints();
    void settersOnlyStore();
    void polishFixesTheSize_data();
    void polishFixesTheSize();
    void reportsClicks();
    void mayDieWhenClicked();
    void theOwnerWritesAndTheMemoryShows();
    void equalNamesShareAPicture();
    void speaksItsState();
};

void tst_StateDisplayWidget::startsAsRequired()
{
    StateDisplayWidget display(nullptr, "name");
    std::thread([&] { display.setValue(1); }).join();
    QCOMPARE(display.objectName(), QString());
    QCOMPARE(display.value(), static_cast<int>(0x80000001));
    QCOMPARE(display.focusPolicy(), Qt::ClickFocus);
    QVERIFY(!display.isUndoEnable() && display.numDefaultKind() == 0);
    QCOMPARE(display.nSubImages(), 1);
}

void tst_StateDisplayWidget::choosesThePicture_data()
{
    Table<int, bool, int, int>()
        .row("below", 4, false, -4, 0)
        .row("inside", 4, false, 2, 2)
        .row("last", 4, false, 3, 3)
        .row("above", 4, false, 9, 3)
        .row("equal", 5, true, 3, 1)
        .row("not equal", 5, true, 4, 0)
        .row("equal, one picture", 1, true, 3, 0)
        .row("257 are 1", 257, false, 3, 0);
}

void tst_StateDisplayWidget::choosesThePicture()
{
    const auto [pictures, boolean, value, picture] = Table<int, bool, int, int>::fetch();
    Rig rig;
    rig.display->setnSubImages(pictures);
    rig.display->setCombinedImage(teststrip::make(1, rig.display->nSubImages(), {30, 20}));
    rig.display->setBooleanLogic(boolean);
    rig.display->setCmpValue(3);
    rig.bind();
    rig.change(value);
    QCOMPARE(rig.display->pixmapId(value), picture);
    QCOMPARE(rig.shown(), teststrip::colour(0, picture));
    QCOMPARE(rig.display->erasePixmap().toImage().pixelColor(15, 10),
             teststrip::colour(0, picture));
}

void tst_StateDisplayWidget::theFirstValueAlwaysRepaints()
{
    Rig rig;
    rig.show();
    PaintWatch paints(*rig.display);
    paints.take();
    rig.bind();
    QCOMPARE(rig.display->value(), 0);
    QCOMPARE(paints.take(), QRegion(0, 0, 30, 20));
    rig.change(0);
    QCOMPARE(paints.take(), QRegion());
}

void tst_StateDisplayWidget::settersOnlyStore()
{
    Rig rig;
    rig.bind();
    rig.show();
    PaintWatch paints(*rig.display);
    rig.change(3);
    paints.take();
    rig.display->setCmpValue(3);
    rig.display->setBooleanLogic(true);
    rig.display->setnSubImages(2);
    rig.display->setCombinedImage(teststrip::make(1, 2, {50, 50}));
    QCOMPARE(paints.take(), QRegion());
    QCOMPARE(rig.display->size(), QSize(30, 20));
    QCOMPARE(rig.memory.take({"readValue"}).size(), 1);
}

void tst_StateDisplayWidget::polishFixesTheSize_data()
{
    Table<int, int, QSize>()
        .row("one pixel per point", 5, 1, QSize(30, 20))
        .row("two pixels per point", 5, 2, QSize(30, 20))
        .row("a rest", 3, 1, QSize(30, 33))
        .row("no pictures", 0, 1, QSize(70, 70));
}

void tst_StateDisplayWidget::polishFixesTheSize()
{
    const auto [pictures, ratio, size] = Table<int, int, QSize>::fetch();
    Rig rig;
    rig.display->resize(70, 70);
    rig.display->setnSubImages(pictures);
    rig.display->setCombinedImage(teststrip::make(1, 5, {30, 20}, ratio));
    QCOMPARE(rig.display->size(), QSize(70, 70));
    rig.show();
    QCOMPARE(rig.display->size(), size);
}

void tst_StateDisplayWidget::reportsClicks()
{
    Rig rig;
    rig.bind();
    rig.show();
    const QSignalSpy clicks(rig.display, &StateDisplayWidget::clicked);
    QTest::mouseRelease(rig.display, Qt::LeftButton);
    QTest::mousePress(rig.display, Qt::LeftButton);
    QTest::mouseRelease(rig.display, Qt::RightButton);
    QCOMPARE(clicks.count(), 0);
    QTest::mouseRelease(rig.display, Qt::LeftButton, {}, QPoint(-500, 700));
    QCOMPARE(clicks, QList<QVariantList>({{6}}));
    QTest::mouseClick(rig.display, Qt::RightButton);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(rig.memory.take({"writeValue"}), QStringList());
}

void tst_StateDisplayWidget::mayDieWhenClicked()
{
    Rig rig;
    rig.show();
    const QPointer<StateDisplayWidget> display(rig.display);
    connect(rig.display, &StateDisplayWidget::clicked, this, [&] { rig.display->deleteLater(); });
    QTest::mouseClick(rig.display, Qt::LeftButton);
    QTRY_VERIFY(!display);
}

void tst_StateDisplayWidget::theOwnerWritesAndTheMemoryShows()
{
    Rig rig;
    rig.display->setValueFromData(1);
    rig.bind();
    rig.display->setValueFromData(3);
    QCOMPARE(rig.memory.take({"undoToken", "writeValue"}),
             QStringList({"undoToken 0 1", "writeValue 3 7 2 = 3 token 9"}));
    QCOMPARE(rig.display->value(), 0);
    rig.display->process(nullptr, 0, 0);
    QCOMPARE(rig.display->value(), 3);
}

void tst_StateDisplayWidget::equalNamesShareAPicture()
{
    struct Page : QWidget, TCacheServer
    {
        Page() : TCacheServer("page") {}
    } page;
    auto *display = new StateDisplayWidget(&page);
    display->setnSubImages(5);
    display->setCombinedImage(teststrip::make(1, 5, {30, 20}));
    display->setValue(2);
    QPixmapCache::clear();
    display->erasePixmap();
    QVERIFY(!QPixmapCache::find("pagetv9k-StateDisplayWidget-2", nullptr));
    display->setObjectName("pad");
    display->updateErasePixmap(nullptr);
    display->grab();
    QVERIFY(QPixmapCache::find("pagetv9k-StateDisplayWidget-pad2", nullptr));
}

void tst_StateDisplayWidget::speaksItsState()
{
    Rig rig;
    rig.display->setAccessibleName("Backup");
    rig.bind();
    rig.change(3);
    QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(rig.display);
    QCOMPARE(speaker->role(), QAccessible::Graphic);
    QCOMPARE(speaker->text(QAccessible::Name), "Backup");
    QCOMPARE(speaker->text(QAccessible::Value), "<3>");
    const QSignalSpy clicks(rig.display, &StateDisplayWidget::clicked);
    speaker->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicks.count(), 1);
}

QTEST_MAIN(tst_StateDisplayWidget)
#include "tst_StateDisplayWidget.moc"
