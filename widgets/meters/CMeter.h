// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QRangeControl.h"
#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"
#include "widgets/meters/MeterScale.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

/// A bar meter for one of the console's readings: so much of the lit picture over the unlit one as
/// the level reaches on the selected scale, with a mark for the peak that the console holds. It has
/// no ballistics of its own. Standing meters grow upwards; meters of a reduction grow from the other
/// end, as it gets deeper.
///
/// The value of the range is the row of the scale. GUI thread, except process() and
/// meterLevelIndex().
class CONSOLEWIDGETS_EXPORT CMeter : public QWidget, public QRangeControl, public TMemProxy
{
    Q_OBJECT
    BOUND_PROPERTIES
    /// The held peak is marked (level meters only). Default true.
    Q_PROPERTY(bool peakHoldEnabled READ peakHoldEnabled WRITE setPeakHoldEnabled)
    /// The scale. Default eMtr_Normal.
    Q_PROPERTY(EMeterSelector meterSelector READ meterSelector WRITE setMeterSelector)
    /// The unlit meter; without one the widget's background is behind the bar.
    Q_PROPERTY(QPixmap meterBgndImage READ meterBgndImage WRITE setMeterBgndImage)
    /// The lit meter. It gives the widget its size, and lies or stands as it is wide or high.
    Q_PROPERTY(QPixmap meterImage READ meterImage WRITE setMeterImage)

public:
    /// Up to 100 levels, above it reductions. The two offsets stand for no scale: they keep the one
    /// there is.
    enum EMeterSelector : int {
        eMtr_Normal_Offset = 0,
        eMtr_Normal = 1,     ///< levels
        eMtr_Sigma = 2,      ///< a lamp that is lit at full scale
        eMtr_Layer = 3,      ///< levels, for short meters
        eMtr_SelCh = 4,      ///< levels of the selected channel
        eMtr_CompOut = 5,    ///< levels behind a compressor
        eMtr_Normal_Eff = 6, ///< levels of effects
        eMtr_GR_Offset = 100,
        eMtr_GR = 101,       ///< gain reductions
        eMtr_CompGR = 102,   ///< gain reductions of a compressor
        eMtr_GR_SelCh = 103, ///< gain reductions of the selected channel
        eMtr_GR_Eff = 104,   ///< gain reductions of effects
    };
    Q_ENUM(EMeterSelector)

    explicit CMeter(QWidget *parent = nullptr, const char *name = nullptr);
    ~CMeter() override;

    bool peakHoldEnabled() const;
    EMeterSelector meterSelector() const;
    QPixmap meterBgndImage() const;
    QPixmap meterImage() const;

    /// Whether the scale is one of a reduction. Any thread.
    bool reductionMode() const;
    /// The bar's usable length: the widget's height when it stands, else its width.
    int available() const;
    /// The row of the scale that a level code reaches. Any thread.
    int meterLevelIndex(unsigned short code) const;
    /// Takes the scale of the selector, and starts from no reading.
    void setupMeterTable();
    /// Turns the steps of the scales into lengths, once, on the main thread.
    static void CalculateMeterTablePixelOffsets();

    /// The last level as display text; empty while not attached.
    QString shownText() const;

    /// Draws the meter at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// Null: the picture has changed and is rendered when next asked for. Else it is `pixmap`, until
    /// the next change.
    void updateErasePixmap(QPixmap *pixmap);
    /// The meter's present picture on its background.
    QPixmap erasePixmap();

    void connectMemAPI() override;
    void disconnectMemAPI() override;

public Q_SLOTS:
    /// A reading (level and held peak), or without `data` the request to show the last one. Any
    /// thread.
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    /// Replaces the lit picture by one of the same size, for a change of colour.
    void setChangeMeterImage(const QPixmap &picture);
    /// A meter that goes offline falls back.
    void onlineChange(bool online);
    /// Back to no level and no peak, or to no reduction.
    void resetMeter();
    void setMeterSelector(EMeterSelector selector);
    void setMeterBgndImage(const QPixmap &picture);
    void setMeterImage(const QPixmap &picture);
    void setPeakHoldEnabled(bool enabled);

protected:
    void valueChange() override;
    /// Takes the look from strip and palette; when the meter is first shown and when its style
    /// changes.
    virtual void polish();

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

    /// The scales of all meters; made with the first meter.
    static MeterScale s_meterLevels;
    static MeterScale s_meterLevels_SIGMA;
    static MeterScale s_meterLevels_Layer;
    static MeterScale s_meterLevels_SelCh;
    static MeterScale s_meterLevels_CompOut;
    static MeterScale s_meterLevels_Effect;
    static MeterScale s_meterLevels_GR;
    static MeterScale s_meterLevels_CompGR;
    static MeterScale s_meterLevels_GR_SelCh;
    static MeterScale s_meterLevels_GR_Effect;
    /// Whether they are made.
    static bool s_meterLevels_constructed;

private:
    static const MeterScale *scaleOf(EMeterSelector selector);
    void decode(const Q_UINT8 *bytes);
    void showReading();
    void pictureChanged();
    void refreshPicture();
    void setOpacity();

    struct Private;
    std::unique_ptr<Private> d;
};
