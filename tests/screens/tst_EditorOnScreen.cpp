// SPDX-License-Identifier: MIT
// Whatever the editor's window goes through while a console plays, its screens show what they should.
#include "companions/memory/ParameterMemory.h"
#include "companions/scenes/SceneLibrary.h"
#include "editor/Appearance.h"
#include "editor/MainWindow.h"
#include "editor/ScreenPages.h"
#include "editor/soak/Checker.h"
#include "editor/soak/HeldConsole.h"
#include "editor/soak/SoakWindows.h"
#include "widgets/painting/PictureBatches.h"

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

namespace {

constexpr int PlayMilliseconds = 60;

QScrollArea &pageOf(MainWindow &window)
{
    return *window.pages().page(window.pages().currentIndex());
}

void scroll(MainWindow &window)
{
    for (const int part : {3, 2}) {
        for (QScrollBar *bar :
             {pageOf(window).horizontalScrollBar(), pageOf(window).verticalScrollBar()})
            bar->setValue(bar->maximum() / part / 4 * 4); // whole pixels at every scale
        QTest::qWait(PlayMilliseconds);
    }
}

void turn(MainWindow &window)
{
    const int page = window.pages().currentIndex();
    window.pages().setCurrentIndex(page ? 0 : 1);
    QTest::qWait(PlayMilliseconds);
    window.pages().setCurrentIndex(page);
}

void cover(MainWindow &window)
{
    QWidget above(nullptr, Qt::Window | Qt::FramelessWindowHint);
    above.setGeometry({window.mapToGlobal(QPoint(200, 100)), QSize(400, 300)});
    above.show();
    QVERIFY(QTest::qWaitForWindowExposed(&above));
    scroll(window);
}

void minimise(MainWindow &window)
{
    if (QGuiApplication::platformName() != "xcb") // only its user brings a window back elsewhere
        return;
    window.showMinimized();
    QTRY_VERIFY(!window.windowHandle()->isExposed());
    QTest::qWait(PlayMilliseconds);
    window.showNormal();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

struct Deed
{
    const char *name;
    void (*make)(MainWindow &);
};
constexpr Deed deeds[] = {
    {"turned", turn},
    {"scrolled", scroll},
    {"covered", cover},
    {"smaller", [](MainWindow &window) { window.resize(1024, 768); }},
    {"scrolled while smaller", scroll},
    {"minimised", minimise},
    {"larger", [](MainWindow &window) { window.resize(SoakWindows::WindowSize); }},
};

} // namespace

class tst_EditorOnScreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void itShowsWhatItShould_data();
    void itShowsWhatItShould();

private:
    ParameterMemory m_memory;
    const bool m_loaded = m_memory.load(ParameterMemory::builtInModel());
    HeldConsole m_held{m_memory, 1};
    QTemporaryDir m_folder;
    SceneLibrary m_library;
    SoakWindows m_windows{m_memory, m_held.console(), m_library, ScreenPages::shippedForms()};
};

void tst_EditorOnScreen::initTestCase()
{
    appearance::apply(*qApp);
    picturebatches::setEnabled(!qEnvironmentVariableIsSet("CONSOLE_UNBATCHED"));
    QVERIFY(m_loaded);
    QVERIFY(m_library.open(m_folder.filePath("scenes.sqlite")));
    m_held.console().setRate(4000);
    m_windows.open(m_windows.count() - 1);
    QVERIFY(QTest::qWaitForWindowExposed(m_windows.tabbed()));
}

void tst_EditorOnScreen::itShowsWhatItShould_data()
{
    QTest::addColumn<int>("page");
    const ScreenPages &pages = m_windows.tabbed()->pages();
    for (int page = 0; page < pages.count(); ++page)
        QTest::newRow(qPrintable(pages.pageName(page))) << page;
}

void tst_EditorOnScreen::itShowsWhatItShould()
{
    QFETCH(int, page);
    MainWindow &window = *m_windows.tabbed();
    window.pages().setCurrentIndex(page);
    for (const Deed &each : deeds) {
        QTest::qWait(PlayMilliseconds);
        each.make(window);
        QTest::qWait(PlayMilliseconds);
        const HeldConsole::Hold hold(m_held);
        Checker checker(m_memory, m_windows);
        checker.keepPicturesIn(qEnvironmentVariable("CONSOLE_PICTURES"));
        checker.check();
        QVERIFY2(checker.lines().isEmpty(),
                 qPrintable(each.name + (": " + checker.lines().mid(0, 9).join('\n'))));
        QCOMPARE(checker.windowsPhotographed(), 1);
    }
}

QTEST_MAIN(tst_EditorOnScreen)
#include "tst_EditorOnScreen.moc"
