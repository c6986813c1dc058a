// SPDX-License-Identifier: MIT
#include "interfaces/CSimpleNotifier.h"
#include "tests/companions/memory/MemoryRig.h"

#include <QtTest>
#include <QUndoStack>

#include <thread>

namespace {

constexpr auto Fader = "kInputFader/kFader";
constexpr auto Groups = "FEkGroupID_Input/kGroupID;10FEkGroupID_Mix/kGroupID;"
                        "08FEkGroupID_Matrix/kGroupID;03FEkGroupID_Stereo/kGroupID";

class Receiver : public QObject
{
    Q_OBJECT

public:
    QList<int> values;
    int plainCalls = 0;
    std::function<void()> then;

public Q_SLOTS:
    void take(int value)
    {
        values.append(value);
        if (then)
            then();
    }
    void plain() { ++plainCalls; }
    void takeText(const QString &) {}
};

} // namespace

class tst_SimpleNotifier : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsItsReceiver();
    void followsTheSelectedChannel();
    void isNotMadeForWhatIsNotThere();
    void pointedElsewhere();
    void deletedByItsReceiver();
};

void tst_SimpleNotifier::tellsItsReceiver()
{
    Rig rig;
    Receiver receiver;
    const IMemAPI::TSingleAddress at{{17, 2, 0}, 0, 0};
    auto *byName = CSimpleNotifier::Create(*rig.memory, &receiver, "FEkInputFader/kFader", 7,
                                           "1take( int )", nullptr, nullptr);
    auto *byFields =
        CSimpleNotifier::Create(*rig.memory, &receiver, &at, 5, SLOT(plain()), nullptr, nullptr);
    QVERIFY(byName && byFields && byName->parent() == &receiver);
    rig.turn();
    QCOMPARE(std::pair(receiver.values, receiver.plainCalls), std::pair(QList<int>{-1380}, 1));
    std::thread([&] { rig.write(Fader, 7, -30); }).join();
    rig.write(Fader, 7, -20);
    rig.turn();
    QCOMPARE(std::pair(receiver.values, receiver.plainCalls), std::pair(QList<int>{-1380, -20}, 2));
    byFields->setValue(-5);
    QCOMPARE(byName->value(), -5);
    rig.memory->undoStack()->undo();
    QCOMPARE(byName->value(), -20);
    rig.memory.reset();
    QCOMPARE(byName->value(), 0);
    byName->setValue(1);
}

void tst_SimpleNotifier::followsTheSelectedChannel()
{
    Rig rig;
    Receiver receiver;
    auto *notifier = CSimpleNotifier::Create(*rig.memory, &receiver, Groups, 3, SLOT(take(int)),
                                             nullptr, nullptr);
    rig.write("kGroupID_Input/kGroupID", 3, 1);
    rig.write("kGroupID_Mix/kGroupID", 2, 4);
    rig.memory->selectAltAddress(notifier->valueHolder(), 50);
    QCOMPARE(notifier->value(), 4);
    rig.turn();
    rig.write("kGroupID_Input/kGroupID", 3, 2);
    rig.turn();
    QCOMPARE(receiver.values, QList<int>{4});
    rig.memory->selectAltAddress(notifier->valueHolder(), 200); // no such channel
    QCOMPARE(notifier->value(), 0);
    rig.memory->selectAltAddress(notifier->valueHolder(), 3);
    QCOMPARE(notifier->value(), 2);
}

void tst_SimpleNotifier::isNotMadeForWhatIsNotThere()
{
    Rig rig;
    Receiver receiver;
    const auto create = [&](const char *name, int element, const char *slot) {
        return CSimpleNotifier::Create(*rig.memory, &receiver, name, element, slot, nullptr,
                                       nullptr);
    };
    QVERIFY(!create(Groups, 75, SLOT(take(int))));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^No parameter \"kNone/kPair\""));
    QVERIFY(!create("FEkNone/kPair", 0, SLOT(take(int))));
    for (const char *slot : {SLOT(none(int)), SLOT(takeText(QString))}) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Receiver \\(\"\"\\) has no slot"));
        QVERIFY(!create(Fader, 0, slot));
    }
    const IMemAPI::TSingleAddress nowhere{{999, 0, 0}, 0, 0};
    QVERIFY(!CSimpleNotifier::Create(*rig.memory, &receiver, &nowhere, 0, SLOT(take(int)), nullptr,
                                     nullptr));
    QVERIFY(receiver.children().isEmpty());
    const std::unique_ptr<CSimpleNotifier> mute(create(Fader, 0, nullptr));
    QCOMPARE(mute->value(), -1380); // a holder of a value, nothing more
}

void tst_SimpleNotifier::pointedElsewhere()
{
    Rig rig;
    Receiver receiver;
    auto *notifier = CSimpleNotifier::Create(*rig.memory, &receiver, Fader, 0, SLOT(take(int)),
                                             nullptr, nullptr);
    QCOMPARE(CSimpleNotifier::Create(*rig.memory, &receiver, "kInputOn/kOn", 0, SLOT(take(int)),
                                     notifier, nullptr),
             notifier);
    rig.turn();
    rig.write(Fader, 0, -1);
    rig.turn();
    QCOMPARE(receiver.values, QList<int>{1});
}

void tst_SimpleNotifier::deletedByItsReceiver()
{
    Rig rig;
    Receiver receiver;
    CSimpleNotifier *notifiers[2];
    for (CSimpleNotifier *&each : notifiers)
        each = CSimpleNotifier::Create(*rig.memory, &receiver, Fader, 0, SLOT(take(int)), nullptr,
                                       nullptr);
    receiver.then = [&] {
        for (CSimpleNotifier *&each : notifiers)
            delete std::exchange(each, nullptr);
    };
    rig.turn();
    QCOMPARE(receiver.values.size(), 1);
    QVERIFY(receiver.children().isEmpty());
}

QTEST_MAIN(tst_SimpleNotifier)
#include "tst_SimpleNotifier.moc"
