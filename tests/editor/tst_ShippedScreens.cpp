// SPDX-License-Identifier: MIT
#include "tests/editor/EditorRig.h"

#include <QAccessible>
#include <QSet>

class TestShippedScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void formsLoadWithoutProblemsAndEveryControlIsBound();
    void everyControlHasANameOfItsOwnAndTakesTheFocus();
    void noParentHasManyChildren();
    void tabWalksAStripFromTopToBottom();
    void screensFitTheSmallestWindow();
    void accessibleTreeTellsRoleNameAndValue();

private:
    static QStringList dump(QAccessibleInterface *node);
    template<class Visit>
    void forEachScreen(Visit visit);

    EditorRig m_rig;
};

template<class Visit>
void TestShippedScreens::forEachScreen(Visit visit)
{
    ScreenPages &pages = m_rig.window->pages();
    QCOMPARE(pages.count(), ScreenPages::shippedForms().size());
    for (int index = 0; index < pages.count(); ++index)
        visit(m_rig.screen(pages.pageName(index)), pages.pageName(index));
}

void TestShippedScreens::formsLoadWithoutProblemsAndEveryControlIsBound()
{
    QVERIFY2(m_rig.window->pages().problems().isEmpty(),
             qPrintable(m_rig.window->pages().problems().join('\n')));
    forEachScreen([&](QWidget *root, const QString &name) {
        int bound = 0;
        for (QWidget *widget : root->findChildren<QWidget *>()) {
            const auto *proxy = dynamic_cast<TMemProxy *>(widget);
            // The keys there are commands of a list.
            if (!proxy || name == "scenes")
                continue;
            QVERIFY2(proxy->isAttached(), qPrintable(widget->objectName()));
            ++bound;
        }
        QVERIFY2(bound > 0 || name == "scenes", qPrintable(name));
    });
}

void TestShippedScreens::everyControlHasANameOfItsOwnAndTakesTheFocus()
{
    forEachScreen([](QWidget *root, const QString &) {
        QSet<QString> names;
        for (QWidget *control : boundcontrols::inside(root)) {
            const QString name = control->accessibleName();
            QVERIFY2(!name.isEmpty() && !name.contains('{') && !names.contains(name),
                     qPrintable(name));
            // What cannot be operated is no stop.
            QVERIFY(bool(control->focusPolicy() & Qt::TabFocus)
                    != boundcontrols::proxyOf(control)->disabledUI());
            names.insert(name);
        }
    });
}

void TestShippedScreens::noParentHasManyChildren()
{
    forEachScreen([](QWidget *root, const QString &) {
        QList<QWidget *> parents = root->findChildren<QWidget *>();
        parents.append(root);
        for (QWidget *parent : parents) {
            const auto children = parent->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
            QVERIFY2(children.size() <= 50, qPrintable(parent->objectName()));
        }
    });
}

void TestShippedScreens::tabWalksAStripFromTopToBottom()
{
    QWidget *control = m_rig.control("channel-strips", "Input 3 gain");
    control->setFocus();
    const QStringList order{"+48V",        "pair",        "high-pass frequency", "EQ high gain",
                            "EQ mid gain", "EQ low gain", "send to mix 1",       "send to mix 2",
                            "pan",         "link group",  "attenuator"};
    for (const QString &name : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), "Input 3 " + name);
    }
    for (const char *name : {"Select input 3", "Input 3 on", "Input 4 gain"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QString(name));
    }
}

// With a title bar and menus around it, at 1280 x 800 no screen has to be scrolled up and down, and
// only the strips go sideways.
void TestShippedScreens::screensFitTheSmallestWindow()
{
    constexpr int titleBar = 30;
    forEachScreen([this](QWidget *root, const QString &name) {
        const QSize room = m_rig.window->pages().currentWidget()->size();
        QVERIFY2(root->minimumSizeHint().height() <= room.height() - titleBar,
                 qPrintable(QString("%1 is %2 of %3")
                                .arg(name)
                                .arg(root->minimumSizeHint().height())
                                .arg(room.height() - titleBar)));
        if (name != "channel-strips")
            QVERIFY2(root->minimumSizeHint().width() <= room.width(), qPrintable(name));
    });
}

QStringList TestShippedScreens::dump(QAccessibleInterface *node)
{
    QStringList lines;
    if (node->role() == QAccessible::Dial || node->role() == QAccessible::CheckBox) {
        lines << QString("%1: %2").arg(node->text(QAccessible::Name),
                                       node->text(QAccessible::Value));
    }
    for (int child = 0; child < node->childCount(); ++child)
        lines << dump(node->child(child));
    return lines;
}

void TestShippedScreens::accessibleTreeTellsRoleNameAndValue()
{
    QWidget *strip = m_rig.control("channel-strips", "Input 7 pan")->parentWidget()->parentWidget();
    QCOMPARE(strip->accessibleName(), QString("Input 7"));
    const QStringList expected{
        "Input 7 gain: -10 dB",           "Input 7 +48V: OFF",
        "Input 7 pair: SINGLE",           "Input 7 high-pass frequency: 79.8 Hz",
        "Input 7 EQ high gain: 0.0 dB",   "Input 7 EQ mid gain: 0.0 dB",
        "Input 7 EQ low gain: 0.0 dB",    "Input 7 send to mix 1: -\u221e",
        "Input 7 send to mix 2: -\u221e", "Input 7 pan: C",
        "Input 7 link group: A",          "Input 7 attenuator: 0.0 dB",
        "Select input 7: CH 1",           "Input 7 on: ON"};
    QCOMPARE(dump(QAccessible::queryAccessibleInterface(strip)), expected);
}

QTEST_MAIN(TestShippedScreens)
#include "tst_ShippedScreens.moc"
