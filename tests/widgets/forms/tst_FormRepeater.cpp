// SPDX-License-Identifier: MIT
#include "widgets/forms/FormRepeater.h"

#include "companions/memory/ParameterMemory.h"
#include "tests/widgets/forms/FormFile.h"
#include "widgets/controls/CDial.h"
#include "widgets/forms/FormLoader.h"

#include <QLabel>
#include <QRegularExpression>

class TestFormRepeater : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void eachStripIsBoundToItsChannel();
    void stripsStandInPanelsInOrder_data();
    void stripsStandInPanelsInOrder();
    void faultyStripIsToldOnce();
    void formThatContainsItselfEnds();
    void channelsBeyondTheHighestAreLeftOut();

private:
    static QByteArray strip();
    static QByteArray row(const QByteArray &form, int first, int count,
                          const QByteArray &orientation = "Qt::Horizontal");
};

using F = FormFolder;

QByteArray TestFormRepeater::strip()
{
    return "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"Strip{ch}\">"
           "<layout class=\"QVBoxLayout\"><item><widget class=\"QLabel\" name=\"title\">"
           "<property name=\"text\"><string>CH {ch} is "
           "{element}</string></property></widget></item>"
           "<item><widget class=\"CDial\" name=\"gain\"><property name=\"namedAddress\">"
           "<string>kInputHA/kGain</string></property></widget></item></layout></widget></ui>";
}

QByteArray TestFormRepeater::row(const QByteArray &form, int first, int count,
                                 const QByteArray &orientation)
{
    const auto number = [](int value) {
        return "<number>" + QByteArray::number(value) + "</number>";
    };
    return F::form(F::widget(
        "FormRepeater", F::property("form", "<string>" + form + "</string>")
                            + F::property("firstChannel", number(first))
                            + F::property("channels", number(count))
                            + F::property("orientation", "<string>" + orientation + "</string>")));
}

void TestFormRepeater::eachStripIsBoundToItsChannel()
{
    const FormFolder files;
    files.write("strip.ui", strip());
    FormLoader loader;
    const std::unique_ptr<QWidget> page(
        loader.load(files.write("page.ui", row("strip.ui", 5, 20))));
    QVERIFY2(loader.problems().isEmpty(), qPrintable(loader.problems().join('\n')));

    ParameterMemory memory;
    QVERIFY(memory.load(ParameterMemory::builtInModel()));
    QCOMPARE(memory.bind(page.get()), 20);
    for (int channel = 5; channel < 25; ++channel) {
        const auto *one = page->findChild<QWidget *>(QString("Strip%1").arg(channel));
        QVERIFY(one);
        QCOMPARE(one->property("channelElement").toInt(), channel - 1);
        QCOMPARE(int(one->findChild<CDial *>("gain")->element), channel - 1);
        QCOMPARE(one->findChild<QLabel *>("title")->text(),
                 QString("CH %1 is %2").arg(channel).arg(channel - 1));
    }
}

void TestFormRepeater::stripsStandInPanelsInOrder_data()
{
    QTest::addColumn<QByteArray>("orientation");
    QTest::newRow("side by side") << QByteArray("Qt::Horizontal");
    QTest::newRow("one below the other") << QByteArray("Qt::Vertical");
}

void TestFormRepeater::stripsStandInPanelsInOrder()
{
    QFETCH(QByteArray, orientation);
    const FormFolder files;
    files.write("strip.ui", strip());
    FormLoader loader;
    const std::unique_ptr<QWidget> page(
        loader.load(files.write("page.ui", row("strip.ui", 1, 19, orientation))));
    page->show();
    auto *repeater = page->findChild<FormRepeater *>();
    const auto panels = repeater->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    QCOMPARE(panels.size(), 3);
    int last = -1;
    for (int channel = 1; channel <= 19; ++channel) {
        const auto *one = page->findChild<QWidget *>(QString("Strip%1").arg(channel));
        QVERIFY(one->parentWidget()->children().size() <= FormRepeater::PanelSize + 1);
        const QPoint at = one->mapTo(repeater, QPoint());
        const int along = repeater->orientation() == Qt::Horizontal ? at.x() : at.y();
        QVERIFY(along > last);
        last = along;
    }
}

void TestFormRepeater::faultyStripIsToldOnce()
{
    const FormFolder files;
    const QString missing = "gone.ui: cannot be read: .+";
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(missing));
    FormLoader loader;
    const std::unique_ptr<QWidget> first(
        loader.load(files.write("page.ui", row("gone.ui", 1, 48))));
    QVERIFY(first->findChild<QLabel *>("survivor"));
    QCOMPARE(loader.problems().size(), 1);

    files.write("odd.ui", strip().replace("CDial", "CNoSuch"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("odd.ui: widget 'gain': unknown class"));
    const std::unique_ptr<QWidget> second(
        loader.load(files.write("page.ui", row("odd.ui", 1, 48))));
    QCOMPARE(second->findChildren<QLabel *>("title").size(), 48);
    QCOMPARE(loader.problems().size(), 2);
}

void TestFormRepeater::formThatContainsItselfEnds()
{
    const FormFolder files;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("page.ui: contains itself"));
    FormLoader loader;
    const std::unique_ptr<QWidget> page(loader.load(files.write("page.ui", row("page.ui", 1, 3))));
    QVERIFY(page);
    QCOMPARE(loader.problems().size(), 1);
}

void TestFormRepeater::channelsBeyondTheHighestAreLeftOut()
{
    const FormFolder files;
    files.write("strip.ui", strip());
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("no channels above 2048"));
    FormLoader loader;
    const std::unique_ptr<QWidget> page(
        loader.load(files.write("page.ui", row("strip.ui", 2047, 2147483647))));
    QCOMPARE(page->findChildren<CDial *>().size(), 2);
}

QTEST_MAIN(TestFormRepeater)
#include "tst_FormRepeater.moc"
