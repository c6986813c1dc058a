// SPDX-License-Identifier: MIT
#include "interfaces/utilities/CNumEdit.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <limits>

namespace NS_Utilities {

namespace {

constexpr QRgb BackgroundColour = qRgb(0x1c, 0x21, 0x25);
constexpr QRgb TextColour = qRgb(0xf0, 0xf2, 0xf4);
constexpr QRgb BorderColour = qRgb(0x7d, 0x8a, 0x94);
constexpr QRgb RefusedColour = qRgb(0xff, 0x4d, 0x43);
constexpr QRgb SelectionColour = qRgb(0x1f, 0x6f, 0xa8);

constexpr int BorderWidth = 2;
constexpr int FieldMargin = 3;
constexpr int FieldCharacters = 9; // "-100.0 dB", "20.0 kHz"
constexpr int LongestText = 40;

/// Beyond every table, and still a number in single precision.
constexpr double Beyond = std::numeric_limits<float>::max();

QPalette popupPalette(QRgb border)
{
    QPalette palette;
    palette.setColor(QPalette::Window, BackgroundColour);
    palette.setColor(QPalette::WindowText, border);
    palette.setColor(QPalette::Base, BackgroundColour);
    palette.setColor(QPalette::Text, TextColour);
    palette.setColor(QPalette::Highlight, SelectionColour);
    palette.setColor(QPalette::HighlightedText, TextColour);
    return palette;
}

QScreen *screenOf(const QRect &anchor, const QWidget &popup)
{
    QScreen *screen = QGuiApplication::screenAt(anchor.center());
    return screen ? screen : popup.screen();
}

/// Centred below the anchor, or above where there is no room below, and on the screen in any case.
QPoint placeAt(const QRect &anchor, const QSize &size, const QRect &room)
{
    const int below = anchor.bottom() + 1;
    const bool fits = below + size.height() <= room.bottom() + 1;
    const int x = anchor.center().x() - size.width() / 2;
    const int y = fits ? below : anchor.top() - size.height();
    const auto inside = [](int at, int low, int high) { return std::max(low, std::min(at, high)); };
    return {inside(x, room.left(), room.right() + 1 - size.width()),
            inside(y, room.top(), room.bottom() + 1 - size.height())};
}

bool isClosingKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
}

} // namespace

CNumEdit::CNumEdit(QWidget *parent)
    : QFrame(parent, Qt::Popup | Qt::FramelessWindowHint), m_field(new QLineEdit)
{
    setAttribute(Qt::WA_DeleteOnClose);
    // The click that leaves the popup must not also operate what lies under it.
    setAttribute(Qt::WA_NoMouseReplay);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(BorderWidth);
    setAutoFillBackground(true);
    setPalette(popupPalette(BorderColour));

    m_field->setFrame(false);
    m_field->setMaxLength(LongestText);
    m_field->setAccessibleName(tr("Number"));
    m_field->setMinimumWidth(m_field->fontMetrics().horizontalAdvance(u'0') * FieldCharacters);
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textEdited, this, [this] {
        setPalette(popupPalette(BorderColour));
        m_field->setAccessibleDescription(QString());
    });

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(FieldMargin, FieldMargin, FieldMargin, FieldMargin);
    layout->addWidget(m_field);
    setFocusProxy(m_field);
}

CNumEdit::~CNumEdit() = default;

void CNumEdit::doEdit(const QRect &anchor, const QString &text, bool selectAll)
{
    m_field->setText(text);
    if (selectAll)
        m_field->selectAll();
    ensurePolished();
    resize(sizeHint());
    move(placeAt(anchor, size(), screenOf(anchor, *this)->availableGeometry()));
    show();
    m_field->setFocus(Qt::PopupFocusReason);
}

bool CNumEdit::parse(const QString &text, double &number)
{
    // Sign, digits with one decimal mark or "infinite", a "k", and a unit, which holds no digit; the
    // ":1" of a ratio counts as a unit.
    static const QRegularExpression form(
        QStringLiteral("^\\s*([+\\-\u2212]?)\\s*"
                       "(?:(\\d+[.,]?\\d*|[.,]\\d+)|\u221E|inf(?:inity)?)"
                       "\\s*(k?)\\s*(?::\\s*1\\s*|[^\\d\\s.,:+\\-][^\\d]*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return false;
    const bool negative = !match.captured(1).isEmpty() && match.captured(1) != u'+';
    if (match.captured(2).isEmpty()) {
        // Deliberate: a level of minus infinity is the bottom of its scale, which is how the memory
        // takes a number that is not finite; the other infinity has to stay a number.
        number = negative ? -HUGE_VAL : Beyond;
        return true;
    }
    const double thousand = match.captured(3).isEmpty() ? 1 : 1000;
    const double size = match.captured(2).replace(u',', u'.').toDouble() * thousand;
    number = std::min(size, Beyond) * (negative ? -1 : 1);
    return true;
}

void CNumEdit::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        propose();
    else
        QFrame::keyPressEvent(event);
}

bool CNumEdit::eventFilter(QObject *watched, QEvent *event)
{
    // The editor's own shortcuts on these keys do not count while a number is typed.
    if (event->type() == QEvent::ShortcutOverride
        && isClosingKey(static_cast<QKeyEvent *>(event)->key())) {
        event->accept();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

void CNumEdit::propose()
{
    double number = 0;
    if (!parse(m_field->text(), number)) {
        setPalette(popupPalette(RefusedColour));
        m_field->setAccessibleDescription(tr("This is not a number"));
        return;
    }
    // Closed first: who hears the number may want to ask the operator something.
    const QPointer<CNumEdit> self(this);
    close();
    if (self)
        Q_EMIT numberProposed(number);
}

} // namespace NS_Utilities
