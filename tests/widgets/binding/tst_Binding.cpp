// SPDX-License-Identifier: MIT
// What the binding verbs promise to every control, beside what the controls' own tests see of them.
#include "interfaces/ParameterAddress.h"
#include "interfaces/ParamStream.h"
#include "testkit/RecordingMemory.h"
#include "testkit/TestStrip.h"
#include "tests/support/Table.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/PendingEmissions.h"
#include "widgets/binding/TCacheServer.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Picture.h"

#include <QTest>

#include <thread>

namespace {

class Proxy : public QObject, public TMemProxy
{
public:
    void process(const Q_UINT8 *, int, Q_UINT32) override {}
    void connectMemAPI() override { binding::attach(*this); }
    void disconnectMemAPI() override { binding::detach(*this); }
};

struct Look : TCachedData
{
};
struct OtherLook : TCachedData
{
};

template<class Data>
std::shared_ptr<TCachedData> named(const QString &name)
{
    auto data = std::make_shared<Data>();
    data->setCacheName(name);
    return data;
}

} // namespace

class tst_Binding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void negativeFieldsSpillUpwards();
    void addressesAreSpoken_data();
    void addressesAreSpoken();
    void aControlMayDieInsideItsSilentScope();
    void operationsMeanTheirValue_data();
    void operationsMeanTheirValue();
    void writesTellTheMemoryWhoWrites();
    void requestsOfOtherThreadsAreNotLost();
    void cellsOutsideTheStripDrawNothing_data();
    void cellsOutsideTheStripDrawNothing();
    void unevenStripsAreToldOnce();
    void outlineTakesWhatLiesBetweenVisiblePixels();
    void erasePixmapsAreRenderedWhenAskedFor();
    void sharedDataIsOnePerNameAndType();
};

void tst_Binding::negativeFieldsSpillUpwards()
{
    QCOMPARE(packedAddress(420, 2, 17), (420U << 22) | (2U << 11) | 17U);
    QCOMPARE(packedAddress(1, 1, -1), 0xFFFFFFFFU);
    QCOMPARE(packedAddress(1, -1, 3), 0xFFFFF803U);
}

void tst_Binding::addressesAreSpoken_data()
{
    Table<QString, QString>()
        .row("plain", "kInputEQ/kLowMidGain", "Input EQ Low Mid Gain")
        .row("with unit", "0AkSetupHX612/kHX612Port", "Setup HX612 HX612 Port")
        .row("digits", "kInputSend/kMix01Level", "Input Send Mix 01 Level")
        .row("underscore", "FEkGroupID_Mix/kGroupID", "Group ID Mix Group ID")
        .row("no prefix", "knob/key", "knob key")
        .row("empty", "", "");
}

void tst_Binding::addressesAreSpoken()
{
    const auto [address, words] = Table<QString, QString>::fetch();
    QCOMPARE(binding::addressInWords(address), words);
}

void tst_Binding::aControlMayDieInsideItsSilentScope()
{
    auto *proxy = new Proxy;
    {
        const binding::SilentScope outer(*proxy);
        {
            const binding::SilentScope inner(*proxy);
            QVERIFY(proxy->isSilent());
        }
        QVERIFY(proxy->isSilent());
        delete proxy;
        QVERIFY(!outer);
    }
}

void tst_Binding::operationsMeanTheirValue_data()
{
    Table<int, bool, bool, int>()
        .row("refresh", 0, true, true, 40)
        .row("default", 1, true, true, 11)
        .row("paste", 2, true, true, 77)
        .row("refused paste", 2, true, false, 40)
        .row("alternative default", 4, true, true, 22)
        .row("no alternative default", 4, false, true, 11)
        .row("unknown", 9, true, true, 40);
}

void tst_Binding::operationsMeanTheirValue()
{
    const auto [operation, hasAlternative, acceptsPaste, value] =
        Table<int, bool, bool, int>::fetch();
    RecordingMemory memory;
    memory.at(3, 7, 2) = {0, 100, 40, 11, 22, hasAlternative};
    memory.acceptsPaste = acceptsPaste;
    Proxy proxy;
    memory.bind(proxy, 3, 7, 5);
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    TParamInfoWriter(proxy, 77, &out, -1);
    memory.bind(proxy, 3, 7, 2);
    QDataStream in(bytes);
    memory.take();
    QCOMPARE(binding::incomingValue(proxy, reinterpret_cast<const Q_UINT8 *>(&in), operation),
             value);
    // The element is its own, whosever was copied.
    QCOMPARE(memory.take({"applyParamInfo"}),
             QStringList(operation == 2 ? 1 : 0, "applyParamInfo 3 7 2 = 77"));
}

void tst_Binding::writesTellTheMemoryWhoWrites()
{
    struct Memory : RecordingMemory
    {
        int undoToken(int, int) override
        {
            writer = writeOrigin();
            return 1;
        }
        TMemProxy *writer = nullptr;
    } memory;
    Proxy proxy;
    memory.bind(proxy, 1, 2, 3);
    QCOMPARE(binding::write(proxy, 50), 50);
    QCOMPARE(memory.writer, &proxy);
    QVERIFY(!memory.writeOrigin());
}

void tst_Binding::requestsOfOtherThreadsAreNotLost()
{
    PendingEmissions pending;
    constexpr int Requests = 20000;
    int settledWithOne = 0;
    std::thread other([&] {
        for (int i = 0; i < Requests; ++i)
            pending.request();
    });
    for (int i = 0; i < Requests; ++i) {
        if (pending.requested()) {
            pending.settle();
            ++settledWithOne;
        }
    }
    other.join();
    // What came after the last look is still there, or all had been seen.
    QVERIFY(pending.requested() || settledWithOne > 0);
    pending.settle();
    QVERIFY(!pending.requested());
}

void tst_Binding::cellsOutsideTheStripDrawNothing_data()
{
    Table<int, int, int>()
        .row("row below", 1, 4, -1)
        .row("row beyond", 1, 4, 4)
        .row("no rows", 1, 0, 0)
        .row("negative rows", 1, -3, 0)
        .row("no columns", 8, 4, 0)
        .row("more rows than pixels", 1, 500, 3);
}

void tst_Binding::cellsOutsideTheStripDrawNothing()
{
    const auto [columns, rows, row] = Table<int, int, int>::fetch();
    ImageStrip strip;
    strip.setPicture(teststrip::make(1, 4, {10, 10}));
    strip.setCategories(columns);
    strip.setRows(rows);
    Picture picture({20, 20});
    strip.describe(picture, row, true);
    strip.describe(picture, row, false);
    QVERIFY(picture.blits().isEmpty());
    QVERIFY(!strip.outlineContains(row, true, {2, 2}));
}

void tst_Binding::unevenStripsAreToldOnce()
{
    QObject owner;
    owner.setObjectName(QStringLiteral("gain"));
    ImageStrip strip;
    strip.setPicture(QPixmap(20, 41));
    strip.setRows(4);
    QTest::ignoreMessage(QtWarningMsg,
                         "QObject \"gain\": a picture of 20 x 41 pixels does not divide into 1 "
                         "columns and 4 rows; the rest is cut off.");
    strip.warnIfUneven(owner);
    QCOMPARE(strip.cellSize(), QSizeF(20, 10));
}

void tst_Binding::outlineTakesWhatLiesBetweenVisiblePixels()
{
    QPixmap ring(40, 40);
    ring.fill(Qt::transparent);
    QPainter painter(&ring);
    painter.setPen(QPen(Qt::red, 3));
    painter.drawEllipse(5, 5, 30, 30);
    painter.end();
    ImageStrip strip;
    strip.setPicture(ring);
    QVERIFY(strip.outlineContains(0, true, {20, 20}));
    QVERIFY(strip.outlineContains(0, true, {6, 20}));
    QVERIFY(!strip.outlineContains(0, true, {2, 2}));
    QVERIFY(!strip.outlineContains(0, true, {60, 20}));
}

void tst_Binding::erasePixmapsAreRenderedWhenAskedFor()
{
    QWidget widget;
    widget.resize(30, 20);
    ErasePixmap erase;
    int renderings = 0;
    const auto look = [&] {
        return erase.pixmap(widget, {}, [&](QPainter &) { ++renderings; }).size();
    };
    for (int i = 0; i < 10; ++i)
        erase.invalidate();
    QCOMPARE(renderings, 0);
    QCOMPARE(look(), QSize(30, 20));
    look();
    QCOMPARE(renderings, 1);
    erase.invalidate();
    look();
    QCOMPARE(renderings, 2);
    widget.resize(40, 20);
    QCOMPARE(look(), QSize(40, 20));
}

void tst_Binding::sharedDataIsOnePerNameAndType()
{
    TCacheServer server;
    const auto first = server.share(named<Look>(QStringLiteral("key")));
    const auto second = server.share(named<Look>(QStringLiteral("key")));
    QCOMPARE(first, second);
    QCOMPARE(first->shareCount(), 2);
    QVERIFY(server.share(named<OtherLook>(QStringLiteral("key"))) != first);
    QVERIFY(server.share(named<Look>(QString())) != server.share(named<Look>(QString())));
    TCacheServer::release(second);
    QCOMPARE(first->shareCount(), 1);
}

QTEST_MAIN(tst_Binding)
#include "tst_Binding.moc"
