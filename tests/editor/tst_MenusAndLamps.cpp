// SPDX-License-Identifier: MIT
// Menus, lamps and the rolling panel of the shipped screens, as the operator uses them.
#include "editor/ProxyCommands.h"
#include "tests/editor/EditorRig.h"
#include "widgets/buttons/CAnimMenu.h"
#include "widgets/buttons/CMenuObject.h"
#include "widgets/buttons/CPullDownMenu.h"
#include "widgets/buttons/StateDisplayBit.h"

#include <QToolButton>
#include <QUndoStack>

#include <QRegularExpression>

class TestMenusAndLamps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enteringANumberWhereNoneFitsDoesNothing();
    void aTypeMenuWritesAndUndoes();
    void everyMenuHasAnItemForEveryValue();
    void theToolsRollOpenByPictureAndByKey();
    void lampsFollowTheirParameters();
    void lampsAreNotResetByCtrlClick();

private:
    void write(const QString &address, int element, int value);

    EditorRig m_rig;
};

void TestMenusAndLamps::write(const QString &address, int element, int value)
{
    IMemAPI::TSingleBaseAddress at;
    QVERIFY(m_rig.memory.resolve(address, element, at));
    m_rig.memory.writeValue(at.group, at.index, at.element, value, 0);
    QApplication::processEvents();
}

void TestMenusAndLamps::aTypeMenuWritesAndUndoes()
{
    QWidget *menu = m_rig.control("selected-channel", "Compressor type");
    menu->setFocus();
    QTest::keyClick(menu, Qt::Key_Space);
    auto *list = menu->findChild<CMenuObject *>();
    QTest::keyClick(list, Qt::Key_D);
    QTest::keyClick(list, Qt::Key_E);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(m_rig.value("kInputDynamics2/kType", 0), 6);
    QCOMPARE(boundcontrols::valueTextOf(menu), "DE-ESSER");
    m_rig.memory.undoStack()->undo();
    QApplication::processEvents();
    QCOMPARE(static_cast<CPullDownMenu *>(menu)->shownText(), "COMPRESSOR");
}

// The lists in the forms say the same as the memory's texts, except where the memory has none.
void TestMenusAndLamps::everyMenuHasAnItemForEveryValue()
{
    int menus = 0;
    for (const char *screen : {"selected-channel", "dynamics", "head-amps"}) {
        for (auto *menu : m_rig.screen(screen)->findChildren<CPullDownMenu *>()) {
            const IMemAPI &memory = m_rig.memory;
            const int lowest = memory.readMinimum(menu->group, menu->index, menu->element, 0);
            const int highest = memory.readMaximum(menu->group, menu->index, menu->element, 0);
            const QStringList items = menu->menuItemList().split(';');
            QCOMPARE(items.size(), highest - lowest + 1);
            for (int value = lowest; value <= highest && !menu->sorted(); ++value) {
                QString text;
                QPixmap picture;
                memory.valueText(menu->element, 0, text, picture, value, false, menu->group,
                                 menu->index);
                QCOMPARE(items.at(value - lowest), text);
            }
            ++menus;
        }
    }
    QCOMPARE(menus, 7);
}

void TestMenusAndLamps::theToolsRollOpenByPictureAndByKey()
{
    QWidget *screen = m_rig.screen("selected-channel");
    auto *panel = screen->findChild<CAnimMenu *>("channelTools");
    auto *controls = screen->findChild<QWidget *>("channelToolsControls");
    QVERIFY(panel->getClosed() && !controls->isVisible());
    QTest::mouseClick(screen->findChild<QWidget *>("channelPair"), Qt::LeftButton);
    QVERIFY(!controls->isVisible());
    QTRY_VERIFY(panel->getOpen() && controls->isVisible());
    auto *key = screen->findChild<QToolButton *>("channelToolsKey");
    key->setFocus();
    QTest::keyClick(key, Qt::Key_Space);
    QVERIFY(!controls->isVisible());
    QTRY_VERIFY(panel->getClosed());
}

void TestMenusAndLamps::lampsFollowTheirParameters()
{
    auto *mutes = static_cast<StateDisplayBit *>(m_rig.control("selected-channel", "Mute groups"));
    write("kInputMuteGroup/kGroup3", 0, 1);
    QCOMPARE(mutes->shownText(), "3 on");
    auto *masters = static_cast<StateDisplayBit *>(m_rig.control("selected-channel", "DCA groups"));
    write("kInputDCA/kMask", 0, 0x81);
    QCOMPARE(masters->shownText(), "1, 8 on");
    auto *port = static_cast<StateDisplayBit *>(
        m_rig.control("head-amps", "Head amp 12 phantom power and high-pass"));
    write("kHeadAmp/kHPF", 11, 1);
    QCOMPARE(port->shownText(), "2 on");
    write("kHeadAmp/k48V", 11, 1);
    QCOMPARE(port->shownText(), "1, 2 on");
}

void TestMenusAndLamps::lampsAreNotResetByCtrlClick()
{
    QWidget *port = m_rig.control("head-amps", "Head amp 20 phantom power and high-pass");
    write("kHeadAmp/k48V", 19, 1);
    QTest::mouseClick(port, Qt::LeftButton, Qt::ControlModifier);
    QCOMPARE(m_rig.value("kHeadAmp/k48V", 19), 1);
}

void TestMenusAndLamps::enteringANumberWhereNoneFitsDoesNothing()
{
    QTest::failOnWarning(QRegularExpression("No such method"));
    int asked = 0;
    for (QWidget *control : boundcontrols::inside(m_rig.screen("selected-channel"))) {
        if (control->metaObject()->indexOfMethod("editNumber()") >= 0)
            continue;
        ProxyCommands::enterValue(control);
        ++asked;
    }
    QVERIFY(asked > 0);
}

QTEST_MAIN(TestMenusAndLamps)
#include "tst_MenusAndLamps.moc"
