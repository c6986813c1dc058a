// SPDX-License-Identifier: MIT
#include "interfaces/utilities/CNumEdit.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <limits>

using NS_Utilities::CNumEdit;

namespace {

constexpr QRect Anchor(300, 200, 48, 48);

/// An open popup, as a control opens it.
struct Popup
{
    explicit Popup(const QString &text = {}, bool selectAll = true, const QRect &anchor = Anchor)
        : edit(new CNumEdit(&owner)), proposals(edit, &CNumEdit::numberProposed)
    {
        owner.show();
        edit->doEdit(anchor, text, selectAll);
    }

    QLineEdit &field() const { return *edit->findChild<QLineEdit *>(); }

    void type(const QString &text) const
    {
        for (const QChar c : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            QApplication::sendEvent(&field(), &press);
        }
    }
    void press(Qt::Key key) const { QTest::keyClick(&field(), key); }

    QWidget owner;
    QPointer<CNumEdit> edit;
    QSignalSpy proposals;
};

QRgb borderOf(CNumEdit &edit)
{
    return edit.grab().toImage().pixel(0, edit.height() / 2);
}

void addNumber(const char *name, const char *text, double number)
{
    QTest::newRow(name) << QString::fromUtf8(text) << true << number;
}

void addRefused(const char *name, const char *text)
{
    QTest::newRow(name) << QString::fromUtf8(text) << false << 0.0;
}

} // namespace

class TestNumEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void typedTextIsProposedAsANumber_data();
    void typedTextIsProposedAsANumber();
    void refusedTextKeepsThePopupOpenAndSaysSo();
    void escapeLeavesWithoutProposing();
    void aClickElsewhereLeavesWithoutProposing();
    void typingReplacesASelectedTextAndExtendsAnother();
    void enterOfTheKeypadProposesToo();
    void shortcutsOnItsKeysDoNotFire();
    void theProposalMayDestroyTheOwner();
    void standsUnderTheAnchorAndOnTheScreen_data();
    void standsUnderTheAnchorAndOnTheScreen();
    void theFieldHasAName();
};

void TestNumEdit::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void TestNumEdit::typedTextIsProposedAsANumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<double>("number");

    addNumber("integer", "12", 12);
    addNumber("point", "12.5", 12.5);
    addNumber("comma", "12,5", 12.5);
    addNumber("no leading digit", ".5", 0.5);
    addNumber("nothing after the point", "3.", 3);
    addNumber("surrounding space", "  7 ", 7);
    addNumber("plus", "+6", 6);
    addNumber("minus and unit", "-3.2 dB", -3.2);
    addNumber("typographic minus", "\u22123.2dB", -3.2);
    addNumber("space after the sign", "- 3", -3);
    addNumber("thousands", "1.2k", 1200);
    addNumber("thousands with unit", "1,25 kHz", 1250);
    addNumber("capital thousands", "2K", 2000);
    addNumber("unit that is no factor", "20 ms", 20);
    addNumber("sign as unit", "50 %", 50);
    addNumber("ratio", "2.5:1", 2.5);
    addNumber("minus infinity", "-\u221E", -HUGE_VAL);
    addNumber("minus infinity as a display text", "-\u221E dB", -HUGE_VAL);
    addNumber("minus infinity in letters", "-Inf", -HUGE_VAL);
    addNumber("infinite ratio", "\u221E:1", std::numeric_limits<float>::max());
    addNumber("too large for single precision", "999999999999999999999999999999999999999k",
              std::numeric_limits<float>::max());

    addRefused("nothing", "");
    addRefused("a sign alone", "-");
    addRefused("a point alone", ".");
    addRefused("a word", "off");
    addRefused("a unit alone", "k");
    addRefused("two points", "1.2.3");
    addRefused("both marks", "1,234.5");
    addRefused("two numbers", "1 2");
    addRefused("digits after the unit", "1k5");
    addRefused("sign behind", "5-");
    addRefused("other ratio", "1:4");
}

void TestNumEdit::typedTextIsProposedAsANumber()
{
    QFETCH(QString, text);
    QFETCH(bool, isNumber);
    QFETCH(double, number);

    Popup popup;
    popup.type(text);
    popup.press(Qt::Key_Return);
    QCOMPARE(popup.proposals.size(), isNumber ? 1 : 0);
    QCOMPARE(popup.edit->isVisible(), !isNumber);
    if (isNumber)
        QCOMPARE(popup.proposals.first().first().toDouble(), number);
    double untouched = 77;
    QCOMPARE(CNumEdit::parse(text, untouched), isNumber);
    QCOMPARE(untouched, isNumber ? number : 77);
}

void TestNumEdit::refusedTextKeepsThePopupOpenAndSaysSo()
{
    Popup popup;
    const QRgb plain = borderOf(*popup.edit);
    popup.type("off");
    popup.press(Qt::Key_Return);
    const QRgb refused = borderOf(*popup.edit);
    QVERIFY(qRed(refused) > 200 && qGreen(refused) < 100 && qBlue(refused) < 100);
    QVERIFY(!popup.field().accessibleDescription().isEmpty());

    popup.press(Qt::Key_Backspace);
    QCOMPARE(borderOf(*popup.edit), plain);
    QVERIFY(popup.field().accessibleDescription().isEmpty());
}

void TestNumEdit::escapeLeavesWithoutProposing()
{
    Popup popup("5");
    popup.press(Qt::Key_Escape);
    QVERIFY(!popup.edit->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!popup.edit);
    QCOMPARE(popup.proposals.size(), 0);
}

void TestNumEdit::aClickElsewhereLeavesWithoutProposing()
{
    Popup popup("5");
    QTest::mousePress(popup.edit->windowHandle(), Qt::LeftButton, {}, QPoint(-50, -50));
    QVERIFY(!popup.edit || !popup.edit->isVisible());
    QCOMPARE(popup.proposals.size(), 0);
}

void TestNumEdit::typingReplacesASelectedTextAndExtendsAnother()
{
    Popup whole("-12.0 dB", true);
    whole.type("3");
    QCOMPARE(whole.field().text(), "3");
    Popup begun("4", false);
    begun.type("2");
    QCOMPARE(begun.field().text(), "42");
}

void TestNumEdit::enterOfTheKeypadProposesToo()
{
    Popup popup("8");
    popup.press(Qt::Key_Enter);
    QCOMPARE(popup.proposals.size(), 1);
}

void TestNumEdit::shortcutsOnItsKeysDoNotFire()
{
    Popup popup("8");
    QShortcut shortcut(Qt::Key_Return, &popup.owner);
    shortcut.setContext(Qt::ApplicationShortcut);
    QSignalSpy fired(&shortcut, &QShortcut::activated);
    QSignalSpy ambiguous(&shortcut, &QShortcut::activatedAmbiguously);
    popup.press(Qt::Key_Return);
    QCOMPARE(fired.size() + ambiguous.size(), 0);
    QCOMPARE(popup.proposals.size(), 1);
}

void TestNumEdit::theProposalMayDestroyTheOwner()
{
    auto owner = std::make_unique<QWidget>();
    const QPointer<CNumEdit> edit = new CNumEdit(owner.get());
    edit->doEdit(Anchor, "1");
    connect(edit, &CNumEdit::numberProposed, this, [&owner] { owner.reset(); });
    QTest::keyClick(edit->findChild<QLineEdit *>(), Qt::Key_Return);
    QVERIFY(!edit);
}

void TestNumEdit::standsUnderTheAnchorAndOnTheScreen_data()
{
    QTest::addColumn<QPoint>("corner"); // of the screen: 0 left or top, 1 right or bottom
    QTest::addColumn<bool>("below");
    QTest::newRow("top left") << QPoint(0, 0) << true;
    QTest::newRow("top right") << QPoint(1, 0) << true;
    QTest::newRow("bottom left") << QPoint(0, 1) << false;
    QTest::newRow("bottom right") << QPoint(1, 1) << false;
}

void TestNumEdit::standsUnderTheAnchorAndOnTheScreen()
{
    QFETCH(QPoint, corner);
    QFETCH(bool, below);

    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    QRect anchor(0, 0, 20, 20);
    anchor.moveTo(corner.x() ? room.right() - 19 : room.left(),
                  corner.y() ? room.bottom() - 19 : room.top());
    Popup popup("1", true, anchor);
    const QRect place = popup.edit->geometry();
    QVERIFY(room.contains(place));
    QVERIFY(!place.intersects(anchor));
    QCOMPARE(place.top() > anchor.top(), below);
}

void TestNumEdit::theFieldHasAName()
{
    Popup popup("1");
    const QAccessibleInterface *field = QAccessible::queryAccessibleInterface(&popup.field());
    QVERIFY(field);
    QVERIFY(!field->text(QAccessible::Name).isEmpty());
    QCOMPARE(field->text(QAccessible::Value), "1");
    QVERIFY(popup.field().hasFocus());
}

QTEST_MAIN(TestNumEdit)
#include "tst_CNumEdit.moc"
