// SPDX-License-Identifier: MIT
#include "editor/soak/ScreenCamera.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QRandomGenerator>
#include <QScreen>
#include <QtEndian>
#include <QThread>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <utility>

namespace {

constexpr int PatchSize = 8;   // a whole number of pixels at every quarter of a scale
constexpr int Patience = 1000; // milliseconds

QString pictureFile()
{
    return qEnvironmentVariable("CONSOLE_SCREEN");
}

/// Where a window shows a colour of its own.
class Patch : public QWidget
{
public:
    /// The one of that window.
    static Patch &of(QWidget &window)
    {
        auto *patch =
            dynamic_cast<Patch *>(window.findChild<QWidget *>(name(), Qt::FindDirectChildrenOnly));
        return patch ? *patch : *new Patch(window);
    }

    QRgb newColour()
    {
        m_colour = qRgb(drawn(), drawn(), drawn());
        update();
        return m_colour;
    }
    /// In pixels of the screen.
    int pixels() const { return qRound(PatchSize * devicePixelRatio()); }
    QRect place; ///< on the screen, where it was seen last

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), QColor(m_colour)); }

private:
    explicit Patch(QWidget &window) : QWidget(&window)
    {
        setObjectName(name());
        setAttribute(Qt::WA_OpaquePaintEvent);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(PatchSize, PatchSize);
        show();
    }
    static QString name() { return QStringLiteral("patch of the screen's camera"); }
    static int drawn() { return QRandomGenerator::global()->bounded(256); }

    QRgb m_colour = 0;
};

/// The words of a dump's header that count here; its words are big-endian.
struct DumpHeader
{
    enum {
        Size = 0,
        Width = 4,
        Height = 5,
        BitsPerPixel = 11,
        BytesPerLine = 12,
        Colours = 19,
        Words = 25
    };
    explicit DumpHeader(const uchar *data)
    {
        for (size_t at = 0; at < words.size(); ++at)
            words[at] = static_cast<int>(qFromBigEndian<quint32>(data + 4 * at));
    }
    int operator[](int word) const { return words[static_cast<size_t>(word)]; }
    int start() const { return words[Size] + words[Colours] * 12; }
    qint64 end() const { return start() + qint64(words[BytesPerLine]) * words[Height]; }

    std::array<int, Words> words;
};

/// The fourth byte of a pixel says nothing as it comes.
constexpr QRgb Opaque = 0xff000000;

/// The whole screen, as it is when it is looked at, if a server keeps it in a file; null if not.
QImage sharedScreen()
{
    static QFile file(pictureFile());
    if (!file.isOpen() && !file.open(QIODevice::ReadOnly))
        return {};
    static const uchar *const data = file.map(0, file.size());
    if (!data || file.size() < 4 * DumpHeader::Words)
        return {};
    const DumpHeader header(data);
    if (header[DumpHeader::BitsPerPixel] != 32 || header.end() > file.size())
        return {};
    return {data + header.start(), header[DumpHeader::Width], header[DumpHeader::Height],
            header[DumpHeader::BytesPerLine], QImage::Format_RGB32};
}

QImage screen()
{
    if (!pictureFile().isEmpty())
        return sharedScreen();
    QImage all = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    all.setDevicePixelRatio(1);
    return std::move(all).convertToFormat(QImage::Format_RGB32);
}

const QRgb *lineOf(const QImage &picture, int y)
{
    return reinterpret_cast<const QRgb *>(picture.constScanLine(y));
}

QSize pixelsOf(const QWidget &window)
{
    return (QSizeF(window.size()) * window.devicePixelRatio()).toSize();
}

bool isFilled(const QImage &picture, const QRect &part, QRgb colour)
{
    const auto isOther = [colour](QRgb each) { return (each | Opaque) != colour; };
    if (!picture.rect().contains(part))
        return false;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const QRgb *line = lineOf(picture, y);
        if (std::any_of(line + part.left(), line + part.right() + 1, isOther))
            return false;
    }
    return true;
}

/// A square of that colour.
std::optional<QRect> find(const QImage &picture, int size, QRgb colour)
{
    for (int y = 0; y + size <= picture.height(); ++y) {
        const QRgb *line = lineOf(picture, y);
        for (int x = 0; x + size <= picture.width(); ++x) {
            const QRect here(x, y, size, size);
            if ((line[x] | Opaque) == colour && isFilled(picture, here, colour))
                return here;
        }
    }
    return {};
}

QImage copyOpaque(const QImage &picture, const QRect &part)
{
    QImage found = picture.copy(part);
    for (int y = 0; y < found.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(found.scanLine(y));
        std::for_each(line, line + found.width(), [](QRgb &each) { each |= Opaque; });
    }
    return found;
}

/// Under X11 a window has its size when its manager has given it.
void awaitSize(const QWidget &window)
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        return;
    QElapsedTimer clock;
    for (clock.start(); !clock.hasExpired(Patience); QThread::msleep(1)) {
        const QSize off = window.screen()->grabWindow(window.winId()).size() - pixelsOf(window);
        const bool has = std::abs(off.width()) <= 1 && std::abs(off.height()) <= 1; // rounded
        QCoreApplication::processEvents(); // among them what has shown of it
        if (has)
            return;
    }
}

/// The window and what is beside it, without the patch; null where that does not show in time.
QImage shoot(QWidget &window)
{
    Patch &patch = Patch::of(window);
    const QRgb colour = patch.newColour();
    int tries = 0;
    QElapsedTimer clock;
    for (clock.start(); !clock.hasExpired(Patience); QThread::msleep(1)) {
        QCoreApplication::processEvents();
        const QImage all = screen();
        // All of the screen is searched now and then only: windows seldom move.
        if (++tries % 16 == 0 && !isFilled(all, patch.place, colour))
            patch.place = find(all, patch.pixels(), colour).value_or(QRect());
        if (!isFilled(all, patch.place, colour))
            continue;
        const QRect place(patch.place.topLeft(), pixelsOf(window));
        QImage found = copyOpaque(all, place & all.rect());
        QPainter(&found).fillRect(0, 0, patch.pixels(), patch.pixels(), Qt::black);
        return found;
    }
    return {};
}

} // namespace

bool screencamera::isThere()
{
    return !pictureFile().isEmpty() || QGuiApplication::platformName() == QLatin1String("xcb");
}

QImage screencamera::picture(QWidget &window)
{
    awaitSize(window);
    // A compositor's picture comes to the server from top to bottom: when a second one has begun to come,
    // the first has come as a whole. And a window manager takes its time.
    QElapsedTimer clock;
    clock.start();
    QImage found = shoot(window);
    for (QImage before; found != before && !clock.hasExpired(Patience);)
        before = std::exchange(found, shoot(window));
    return found;
}
