// SPDX-License-Identifier: MIT
// The keys that run the commands: enabled only while they would do something.
#include "tests/support/LibraryRig.h"
#include "tests/support/Table.h"
#include "widgets/buttons/COnOffButton.h"

namespace {

/// A list with its five keys in one window.
struct KeyRig : ListRig
{
    explicit KeyRig(const QString &states) : ListRig(states)
    {
        list->setParent(&window);
        list->resize(300, 200);
        int x = 0;
        for (COnOffButton *key : {&store, &recall, &clear, &undo, &protect})
            key->setGeometry(x += 40, 220, 36, 24);
        window.resize(320, 260);
    }
    void attach(CListWidge *to)
    {
        to->setStore(&store);
        to->setRecall(&recall);
        to->setClear(&clear);
        to->setUndo(&undo);
        to->setProtect(&protect);
    }
    void show()
    {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QApplication::processEvents();
    }
    /// A letter for each key that is enabled.
    QString enabled() const
    {
        QApplication::processEvents();
        QString letters;
        const std::pair<const COnOffButton *, char> keys[]{
            {&store, 's'}, {&recall, 'r'}, {&clear, 'c'}, {&undo, 'u'}, {&protect, 'p'}};
        for (const auto &[key, letter] : keys) {
            if (key->isEnabled())
                letters += letter;
        }
        return letters;
    }
    static void click(COnOffButton &key) { QTest::mouseClick(&key, Qt::LeftButton); }

    QWidget window;
    COnOffButton store{&window, "store"};
    COnOffButton recall{&window, "recall"};
    COnOffButton clear{&window, "clear"};
    COnOffButton undo{&window, "undo"};
    COnOffButton protect{&window, "protect"};
};

} // namespace

class TestCListWidgeKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keyIsEnabledWhileItWouldDoSomething_data();
    void keyIsEnabledWhileItWouldDoSomething();
    void keysFollowWhatHappens();
    void keysAreLookedAtOncePerTurn();
    void clickRunsTheCommand();
    void keyWritesNothingByItself();
    void detachedKeyRunsNothing();
    void sharedKeysWorkOnTheListOfTheLastSelection();
    void keysAndPairAreFoundByName();
    void nearestOfTheNameIsTaken();
    void missingNamesAreTold();
};

void TestCListWidgeKeys::keyIsEnabledWhileItWouldDoSomething_data()
{
    Table<QString, QList<int>, QString>()
        .row("nothing selected", "dd", {}, "")
        .row("a slot with data", "d", {1}, "srcp")
        .row("an empty slot", "-", {1}, "s")
        .row("a protected slot", "p", {1}, "rp")
        .row("a read only slot", "r", {1}, "r")
        .row("a read only empty slot", "e", {1}, "")
        .row("protected for ever", "q", {1}, "r")
        .row("one of several will do", "prd", {1, 2, 3}, "srcp")
        .row("recall looks at the first", "-d", {1, 2}, "scp")
        .row("with a protected slot, protect means unprotect", "qd", {1, 2}, "src");
}

void TestCListWidgeKeys::keyIsEnabledWhileItWouldDoSomething()
{
    const auto [states, selected, enabled] = Table<QString, QList<int>, QString>::fetch();
    KeyRig rig(states);
    rig.attach(rig.list);
    rig.select(selected);
    QCOMPARE(rig.enabled(), enabled);
}

void TestCListWidgeKeys::keysFollowWhatHappens()
{
    KeyRig rig("-d");
    KeyRig other("-");
    rig.attach(rig.list);
    rig.list->setOtherList(other.list);
    other.list->setOtherList(rig.list);
    QCOMPARE(rig.enabled(), "");
    rig.select({1});
    QCOMPARE(rig.enabled(), "s");
    rig.list->Store();
    QCOMPARE(rig.enabled(), "srcup");
    rig.list->Protect();
    QCOMPARE(rig.enabled(), "rup");
    rig.list->Undo(true);
    QCOMPARE(rig.enabled(), "srcp");
    // The library changed by itself.
    rig.row(1)->contents.isProtected = true;
    rig.row(1)->contentsChanged();
    QCOMPARE(rig.enabled(), "rp");
    delete rig.row(1);
    rig.list->clearSelection();
    QCOMPARE(rig.enabled(), "");
    other.select({1});
    other.list->Store();
    QCOMPARE(rig.enabled(), "u");
    rig.list->goClearAllUndo(true);
    QCOMPARE(rig.enabled(), "");
}

void TestCListWidgeKeys::keysAreLookedAtOncePerTurn()
{
    KeyRig rig(QString("d").repeated(50));
    rig.attach(rig.list);
    rig.enabled();
    rig.library.undoQueries = 0;
    for (int round = 0; round < 20; ++round) {
        rig.list->selectAll();
        rig.list->clearSelection();
        rig.row(3)->contentsChanged();
    }
    QApplication::processEvents();
    QCOMPARE(rig.library.undoQueries, 50);
}

void TestCListWidgeKeys::clickRunsTheCommand()
{
    KeyRig rig("-");
    rig.attach(rig.list);
    rig.show();
    rig.select({1});
    QApplication::processEvents();
    rig.click(rig.recall);
    QCOMPARE(rig.library.take(), QStringList());
    rig.click(rig.store);
    QCOMPARE(rig.library.take(), QStringList("store 1"));
    QApplication::processEvents();
    rig.click(rig.recall);
    QCOMPARE(rig.library.take(), QStringList({"forget 1", "recall 1"}));
    rig.click(rig.protect);
    QCOMPARE(rig.library.take(), QStringList("protect 1"));
    QApplication::processEvents();
    rig.click(rig.undo);
    QCOMPARE(rig.library.take(), QStringList("undo 1"));
    QApplication::processEvents();
    Answers operatorSays({Answers::yes()});
    rig.clear.setFocus();
    QTest::keyClick(&rig.clear, Qt::Key_Space);
    QCOMPARE(rig.library.take(), QStringList("clear 1"));
}

void TestCListWidgeKeys::keyWritesNothingByItself()
{
    KeyRig rig("d");
    rig.attach(rig.list);
    rig.library.memory.bind(rig.store, 1, 2, 3);
    rig.show();
    rig.select({1});
    QApplication::processEvents();
    rig.click(rig.store);
    QCOMPARE(rig.library.calls, QStringList("store 1"));
    QCOMPARE(rig.library.memory.take({"writeValue"}), QStringList());
    QVERIFY(!rig.store.isOn());
}

void TestCListWidgeKeys::detachedKeyRunsNothing()
{
    KeyRig rig("d");
    rig.attach(rig.list);
    rig.show();
    rig.select({1});
    QApplication::processEvents();
    COnOffButton another(&rig.window);
    rig.list->setStore(&another);
    rig.list->setProtect(nullptr);
    rig.click(rig.store);
    rig.click(rig.protect);
    QCOMPARE(rig.library.calls, QStringList());
    rig.click(another);
    QCOMPARE(rig.library.calls, QStringList("store 1"));
}

void TestCListWidgeKeys::sharedKeysWorkOnTheListOfTheLastSelection()
{
    KeyRig rig("d");
    ListRig other("-");
    rig.attach(rig.list);
    rig.attach(other.list);
    rig.list->setOtherList(other.list);
    other.list->setOtherList(rig.list);
    rig.show();
    rig.select({1});
    QCOMPARE(rig.enabled(), "srcp");
    other.select({1});
    QVERIFY(rig.selected().isEmpty());
    QCOMPARE(rig.enabled(), "s");
    rig.click(rig.store);
    QCOMPARE(other.library.take(), QStringList("store 1"));
    QCOMPARE(rig.library.take(), QStringList());
    QCOMPARE(rig.enabled(), "srcup");
    rig.select({1});
    QCOMPARE(rig.enabled(), "srcup");
    rig.click(rig.undo);
    QCOMPARE(other.library.take(), QStringList("undo 1"));
    QCOMPARE(rig.library.take(), QStringList("undo 1"));
    // Alone again, a list has its keys for itself.
    delete other.list;
    QCOMPARE(rig.enabled(), "srcp");
}

void TestCListWidgeKeys::keysAndPairAreFoundByName()
{
    KeyRig rig("d");
    ListRig other("d");
    other.list->setParent(&rig.window);
    other.list->setObjectName("right");
    rig.list->setStoreButton("store");
    rig.list->setRecallButton("recall");
    rig.list->setClearButton("clear");
    rig.list->setUndoButton("undo");
    rig.list->setOtherListName("right");
    QVERIFY(!rig.list->otherList());
    rig.show();
    QCOMPARE(rig.list->otherList(), other.list.data());
    rig.list->setProtectButton("protect");
    QCOMPARE(rig.enabled(), "");
    rig.select({1});
    QCOMPARE(rig.enabled(), "srcp");
    rig.click(rig.store);
    QCOMPARE(rig.library.calls, QStringList("store 1"));
    QCOMPARE(rig.list->property("storeButton").toString(), "store");
    QCOMPARE(rig.list->property("otherList").toString(), "right");
}

void TestCListWidgeKeys::nearestOfTheNameIsTaken()
{
    KeyRig rig("d"); // has a key of that name, farther away
    QWidget strip(&rig.window);
    COnOffButton nearby(&strip, "store");
    rig.list->setParent(&strip);
    rig.list->setStoreButton("store");
    rig.show();
    rig.select({1});
    QApplication::processEvents();
    rig.click(nearby);
    QCOMPARE(rig.library.calls, QStringList("store 1"));
}

void TestCListWidgeKeys::missingNamesAreTold()
{
    KeyRig rig("d");
    rig.list->setObjectName("scenes");
    rig.list->setStoreButton("nowhere");
    rig.list->setOtherListName("gone");
    QTest::ignoreMessage(QtWarningMsg, "CListWidge 'scenes': no key named 'nowhere' in its window");
    QTest::ignoreMessage(QtWarningMsg, "CListWidge 'scenes': no list named 'gone' in its window");
    rig.show();
}

QTEST_MAIN(TestCListWidgeKeys)
#include "tst_CListWidgeKeys.moc"
