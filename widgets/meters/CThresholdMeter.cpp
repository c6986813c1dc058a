// SPDX-License-Identifier: MIT
#include "widgets/meters/CThresholdMeter.h"

#include "interfaces/CSimpleNotifier.h"
#include "interfaces/utilities/NS_Utilities.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/meters/MeterWatch.h"
#include "widgets/painting/BatchedPicture.h"
#include "widgets/painting/ErasePixmap.h"
#include "widgets/painting/ImageStrip.h"
#include "widgets/painting/Picture.h"

#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <atomic>
#include <vector>

namespace {

/// From this code on a lamp with a single threshold shows "near full scale".
constexpr int NearFullScale = 126;

enum SingleThresholdState { Dark = 0, Below = 1, Above = 2, Full = 3 };

/// The state for a code among `table`, whose last entry bounds the highest band and is not searched.
int bandOf(const std::vector<quint16> &table, quint16 code)
{
    const auto searched = table.end() - 1;
    auto reached = std::lower_bound(table.begin(), searched, code);
    if (reached != table.begin() && code < *reached)
        --reached;
    return static_cast<int>(searched - reached);
}

} // namespace

struct CThresholdMeter::Private : BatchedPicture
{
    explicit Private(CThresholdMeter &meter) : BatchedPicture(meter, typeid(CThresholdMeter)) {}

    void describe(Picture &picture) const override;

    std::atomic<quint16> levelCode{0}; // of all threads

    QPixmap strip;
    ErasePixmap erase;
    int currentImage = 0;
    int subImages = 3;
    QString stateAddress;
    QString thresholdAddress;
    QPointer<CSimpleNotifier> stateNotifier;
    QPointer<CSimpleNotifier> thresholdNotifier;
    std::vector<quint16> table; ///< the memory's; none: thresholdLevel
    int tableId = 0;
    int stateValue = 0;
    quint16 thresholdIndex = 0;
    quint16 thresholdLevel = 0;
    bool online = false;
};

// Deliberate: the name is not passed on.
CThresholdMeter::CThresholdMeter(QWidget *parent, const char *)
    : QWidget(parent), d(std::make_unique<Private>(*this))
{
    ShownTextAccessible<CThresholdMeter>::install<QAccessible::Indicator>();
    setNumDefaultKind(0);
    setUndoEnable(false);
    setFocusPolicy(Qt::ClickFocus);
}

CThresholdMeter::~CThresholdMeter()
{
    leaveMemory();
}

int CThresholdMeter::meterThresholdTableId() const
{
    return d->tableId;
}

void CThresholdMeter::setMeterThresholdTableId(int id)
{
    d->tableId = id;
}

int CThresholdMeter::thresholdLevel() const
{
    return d->thresholdLevel;
}

void CThresholdMeter::setThresholdLevel(int code)
{
    d->thresholdLevel = static_cast<quint16>(code);
}

QString CThresholdMeter::thresholdNamedAddress() const
{
    return d->thresholdAddress;
}

void CThresholdMeter::setThresholdNamedAddress(const QString &name)
{
    d->thresholdAddress = name;
}

QString CThresholdMeter::stateNamedAddress() const
{
    return d->stateAddress;
}

void CThresholdMeter::setStateNamedAddress(const QString &name)
{
    d->stateAddress = name;
}

int CThresholdMeter::nSubImages() const
{
    return d->subImages;
}

void CThresholdMeter::setnSubImages(int count)
{
    d->subImages = count;
    updateGeometry();
    refreshPicture();
}

QPixmap CThresholdMeter::combinedImage() const
{
    return d->strip;
}

void CThresholdMeter::setCombinedImage(const QPixmap &picture)
{
    d->strip = picture;
    updateGeometry();
    refreshPicture();
}

QString CThresholdMeter::shownText() const
{
    return metering::levelText(*this, d->levelCode);
}

// State -----------------------------------------------------------------------------------------

void CThresholdMeter::setupMeterThresholdTable()
{
    d->table.clear();
    d->thresholdIndex = 0;
    if (!binding::ready(*this) || d->tableId == 0)
        return;
    int count = 0;
    const quint16 *table = memAPI()->meterTableById(d->tableId, &count, 0);
    if (table && count > 0)
        d->table.assign(table, table + count);
}

// Deliberate: the threshold parameter's value plays no part.
int CThresholdMeter::thresholdState() const
{
    if (!d->online || d->stateValue == 0 || !getPreference())
        return Dark;
    const quint16 code = d->levelCode;
    if (d->table.size() > 1)
        return bandOf(d->table, code);
    if (code < (d->table.empty() ? d->thresholdLevel : d->table.front()))
        return Below;
    return code < NearFullScale ? Above : Full;
}

bool CThresholdMeter::getPreference() const
{
    const IPreferences *preferences = memAPI() ? memAPI()->preferences() : nullptr;
    return preferences && preferences->preference(IPreferences::ThresholdLamps).toBool();
}

void CThresholdMeter::changeThreshold(int value)
{
    const auto stored = static_cast<quint16>(value);
    if (stored == d->thresholdIndex)
        return;
    d->thresholdIndex = stored;
    triggerUpdate();
}

void CThresholdMeter::changeState(int value)
{
    if (value == d->stateValue)
        return;
    d->stateValue = value;
    triggerUpdate();
}

void CThresholdMeter::triggerUpdate()
{
    setCurrentImage(thresholdState());
}

void CThresholdMeter::onlineChange(bool online)
{
    if (online == d->online)
        return;
    d->online = online;
    d->levelCode = 0;
    triggerUpdate();
}

void CThresholdMeter::resetMeter()
{
    d->levelCode = 0;
    setCurrentImage(0);
}

// Pictures --------------------------------------------------------------------------------------

void CThresholdMeter::setCurrentImage(int row)
{
    if (!NS_Utilities::mainThreadRunning() || row < 0 || row >= d->subImages)
        return;
    d->currentImage = row;
    refreshPicture();
}

QSize CThresholdMeter::cellSize() const
{
    return picturecells::size(d->strip, {1, d->subImages});
}

void CThresholdMeter::adjustParams()
{
    if (d->strip.width() > 0 && d->subImages > 0)
        setFixedSize(cellSize());
    setCurrentImage(0);
}

QSize CThresholdMeter::sizeHint() const
{
    return d->strip.isNull() ? QWidget::sizeHint() : cellSize();
}

QSize CThresholdMeter::minimumSizeHint() const
{
    return d->strip.isNull() ? QWidget::minimumSizeHint() : cellSize();
}

void CThresholdMeter::repaintScreenPrimitive(QPainter &painter)
{
    d->draw(painter);
}

void CThresholdMeter::Private::describe(Picture &picture) const
{
    picture.add(strip, picturecells::cell(strip, {1, subImages}, {0, currentImage}));
}

void CThresholdMeter::updateErasePixmap(QPixmap *pixmap)
{
    d->erase.replace(pixmap);
}

QPixmap CThresholdMeter::erasePixmap()
{
    return d->erase.pixmap(*this);
}

void CThresholdMeter::refreshPicture()
{
    d->setOpaque(d->currentImage < d->subImages && metering::hides(d->strip, cellSize(), *this));
    pictureChanged();
}

/// The one place that asks for a paint.
void CThresholdMeter::pictureChanged()
{
    updateErasePixmap(nullptr);
    d->changed();
}

void CThresholdMeter::polish()
{
    adjustParams();
    triggerUpdate();
}

bool CThresholdMeter::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    metering::followLook(*this, *event, &CThresholdMeter::polish, &CThresholdMeter::refreshPicture);
    return handled;
}

void CThresholdMeter::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    d->paint(painter, *event);
}

// Binding ---------------------------------------------------------------------------------------

void CThresholdMeter::connectMemAPI()
{
    setupMeterThresholdTable();
    if (!binding::ready(*this))
        return;
    if (isAttached()) {
        metering::watch(*this, true, SIGNAL(onlineChanged(bool)), SLOT(onlineChange(bool)));
        d->online = (memAPI()->connectionState() & IMemAPI::Online) == IMemAPI::Online;
        subscribe();
    }
    resetMeter();
}

void CThresholdMeter::disconnectMemAPI()
{
    if (binding::ready(*this)) {
        if (isAttached()) {
            metering::watch(*this, false, SIGNAL(onlineChanged(bool)), SLOT(onlineChange(bool)));
            d->online = false;
            unsubscribe();
        }
        resetMeter();
    }
    setAttached(false);
}

void CThresholdMeter::subscribe()
{
    unsubscribe();
    if (!d->stateAddress.isEmpty())
        d->stateNotifier = CSimpleNotifier::Create(*memAPI(), this, d->stateAddress, element,
                                                   SLOT(changeState(int)), nullptr, nullptr);
    if (!d->thresholdAddress.isEmpty())
        d->thresholdNotifier =
            CSimpleNotifier::Create(*memAPI(), this, d->thresholdAddress, element,
                                    SLOT(changeThreshold(int)), nullptr, nullptr);
}

void CThresholdMeter::unsubscribe()
{
    delete d->stateNotifier;
    delete d->thresholdNotifier;
}

void CThresholdMeter::process(const Q_UINT8 *bytes, int operation, Q_UINT32)
{
    if (operation != Refresh)
        return;
    if (bytes)
        d->levelCode = metering::levelCode(bytes);
    if (binding::handOverToMainThread(*this))
        return;
    const int state = thresholdState();
    if (state != d->currentImage)
        setCurrentImage(state);
}
