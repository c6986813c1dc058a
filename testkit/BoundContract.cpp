// SPDX-License-Identifier: MIT
#include "testkit/BoundContract.h"

#include "interfaces/ParamStream.h"
#include "interfaces/TMemProxy.h"
#include "testkit/RecordingMemory.h"
#include "testkit/WatchedMemory.h"

#include <QAccessible>
#include <QAction>
#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

#include <optional>
#include <thread>

namespace {

const char *const AddressName = "kInputHA/kGain";
const char *const AddressInWords = "Input HA Gain %1";

constexpr IMemAPI::TSingleBaseAddress RecordedParameter{3, 2, 7};

} // namespace

struct BoundContract::Control
{
    QByteArray className;
    MakeControl make;
};

struct BoundContract::Memory
{
    QByteArray name;
    IMemAPI::TSingleBaseAddress at;
    MakeMemory make;
};

/// One control on one memory, with what the control does to the memory on record.
struct BoundContract::Bound
{
    explicit Bound(const BoundContract &contract)
    {
        QFETCH(int, control);
        QFETCH(int, memory);
        const Control &chosen = contract.m_controls[control];
        const Memory &place = contract.m_memories[memory];
        exceptions = contract.m_exceptions.value(chosen.className);
        at = place.at;
        real = place.make();
        watched = std::make_unique<WatchedMemory>(*real);
        widget.reset(chosen.make());
        proxy = dynamic_cast<TMemProxy *>(widget.get());
    }
    ~Bound() { widget.reset(); }

    /// What a binder does.
    void bind()
    {
        static_cast<IMemAPI::TSingleBaseAddress &>(*proxy) = at;
        proxy->setMemAPI(watched.get());
        proxy->setAttached(true);
        proxy->connectMemAPI();
    }
    int stored() const { return real->readValue(at.group, at.index, at.element, 0, 0); }
    int minimum() const { return real->readMinimum(at.group, at.index, at.element, 0); }
    int maximum() const { return real->readMaximum(at.group, at.index, at.element, 0); }
    /// A write of somebody else, and its delivery; not every memory delivers by itself.
    void changeElsewhere(int value)
    {
        real->writeValue(at.group, at.index, at.element, value, 0);
        QCoreApplication::processEvents();
        proxy->process(nullptr, TMemProxyBasic::Refresh, 1);
    }
    bool excepted(Exception exception) const { return exceptions.testFlag(exception); }
    QString atText() const
    {
        return QStringLiteral(" %1 %2 %3").arg(at.group).arg(at.index).arg(at.element);
    }

    Exceptions exceptions;
    IMemAPI::TSingleBaseAddress at;
    std::unique_ptr<IMemAPI> real;
    std::unique_ptr<WatchedMemory> watched;
    std::unique_ptr<QWidget> widget;
    TMemProxy *proxy = nullptr;
};

/// One control on a memory that does what the test says.
struct BoundContract::Recorded
{
    explicit Recorded(const BoundContract &contract)
    {
        QFETCH(int, control);
        const Control &chosen = contract.m_controls[std::size_t(control)];
        exceptions = contract.m_exceptions.value(chosen.className);
        widget.reset(chosen.make());
        proxy = dynamic_cast<TMemProxy *>(widget.get());
        const auto [group, element, index] = RecordedParameter;
        parameter().maximum = 1;
        memory.bind(*proxy, group, index, element);
        refresh(0);
        memory.take();
    }

    RecordingMemory::Parameter &parameter()
    {
        return memory.at(RecordedParameter.group, RecordedParameter.index,
                         RecordedParameter.element);
    }
    /// A write of somebody else, and its delivery.
    void refresh(int value, Q_UINT32 extra = 0)
    {
        parameter().value = value;
        proxy->process(nullptr, TMemProxyBasic::Refresh, extra);
    }
    void paste(const QByteArray &bytes)
    {
        QDataStream in(bytes);
        proxy->process(reinterpret_cast<const Q_UINT8 *>(&in), TMemProxyBasic::Paste, 0);
    }

    Exceptions exceptions;
    RecordingMemory memory;
    std::unique_ptr<QWidget> widget;
    TMemProxy *proxy = nullptr;
};

BoundContract::BoundContract() = default;
BoundContract::~BoundContract() = default;

void BoundContract::add(const char *className, const MakeControl &make)
{
    m_controls.push_back({className, make});
}

void BoundContract::except(const char *className, Exceptions exceptions)
{
    m_exceptions[className] |= exceptions;
}

void BoundContract::addMemory(const char *name, const IMemAPI::TSingleBaseAddress &at,
                              const MakeMemory &make)
{
    m_memories.push_back({name, at, make});
}

void BoundContract::initTestCase()
{
    if (m_memories.empty()) {
        addMemory("recording memory", RecordedParameter,
                  [] { return std::make_unique<RecordingMemory>(); });
    }
    for (const Memory &memory : m_memories) {
        const auto real = memory.make();
        const auto [group, element, index] = memory.at;
        QVERIFY2(real && real->isReady(), memory.name);
        QVERIFY2(real->parameterExists(group, index, element), memory.name);
        QVERIFY2(real->readMinimum(group, index, element, 0)
                     < real->readMaximum(group, index, element, 0),
                 memory.name);
    }
    for (auto it = m_exceptions.cbegin(); it != m_exceptions.cend(); ++it) {
        const bool known =
            std::any_of(m_controls.begin(), m_controls.end(),
                        [&](const Control &each) { return each.className == it.key(); });
        QVERIFY2(known, "an exception for no control: " + it.key());
    }
    for (const Control &control : m_controls) {
        const std::unique_ptr<QWidget> widget(control.make());
        QVERIFY2(dynamic_cast<TMemProxy *>(widget.get()), control.className);
        QCOMPARE(QByteArray(widget->metaObject()->className()), control.className);
    }
}

void BoundContract::rows(int memories, Exceptions without, Exceptions with) const
{
    QTest::addColumn<int>("control");
    QTest::addColumn<int>("memory");
    int count = 0;
    for (int memory = 0; memory < memories; ++memory) {
        for (int control = 0; control < int(m_controls.size()); ++control) {
            QByteArray row = m_controls[control].className;
            const Exceptions exceptions = m_exceptions.value(row);
            if ((exceptions & without) || (exceptions & with) != with)
                continue;
            if (memories > 1)
                row += ", " + m_memories[memory].name;
            QTest::newRow(row) << control << memory;
            ++count;
        }
    }
    if (count == 0)
        QSKIP("for other controls");
}

void BoundContract::everyControl(Exceptions without, Exceptions with) const
{
    rows(1, without, with);
}

void BoundContract::everyControlOnEveryMemory(Exceptions without) const
{
    rows(int(m_memories.size()), without);
}

void BoundContract::publishesTheBindingProperties()
{
    const Bound bound(*this);
    const QList<std::pair<const char *, QVariant>> values{
        {"namedAddress", QString::fromLatin1(AddressName)},
        {"tableId", 12},
        {"numDefaultKind", 1},
        {"undoEnable", true},
        {"undoEnable", false},
        {"disableAutoHide", true}};
    for (const auto &[name, value] : values) {
        QVERIFY2(bound.widget->metaObject()->indexOfProperty(name) >= 0, name);
        QVERIFY2(bound.widget->setProperty(name, value), name);
        QCOMPARE(bound.widget->property(name), value);
    }
    QCOMPARE(bound.proxy->namedAddress(), QString::fromLatin1(AddressName));
}

void BoundContract::declaresTheSlotsAndSignals()
{
    const Bound bound(*this);
    const QMetaObject &meta = *bound.widget->metaObject();
    for (const char *slot :
         {"process(const Q_UINT8*,int,Q_UINT32)", "setNamedAddress(QString)", "setUndoEnable(bool)",
          "setNumDefaultKind(int)", "setTableId(int)", "setDisableAutoHide(bool)"})
        QVERIFY2(meta.indexOfSlot(slot) >= 0, slot);
    for (const char *signal : {"memoryAPIValueChange(int)", "textualValueChange(QString)",
                               "pixmapValueChange(QPixmap)", "altAddressMode(bool)"})
        QVERIFY2((meta.indexOfSignal(signal) >= 0) != bound.excepted(NoValueSignals), signal);
}

void BoundContract::isInertWithoutAMemory()
{
    const Bound bound(*this);
    bound.proxy->connectMemAPI();
    for (int operation = -1; operation < 6; ++operation)
        bound.proxy->process(nullptr, operation, 1);
    bound.proxy->reset2defaults(0);
    bound.proxy->disconnectMemAPI();
    QVERIFY(!bound.proxy->isAttached() && !bound.proxy->isSilent());
}

void BoundContract::isInertWhileItsMemoryIsNotReady()
{
    Recorded bound(*this);
    bound.memory.readyNow = false;
    for (int operation = 0; operation < 6; ++operation)
        bound.proxy->process(nullptr, operation, 1);
    bound.proxy->reset2defaults(0);
    QTest::mouseClick(bound.widget.get(), Qt::LeftButton);
    QTest::keyClick(bound.widget.get(), Qt::Key_Up);
    bound.proxy->disconnectMemAPI();
    QCOMPARE(bound.memory.take({"attachProxy", "detachProxy", "read", "writeValue"}),
             QStringList());
    QVERIFY(!bound.proxy->isAttached());
}

void BoundContract::hidesWhileItsParameterIsMissing()
{
    Recorded bound(*this);
    QWidget &widget = *bound.widget;
    widget.show();
    for (const bool exists : {false, true}) {
        bound.memory.exists = exists;
        bound.refresh(0);
        QCOMPARE(widget.isVisible(), exists);
    }
    // Who hides it himself shows it again himself.
    widget.hide();
    bound.refresh(0);
    QVERIFY(!widget.isVisible());
    widget.show();
    bound.proxy->setDisableAutoHide(true);
    bound.memory.exists = false;
    bound.refresh(0);
    QVERIFY(widget.isVisible());
}

void BoundContract::attachesOnceAndWritesNothing()
{
    Bound bound(*this);
    bound.real->writeValue(bound.at.group, bound.at.index, bound.at.element, bound.maximum(), 0);
    bound.bind();
    const QString attach =
        QStringLiteral("attachProxy %1 0")
            .arg(packedAddress(bound.at.group, bound.at.index, bound.at.element));
    const QStringList calls = bound.watched->take({"attachProxy", "readValue", "writeValue"});
    QCOMPARE(calls.count(attach), bound.excepted(AttachesElsewhere) ? 0 : 1);
    QCOMPARE(calls.filter(QStringLiteral("writeValue")), QStringList());
    QCOMPARE(calls.contains(QStringLiteral("readValue") + bound.atText()),
             !bound.excepted(ReadsLater));
    QVERIFY(!bound.proxy->isSilent());
}

void BoundContract::followsTheMemoryAndWritesNothingBack()
{
    Bound bound(*this);
    bound.bind();
    bound.changeElsewhere(bound.minimum());
    const bool tells = !bound.excepted(NoValueSignals) && !bound.excepted(AttachesElsewhere);
    std::optional<QSignalSpy> values;
    if (tells)
        values.emplace(bound.widget.get(), SIGNAL(memoryAPIValueChange(int)));
    bound.changeElsewhere(bound.maximum());
    QCOMPARE(bound.watched->take({"writeValue"}), QStringList());
    QCOMPARE(bound.stored(), bound.maximum());
    QVERIFY(!bound.proxy->isSilent());
    if (tells) {
        QVERIFY(!values->isEmpty());
        QCOMPARE(values->last().first().toInt(), bound.maximum());
    }
}

void BoundContract::resetsAndCopiesItsParameter()
{
    Bound bound(*this);
    bound.bind();
    const int byDefault =
        bound.real->readDefault(bound.at.group, bound.at.index, bound.at.element, false, nullptr);
    bound.changeElsewhere(byDefault == bound.maximum() ? bound.minimum() : bound.maximum());
    bound.proxy->reset2defaults(0);
    QCOMPARE(bound.stored(), byDefault);

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    bound.proxy->copyParameters(out, 0);
    QDataStream in(bytes);
    const TParamInfoReader reader(&in);
    QVERIFY(reader.isValid());
    QCOMPARE(reader.info(),
             (TParamInfo{bound.at.group, bound.at.element, bound.at.index, byDefault}));
}

void BoundContract::takesOperations()
{
    Recorded bound(*this);
    QSignalSpy told(bound.widget.get(), SIGNAL(memoryAPIValueChange(int)));
    const auto changes = [&] {
        return std::exchange(static_cast<QList<QVariantList> &>(told), {}).size();
    };
    bound.parameter().plainDefault = 1;
    bound.proxy->process(nullptr, TMemProxyBasic::ResetToDefault, 0);
    QCOMPARE(changes(), 1);
    bound.refresh(1);
    bound.proxy->process(nullptr, TMemProxyBasic::ResetToAlternativeDefault + 5, 0);
    QCOMPARE(changes(), 0);

    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    TParamInfoWriter(*bound.proxy, 0, &out, -1);
    bound.memory.acceptsPaste = false;
    bound.paste(bytes);
    bound.memory.acceptsPaste = true;
    bound.paste(bytes.chopped(1));
    QCOMPARE(changes(), 0);
    bound.paste(bytes);
    QCOMPARE(changes(), 1);
    QCOMPARE(bound.memory.take({"writeValue"}), QStringList());
}

void BoundContract::isNotEdited()
{
    Recorded bound(*this);
    bound.widget->show();
    bound.memory.take();
    for (const int operation : {-1, 1, 2, 3, 4})
        bound.proxy->process(nullptr, operation, 1);
    QCOMPARE(bound.memory.take(), QStringList());
    QTest::mouseClick(bound.widget.get(), Qt::LeftButton);
    QTest::keyClick(bound.widget.get(), Qt::Key_Space);
    QCOMPARE(bound.memory.take({"writeValue"}), QStringList());
}

void BoundContract::tellsOnceWhatWasBlocked()
{
    Recorded bound(*this);
    QSignalSpy told(bound.widget.get(), SIGNAL(memoryAPIValueChange(int)));
    bound.widget->blockSignals(true);
    for (const int value : {1, 0, 1})
        bound.refresh(value);
    bound.widget->blockSignals(false);
    QVERIFY(told.isEmpty());
    QTest::qWait(100);
    QCOMPARE(told.size(), bound.exceptions.testFlag(ForgetsBlocked) ? 0 : 1);
    if (!told.isEmpty())
        QCOMPARE(told.first().first().toInt(), 1);
}

void BoundContract::mayDieInItsOwnSignal()
{
    for (const char *signal : {SIGNAL(memoryAPIValueChange(int)),
                               SIGNAL(textualValueChange(QString)), SIGNAL(altAddressMode(bool))}) {
        Recorded bound(*this);
        QAction fate;
        connect(bound.widget.get(), signal, &fate, SLOT(trigger()));
        connect(&fate, &QAction::triggered, this, [&] { bound.widget.reset(); });
        bound.refresh(0, 1);
        if (bound.widget) // it tells only what is new
            bound.refresh(1);
        QVERIFY2(!bound.widget, signal);
    }
}

void BoundContract::otherThreadsTouchNothing()
{
    Bound bound(*this);
    bound.bind();
    bound.watched->take();
    std::thread([&] { bound.proxy->process(nullptr, TMemProxyBasic::Refresh, 1); }).join();
    const QStringList asked(bound.excepted(AsksWhenNew) ? 0 : 1,
                            QStringLiteral("postObserverEvent"));
    QCOMPARE(bound.watched->take(), asked);
}

void BoundContract::leavesTheMemoryWhole()
{
    for (const bool detachedBefore : {false, true}) {
        Bound bound(*this);
        bound.bind();
        QStringList expected;
        for (const QString &attach : bound.watched->take({"attachProxy"}))
            expected.append(QStringLiteral("detachProxy ") + attach.section(u' ', 1, 1));
        expected.append(QStringLiteral("releaseProxy"));
        if (detachedBefore)
            bound.proxy->disconnectMemAPI();
        bound.widget.reset();
        const QStringList calls = bound.watched->take({"detachProxy", "releaseProxy"});
        if (bound.excepted(AttachesElsewhere))
            QCOMPARE(calls.last(), expected.last());
        else
            QCOMPARE(calls, expected);
    }
    // What the memory still had to deliver does not reach the control that is gone.
    QCoreApplication::processEvents();
}

void BoundContract::outlivesTheMemory()
{
    Bound bound(*this);
    bound.bind();
    bound.real.reset();
    QVERIFY(!bound.proxy->memAPI() && !bound.proxy->isAttached());
    for (int operation = -1; operation < 6; ++operation)
        bound.proxy->process(nullptr, operation, 1);
    QTest::mouseClick(bound.widget.get(), Qt::LeftButton);
    QTest::keyClick(bound.widget.get(), Qt::Key_Up);
    bound.widget.reset();
    QCOMPARE(bound.watched->take({"writeValue", "releaseProxy"}), QStringList());
}

void BoundContract::canBeReachedAndSpeaks()
{
    Bound bound(*this);
    bound.widget->setProperty("namedAddress", QString::fromLatin1(AddressName));
    bound.bind();
    QCOMPARE(bool(bound.widget->focusPolicy() & Qt::TabFocus), !bound.excepted(NoFocus));
    const QAccessibleInterface *speaker = QAccessible::queryAccessibleInterface(bound.widget.get());
    QVERIFY(speaker);
    const QString name = QString::fromLatin1(AddressInWords).arg(bound.at.element + 1);
    QCOMPARE(speaker->text(QAccessible::Name) == name, !bound.excepted(OwnName));
    QVERIFY(!speaker->text(QAccessible::Name).isEmpty());
    QVERIFY(!speaker->text(QAccessible::Value).isEmpty());
}
