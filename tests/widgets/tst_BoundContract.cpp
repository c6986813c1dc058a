// SPDX-License-Identifier: MIT
// What holds for every bound control, tried on every class of the registry. A class that differs by
// design says so in `exceptions`.
#include "tests/support/RecordingMemory.h"
#include "widgets/forms/WidgetRegistry.h"

#include <QAccessible>
#include <QMetaProperty>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>

#include <thread>

namespace {

struct Exception
{
    const char *className;
    const char *rule;
};

/// Rules: "signals", "refreshesAtAttach", "attaches" (it gets readings instead), "asksUnasked" (it
/// asks for the main thread only when there is something new), "tabOrder", "name".
const QList<Exception> exceptions{
    {"COnOffButton", "refreshesAtAttach"},
    // These stand at addresses of their own: the selection's first element, a head amp's port.
    {"CSelectButton", "refreshesAtAttach"},
    {"CSelectButton", "attaches"},
    {"C48V", "refreshesAtAttach"},
    {"C48V", "attaches"},
    {"C48VDial", "refreshesAtAttach"},
    {"C48VDial", "attaches"},
    // Displays, which are looked at.
    {"StateDisplayBit", "tabOrder"},
    {"StateDisplayWidget", "tabOrder"},
    {"CMeter", "signals"},
    {"CMeter", "refreshesAtAttach"},
    {"CMeter", "attaches"},
    {"CMeter", "asksUnasked"},
    {"CMeter", "tabOrder"},
    {"CPixmapMeter", "signals"},
    {"CPixmapMeter", "refreshesAtAttach"},
    {"CPixmapMeter", "attaches"},
    {"CPixmapMeter", "asksUnasked"},
    {"CPixmapMeter", "tabOrder"},
    {"CThresholdMeter", "signals"},
    {"CThresholdMeter", "refreshesAtAttach"},
    {"CThresholdMeter", "attaches"},
    {"CThresholdMeter", "tabOrder"},
    {"CTimeDisplay", "signals"},
    {"CTimeDisplay", "refreshesAtAttach"},
    {"CTimeDisplay", "attaches"},
    {"CTimeDisplay", "tabOrder"},
    {"CTimeDisplay", "name"},
    {"CCompCurve", "refreshesAtAttach"},
    {"CCompCurve", "tabOrder"},
    {"CGateCurve", "refreshesAtAttach"},
    {"CGateCurve", "tabOrder"},
    {"CGrid", "signals"},
    {"CGrid", "refreshesAtAttach"},
};

bool excepted(const QString &className, const char *rule)
{
    for (const Exception &exception : exceptions) {
        if (className == QLatin1String(exception.className) && qstrcmp(exception.rule, rule) == 0)
            return true;
    }
    return false;
}

struct Bound
{
    explicit Bound(const QString &className)
        : widget(WidgetRegistry::find(className)->make(nullptr)),
          proxy(dynamic_cast<TMemProxy *>(widget.get()))
    {
    }
    RecordingMemory memory;
    std::unique_ptr<QWidget> widget;
    TMemProxy *proxy;
};

} // namespace

class tst_BoundContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void publishesTheBindingProperties_data() { everyClass(); }
    void publishesTheBindingProperties();
    void declaresTheSlotsAndSignals_data() { everyClass(); }
    void declaresTheSlotsAndSignals();
    void isInertWithoutAMemory_data() { everyClass(); }
    void isInertWithoutAMemory();
    void attachesOnceAndWritesNothing_data() { everyClass(); }
    void attachesOnceAndWritesNothing();
    void otherThreadsTouchNothing_data() { everyClass(); }
    void otherThreadsTouchNothing();
    void leavesTheMemoryWhole_data() { everyClass(); }
    void leavesTheMemoryWhole();
    void canBeReachedAndSpeaks_data() { everyClass(); }
    void canBeReachedAndSpeaks();

private:
    void everyClass();
};

void tst_BoundContract::everyClass()
{
    QTest::addColumn<QString>("className");
    for (const WidgetRegistry::Entry &entry : WidgetRegistry::entries()) {
        const std::unique_ptr<QWidget> widget(entry.make(nullptr));
        if (dynamic_cast<TMemProxy *>(widget.get()))
            QTest::newRow(entry.className()) << QString::fromLatin1(entry.className());
    }
}

void tst_BoundContract::publishesTheBindingProperties()
{
    QFETCH(QString, className);
    const Bound bound(className);
    const QList<std::pair<const char *, QVariant>> values{
        {"namedAddress", QStringLiteral("kBlock/kParameter")}, {"tableId", 12},
        {"numDefaultKind", 1}, {"undoEnable", true}, {"undoEnable", false},
        {"disableAutoHide", true}};
    for (const auto &[name, value] : values) {
        QVERIFY2(bound.widget->setProperty(name, value), name);
        QCOMPARE(bound.widget->property(name), value);
    }
    QCOMPARE(bound.proxy->namedAddress(), QStringLiteral("kBlock/kParameter"));
}

void tst_BoundContract::declaresTheSlotsAndSignals()
{
    QFETCH(QString, className);
    const QMetaObject &meta = *WidgetRegistry::find(className)->metaObject;
    QByteArrayList slots_{"process(const Q_UINT8*,int,Q_UINT32)", "setNamedAddress(QString)",
                          "setUndoEnable(bool)", "setNumDefaultKind(int)", "setTableId(int)",
                          "setDisableAutoHide(bool)"};
    for (const QByteArray &slot : slots_)
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    if (excepted(className, "signals"))
        return;
    for (const char *signal : {"memoryAPIValueChange(int)", "textualValueChange(QString)",
                               "pixmapValueChange(QPixmap)", "altAddressMode(bool)"})
        QVERIFY2(meta.indexOfSignal(signal) >= 0, signal);
}

void tst_BoundContract::isInertWithoutAMemory()
{
    QFETCH(QString, className);
    const Bound bound(className);
    bound.proxy->connectMemAPI();
    for (int operation = -1; operation < 6; ++operation)
        bound.proxy->process(nullptr, operation, 1);
    bound.proxy->disconnectMemAPI();
    QVERIFY(!bound.proxy->isAttached() && !bound.proxy->isSilent());
}

void tst_BoundContract::attachesOnceAndWritesNothing()
{
    QFETCH(QString, className);
    Bound bound(className);
    bound.memory.at(3, 7, 2).value = 1;
    bound.memory.bind(*bound.proxy, 3, 7, 2);
    const QString attach = QStringLiteral("attachProxy %1 0").arg(packedAddress(3, 7, 2));
    const QStringList calls = bound.memory.take({"attachProxy", "readValue", "writeValue"});
    QCOMPARE(calls.count(attach), excepted(className, "attaches") ? 0 : 1);
    QCOMPARE(calls.filter(QStringLiteral("writeValue")), QStringList());
    if (!excepted(className, "refreshesAtAttach"))
        QVERIFY(calls.contains(QStringLiteral("readValue 3 7 2")));
    QVERIFY(!bound.proxy->isSilent());
    bound.proxy->process(nullptr, 0, 0);
    QCOMPARE(bound.memory.take({"writeValue"}), QStringList());
}

void tst_BoundContract::otherThreadsTouchNothing()
{
    QFETCH(QString, className);
    Bound bound(className);
    bound.memory.bind(*bound.proxy, 3, 7, 2);
    bound.memory.take();
    std::thread([&] { bound.proxy->process(nullptr, 0, 1); }).join();
    QCOMPARE(bound.memory.take(), QStringList());
    QCOMPARE(bound.memory.observerEvents.load(), excepted(className, "asksUnasked") ? 0 : 1);
}

void tst_BoundContract::leavesTheMemoryWhole()
{
    QFETCH(QString, className);
    Bound bound(className);
    bound.memory.bind(*bound.proxy, 3, 7, 2);
    QStringList expected = bound.memory.take({"attachProxy"});
    expected.replaceInStrings(QStringLiteral("attach"), QStringLiteral("detach"));
    expected.replaceInStrings(QRegularExpression(QStringLiteral(" 0$")), QString());
    expected.append(QStringLiteral("releaseProxy"));
    bound.widget.reset();
    const QStringList calls = bound.memory.take({"detachProxy", "releaseProxy"});
    if (excepted(className, "attaches"))
        QCOMPARE(calls.last(), expected.last());
    else
        QCOMPARE(calls, expected);
}

void tst_BoundContract::canBeReachedAndSpeaks()
{
    QFETCH(QString, className);
    Bound bound(className);
    bound.widget->setProperty("namedAddress", QStringLiteral("kInputHA/kGain"));
    bound.memory.bind(*bound.proxy, 3, 7, 2);
    QCOMPARE(bool(bound.widget->focusPolicy() & Qt::TabFocus), !excepted(className, "tabOrder"));
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(bound.widget.get());
    QVERIFY(speaker);
    if (!excepted(className, "name"))
        QCOMPARE(speaker->text(QAccessible::Name), QStringLiteral("Input HA Gain 3"));
    QVERIFY(!speaker->text(QAccessible::Value).isEmpty());
}

QTEST_MAIN(tst_BoundContract)
#include "tst_BoundContract.moc"
