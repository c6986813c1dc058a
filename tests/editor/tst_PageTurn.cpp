// SPDX-License-Identifier: MIT
#include "editor/PageTurn.h"

#include "editor/soak/WindowPicture.h"
#include "tests/editor/EditorRig.h"
#include "widgets/controls/CDial.h"

#include <map>

namespace {

/// Counts the paint events that widgets get while it lives.
class Paints : public QObject
{
public:
    Paints() { qApp->installEventFilter(this); }
    ~Paints() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++m_counts[watched];
        return false;
    }

    int of(QObject *widget) const
    {
        const auto found = m_counts.find(widget);
        return found == m_counts.end() ? 0 : found->second;
    }

private:
    std::map<QObject *, int> m_counts;
};

using Deed = void (*)(MainWindow &);

/// A control has a new picture when the page is seen again.
void changeWhileHidden(MainWindow &window)
{
    windowpicture::present(window);
    window.hide();
    auto *dial = window.pages().currentWidget()->findChild<CDial *>();
    dial->setValue(dial->value() == dial->maximum() ? dial->minimum() : dial->maximum());
    window.show();
}

} // namespace

class TestPageTurn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_rig = std::make_unique<EditorRig>(); }
    void cleanupTestCase() { m_rig.reset(); }

    void everyWidgetOfAPageIsPaintedOnce_data();
    void everyWidgetOfAPageIsPaintedOnce();
    void aTurnedPageGoesOnPainting();
    void theWindowShowsWhatAnyPaintGives_data();
    void theWindowShowsWhatAnyPaintGives();

private:
    MainWindow &window() { return *m_rig->window; }
    ScreenPages &pages() { return window().pages(); }

    std::unique_ptr<EditorRig> m_rig;
};

void TestPageTurn::everyWidgetOfAPageIsPaintedOnce_data()
{
    QTest::addColumn<int>("page");
    const int count = static_cast<int>(ScreenPages::shippedForms().size());
    for (int page = 1; page <= count; ++page)
        QTest::newRow(qPrintable(ScreenPages::shippedForms()[page % count])) << page % count;
}

void TestPageTurn::everyWidgetOfAPageIsPaintedOnce()
{
    QFETCH(int, page);
    // What is shown for the first time is laid out, too.
    for (const int each : {page, page + 1, page + 2}) {
        pages().setCurrentIndex(each % pages().count());
        QApplication::processEvents();
    }
    const Paints paints;
    pages().setCurrentIndex(page);
    QApplication::processEvents();
    int painted = 0;
    for (QWidget *each : pages().page(page)->widget()->findChildren<QWidget *>()) {
        QVERIFY2(paints.of(each) <= 1, each->metaObject()->className());
        painted += paints.of(each);
    }
    QVERIFY(painted > 0);
}

void TestPageTurn::aTurnedPageGoesOnPainting()
{
    QWidget *dial = m_rig->screen("masters")->findChild<CDial *>();
    QVERIFY(pages().currentWidget()->parentWidget()->updatesEnabled());
    const Paints paints;
    dial->update();
    QApplication::processEvents();
    QCOMPARE(paints.of(dial), 1);
}

void TestPageTurn::theWindowShowsWhatAnyPaintGives_data()
{
    QTest::addColumn<Deed>("deed");
    QTest::newRow("another page") << Deed([](MainWindow &) {});
    QTest::newRow("and the next one at once")
        << Deed([](MainWindow &window) { window.pages().setCurrentIndex(4); });
    QTest::newRow("and back at once")
        << Deed([](MainWindow &window) { window.pages().setCurrentIndex(0); });
    QTest::newRow("painted, hidden and shown at once") << Deed(changeWhileHidden);
    QTest::newRow("window resized at once")
        << Deed([](MainWindow &window) { window.resize(1500, 900); });
    QTest::newRow("page destroyed at once")
        << Deed([](MainWindow &window) { delete window.pages().page(3); });
}

void TestPageTurn::theWindowShowsWhatAnyPaintGives()
{
    QFETCH(Deed, deed);
    pages().setCurrentIndex(0);
    QApplication::processEvents();
    pages().setCurrentIndex(3);
    deed(window());
    QApplication::processEvents();
    const QImage shown = windowpicture::present(window());
    QVERIFY(!shown.isNull());
    QCOMPARE(windowpicture::differing(shown, windowpicture::repainted(window())), QRegion());
}

QTEST_MAIN(TestPageTurn)
#include "tst_PageTurn.moc"
