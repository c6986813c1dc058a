// SPDX-License-Identifier: MIT
#include "editor/WheelGuard.h"

#include "tests/editor/EditorRig.h"

#include <QScrollBar>

class TestWheelGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_rig.reset(); }

    void wheelOverAControlTurnsIt();
    void wheelOverThePageScrollsSideways();
    void scrollThatBeganOverThePageNeverEdits();
    void atTheEndOfThePageTheScrollStillDoesNotEdit();
    void afterARestTheWheelEditsAgain();
    void pageThatFitsLeavesTheWheelToItsControls();

private:
    int gainOf(int channel) const { return m_rig->value("kInputHA/kGain", channel - 1); }

    std::unique_ptr<EditorRig> m_rig;
    QWidget *m_gain = nullptr;
    QWidget *m_plain = nullptr; ///< a place on the page without a control
    QScrollBar *m_bar = nullptr;
};

void TestWheelGuard::init()
{
    m_rig = std::make_unique<EditorRig>();
    m_gain = m_rig->control("channel-strips", "Input 6 gain");
    m_plain = m_gain->parentWidget();
    m_bar = m_rig->window->pages().page(0)->horizontalScrollBar();
}

void TestWheelGuard::wheelOverAControlTurnsIt()
{
    gesture::wheel(*m_gain, 1);
    QCOMPARE(gainOf(6), -9);
    QCOMPARE(m_bar->value(), 0);
}

void TestWheelGuard::wheelOverThePageScrollsSideways()
{
    gesture::wheel(*m_plain, -1);
    const int scrolled = m_bar->value();
    QVERIFY(scrolled > 0);
    gesture::wheel(*m_plain, -1);
    QCOMPARE(m_bar->value(), 2 * scrolled);
    gesture::wheel(*m_plain, 1);
    QCOMPARE(m_bar->value(), scrolled);
}

void TestWheelGuard::scrollThatBeganOverThePageNeverEdits()
{
    gesture::wheel(*m_plain, -1);
    const int step = m_bar->value();
    // Events keep it going for longer than one hold.
    for (int count = 2; count <= 6; ++count) {
        QTest::qWait(WheelGuard::HoldMilliseconds / 4);
        gesture::wheel(*m_gain, -1);
        QCOMPARE(m_bar->value(), count * step);
    }
    QCOMPARE(gainOf(6), -10);
}

void TestWheelGuard::atTheEndOfThePageTheScrollStillDoesNotEdit()
{
    m_bar->setValue(m_bar->maximum());
    gesture::wheel(*m_plain, -1);
    gesture::wheel(*m_gain, -1);
    QCOMPARE(m_bar->value(), m_bar->maximum());
    QCOMPARE(gainOf(6), -10);
}

void TestWheelGuard::afterARestTheWheelEditsAgain()
{
    gesture::wheel(*m_plain, -1);
    const int scrolled = m_bar->value();
    QTest::qWait(WheelGuard::HoldMilliseconds + 50);
    gesture::wheel(*m_gain, -1);
    QCOMPARE(gainOf(6), -11);
    QCOMPARE(m_bar->value(), scrolled);
}

void TestWheelGuard::pageThatFitsLeavesTheWheelToItsControls()
{
    QWidget *level = m_rig->control("masters", "Mix 1 level");
    gesture::wheel(*level->parentWidget(), -1);
    gesture::wheel(*level, 1);
    QCOMPARE(m_rig->value("kMixFader/kFader", 0), -1379);
}

QTEST_MAIN(TestWheelGuard)
#include "tst_WheelGuard.moc"
