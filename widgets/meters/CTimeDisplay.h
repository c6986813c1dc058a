// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QWidget>

#include <memory>

/// The console's time counter: hours, minutes, seconds and frames, with a dot behind them for the
/// frame rates that drop frames. It asks for the counter itself and needs no address. GUI thread,
/// except process().
class CONSOLEWIDGETS_EXPORT CTimeDisplay : public QWidget, public TMemProxy
{
    Q_OBJECT
    BOUND_PROPERTIES
    /// How many times a second it is painted at most; below 1 never. Default 20.
    Q_PROPERTY(int updateFrequency READ updateFrequency WRITE setUpdateFrequency)

public:
    /// The counter as the console sends it.
    struct TTimeCounterInfo
    {
        quint8 hours = 0;   ///< 0 to 23
        quint8 minutes = 0; ///< 0 to 59
        quint8 seconds = 0; ///< 0 to 59
        quint8 frames = 0;  ///< from 0, by the frame rate

        /// Whether any field differs.
        bool operator!=(const TTimeCounterInfo &other) const;
    };

    explicit CTimeDisplay(QWidget *parent = nullptr, const char *name = nullptr);
    ~CTimeDisplay() override;

    int updateFrequency() const;

    /// The text as last painted.
    QString shownText() const;

    void connectMemAPI() override;
    void disconnectMemAPI() override;
    bool bindsWithoutAddress() const override { return true; }

    /// The first call makes the font smaller: three quarters of what the form gives.
    QSize sizeHint() const override;

public Q_SLOTS:
    /// The counter, or without `data` the request to show it. Any thread.
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    /// The console's frame rate; 1 and 3 drop frames.
    void setTimeCodeFormat(int format);
    /// Asks the console for its counter; goes on by itself every 8 seconds.
    void postTimecodeRequest();
    /// Paints a changed counter, unless it is too soon. Called at the memory's service tick.
    void updateIfNeeded();
    void setUpdateFrequency(int perSecond);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
