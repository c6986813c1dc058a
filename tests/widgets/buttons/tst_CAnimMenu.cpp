// SPDX-License-Identifier: MIT
#include "tests/support/PaintWatch.h"
#include "tests/support/Table.h"
#include "widgets/buttons/CAnimMenu.h"

#include <QAction>
#include <QElapsedTimer>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

constexpr QSize Size(60, 40);

QPixmap plain(const QColor &colour, const QSize &size = Size)
{
    QPixmap picture(size);
    picture.fill(colour);
    return picture;
}

/// A picture whose rows tell their number by their colour.
QPixmap ruled(int red, int ratio = 1)
{
    QImage picture(Size * ratio, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(red, y / ratio, 0));
    }
    QPixmap pixmap = QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

struct Rig
{
    Rig()
    {
        window.resize(100, 100);
        panel->setCloseImage(ruled(100));
        panel->setMoveImage(ruled(200));
        panel->setOpenImage(plain(Qt::green));
    }
    /// Takes the clock out of the animation.
    void startByHand()
    {
        panel->startAnimation();
        auto *timer = panel->findChild<QTimer *>();
        QCOMPARE(timer->interval(), 20);
        QVERIFY(!timer->isSingleShot());
        timer->setInterval(1000000);
    }
    int stepsToTheEnd()
    {
        int steps = 0;
        while (panel->findChild<QTimer *>()->isActive() && steps < 1000) {
            panel->animProc();
            ++steps;
        }
        return steps;
    }
    QColor row(int y) { return panel->grab().toImage().pixelColor(30, y); }

    QWidget window;
    CAnimMenu *panel = new CAnimMenu(&window, "blind");
};

} // namespace

class tst_CAnimMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsClosedAndWithoutAName();
    void aPictureFixesTheSizeUnlessItIsNull();
    void rollsOpenAndShutInTwoRowSteps();
    void keepsTime();
    void startingAgainKeepsTheDirection();
    void jumpsWithoutAnimation();
    void aJumpLeavesTheTimerRunning();
    void drawsTheMovingPictureHangingFromTheTop_data();
    void drawsTheMovingPictureHangingFromTheTop();
    void repaintsTheRowsThatMoved();
    void aNullPictureIsNotDrawn();
    void mayDieWhileItRolls_data();
    void mayDieWhileItRolls();
};

void tst_CAnimMenu::startsClosedAndWithoutAName()
{
    const Rig rig;
    QVERIFY(rig.panel->getClosed() && !rig.panel->getOpen());
    QCOMPARE(rig.panel->objectName(), QString());
    rig.panel->animProc();
    QVERIFY(rig.panel->getClosed());
    QVERIFY(!rig.panel->findChild<QTimer *>());
}

void tst_CAnimMenu::aPictureFixesTheSizeUnlessItIsNull()
{
    Rig rig;
    rig.panel->setOpenImage(plain(Qt::green, {30, 20}));
    QCOMPARE(rig.panel->size(), QSize(30, 20));
    rig.panel->setMoveImage({});
    QCOMPARE(rig.panel->size(), QSize(30, 20));
    QVERIFY(rig.panel->setProperty("closeImage", ruled(100, 2)));
    QCOMPARE(rig.panel->maximumSize(), Size);
    QCOMPARE(rig.panel->property("closeImage").value<QPixmap>().width(), 120);
    QCOMPARE(rig.panel->closeImage()->width(), 120);
}

void tst_CAnimMenu::rollsOpenAndShutInTwoRowSteps()
{
    Rig rig;
    const QSignalSpy menu(rig.panel, &CAnimMenu::showMenu);
    QList<int> states;
    connect(rig.panel, &CAnimMenu::stateChanged, this, [&](auto state) { states << state; });
    rig.startByHand();
    QCOMPARE(states, QList<int>({CAnimMenu::animOpening}));
    QVERIFY(!rig.panel->getClosed() && !rig.panel->getOpen());
    QCOMPARE(rig.stepsToTheEnd(), 21);
    QCOMPARE(menu, QList<QVariantList>({{true}}));
    QVERIFY(rig.panel->getOpen());
    rig.startByHand();
    QCOMPARE(menu, QList<QVariantList>({{true}, {false}}));
    // From 42, where opening ended.
    QCOMPARE(rig.stepsToTheEnd(), 21);
    QCOMPARE(states, QList<int>({1, 2, 3, 0}));
    QCOMPARE(menu.count(), 2);
}

void tst_CAnimMenu::keepsTime()
{
    Rig rig;
    QElapsedTimer timer;
    timer.start();
    rig.panel->startAnimation();
    QTRY_VERIFY(rig.panel->getOpen());
    QVERIFY2(timer.elapsed() >= 350, qPrintable(QString::number(timer.elapsed())));
}

void tst_CAnimMenu::startingAgainKeepsTheDirection()
{
    Rig rig;
    rig.startByHand();
    rig.panel->animProc();
    rig.startByHand();
    QCOMPARE(rig.stepsToTheEnd(), 20);
    QVERIFY(rig.panel->getOpen());
    QCOMPARE(rig.panel->findChildren<QTimer *>().size(), 1);
}

void tst_CAnimMenu::jumpsWithoutAnimation()
{
    Rig rig;
    const QSignalSpy menu(rig.panel, &CAnimMenu::showMenu);
    const QSignalSpy states(rig.panel, &CAnimMenu::stateChanged);
    rig.panel->setOpen(true);
    rig.panel->setOpen(true);
    QCOMPARE(menu, QList<QVariantList>({{true}, {true}}));
    QCOMPARE(states.count(), 2);
    QCOMPARE(rig.row(3), QColor(Qt::green));
    rig.panel->setOpen(false);
    QVERIFY(rig.panel->getClosed());
    QCOMPARE(rig.row(3), QColor(100, 3, 0));
}

void tst_CAnimMenu::aJumpLeavesTheTimerRunning()
{
    Rig rig;
    rig.startByHand();
    rig.panel->animProc();
    const QSignalSpy menu(rig.panel, &CAnimMenu::showMenu);
    rig.panel->setOpen(true);
    QCOMPARE(rig.stepsToTheEnd(), 20);
    QVERIFY(rig.panel->getOpen());
    QCOMPARE(menu, QList<QVariantList>({{true}, {true}}));
}

void tst_CAnimMenu::drawsTheMovingPictureHangingFromTheTop_data()
{
    Table<int>().row("one pixel per point", 1).row("two pixels per point", 2);
}

void tst_CAnimMenu::drawsTheMovingPictureHangingFromTheTop()
{
    const auto [ratio] = Table<int>::fetch();
    Rig rig;
    rig.panel->setMoveImage(ruled(200, ratio));
    rig.panel->setCloseImage(ruled(100, ratio));
    rig.startByHand();
    for (int step = 0; step < 5; ++step)
        rig.panel->animProc();
    QCOMPARE(rig.row(0), QColor(200, 30, 0));
    QCOMPARE(rig.row(9), QColor(200, 39, 0));
    QCOMPARE(rig.row(10), QColor(100, 10, 0));
    QCOMPARE(rig.row(39), QColor(100, 39, 0));
}

void tst_CAnimMenu::repaintsTheRowsThatMoved()
{
    Rig rig;
    rig.window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&rig.window));
    PaintWatch paints(*rig.panel);
    rig.startByHand();
    rig.panel->animProc();
    paints.take();
    rig.panel->animProc();
    QCOMPARE(paints.take(), QRegion(0, 0, 60, 4));
    rig.stepsToTheEnd();
    QCOMPARE(paints.take(), QRegion(0, 0, 60, 40));
}

void tst_CAnimMenu::aNullPictureIsNotDrawn()
{
    Rig rig;
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::cyan);
    rig.window.setPalette(palette);
    rig.panel->setOpenImage({});
    rig.panel->setOpen(true);
    const QImage window = rig.window.grab().toImage();
    QCOMPARE(window.pixelColor(rig.panel->geometry().center()), QColor(Qt::cyan));
    rig.panel->setMoveImage({});
    rig.startByHand();
    rig.panel->grab();
}

void tst_CAnimMenu::mayDieWhileItRolls_data()
{
    Table<QByteArray, bool>()
        .row("when it starts", QByteArray(SIGNAL(stateChanged(CAnimMenu::AnimWindowStatus))), false)
        .row("when it has opened", QByteArray(SIGNAL(showMenu(bool))), false)
        .row("when it closes", QByteArray(SIGNAL(showMenu(bool))), true)
        .row("between two steps", QByteArray(), false);
}

void tst_CAnimMenu::mayDieWhileItRolls()
{
    const auto [signal, open] = Table<QByteArray, bool>::fetch();
    Rig rig;
    rig.panel->setOpen(open);
    const QPointer<CAnimMenu> panel(rig.panel);
    QAction killer;
    connect(&killer, &QAction::triggered, this, [&] { delete rig.panel; });
    if (!signal.isEmpty())
        connect(rig.panel, signal, &killer, SLOT(trigger()));
    rig.panel->startAnimation();
    if (signal.isEmpty()) {
        QTest::qWait(60);
        delete rig.panel;
    }
    QTRY_VERIFY(!panel);
    QTest::qWait(50);
}

QTEST_MAIN(tst_CAnimMenu)
#include "tst_CAnimMenu.moc"
