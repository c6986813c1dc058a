// SPDX-License-Identifier: MIT
// However a picture is drawn, the screen shows what painting the window anew would show.
#include "testkit/RecordingMemory.h"
#include "testkit/TestStrip.h"
#include "widgets/controls/CDial.h"
#include "widgets/meters/CMeter.h"
#include "widgets/painting/DrawnRegion.h"
#include "widgets/painting/PictureBatches.h"

#include <QBackingStore>
#include <QGraphicsColorizeEffect>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include <memory>

namespace {

constexpr QSize Cell(40, 40);
constexpr int Rows = 10;

QPixmap strip(bool translucent)
{
    QPixmap picture = teststrip::make(1, Rows, Cell);
    if (!translucent)
        return picture;
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setOpacity(0.5);
    painter.drawPixmap(0, 0, picture);
    painter.end();
    return QPixmap::fromImage(image);
}

/// A background that tells every place from every other.
class Ground : public QWidget
{
public:
    using QWidget::QWidget;
    int shade = 0;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        for (int y = 0; y < height(); y += 6) {
            for (int x = 0; x < width(); x += 14)
                painter.fillRect(x, y, 14, 6, QColor(shade, x % 256, y % 256));
        }
    }
};

/// A dial with something of its own in its picture.
class MarkedDial : public CDial
{
public:
    using CDial::CDial;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        CDial::paintEvent(event);
        QPainter(this).fillRect(2, 2, 5, 5, Qt::white);
    }
};

/// What the window holds for the screen.
QImage seen(const QWidget &window)
{
    return static_cast<QImage *>(window.backingStore()->paintDevice())
        ->convertToFormat(QImage::Format_RGB32);
}

/// What painting it anew would show; the window keeps what it holds.
QImage due(QWidget &window)
{
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The same after everything was painted.
QImage paintedAnew(QWidget &window)
{
    window.repaint();
    return seen(window);
}

/// Dials on panels of a window, and how many paint events the first of them gets.
struct Scene : QObject
{
    explicit Scene(bool translucent, CDial *first = new CDial)
    {
        window.resize(400, 300);
        panel.setGeometry(20, 20, 300, 200);
        dials.append(first);
        for (int number = 1; number < 12; ++number)
            dials.append(new CDial);
        for (CDial *each : dials) {
            const int number = int(dials.indexOf(each));
            each->setParent(&panel);
            each->setFocusPolicy(Qt::NoFocus);
            each->setGeometry({QPoint(number % 6 * 50, number / 6 * 60), Cell});
            each->setTransparent(translucent);
            each->setCombinedImage(strip(translucent));
            each->setnSubImages(Rows);
            each->setRange(0, Rows - 1);
            each->setValue(0);
        }
        first->installEventFilter(this);
        window.show();
        settle();
    }

    CDial &dial() { return *dials.first(); }
    static void settle()
    {
        QApplication::processEvents(); // delivers
        QApplication::processEvents(); // paints what is not drawn
    }
    int paintsOf(const std::function<void()> &act)
    {
        m_paints = 0;
        act();
        settle();
        return m_paints;
    }
    int paintsOfChange()
    {
        return paintsOf([this] { dial().setValue((dial().value() + 4) % Rows); });
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_paints += event->type() == QEvent::Paint;
        return false;
    }

    Ground window;
    Ground panel{&window};
    QList<CDial *> dials;

private:
    int m_paints = 0;
};

/// Meters beside the dials, of one size.
struct MeterScene : Scene
{
    explicit MeterScene(int count) : Scene(false)
    {
        lit.setDevicePixelRatio(unlit.devicePixelRatio());
        lit.fill(Qt::yellow);
        for (int number = 0; number < count; ++number) {
            auto *meter = meters.emplace_back(new CMeter(&panel));
            meter->setMeterBgndImage(unlit);
            meter->setMeterImage(lit);
            meter->move(40 * number, 60);
            meter->show();
        }
        settle();
    }

    const QPixmap unlit = teststrip::make(1, 25, {12, 4}, window.devicePixelRatio() >= 2 ? 2 : 1);
    QPixmap lit{unlit.size()};
    QList<CMeter *> meters;
};

/// A reading, and a peak that is greater by so much.
void read(CMeter &meter, int level, int more = 0)
{
    const Q_UINT8 bytes[] = {0, Q_UINT8(level), 0, Q_UINT8(std::min(127, level + more))};
    meter.process(bytes, CMeter::Refresh, 0);
}

using Prepare = std::function<void(Scene &)>;

void raiseFrameOver(Scene &scene, QWidget *parent)
{
    auto *frame = new QWidget(parent);
    frame->setAutoFillBackground(true);
    frame->setPalette(Qt::yellow);
    frame->setGeometry({scene.dial().mapTo(parent, QPoint(10, 10)), QSize(15, 15)});
    frame->show();
}

} // namespace
Q_DECLARE_METATYPE(Prepare)

class tst_BatchedPicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theScreenIsRight_data();
    void theScreenIsRight();
    void anOverridePaints();
    void whatIsBehindFollows();
    void switchedOffEveryPictureIsPainted();
    void hiddenWindowsWait();
    void diesWhileItWaits();
    void changesWhileItsPanelDies();
    void staysRightInAGraphicsScene();
    void allThatIsDrawnReachesTheScreen();
    void aMeterIsDrawnWhereItChanged();
    void aHardLifeLeavesMetersRight();
    void aHardLifeLeavesTheScreenRight_data();
    void aHardLifeLeavesTheScreenRight();
};

void tst_BatchedPicture::theScreenIsRight_data()
{
    QTest::addColumn<Prepare>("prepare");
    QTest::addColumn<bool>("batched");

    QTest::newRow("nothing in the way") << Prepare([](Scene &) {}) << true;
    QTest::newRow("moved") << Prepare([](Scene &s) { s.dial().move(33, 121); }) << true;
    QTest::newRow("panel moved") << Prepare([](Scene &s) { s.panel.move(51, 33); }) << true;
    QTest::newRow("a neighbour that touches")
        << Prepare([](Scene &s) { s.dials[1]->move(Cell.width(), 0); }) << true;
    QTest::newRow("over another") << Prepare([](Scene &s) {
        s.dial().move(s.dials[1]->pos() + QPoint(5, 5));
        s.dial().raise();
    }) << true;
    QTest::newRow("under another") << Prepare([](Scene &s) {
        s.dial().move(s.dials[1]->pos() + QPoint(5, 5));
        s.dial().lower();
    }) << false;
    QTest::newRow("under a frame in the panel")
        << Prepare([](Scene &s) { raiseFrameOver(s, &s.panel); }) << false;
    QTest::newRow("under a frame in the window")
        << Prepare([](Scene &s) { raiseFrameOver(s, &s.window); }) << false;
    QTest::newRow("with a child") << Prepare([](Scene &s) { raiseFrameOver(s, &s.dial()); })
                                  << false;
    QTest::newRow("beyond the panel")
        << Prepare([](Scene &s) { s.dial().move(-10, 190); }) << false;
    QTest::newRow("panel beyond the window")
        << Prepare([](Scene &s) { s.panel.move(-20, -10); }) << false;
    QTest::newRow("smaller than its picture")
        << Prepare([](Scene &s) { s.dial().resize(30, 30); }) << true;
    QTest::newRow("larger than its picture")
        << Prepare([](Scene &s) { s.dial().resize(45, 48); }) << true;
    QTest::newRow("with the focus") << Prepare([](Scene &s) {
        s.dial().setFocusPolicy(Qt::StrongFocus);
        s.window.activateWindow();
        s.dial().setFocus();
    }) << false;
    QTest::newRow("with a mask") << Prepare([](Scene &s) {
        s.dial().setMask(QRegion(5, 5, 20, 20));
    }) << false;
    QTest::newRow("panel with a mask")
        << Prepare([](Scene &s) { s.panel.setMask(QRegion(0, 0, 20, 200)); }) << false;
    QTest::newRow("with an effect") << Prepare([](Scene &s) {
        s.dial().setGraphicsEffect(new QGraphicsColorizeEffect(&s.dial()));
    }) << false;
    QTest::newRow("panel with an effect") << Prepare([](Scene &s) {
        s.panel.setGraphicsEffect(new QGraphicsColorizeEffect(&s.panel));
    }) << false;
    QTest::newRow("disabled") << Prepare([](Scene &s) { s.dial().setEnabled(false); }) << true;
}

void tst_BatchedPicture::theScreenIsRight()
{
    QFETCH(Prepare, prepare);
    QFETCH(bool, batched);
    for (const bool translucent : {false, true}) {
        Scene scene(translucent);
        scene.paintsOfChange();
        prepare(scene);
        scene.settle();
        // Twice, so that what was drawn last is drawn over.
        for (int change = 0; change < 2; ++change) {
            const bool painted = scene.paintsOfChange() > 0;
            QCOMPARE(painted, !batched);
            QCOMPARE(seen(scene.window), paintedAnew(scene.window));
        }
    }
}

void tst_BatchedPicture::anOverridePaints()
{
    Scene scene(false, new MarkedDial);
    QCOMPARE(scene.paintsOfChange(), 1);
    QCOMPARE(seen(scene.window), paintedAnew(scene.window));
}

void tst_BatchedPicture::whatIsBehindFollows()
{
    Scene scene(true);
    scene.paintsOfChange();
    for (const QRect &part : {QRect(0, 0, 300, 200), QRect(10, 15, 20, 3), QRect(0, 0, 15, 15)}) {
        scene.panel.shade += 70;
        scene.panel.update(part);
        scene.settle();
        const QImage before = seen(scene.window);
        QCOMPARE(scene.paintsOfChange(), 0);
        scene.dial().setValue((scene.dial().value() + 6) % Rows); // back
        scene.settle();
        QCOMPARE(seen(scene.window), before);
    }
}

void tst_BatchedPicture::switchedOffEveryPictureIsPainted()
{
    Scene scene(false);
    picturebatches::setEnabled(false);
    QCOMPARE(scene.paintsOfChange(), 1);
    QCOMPARE(scene.paintsOf([&] {
        for (int value = 1; value < 4; ++value)
            scene.dial().setValue(value);
    }),
             1);
    picturebatches::setEnabled(true);
    QCOMPARE(scene.paintsOfChange(), 0);
}

void tst_BatchedPicture::hiddenWindowsWait()
{
    Scene scene(false);
    scene.dial().setValue(2);
    scene.window.hide(); // with a picture waiting
    scene.settle();
    QCOMPARE(scene.paintsOfChange(), 0);
    scene.window.show();
    scene.settle();
    QCOMPARE(seen(scene.window), paintedAnew(scene.window));
    scene.window.setUpdatesEnabled(false);
    scene.paintsOfChange();
    scene.window.setUpdatesEnabled(true);
    scene.window.resize(450, 320);
    scene.paintsOfChange();
    QCOMPARE(seen(scene.window), paintedAnew(scene.window));
}

void tst_BatchedPicture::diesWhileItWaits()
{
    Scene scene(false);
    for (CDial *dial : std::as_const(scene.dials))
        dial->setValue(5);
    delete scene.dials.takeAt(3);
    scene.settle();
    QCOMPARE(seen(scene.window), paintedAnew(scene.window));
    for (CDial *dial : std::as_const(scene.dials))
        dial->setValue(6);
    qDeleteAll(std::exchange(scene.dials, {}));
    scene.settle();
    QCOMPARE(seen(scene.window), paintedAnew(scene.window));
}

void tst_BatchedPicture::changesWhileItsPanelDies()
{
    Scene scene(false);
    auto *page = new QWidget(&scene.window);
    auto *panel = new QWidget(page);
    page->resize(100, 100);
    panel->resize(80, 80);
    auto *first = new CDial(panel);
    auto *second = new CDial(panel);
    second->setCombinedImage(strip(false));
    second->setnSubImages(Rows);
    second->setRange(0, Rows - 1);
    second->resize(Cell);
    page->show();
    scene.settle();
    bool changed = false;
    connect(first, &QObject::destroyed, second, [&] {
        changed = second->isVisible();
        second->setValue(second->value() == 3 ? 4 : 3);
    });
    delete page;
    QVERIFY(changed);
    scene.settle();
    QCOMPARE(seen(scene.window), paintedAnew(scene.window));
}

void tst_BatchedPicture::staysRightInAGraphicsScene()
{
    // A scene's window has no backing store of its own.
    QGraphicsScene graphics;
    auto dial = std::make_unique<CDial>();
    QGraphicsProxyWidget *proxy = graphics.addWidget(dial.get());
    dial->setCombinedImage(strip(false));
    dial->setnSubImages(Rows);
    dial->setRange(0, Rows - 1);
    proxy->show();
    for (int value = 0; value < Rows; ++value) {
        dial->setValue(value);
        QApplication::processEvents();
    }
    QVERIFY(proxy->isVisible());
    proxy->setWidget(nullptr);
}

void tst_BatchedPicture::allThatIsDrawnReachesTheScreen()
{
    QRandomGenerator dice(11);
    for (const int count : {1, 2, 5, 40, 300}) {
        for (const qreal ratio : {1.0, 1.25, 1.1234}) {
            DrawnRegion drawn(ratio);
            QRegion exact;
            for (int number = 0; number < count; ++number) {
                const QRect rect(dice.bounded(2000), number * 7, 1 + dice.bounded(60),
                                 1 + dice.bounded(60));
                drawn.add(rect);
                exact += rect;
            }
            QVERIFY((exact - drawn.region()).isEmpty());
            QVERIFY(drawn.region().rectCount() <= 64);
        }
    }
}

/// Only the difference to what the window holds is drawn, so that has to be known at all times.
void tst_BatchedPicture::aMeterIsDrawnWhereItChanged()
{
    MeterScene scene(1);
    CMeter &meter = *scene.meters.first();
    // What is painted while a part is covered, is painted in parts.
    read(meter, 20);
    scene.settle();
    QWidget cover(&scene.panel);
    cover.setAutoFillBackground(true);
    cover.setGeometry(meter.geometry().adjusted(0, 30, 0, -30));
    cover.show();
    scene.settle();
    read(meter, 120);
    scene.settle();
    cover.hide();
    scene.settle();
    read(meter, 60);
    scene.settle();
    QCOMPARE(seen(scene.window), due(scene.window));
    // What is painted elsewhere is not in the window.
    read(meter, 110);
    scene.window.grab();
    scene.settle();
    QCOMPARE(seen(scene.window), due(scene.window));
}

/// As above, and nothing here paints the whole window but what moves it.
void tst_BatchedPicture::aHardLifeLeavesMetersRight()
{
    MeterScene scene(6);
    const QList<CMeter *> &meters = scene.meters;
    const QPixmap lit = scene.lit;
    const QPixmap unlit = scene.unlit;
    QRandomGenerator dice(815);
    const auto any = [&](int count) { return int(dice.bounded(count)); };
    for (int step = 0; step < 3000; ++step) {
        CMeter &meter = *meters[any(int(meters.size()))];
        switch (any(24)) {
        case 0: meter.move(20 * any(6), 40 + any(40)); break;
        case 1: meter.raise(); break;
        case 2: meter.lower(); break;
        case 3: meter.setVisible(!meter.isVisible()); break;
        case 4: scene.panel.move(any(60), any(60)); break;
        case 5: scene.panel.update(any(200), any(100), 30, 30); break;
        case 6: scene.panel.scroll(any(9) - 4, any(9) - 4); break;
        case 7: meter.setMeterBgndImage(any(2) ? lit : unlit); break;
        case 8: meter.update(3, any(80), 5, 20); break;
        case 9: scene.window.resize(380 + any(40), 280 + any(40)); break;
        default: read(meter, any(128), any(30)); break;
        }
        if (any(3) > 0)
            QApplication::processEvents();
        if (any(4) > 0)
            continue;
        scene.settle();
        QVERIFY2(seen(scene.window) == due(scene.window), qPrintable(QString::number(step)));
    }
}

void tst_BatchedPicture::aHardLifeLeavesTheScreenRight_data()
{
    QTest::addColumn<bool>("translucent");
    QTest::newRow("opaque") << false;
    QTest::newRow("translucent") << true;
}

void tst_BatchedPicture::aHardLifeLeavesTheScreenRight()
{
    QFETCH(bool, translucent);
    Scene scene(translucent);
    QRandomGenerator dice(4711);
    const auto any = [&](int count) { return int(dice.bounded(count)); };
    for (int step = 0; step < 300; ++step) {
        for (int act = any(6); act >= 0; --act) {
            CDial &dial = *scene.dials[any(int(scene.dials.size()))];
            switch (any(12)) {
            case 0: dial.move(any(300) - 20, any(200) - 20); break;
            case 1: dial.raise(); break;
            case 2: dial.lower(); break;
            case 3: dial.setVisible(!dial.isVisible()); break;
            case 4: dial.setEnabled(!dial.isEnabled()); break;
            case 5: scene.panel.move(any(60), any(60)); break;
            case 6: scene.panel.update(any(200), any(100), 30, 30); break;
            default: dial.setValue(any(Rows)); break;
            }
        }
        scene.settle();
        QVERIFY2(seen(scene.window) == paintedAnew(scene.window),
                 qPrintable(QString::number(step)));
    }
}

QTEST_MAIN(tst_BatchedPicture)
#include "tst_BatchedPicture.moc"
