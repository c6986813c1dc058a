// SPDX-License-Identifier: MIT
#include "widgets/graphs/SegmentPlotter.h"

#include <QTest>

namespace {

using Dots = QList<QPoint>;

/// The dots in the order in which they come, repetitions left out.
struct Plot
{
    Dots dots;
    SegmentPlotter plotter{[this](QPoint dot) {
        if (!dots.contains(dot))
            dots.append(dot);
    }};
};

Dots fitted(QSize size, const SegmentPlotter::Curve &curve)
{
    Plot plot;
    plot.plotter.plotToFit(size, curve);
    return plot.dots;
}

int identity(int input)
{
    return input;
}

Dots column(int x, int top, int bottom)
{
    Dots dots;
    for (int y = top; y <= bottom; ++y)
        dots.append({x, y});
    return dots;
}

Dots sorted(Dots dots)
{
    std::ranges::sort(
        dots, [](QPoint a, QPoint b) { return std::pair(a.x(), a.y()) < std::pair(b.x(), b.y()); });
    return dots;
}

} // namespace

class tst_SegmentPlotter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void segmentsHaveEveryPixelAlongTheLongerAxis_data();
    void segmentsHaveEveryPixelAlongTheLongerAxis();
    void theIdentityIsTheDiagonal_data();
    void theIdentityIsTheDiagonal();
    void onlyTheAxesInputsAreEvaluated();
    void aCurveThatLeavesStaysInItsColumn();
    void aCurveThatComesBackStartsAtTheEdge();
    void whatCrossesUnseenIsNotDrawn();
    void nothingIsDrawnOutside_data();
    void nothingIsDrawnOutside();
    void onePixelPerDecibelStandsOnTheBottom();
};

void tst_SegmentPlotter::segmentsHaveEveryPixelAlongTheLongerAxis_data()
{
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<Dots>("dots");
    // From (0, 0). The shorter axis is truncated towards the start, upwards and downwards alike.
    QTest::newRow("point") << QPoint(0, 0) << Dots{{0, 0}};
    QTest::newRow("flat, down") << QPoint(4, 2) << Dots{{0, 0}, {1, 0}, {2, 1}, {3, 1}, {4, 2}};
    QTest::newRow("flat, up") << QPoint(4, -2) << Dots{{0, 0}, {1, 0}, {2, -1}, {3, -1}, {4, -2}};
    QTest::newRow("steep") << QPoint(1, -3) << Dots{{0, 0}, {0, -1}, {0, -2}, {1, -3}};
    QTest::newRow("backwards") << QPoint(-2, 1) << Dots{{0, 0}, {-1, 0}, {-2, 1}};
}

void tst_SegmentPlotter::segmentsHaveEveryPixelAlongTheLongerAxis()
{
    QFETCH(QPoint, to);
    Plot plot;
    plot.plotter.plotSegment({0, 0}, to);
    QTEST(plot.dots, "dots");
}

void tst_SegmentPlotter::theIdentityIsTheDiagonal_data()
{
    QTest::addColumn<int>("side");
    QTest::newRow("a pixel per decibel") << 91;
    QTest::newRow("two pixels per decibel") << 181;
    QTest::newRow("two decibels per pixel") << 46;
    QTest::newRow("a single pixel") << 1;
}

void tst_SegmentPlotter::theIdentityIsTheDiagonal()
{
    QFETCH(int, side);
    Dots diagonal;
    for (int i = 0; i < side; ++i)
        diagonal.append({i, side - 1 - i});
    QCOMPARE(fitted({side, side}, identity), diagonal);
}

void tst_SegmentPlotter::onlyTheAxesInputsAreEvaluated()
{
    for (const int width : {2, 46, 91, 400}) {
        int lowest = 100;
        int highest = -100;
        fitted({width, 91}, [&](int input) {
            lowest = std::min(lowest, input);
            highest = std::max(highest, input);
            return input;
        });
        QVERIFY(lowest >= -72);
        QCOMPARE(highest, 18); // where the last step, from +17 dB, ends
    }
}

void tst_SegmentPlotter::aCurveThatLeavesStaysInItsColumn()
{
    const auto jumps = [](int input) { return input < 0 ? -10 : 30; };
    const Dots dots = fitted({181, 91}, jumps);
    // The step from -1 to 0 dB begins in column 142.
    Dots expected = column(142, 0, 28);
    QCOMPARE(sorted(Dots(dots.end() - 28, dots.end())), sorted(expected.first(28)));
    for (const QPoint &dot : dots)
        QVERIFY(dot.x() <= 142);
}

void tst_SegmentPlotter::aCurveThatComesBackStartsAtTheEdge()
{
    const auto returns = [](int input) { return input < 0 ? -100 : -50; };
    const Dots dots = fitted({91, 91}, returns);
    QCOMPARE(dots.first(), QPoint(71, 90));
    QVERIFY(dots.contains(QPoint(72, 68)));
    QCOMPARE(dots.last(), QPoint(90, 68));
}

void tst_SegmentPlotter::whatCrossesUnseenIsNotDrawn()
{
    QCOMPARE(fitted({91, 91}, [](int input) { return input < 0 ? -100 : 100; }), Dots());
    QCOMPARE(fitted({91, 91}, [](int) { return 19; }), Dots());
    QCOMPARE(fitted({91, 91}, [](int) { return 18; }).size(), 91);
}

void tst_SegmentPlotter::nothingIsDrawnOutside_data()
{
    QTest::addColumn<QSize>("size");
    for (const QSize &size : {QSize(0, 0), QSize(0, 50), QSize(50, 0), QSize(1, 50), QSize(2, 2),
                              QSize(33, 77), QSize(91, 20), QSize(500, 300)})
        QTest::addRow("%dx%d", size.width(), size.height()) << size;
}

void tst_SegmentPlotter::nothingIsDrawnOutside()
{
    QFETCH(QSize, size);
    const QRect inside(QPoint(0, 0), size);
    const auto wild = [](int input) { return input * 37 % 101 - 30; };
    for (const QPoint &dot : fitted(size, wild))
        QVERIFY(inside.contains(dot));
}

void tst_SegmentPlotter::onePixelPerDecibelStandsOnTheBottom()
{
    Plot plot;
    plot.plotter.plotPixelsPerDecibel(1, {91, 120}, identity);
    QCOMPARE(plot.dots.first(), QPoint(0, 119));
    QCOMPARE(plot.dots.last(), QPoint(90, 29));
    QCOMPARE(plot.dots.size(), 91);
    // To the right of +18 dB it goes on as far as the output is shown.
    Plot wide;
    wide.plotter.plotPixelsPerDecibel(1, {200, 91}, [](int input) { return input - 30; });
    QCOMPARE(wide.dots.first(), QPoint(29, 90));
    QCOMPARE(wide.dots.last(), QPoint(120, 0));
}

QTEST_GUILESS_MAIN(tst_SegmentPlotter)
#include "tst_SegmentPlotter.moc"
