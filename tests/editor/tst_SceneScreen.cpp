// SPDX-License-Identifier: MIT
// The scene screen as the operator uses it: keys, questions, messages, undo.
#include "companions/memory/ParameterSnapshot.h"
#include "editor/EditorPreferences.h"
#include "tests/editor/EditorRig.h"
#include "widgets/buttons/COnOffButton.h"
#include "widgets/lists/CListWidge.h"

#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <QUndoStack>

namespace {

const QString Fader = "kInputFader/kFader";

} // namespace

class TestSceneScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_rig = std::make_unique<EditorRig>(); }
    void cleanup() { m_rig.reset(); }

    void aRecallBringsTheSettingsBackInOneUndoStep();
    void questionsAreAskedAsTheOperatorPrefers();
    void preferencesOutliveTheSession();
    void aFailedStoreIsToldAndCanBeRepeated();
    void anUnusableLibraryIsToldOnItsScreenOnly();
    void aReadOnlyLibraryCanStillBeRecalled();
    void rowsShowWhatAnotherProgramDoes();
    void scenesAreDraggedWhole();
    void undoTakesBackWhatWasDoneToRows();

private:
    QWidget *page() { return m_rig->screen("scenes"); }
    CListWidge *list() { return page()->findChild<CListWidge *>("scenes"); }
    CListWidgeItem *row(int slot) { return CListWidge::libraryRow(list()->topLevelItem(slot - 1)); }
    void select(int slot) { list()->setCurrentItem(row(slot)); }
    COnOffButton *key(const char *name) { return page()->findChild<COnOffButton *>(name); }
    /// Presses a key of the screen and answers the boxes that come up; gives back their texts.
    QStringList press(const char *name, QMessageBox::StandardButton answer = QMessageBox::Yes);
    QAction *menuAction(const QString &text) const;
    void moveFader(int value) const;

    std::unique_ptr<EditorRig> m_rig;
};

QStringList TestSceneScreen::press(const char *name, QMessageBox::StandardButton answer)
{
    QStringList asked;
    QTimer answers;
    connect(&answers, &QTimer::timeout, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        asked << box->text();
        QAbstractButton *button = box->button(answer);
        (button ? button : box->button(QMessageBox::Ok))->click();
    });
    answers.start(1);
    QApplication::processEvents();
    QTest::mouseClick(key(name), Qt::LeftButton);
    QTest::qWait(150); // keys take their time
    return asked;
}

QAction *TestSceneScreen::menuAction(const QString &text) const
{
    for (QAction *action : m_rig->window->findChildren<QAction *>()) {
        if (QString(action->text()).remove('&') == text)
            return action;
    }
    qFatal("no action %s", qPrintable(text));
    return nullptr;
}

void TestSceneScreen::moveFader(int value) const
{
    IMemAPI::TSingleBaseAddress at;
    m_rig->memory.resolve(Fader, 3, at);
    m_rig->memory.writeValue(at.group, at.index, at.element, value, 0);
}

void TestSceneScreen::aRecallBringsTheSettingsBackInOneUndoStep()
{
    moveFader(-100);
    select(12);
    QCOMPARE(press("store"), QStringList("Store to (empty) #012?"));
    QCOMPARE(row(12)->titleText(), QString("Scene 012"));
    QVERIFY(row(12)->timeStored().secsTo(QDateTime::currentDateTime()) < 60);

    QWidget *pan = m_rig->control("channel-strips", "Input 4 pan");
    QTest::keyClick(pan, Qt::Key_PageUp);
    moveFader(-500);
    const int panned = m_rig->value("kInputPan/kPan", 3);
    m_rig->memory.undoStack()->clear();

    QCOMPARE(press("recall"), QStringList("Recall from Scene 012 #012?"));
    QCOMPARE(m_rig->value(Fader, 3), -100);
    QVERIFY(m_rig->value("kInputPan/kPan", 3) != panned);
    QCOMPARE(m_rig->window->statusBar()->currentMessage(),
             QString("Recalled #012 Scene 012: 2 values changed"));
    QUndoStack &history = *m_rig->memory.undoStack();
    QCOMPARE(history.count(), 1);
    QCOMPARE(menuAction("Undo Recall #012 Scene 012")->isEnabled(), true);
    history.undo();
    QCOMPARE(m_rig->value(Fader, 3), -500);
    QCOMPARE(m_rig->value("kInputPan/kPan", 3), panned);
}

void TestSceneScreen::questionsAreAskedAsTheOperatorPrefers()
{
    select(1);
    QCOMPARE(press("store", QMessageBox::No).size(), 1);
    QVERIFY(!row(1)->hasData());
    menuAction("Ask before storing")->trigger();
    QCOMPARE(press("store"), QStringList());
    QVERIFY(row(1)->hasData());
    QCOMPARE(press("recall").size(), 1);
    menuAction("Ask before recalling")->trigger();
    QCOMPARE(press("recall"), QStringList());
}

void TestSceneScreen::preferencesOutliveTheSession()
{
    const QString file = m_rig->folder.filePath("kept/settings.ini");
    EditorPreferences &preferences = m_rig->window->preferences();
    preferences.setOn(IPreferences::ConfirmStore, false);
    QVERIFY(!QFile::exists(file));
    preferences.setOn(IPreferences::ConfirmStore, true);
    preferences.keepIn(file);
    menuAction("Ask before recalling")->trigger();
    QVERIFY(QFile::exists(file));

    ParameterMemory memory;
    QVERIFY(memory.load(ParameterMemory::builtInModel()));
    EditorPreferences later(memory);
    later.keepIn(file);
    QVERIFY(later.isOn(IPreferences::ConfirmStore)); // never chosen: as the model says
    QVERIFY(!later.isOn(IPreferences::ConfirmRecall));

    m_rig->window->preferences().setOn(IPreferences::ConfirmRecall, true);
    QVERIFY(menuAction("Ask before recalling")->isChecked());
}

void TestSceneScreen::aFailedStoreIsToldAndCanBeRepeated()
{
    menuAction("Ask before storing")->trigger();
    select(1);
    QCOMPARE(press("store"), QStringList());
    QVERIFY(m_rig->library.limitSize(1));
    select(2);
    const QStringList told = press("store");
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.first().contains("no room left"), qPrintable(told.first()));
    QVERIFY(!row(2)->hasData());
    QVERIFY(row(1)->hasData());
    QVERIFY(m_rig->library.limitSize(0));
    QCOMPARE(press("store"), QStringList());
    QVERIFY(row(2)->hasData());
}

void TestSceneScreen::anUnusableLibraryIsToldOnItsScreenOnly()
{
    const QString file = m_rig->folder.filePath("other.sqlite");
    QFile wrong(file);
    QVERIFY(wrong.open(QIODevice::WriteOnly) && wrong.write("no database, but a letter") > 0);
    wrong.close();
    QVERIFY(!m_rig->library.open(file));
    menuAction("Open the library again")->trigger();
    auto *trouble = page()->findChild<QWidget *>("sceneTrouble");
    QVERIFY(trouble->isVisible());
    const QString text = page()->findChild<QLabel *>("sceneTroubleText")->text();
    QVERIFY2(text.contains(file) && text.contains("no scene library"), qPrintable(text));
    QCOMPARE(list()->topLevelItemCount(), 0);
    for (const char *name : {"store", "recall", "clear", "undo", "protect"})
        QTRY_VERIFY(!key(name)->isEnabled());

    QWidget *gain = m_rig->control("channel-strips", "Input 1 gain");
    const int before = m_rig->value("kInputHA/kGain", 0);
    QTest::keyClick(gain, Qt::Key_Up);
    QVERIFY(m_rig->value("kInputHA/kGain", 0) != before);

    QVERIFY(QFile::remove(file));
    QTest::mouseClick(page()->findChild<QPushButton *>("sceneRetry"), Qt::LeftButton);
    QVERIFY(!trouble->isVisible());
    QCOMPARE(list()->topLevelItemCount(), SceneLibrary::SlotCount);
    QTRY_VERIFY(key("store")->isEnabled());
}

void TestSceneScreen::aReadOnlyLibraryCanStillBeRecalled()
{
    QVERIFY(m_rig->library.store(1, m_rig->memory.snapshot()));
    const QString file = m_rig->library.fileName();
    m_rig->library.close();
    // What holds for root, too: there is no place for a log.
    QVERIFY(QDir(m_rig->folder.path()).mkdir("scenes.sqlite-wal"));
    QVERIFY(m_rig->library.open(file));
    menuAction("Open the library again")->trigger();
    QVERIFY(page()->findChild<QWidget *>("sceneTrouble")->isVisible());
    QVERIFY(row(1)->hasData());
    select(1);
    QTRY_VERIFY(key("recall")->isEnabled());
    QVERIFY(!key("store")->isEnabled() && !key("clear")->isEnabled());
    moveFader(-77);
    press("recall");
    QVERIFY(m_rig->value(Fader, 3) != -77);
}

void TestSceneScreen::rowsShowWhatAnotherProgramDoes()
{
    QVERIFY(m_rig->library.store(1, m_rig->memory.snapshot()));
    SceneLibrary other;
    QVERIFY(other.open(m_rig->library.fileName()));
    QVERIFY(other.rename(1, "Theirs"));
    QCOMPARE(row(1)->titleText(), QString("Scene 001"));
    Q_EMIT qApp->applicationStateChanged(Qt::ApplicationActive);
    QCOMPARE(row(1)->titleText(), QString("Theirs"));
}

void TestSceneScreen::scenesAreDraggedWhole()
{
    moveFader(-42);
    QString error;
    row(1)->store(error);
    row(1)->setTitle("Overture", error);
    const QByteArray dragged = row(1)->dragData();
    QVERIFY(row(2)->dragData().isEmpty());
    row(1)->clear(error);
    row(7)->storeDragged(dragged, error);
    QCOMPARE(error, QString());
    QCOMPARE(row(7)->titleText(), QString("Overture"));
    moveFader(-1);
    row(7)->recall(error);
    QCOMPARE(m_rig->value(Fader, 3), -42);
    for (const QByteArray &broken : {QByteArray(), QByteArray("junk"), dragged.chopped(9)}) {
        error.clear();
        row(8)->storeDragged(broken, error);
        QVERIFY(!error.isEmpty());
        QVERIFY(!row(8)->hasData());
    }
}

void TestSceneScreen::undoTakesBackWhatWasDoneToRows()
{
    QString error;
    for (const int slot : {1, 2, 3})
        row(slot)->store(error);
    list()->goClearAllUndo(true);
    QVERIFY(!list()->isUndoAvailable(true));
    row(1)->moveTo(3, error);
    QCOMPARE(row(3)->titleText(), QString("Scene 001"));
    row(1)->moveTo(2, error);
    row(1)->contentsChanged(); // as the list tells when rows were dragged
    QTRY_VERIFY(key("undo")->isEnabled());
    press("undo");
    for (const int slot : {1, 2, 3})
        QCOMPARE(row(slot)->titleText(), QString("Scene 00%1").arg(slot));
    QCOMPARE(error, QString());
}

QTEST_MAIN(TestSceneScreen)
#include "tst_SceneScreen.moc"
