// SPDX-License-Identifier: MIT
// What keeps the dial fast, counted instead of timed: paints, allocations, renderings, deliveries.
#include "companions/memory/ParameterMemory.h"
#include "testkit/TestStrip.h"
#include "tests/support/PaintEventsOnly.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/controls/CDial.h"

#include <QAccessible>
#include <QTest>

#include <thread>

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#    define COUNTS_ALLOCATIONS
#endif

namespace {

constexpr QSize CellSize(48, 48);
constexpr int Rows = 121;

/// What this thread has asked of the heap so far.
thread_local int allocations = 0;
/// Those among them that could hold a picture of a dial.
thread_local int pictures = 0;

#ifdef COUNTS_ALLOCATIONS
void count(size_t size)
{
    ++allocations;
    pictures += size >= size_t(CellSize.width()) * CellSize.height() * sizeof(QRgb);
}
#endif

} // namespace

#ifdef COUNTS_ALLOCATIONS
// The program's own definitions go before those of the C library, for every library it loads.
#    define INSTEAD_OF_THE_LIBRARYS extern "C" __attribute__((visibility("default")))
extern "C" void *__libc_malloc(size_t);
extern "C" void *__libc_calloc(size_t, size_t);
extern "C" void *__libc_realloc(void *, size_t);

INSTEAD_OF_THE_LIBRARYS void *malloc(size_t size) noexcept
{
    count(size);
    return __libc_malloc(size);
}

INSTEAD_OF_THE_LIBRARYS void *calloc(size_t number, size_t size) noexcept
{
    count(number * size);
    return __libc_calloc(number, size);
}

INSTEAD_OF_THE_LIBRARYS void *realloc(void *block, size_t size) noexcept
{
    count(size);
    return __libc_realloc(block, size);
}
#endif

namespace {

/// Counts the paints of a widget.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;

private:
    PaintEventsOnly m_events;
};

/// Counts the events that are no events of the toolkit.
class DeliveryCounter : public QObject
{
public:
    DeliveryCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        deliveries += event->type() > QEvent::User;
        return false;
    }
    int deliveries = 0;
};

/// An opaque widget that draws one cell: what the toolkit needs for a paint.
class Cell : public QWidget
{
public:
    explicit Cell(QWidget *parent) : QWidget(parent) { setAttribute(Qt::WA_OpaquePaintEvent); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter(this).drawPixmap(QPoint(0, 0), m_strip, QRect(QPoint(0, 0), CellSize));
    }

private:
    QPixmap m_strip = teststrip::make(1, 1, CellSize);
};

class Panel : public QWidget, public TCacheServer
{
public:
    explicit Panel(const QString &caption) : TCacheServer(caption) {}
};

class CountingDial : public CDial
{
public:
    explicit CountingDial(QWidget *parent) : CDial(parent) { drawsLikeDial(typeid(CountingDial)); }
    void process(const Q_UINT8 *bytes, int operation, Q_UINT32 extra) override
    {
        ++calls;
        CDial::process(bytes, operation, extra);
    }
    int calls = 0;
};

/// A shown dial with a picture per value, bound to a frequency of the built-in console.
struct Scene
{
    explicit Scene(const QString &caption = {}) : panel(caption)
    {
        QString error;
        if (!memory.load(ParameterMemory::builtInModel(), &error))
            qFatal("%s", qPrintable(error));
        panel.resize(200, 100);
        dial.setGeometry({QPoint(0, 0), CellSize});
        dial.setFocusPolicy(Qt::NoFocus);
        dial.setCombinedImage(teststrip::make(1, Rows, CellSize));
        dial.setnSubImages(Rows);
        dial.setNamedAddress(QStringLiteral("kInputEQ/kLowFreq"));
        memory.bind(&panel);
        panel.show();
        QCoreApplication::processEvents();
    }

    void write(int value) { memory.writeValue(dial.group, dial.index, dial.element, value, 0); }
    void change(int value)
    {
        write(value);
        dial.process(nullptr, CDial::Refresh, 0);
    }
    void changeAndPaint(int value)
    {
        change(value);
        QCoreApplication::processEvents();
    }
    void showAllValues()
    {
        for (int value = 0; value < Rows; ++value)
            changeAndPaint(value);
    }

    ParameterMemory memory;
    Panel panel;
    CountingDial dial{&panel};
};

/// How many allocations `work` takes; the most economical of some times, since queues grow now and then.
int allocationsOf(const std::function<void(int)> &work)
{
    int least = std::numeric_limits<int>::max();
    for (int time = 1; time <= 10; ++time) {
        const int before = allocations;
        work(time);
        least = std::min(least, allocations - before);
    }
    return least;
}

} // namespace

class tst_CDialCost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aChangeAllocatesItsTextAtMost_data();
    void aChangeAllocatesItsTextAtMost();
    void aRefreshWithoutChangeIsFree();
    void changesBetweenFramesPaintOnce();
    void noPictureIsMadeUnlessItIsShared();
    void aSharedPictureIsMadeOncePerRow();
    void aNewDialHasNoAccessibleObjectYet();
    void aStormIsOneDelivery();
};

void tst_CDialCost::aChangeAllocatesItsTextAtMost_data()
{
    QTest::addColumn<int>("tableId");
    QTest::addColumn<bool>("heard");
    QTest::addColumn<int>("texts");
    QTest::addColumn<bool>("batched");

    for (const bool batched : {false, true}) {
        const char *how = batched ? "in a batch" : "by an event";
        QTest::addRow("text from a table, nobody listens, %s", how) << 0 << false << 0 << batched;
        QTest::addRow("text from a table, shown, %s", how) << 0 << true << 0 << batched;
        QTest::addRow("number without a table, nobody listens, %s", how)
            << 9999 << false << 1 << batched;
        QTest::addRow("number without a table, shown, %s", how) << 9999 << true << 1 << batched;
    }
}

void tst_CDialCost::aChangeAllocatesItsTextAtMost()
{
#ifndef COUNTS_ALLOCATIONS
    QSKIP("allocations cannot be counted in this build");
#endif
    QFETCH(int, tableId);
    QFETCH(bool, heard);
    QFETCH(int, texts);
    QFETCH(bool, batched);
    picturebatches::setEnabled(batched);
    const auto restore = qScopeGuard([] { picturebatches::setEnabled(true); });
    Scene scene;
    scene.dial.setTableId(tableId);
    scene.dial.disconnectMemAPI(); // the refresh is called by hand
    int length = 0;
    if (heard)
        connect(&scene.dial, &CDial::textualValueChange, this,
                [&length](const QString &text) { length += int(text.size()); });
    scene.showAllValues();

    Scene other;
    Cell cell(&other.panel);
    cell.setGeometry(100, 0, CellSize.width(), CellSize.height());
    cell.show();
    QDial plain;
    plain.setValue(50);
    QCoreApplication::processEvents();
    const int byTheToolkit = allocationsOf([&](int time) {
        plain.setValue(time);
        cell.update();
        QCoreApplication::processEvents();
    });
    const int byTheDial = allocationsOf([&](int time) { scene.changeAndPaint(time); });
    QVERIFY(byTheToolkit > 0);
    QVERIFY2(byTheDial <= byTheToolkit + texts,
             qPrintable(QStringLiteral("%1 against %2").arg(byTheDial).arg(byTheToolkit)));
    QCOMPARE(length > 0, heard);
}

void tst_CDialCost::aRefreshWithoutChangeIsFree()
{
    Scene scene;
    scene.changeAndPaint(7);
    const PaintCounter counter(scene.dial);
    const int before = allocations;
    scene.dial.process(nullptr, CDial::Refresh, 0);
    QCOMPARE(allocations, before);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
}

void tst_CDialCost::changesBetweenFramesPaintOnce()
{
    Scene scene;
    const PaintCounter counter(scene.dial);
    for (int value = 1; value <= 10; ++value)
        scene.change(value);
    QCOMPARE(counter.paints, 0);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 1);
    scene.change(11);
    scene.change(10);
    scene.dial.process(nullptr, CDial::Refresh, 1);
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 2);
}

void tst_CDialCost::noPictureIsMadeUnlessItIsShared()
{
#ifndef COUNTS_ALLOCATIONS
    QSKIP("allocations cannot be counted in this build");
#endif
    Scene scene;
    scene.showAllValues();
    const int before = pictures;
    scene.showAllValues();
    QCOMPARE(pictures, before);
    scene.dial.erasePixmap();
    QCOMPARE(pictures, before + 1);
    scene.dial.erasePixmap();
    QCOMPARE(pictures, before + 1);
}

void tst_CDialCost::aSharedPictureIsMadeOncePerRow()
{
#ifndef COUNTS_ALLOCATIONS
    QSKIP("allocations cannot be counted in this build");
#endif
    Scene scene(QStringLiteral("cost-"));
    scene.changeAndPaint(20);
    const int before = pictures;
    for (int value = 21; value <= 30; ++value)
        scene.change(value);
    QCOMPARE(pictures, before);
    QCoreApplication::processEvents();
    QCOMPARE(pictures, before + 1);
    for (int value : {20, 30, 20, 30})
        scene.changeAndPaint(value);
    QCOMPARE(pictures, before + 1);
}

/// Most dials get their first values from a memory, before anybody looks.
void tst_CDialCost::aNewDialHasNoAccessibleObjectYet()
{
    static int asked;
    asked = 0;
    QAccessible::installFactory([](const QString &, QObject *) -> QAccessibleInterface * {
        ++asked;
        return nullptr;
    });
    CDial dial;
    QCOMPARE(asked, 0);
    QVERIFY(QAccessible::queryAccessibleInterface(&dial));
    QCOMPARE(asked, 1);
    QCOMPARE(QAccessible::queryAccessibleInterface(&dial)->role(), QAccessible::Dial);
}

void tst_CDialCost::aStormIsOneDelivery()
{
    Scene scene;
    CountingDial second(&scene.panel);
    second.setNamedAddress(QStringLiteral("kInputEQ/kHighFreq"));
    scene.memory.bind(&second);
    QCoreApplication::processEvents();
    scene.dial.calls = 0;
    second.calls = 0;
    const DeliveryCounter counter;
    std::thread([&] {
        for (int change = 0; change < 1000; ++change) {
            scene.write(change % Rows);
            scene.memory.writeValue(second.group, second.index, second.element, change % Rows, 0);
        }
    }).join();
    QCoreApplication::processEvents();
    QCOMPARE(scene.dial.calls, 1);
    QCOMPARE(second.calls, 1);
    QCOMPARE(scene.dial.value(), 999 % Rows);
    // The delivery, and the one that it posts lest a nested event loop wait for the rest.
    QVERIFY2(counter.deliveries <= 2, qPrintable(QString::number(counter.deliveries)));
}

QTEST_MAIN(tst_CDialCost)
#include "tst_CDialCost.moc"
