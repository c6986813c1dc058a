// SPDX-License-Identifier: MIT
#include "widgets/meters/CTimeDisplay.h"

#include "interfaces/CSimpleNotifier.h"
#include "interfaces/utilities/NS_Utilities.h"
#include "interfaces/utilities/YPainter.h"
#include "widgets/binding/Binding.h"
#include "widgets/binding/ShownTextAccessible.h"
#include "widgets/painting/Opacity.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QPointer>
#include <QTimer>

#include <atomic>

namespace {

constexpr int RequestInterval = 8000; // milliseconds
constexpr int Margin = 5;
constexpr int BaselineGap = 7;
constexpr int HeightGap = 10;

const QString FrameRateAddress = QStringLiteral("00kSetupTCEventParams/kTCEventFrameRate");

/// 75 percent, in whole numbers.
constexpr int threeQuarters(int number)
{
    return number * 75 / 100;
}

bool dropsFrames(int format)
{
    return format == 1 || format == 3;
}

QString counterText(const CTimeDisplay::TTimeCounterInfo &time, int format)
{
    return QString::asprintf(dropsFrames(format) ? "%02d:%02d:%02d.%02d." : "%02d:%02d:%02d.%02d",
                             time.hours, time.minutes, time.seconds, time.frames);
}

void makeSmaller(QWidget &widget)
{
    QFont font = widget.font();
    if (font.pointSize() > 0)
        font.setPointSize(qMax(1, threeQuarters(font.pointSize())));
    else
        font.setPixelSize(qMax(1, threeQuarters(font.pixelSize())));
    widget.setFont(font);
}

} // namespace

struct CTimeDisplay::Private
{
    explicit Private(CTimeDisplay &display) : widget(display), request(&display) {}

    /// Looks at the font once, as it was given.
    void measure()
    {
        if (measured)
            return;
        measured = true;
        makeSmaller(widget);
        baseline = threeQuarters(widget.fontMetrics().ascent());
    }

    // Of all threads.
    std::atomic<TTimeCounterInfo> counter;
    std::atomic<bool> dirty{false};

    // Of the main thread.
    CTimeDisplay &widget;
    QString text = QStringLiteral("00:00:00.00");
    QPointer<CSimpleNotifier> frameRate;
    QTimer request;
    QElapsedTimer clock;
    int updateFrequency = 20;
    int format = 0;
    int baseline = 0;
    bool measured = false;
};

bool CTimeDisplay::TTimeCounterInfo::operator!=(const TTimeCounterInfo &other) const
{
    return hours != other.hours || minutes != other.minutes || seconds != other.seconds
           || frames != other.frames;
}

CTimeDisplay::CTimeDisplay(QWidget *parent, const char *name)
    : QWidget(parent), d(std::make_unique<Private>(*this))
{
    static_assert(std::atomic<TTimeCounterInfo>::is_always_lock_free);
    ShownTextAccessible<CTimeDisplay>::install<QAccessible::Clock>();
    if (name)
        setObjectName(QLatin1StringView(name));
    setNumDefaultKind(0);
    setUndoEnable(false);
    setAccessibleName(tr("Time code"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_StaticContents);
    setAttribute(Qt::WA_NoSystemBackground);
    opacity::set(*this, true);
    d->clock.start();
    connect(&d->request, &QTimer::timeout, this, &CTimeDisplay::postTimecodeRequest);
    d->request.start(RequestInterval);
}

CTimeDisplay::~CTimeDisplay()
{
    leaveMemory();
}

int CTimeDisplay::updateFrequency() const
{
    return d->updateFrequency;
}

void CTimeDisplay::setUpdateFrequency(int perSecond)
{
    d->updateFrequency = perSecond;
}

QString CTimeDisplay::shownText() const
{
    return d->text;
}

void CTimeDisplay::setTimeCodeFormat(int format)
{
    if (format == d->format)
        return;
    d->format = format;
    d->dirty = true;
}

void CTimeDisplay::postTimecodeRequest()
{
    if (memAPI())
        memAPI()->requestTimecode(1, this);
}

void CTimeDisplay::connectMemAPI()
{
    if (memAPI()) {
        memAPI()->connectApiSignal(true, SIGNAL(frequentServiceEvent()), this,
                                   SLOT(updateIfNeeded()));
        if (!d->frameRate)
            d->frameRate = CSimpleNotifier::Create(*memAPI(), this, FrameRateAddress, 0,
                                                   SLOT(setTimeCodeFormat(int)), nullptr, nullptr);
    }
    postTimecodeRequest();
}

void CTimeDisplay::disconnectMemAPI()
{
    // Deliberate: the service tick stays connected.
    delete d->frameRate;
    binding::detach(*this);
}

void CTimeDisplay::process(const Q_UINT8 *bytes, int operation, Q_UINT32)
{
    if (bytes && operation == Refresh) {
        const TTimeCounterInfo now{bytes[0], bytes[1], bytes[2], bytes[3]};
        if (now != d->counter) {
            d->counter = now;
            d->dirty = true;
        }
    }
    if (!binding::handOverToMainThread(*this))
        updateIfNeeded();
}

void CTimeDisplay::updateIfNeeded()
{
    if (!isVisible() || d->updateFrequency < 1)
        return;
    if (d->clock.elapsed() <= 1000 / d->updateFrequency)
        return;
    if (d->dirty)
        repaint();
    else
        d->clock.restart();
}

bool CTimeDisplay::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::Polish)
        d->measure();
    if (opacity::mustBeToldAfter(*event))
        opacity::set(*this, true);
    return handled;
}

void CTimeDisplay::paintEvent(QPaintEvent *)
{
    d->dirty = false;
    d->text = counterText(d->counter, d->format);
    NS_Utilities::YPainter painter(this);
    painter.fill(palette().color(backgroundRole()));
    painter.drawText(Margin, d->baseline + BaselineGap, d->text);
    d->clock.restart();
}

QSize CTimeDisplay::sizeHint() const
{
    d->measure();
    const int width = fontMetrics().boundingRect(QStringLiteral("00:00:00.00.")).width();
    return {width + Margin, d->baseline + HeightGap};
}
