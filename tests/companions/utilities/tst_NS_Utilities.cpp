// SPDX-License-Identifier: MIT
#include "interfaces/utilities/NS_Utilities.h"
#include "tests/support/Table.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <thread>

namespace {

const bool s_mainThreadBeforeApplication = NS_Utilities::mainThreadRunning();

void writePicture(const QString &file, int size)
{
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY2(image.save(file), qPrintable(file));
}

} // namespace

class TestUtilities : public QObject
{
    Q_OBJECT

public:
    static void initMain() { qputenv("QT_SCALE_FACTOR", "2"); }

private Q_SLOTS:
    void theMainThreadIsTheApplicationsOne();
    void theDensestFittingVersionIsChosen_data();
    void theDensestFittingVersionIsChosen();
    void aLoadedPictureKnowsItsRatio();
    void aMissingPictureWarnsOnce();
    void greyHasTheLuminanceHalfWayToTheMiddle_data();
    void greyHasTheLuminanceHalfWayToTheMiddle();
    void greyKeepsAlphaAndRatio();
};

void TestUtilities::theMainThreadIsTheApplicationsOne()
{
    QVERIFY(!s_mainThreadBeforeApplication);
    QVERIFY(NS_Utilities::mainThreadRunning());
    bool elsewhere = true;
    std::thread([&elsewhere] { elsewhere = NS_Utilities::mainThreadRunning(); }).join();
    QVERIFY(!elsewhere);
}

void TestUtilities::theDensestFittingVersionIsChosen_data()
{
    const QStringList all{"a.b.png", "a.b@2x.png", "a.b@3x.png"};
    Table<QStringList, qreal, QString>()
        .row("plain screen", all, 1.0, "a.b.png")
        .row("fractional scale", all, 1.25, "a.b@2x.png")
        .row("double scale", all, 2.0, "a.b@2x.png")
        .row("beyond double", all, 2.5, "a.b@3x.png")
        .row("beyond all versions", all, 4.0, "a.b@3x.png")
        .row("next best below", {"a.b.png", "a.b@2x.png"}, 3.0, "a.b@2x.png")
        .row("only the plain one", {"a.b.png"}, 2.0, "a.b.png")
        .row("no suffix, dotted folder", {"knob", "knob@2x"}, 2.0, "knob@2x");
}

void TestUtilities::theDensestFittingVersionIsChosen()
{
    const auto [present, scale, expected] = Table<QStringList, qreal, QString>::fetch();

    const QTemporaryDir folder(QDir::tempPath() + "/pictures.XXXXXX");
    for (const QString &name : present) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(NS_Utilities::pixmapFile(folder.filePath(present.first()), scale),
             folder.filePath(expected));
}

void TestUtilities::aLoadedPictureKnowsItsRatio()
{
    const QTemporaryDir folder;
    writePicture(folder.filePath("dense.png"), 10);
    writePicture(folder.filePath("dense@2x.png"), 20);
    writePicture(folder.filePath("plain.png"), 10);

    const QPixmap dense = NS_Utilities::loadPixmap(folder.filePath("dense.png"));
    QCOMPARE(dense.size(), QSize(20, 20));
    QCOMPARE(dense.devicePixelRatio(), 2.0);
    const QPixmap plain = NS_Utilities::loadPixmap(folder.filePath("plain.png"));
    QCOMPARE(plain.size(), QSize(10, 10));
    QCOMPARE(plain.devicePixelRatio(), 1.0);
}

void TestUtilities::aMissingPictureWarnsOnce()
{
    QTest::ignoreMessage(QtWarningMsg, "No picture \"nowhere/knob.png\"");
    QVERIFY(NS_Utilities::loadPixmap("nowhere/knob.png").isNull());
    QTest::failOnWarning(QRegularExpression(".*"));
    QVERIFY(NS_Utilities::loadPixmap("nowhere/knob.png").isNull());
}

void TestUtilities::greyHasTheLuminanceHalfWayToTheMiddle_data()
{
    Table<QColor, int>()
        .row("black", QColor(0, 0, 0), 64)
        .row("white", QColor(255, 255, 255), 191)
        .row("middle stays", QColor(128, 128, 128), 128)
        .row("red", QColor(255, 0, 0), 91)
        .row("green is lightest", QColor(0, 255, 0), 155)
        .row("blue is darkest", QColor(0, 0, 255), 73)
        .row("half transparent white", QColor(255, 255, 255, 128), 191)
        .row("half transparent black", QColor(0, 0, 0, 128), 64);
}

void TestUtilities::greyHasTheLuminanceHalfWayToTheMiddle()
{
    const auto [colour, grey] = Table<QColor, int>::fetch();

    QPixmap picture(3, 2);
    picture.fill(colour);
    const QImage image = NS_Utilities::applyGreyTransformation(picture);
    QCOMPARE(image.size(), QSize(3, 2));
    const QColor result = image.pixelColor(2, 1);
    QCOMPARE(result.alpha(), colour.alpha());
    QCOMPARE(result.red(), result.green());
    QCOMPARE(result.red(), result.blue());
    QVERIFY2(qAbs(result.red() - grey) <= 2, qPrintable(QString::number(result.red())));
}

void TestUtilities::greyKeepsAlphaAndRatio()
{
    QPixmap picture(4, 4);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::transparent);
    const QImage image = NS_Utilities::applyGreyTransformation(picture);
    QCOMPARE(image.devicePixelRatio(), 2.0);
    QCOMPARE(image.pixel(0, 0), 0U); // premultiplied: nothing, not a transparent grey
    QVERIFY(NS_Utilities::applyGreyTransformation(QPixmap()).isNull());
}

QTEST_MAIN(TestUtilities)
#include "tst_NS_Utilities.moc"
