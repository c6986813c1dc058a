// SPDX-License-Identifier: MIT
#include "widgets/meters/CPixmapMeter.h"

#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/meters/MeterWatch.h"
#include "widgets/meters/ThresholdTable.h"
#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Picture.h"

#include <QPainter>

#include <algorithm>

namespace {

/// A code that no reading reaches.
constexpr unsigned short Unreachable = 65535;

/// No pixmap has more pixels than this, and so no strip more pictures.
constexpr int MostPictures = 32767;

constexpr char OnlineSignal[] = "2onlineChanged( bool )";
constexpr char OnlineSlot[] = "1onlineChange( bool )";

} // namespace

struct CPixmapMeter::Private : BatchedPicture
{
    explicit Private(CPixmapMeter &meter) : BatchedPicture(meter, typeid(CPixmapMeter)) {}

    void describe(Picture &picture) const override;

    /// Columns and rows of the strip.
    QSize grid() const
    {
        return direction == ColImages ? QSize(categories, subImages) : QSize(subImages, categories);
    }
    QPoint cell() const
    {
        return direction == ColImages ? QPoint(currentImage, shown) : QPoint(shown, currentImage);
    }
    void useBounds() { thresholds.replace(bounds, searchedBounds); }

    // Of all threads. The deliverer stores what comes in and then looks what is shown, the main
    // thread stores what it shows and then looks what has come in.
    std::atomic<int> incoming{0};
    std::atomic<int> shown{0};
    std::atomic<quint16> levelCode{0};
    ThresholdTable thresholds;

    // Of the main thread.
    QPixmap strip;
    ErasePixmap erase;
    std::vector<unsigned short> bounds{0};
    int searchedBounds = -1; ///< -1: the memory's table is in use, or none yet
    QString boundList;
    int currentImage = 0;
    int subImages = 1;
    int categories = 1;
    int meterTableId = 0;
    SubDirection direction = ColImages;
    bool online = false;
};

// Deliberate: the name is not passed on.
CPixmapMeter::CPixmapMeter(QWidget *parent, const char *)
    : QWidget(parent), d(std::make_unique<Private>(*this))
{
    ShownTextAccessible<CPixmapMeter>::install<QAccessible::Indicator>();
    setNumDefaultKind(0);
    setUndoEnable(false);
}

CPixmapMeter::~CPixmapMeter()
{
    leaveMemory();
}

CPixmapMeter::SubDirection CPixmapMeter::subDirection() const
{
    return d->direction;
}

void CPixmapMeter::setSubDirection(SubDirection direction)
{
    if (direction == d->direction)
        return;
    d->direction = direction;
    adjustParams();
    refreshPicture();
}

int CPixmapMeter::meterTableId() const
{
    return d->meterTableId;
}

void CPixmapMeter::setMeterTableId(int id)
{
    d->meterTableId = id;
}

QString CPixmapMeter::boundList() const
{
    return d->boundList;
}

void CPixmapMeter::setBoundList(const QString &list)
{
    if (list == d->boundList)
        return;
    d->boundList = list;
    setupBoundTable();
}

int CPixmapMeter::nSubImages() const
{
    return d->subImages;
}

void CPixmapMeter::setnSubImages(int count)
{
    count = std::max(1, count);
    if (count == d->subImages || count > MostPictures)
        return;
    d->subImages = count;
    if (d->shown >= count)
        d->shown = 0;
    d->bounds.assign(static_cast<std::size_t>(count), Unreachable);
    setupBoundTable();
    adjustParams();
    refreshPicture();
}

int CPixmapMeter::nImageCategories() const
{
    return d->categories;
}

void CPixmapMeter::setnImageCategories(int count)
{
    count = std::max(1, count);
    if (count == d->categories)
        return;
    d->categories = count;
    adjustParams();
    refreshPicture();
}

QPixmap CPixmapMeter::combinedImage() const
{
    return d->strip;
}

void CPixmapMeter::setCombinedImage(const QPixmap &picture)
{
    d->strip = picture;
    updateGeometry();
    refreshPicture();
}

void CPixmapMeter::setCurrentImage(int category)
{
    // Deliberate: held against the number of pictures, not of looks.
    if (category < 0 || category >= d->subImages)
        return;
    d->currentImage = category;
    refreshPicture();
}

QString CPixmapMeter::shownText() const
{
    return metering::levelText(*this, d->levelCode);
}

// Thresholds ------------------------------------------------------------------------------------

void CPixmapMeter::setupBoundTable()
{
    const QStringList items = d->boundList.split(u';', Qt::SkipEmptyParts);
    const auto count = std::min(d->bounds.size(), static_cast<std::size_t>(items.size()));
    for (std::size_t i = 0; i < count; ++i)
        d->bounds[i] = items.at(static_cast<qsizetype>(i)).trimmed().toUShort(nullptr, 16);
    if (d->searchedBounds >= 0)
        d->useBounds();
}

void CPixmapMeter::setupMeterTable()
{
    if (binding::ready(*this) && d->meterTableId != 0) {
        int count = 0;
        const quint16 *table = memAPI()->meterTableById(d->meterTableId, &count, 0);
        if (table && count >= 1) {
            d->searchedBounds = -1;
            d->thresholds.replace({table, table + count}, std::min(count, d->subImages - 1));
            return;
        }
    }
    d->searchedBounds = static_cast<int>(d->bounds.size()) - 1;
    d->useBounds();
}

int CPixmapMeter::meterLevelIndex(unsigned short code) const
{
    return d->thresholds.countUpTo(code);
}

// Pictures --------------------------------------------------------------------------------------

QSize CPixmapMeter::cellSize() const
{
    return picturecells::size(d->strip, d->grid());
}

void CPixmapMeter::adjustParams()
{
    if (d->strip.width() > 0)
        setFixedSize(cellSize());
}

QSize CPixmapMeter::sizeHint() const
{
    return d->strip.isNull() ? QWidget::sizeHint() : cellSize();
}

QSize CPixmapMeter::minimumSizeHint() const
{
    return d->strip.isNull() ? QWidget::minimumSizeHint() : cellSize();
}

void CPixmapMeter::repaintScreenPrimitive(QPainter &painter)
{
    d->draw(painter);
}

void CPixmapMeter::Private::describe(Picture &picture) const
{
    picture.add(strip, picturecells::cell(strip, grid(), cell()));
}

void CPixmapMeter::updateErasePixmap(QPixmap *pixmap)
{
    d->erase.replace(pixmap);
}

QPixmap CPixmapMeter::erasePixmap()
{
    return d->erase.pixmap(*this);
}

void CPixmapMeter::refreshPicture()
{
    // What the strip does not have is not drawn.
    const bool exists = d->currentImage < d->categories && d->shown < d->subImages;
    d->setOpaque(exists && metering::hides(d->strip, cellSize(), *this));
    pictureChanged();
}

/// The one place that asks for a paint.
void CPixmapMeter::pictureChanged()
{
    updateErasePixmap(nullptr);
    d->changed();
}

void CPixmapMeter::valueChange()
{
    if (NS_Utilities::mainThreadRunning())
        pictureChanged();
}

void CPixmapMeter::polish()
{
    adjustParams();
    refreshPicture();
}

bool CPixmapMeter::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    metering::followLook(*this, *event, &CPixmapMeter::polish, &CPixmapMeter::refreshPicture);
    return handled;
}

void CPixmapMeter::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    d->paint(painter, *event);
}

// Readings --------------------------------------------------------------------------------------

void CPixmapMeter::connectMemAPI()
{
    setupMeterTable();
    if (!binding::ready(*this))
        return;
    if (isAttached())
        metering::watch(*this, true, OnlineSignal, OnlineSlot);
    resetMeter();
}

void CPixmapMeter::disconnectMemAPI()
{
    if (binding::ready(*this) && isAttached()) {
        metering::watch(*this, false, OnlineSignal, OnlineSlot);
        d->thresholds.dropReplaced();
    }
    setAttached(false);
}

void CPixmapMeter::process(const Q_UINT8 *bytes, int operation, Q_UINT32)
{
    if (operation != Refresh)
        return;
    if (bytes) {
        const unsigned short code = metering::levelCode(bytes);
        d->levelCode = code;
        d->incoming = meterLevelIndex(code);
    }
    if (d->shown == d->incoming)
        return;
    if (!binding::handOverToMainThread(*this))
        showIncoming();
}

void CPixmapMeter::showIncoming()
{
    int next = d->incoming;
    while (next != d->shown) {
        // Deliberate: beyond the pictures is the first of them, not the last.
        const bool beyond = next >= d->subImages;
        d->shown = beyond ? 0 : next;
        if (beyond)
            d->incoming.compare_exchange_strong(next, 0);
        valueChange();
        next = d->incoming;
    }
}

void CPixmapMeter::onlineChange(bool online)
{
    if (online == d->online)
        return;
    d->online = online;
    resetMeter();
}

void CPixmapMeter::resetMeter()
{
    d->levelCode = 0;
    d->incoming = 0;
    process(nullptr, Refresh, 0);
    pictureChanged();
}
