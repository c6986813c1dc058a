// SPDX-License-Identifier: MIT
// Whatever controls and their windows go through, the screen shows what painting all of it would show.
#include "editor/soak/Hand.h"
#include "editor/soak/WindowPicture.h"
#include "tests/screens/ControlPage.h"
#include "widgets/painting/PictureBatches.h"

#include <QBackingStore>
#include <QGraphicsDropShadowEffect>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

namespace {

/// What such a window asks for happens at once; a manager takes its time.
constexpr Qt::WindowFlags Unmanaged = Qt::Window | Qt::X11BypassWindowManagerHint;

void keep(const QImage &picture, const char *kind)
{
    const QString folder = qEnvironmentVariable("CONSOLE_PICTURES");
    const QString name = QString("%1/%2-%3.png").arg(folder, QTest::currentDataTag(), kind);
    if (!folder.isEmpty())
        picture.save(QString(name).replace(' ', '-'));
}

/// With this in the environment it is Qt alone that paints, to see whether a story is fair.
bool isBatched()
{
    return !qEnvironmentVariableIsSet("CONSOLE_UNBATCHED");
}

/// What is wrong on the screen; empty when nothing is.
QString faults(QWidget &window)
{
    using namespace windowpicture;
    const QImage shown = present(window, Where::Screen);
    picturebatches::setEnabled(false);
    const QImage due = repainted(window, Where::Screen);
    picturebatches::setEnabled(isBatched());
    if (shown.isNull() || due.isNull())
        return "does not show";
    const QRegion wrong = differing(window, shown, due);
    if (wrong.isEmpty())
        return {};
    keep(shown, "shown");
    keep(due, "due");
    QString text = QString("%1 rectangles:").arg(wrong.rectCount());
    for (const auto &[widget, part] : widgetsAt(window, wrong))
        QDebug(&text) << widget->metaObject()->className() << widget->geometry() << part
                      << Qt::endl;
    return text.left(600);
}

void wheel(ControlPage &page, int notches)
{
    QWidget &under = *page.area.viewport();
    Hand().wheel(&under, under.rect().center(), notches * QWheelEvent::DefaultDeltasPerStep,
                 page.any(2) ? Qt::AltModifier : Qt::NoModifier);
}

void dragBar(ControlPage &page)
{
    QWidget &bar = *page.area.horizontalScrollBar();
    Hand hand;
    hand.press(&bar, {30 + page.area.horizontalScrollBar()->value() / 4.0, 5});
    for (int move = 0; move < 5; ++move) {
        hand.moveBy({page.any(80) - 40.0, 0});
        page.change(page.any(9));
        page.settle();
    }
    hand.release();
    bar.update(); // Qt leaves an edge of the slider behind
}

void scroll(ControlPage &page, bool inOneTurn)
{
    page.change(30);
    if (!inOneTurn)
        page.settle();
    wheel(page, page.any(7) - 3);
    if (!inOneTurn)
        page.settle();
    page.change(30);
}

/// Values come all the time.
void scrollLive(ControlPage &page)
{
    QTimer console;
    QObject::connect(&console, &QTimer::timeout, [&] { page.change(12); });
    console.start(2);
    for (int turn = 0; turn < 25; ++turn) {
        wheel(page, page.any(5) - 2);
        QTest::qWait(4);
    }
    dragBar(page);
}

void live(ControlPage &page)
{
    QWidget &control = page.meters.isEmpty() || page.any(2)
                           ? static_cast<QWidget &>(page.anyDial())
                           : *page.meters[page.any(int(page.meters.size()))];
    switch (page.any(12)) {
    case 0: page.moveAnywhere(control); break;
    case 1: control.raise(); break;
    case 2: control.lower(); break;
    case 3: control.setVisible(!control.isVisible()); break;
    case 4: control.setEnabled(!control.isEnabled()); break;
    case 5: page.area.move(2 + page.anyWay(20), 10 + page.anyWay(20)); break;
    case 6: page.panel.moveContents(page.anyWay(9) - 4, page.anyWay(9) - 4); break;
    case 7: page.resize(350 + page.any(50), 250 + page.any(50)); break;
    case 8: wheel(page, page.any(3) - 1); break;
    default: page.change(8); break;
    }
    // Not two in a turn: of controls that are restacked and moved in one, Qt itself leaves pixels behind.
    page.change(page.any(2) * 8);
    QApplication::processEvents();
    page.change(page.any(2) * 8);
}

void liveHard(ControlPage &page)
{
    for (int act = 0; act < 10; ++act)
        live(page);
}

/// By another window.
void coverAndUncover(ControlPage &page)
{
    QWidget cover(nullptr, Unmanaged);
    cover.setGeometry({page.mapToGlobal(QPoint(100, 50)), QSize(200, 150)});
    cover.show();
    QVERIFY(QTest::qWaitForWindowExposed(&cover));
    page.change(40);
    wheel(page, page.any(3) - 1);
    page.change(40);
    page.settle();
}

void minimiseAndRestore(ControlPage &page)
{
    page.change(20);
    if (QGuiApplication::platformName()
        == "xcb") { // a compositor's windows cannot come back by themselves
        page.showMinimized();
        QTRY_VERIFY(!page.windowHandle()->isExposed());
    }
    page.change(20);
    wheel(page, page.any(3) - 1);
    page.showNormal();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    page.change(20);
}

/// Opaque for a while in which what is behind changes.
void changeGround(ControlPage &page, bool move)
{
    page.change(20);
    page.settle();
    for (CDial *each : std::as_const(page.dials))
        each->setTransparent(false);
    page.settle();
    page.panel.change();
    for (CDial *each : std::as_const(page.dials))
        move ? each->move(each->pos() + QPoint(page.any(5) - 2, page.any(5) - 2)) : void();
    page.settle();
    for (CDial *each : std::as_const(page.dials))
        each->setTransparent(true);
    page.change(40);
}

void changeGroundUnbatched(ControlPage &page)
{
    page.change(40);
    page.settle();
    picturebatches::setEnabled(false);
    page.panel.change();
    page.settle();
    picturebatches::setEnabled(isBatched());
    page.change(40);
}

/// A frame's shadow falls on dials.
void castShadow(ControlPage &page)
{
    page.change(60);
    if (page.frame) // Qt leaves the shadow behind when the frame goes
        return;
    QWidget &frame = page.newFrame();
    auto *shadow = new QGraphicsDropShadowEffect(&frame);
    shadow->setBlurRadius(30);
    shadow->setOffset(15, 15);
    frame.setGraphicsEffect(shadow);
    frame.show();
    page.settle();
    page.change(60);
}

/// An application's filter that lets nobody hear of what changes places.
struct Eater : QObject
{
    Eater() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        static const QList<QEvent::Type> eaten{QEvent::Move, QEvent::Show, QEvent::ShowToParent,
                                               QEvent::ZOrderChange};
        return eaten.contains(event->type());
    }
};

void rearrangeUnheard(ControlPage &page)
{
    QWidget &frame = page.newFrame();
    frame.show();
    CDial &dial = page.anyDial();
    page.change(60);
    page.settle();
    const Eater eater;
    frame.move(page.any(200), page.any(150));
    dial.move(page.any(300), page.any(200));
    dial.raise();
    page.settle();
    dial.setValue((dial.value() + 5) % page.Rows);
    page.change(60);
    page.settle();
}

struct Story
{
    int meters;
    bool translucent;
    int rounds;
    void (*act)(ControlPage &);
    bool transparentWindow = false; ///< when it was made
    Qt::WindowFlags flags = Unmanaged;
};

} // namespace
Q_DECLARE_METATYPE(Story)

class tst_ControlsOnScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aWrongPixelIsFound();
    void theScreenIsRight_data();
    void theScreenIsRight();
};

void tst_ControlsOnScreen::aWrongPixelIsFound()
{
    static constexpr QPoint Inside(20, 20);
    ControlPage page(20, 0, false);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    page.settle();
    QCOMPARE(faults(page), QString());
    const auto isSeen = [](const CDial *dial) { return dial->visibleRegion().contains(Inside); };
    const auto seen = std::find_if(page.dials.cbegin(), page.dials.cend(), isSeen);
    QVERIFY(seen != page.dials.cend());
    const QRect place((*seen)->mapTo(&page, Inside), QSize(1, 1));
    QBackingStore &store = *page.backingStore();
    store.beginPaint(place);
    QPainter(store.paintDevice()).fillRect(place, Qt::magenta);
    store.endPaint();
    store.flush(place);
    const QString found = faults(page);
    QVERIFY2(found.contains("CDial"), qPrintable(found));
}

void tst_ControlsOnScreen::theScreenIsRight_data()
{
    QTest::addColumn<Story>("story");
    const auto row = [](const char *name, Story story) { QTest::newRow(name) << story; };

    const auto change = [](ControlPage &page) { page.change(1 + page.any(2) * 60); };
    row("values", {20, false, 6, change});
    row("translucent values", {20, true, 6, change});
    row("scrolled", {0, false, 8, [](ControlPage &page) { scroll(page, false); }});
    row("scrolled with meters", {40, false, 8, [](ControlPage &page) { scroll(page, false); }});
    row("scrolled in one turn", {40, false, 8, [](ControlPage &page) { scroll(page, true); }});
    row("scrolled, translucent", {40, true, 8, [](ControlPage &page) { scroll(page, false); }});
    row("scrolled by its bar", {40, false, 4, dragBar});
    row("scrolled while values come", {40, false, 4, scrollLive});
    row("hard life", {40, false, 25, liveHard});
    row("hard life, translucent", {40, true, 25, liveHard});
    row("pixels moved", {40, false, 10, [](ControlPage &page) {
                             page.change(20);
                             page.settle();
                             page.panel.moveContents(page.anyWay(9) - 4, page.anyWay(9) - 4);
                             if (page.any(2))
                                 page.settle();
                             page.change(20);
                         }});
    row("covered for a while", {40, false, 3, coverAndUncover});
    row("minimised for a while", {40, false, 2, minimiseAndRestore, false, Qt::Window});
    row("window that was transparent",
        {40, false, 3, [](ControlPage &page) { page.change(30); }, true});
    row("other background", {0, true, 3, [](ControlPage &page) { changeGround(page, false); }});
    row("other background and place",
        {0, true, 3, [](ControlPage &page) { changeGround(page, true); }});
    row("other background meanwhile", {0, true, 3, changeGroundUnbatched});
    row("shadow", {0, false, 3, castShadow});
    row("eaten events", {0, false, 3, rearrangeUnheard});
}

void tst_ControlsOnScreen::theScreenIsRight()
{
    QFETCH(Story, story);
    ControlPage page(400, story.meters, story.translucent);
    page.setWindowFlags(story.flags);
    page.setAttribute(Qt::WA_TranslucentBackground, story.transparentWindow);
    picturebatches::setEnabled(isBatched());
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    page.setAttribute(Qt::WA_TranslucentBackground, false);
    page.settle();
    for (int round = 0; round < story.rounds; ++round) {
        story.act(page);
        page.settle();
        const QString found = faults(page);
        QVERIFY2(found.isEmpty(), qPrintable(QString("round %1: %2").arg(round).arg(found)));
    }
}

QTEST_MAIN(tst_ControlsOnScreen)
#include "tst_ControlsOnScreen.moc"
