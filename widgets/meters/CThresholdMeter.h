// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

/// A lamp for a channel's reading: dark, below the threshold, above it, near full scale; or, with a
/// table of the memory, one state per band between its thresholds, higher readings having lower
/// numbers. It is dark while the console is offline, while the state parameter is 0, and when the
/// operator's preferences switch such lamps off. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT CThresholdMeter : public QWidget, public TMemProxy
{
    Q_OBJECT
    BOUND_PROPERTIES
    /// The memory's table with the thresholds; 0 (default): thresholdLevel alone.
    Q_PROPERTY(int meterThresholdTableId READ meterThresholdTableId WRITE setMeterThresholdTableId)
    /// The level code of the one threshold there is without a table; the low 16 bits. Default 0.
    Q_PROPERTY(int thresholdLevel READ thresholdLevel WRITE setThresholdLevel)
    /// A further parameter of the channel whose changes make the lamp look at its state again.
    Q_PROPERTY(
        QString thresholdNamedAddress READ thresholdNamedAddress WRITE setThresholdNamedAddress)
    /// The parameter of the channel that switches the lamp on (not 0) and off.
    Q_PROPERTY(QString stateNamedAddress READ stateNamedAddress WRITE setStateNamedAddress)
    /// Pictures, one per state, below one another; default 3.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// The strip.
    Q_PROPERTY(QPixmap combinedImage READ combinedImage WRITE setCombinedImage)

public:
    /// The name is not used.
    explicit CThresholdMeter(QWidget *parent = nullptr, const char *name = nullptr);
    ~CThresholdMeter() override;

    int meterThresholdTableId() const;
    int thresholdLevel() const;
    QString thresholdNamedAddress() const;
    QString stateNamedAddress() const;
    int nSubImages() const;
    QPixmap combinedImage() const;

    /// The state for the last reading; the row of the strip, where there is such a row.
    int thresholdState() const;
    /// Whether the operator's preferences allow such lamps.
    bool getPreference() const;
    /// Takes the thresholds of the memory's table, or the one of thresholdLevel.
    void setupMeterThresholdTable();
    /// Fixes the widget's size to that of one picture and shows the first; done when the widget is
    /// first shown, too.
    void adjustParams();
    /// Shows a picture; ignored outside 0 to nSubImages - 1.
    void setCurrentImage(int row);
    /// Shows the lowest state until the next reading.
    void resetMeter();

    /// The last level as display text; empty while not attached.
    QString shownText() const;

    /// Draws the present picture at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// Null: the picture has changed and is rendered when next asked for. Else it is `pixmap`, until
    /// the next change.
    void updateErasePixmap(QPixmap *pixmap);
    /// The present picture on the widget's background.
    QPixmap erasePixmap();

    void connectMemAPI() override;
    void disconnectMemAPI() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void setMeterThresholdTableId(int id);
    void setThresholdLevel(int code);
    // These two take effect at the next attach.
    void setThresholdNamedAddress(const QString &name);
    void setStateNamedAddress(const QString &name);
    void setnSubImages(int count);
    void setCombinedImage(const QPixmap &picture);
    /// The threshold parameter changed.
    void changeThreshold(int value);
    /// The state parameter changed.
    void changeState(int value);
    /// Shows the present state.
    void triggerUpdate();
    /// The lamp is dark while the console is offline.
    void onlineChange(bool online);
    /// A reading, or without `data` the request to look at the last one. Any thread.
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;

protected:
    /// Calls adjustParams(); when the lamp is first shown.
    virtual void polish();

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void subscribe();
    void unsubscribe();
    void refreshPicture();
    void pictureChanged();
    QSize cellSize() const;

    struct Private;
    std::unique_ptr<Private> d;
};
