// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QPixmap>
#include <QWidget>

#include <memory>

/// A meter that shows one of several pictures: a lamp that lights in steps, a segment display. A list
/// of thresholds, the memory's or its own, says from which level code on each picture is shown.
/// GUI thread, except process().
class CONSOLEWIDGETS_EXPORT CPixmapMeter : public QWidget, public TMemProxy
{
    Q_OBJECT
    BOUND_PROPERTIES
    /// Whether the pictures of successive levels stand in a column of the strip or in a row.
    Q_PROPERTY(SubDirection subDirection READ subDirection WRITE setSubDirection)
    /// The memory's table with the thresholds; 0 (default): boundList.
    Q_PROPERTY(int meterTableId READ meterTableId WRITE setMeterTableId)
    /// The lowest level codes of the pictures from 1 on, hexadecimal, separated by ";".
    Q_PROPERTY(QString boundList READ boundList WRITE setBoundList)
    /// Pictures for levels; default 1.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// Alternative looks; default 1.
    Q_PROPERTY(int nImageCategories READ nImageCategories WRITE setnImageCategories)
    /// The strip.
    Q_PROPERTY(QPixmap combinedImage READ combinedImage WRITE setCombinedImage)

public:
    /// Whether the pictures stand below one another or side by side.
    enum SubDirection : int { ColImages = 0, RowImages = 1 };
    Q_ENUM(SubDirection)

    /// The name is not used.
    explicit CPixmapMeter(QWidget *parent = nullptr, const char *name = nullptr);
    ~CPixmapMeter() override;

    SubDirection subDirection() const;
    int meterTableId() const;
    QString boundList() const;
    int nSubImages() const;
    int nImageCategories() const;
    QPixmap combinedImage() const;

    /// Does not resize the widget; see adjustParams().
    void setCombinedImage(const QPixmap &picture);
    /// Below 1 is 1. Empties the list of thresholds and reads boundList anew.
    void setnSubImages(int count);
    /// Below 1 is 1.
    void setnImageCategories(int count);
    /// Chooses the look; ignored outside 0 to nSubImages - 1.
    void setCurrentImage(int category);

    /// Takes the thresholds from boundList.
    void setupBoundTable();
    /// Fixes the widget's size to that of one picture; done when the widget is first shown, too.
    void adjustParams();

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
    void setSubDirection(SubDirection direction);
    /// Takes effect at the next attach.
    void setMeterTableId(int id);
    void setBoundList(const QString &list);
    /// A reading, or without `data` the request to show the last one. Any thread.
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    /// Going online as well as going offline resets the meter.
    void onlineChange(bool online);
    /// Shows the lowest picture until the next reading.
    void resetMeter();

protected:
    /// The picture for a level code. Any thread.
    int meterLevelIndex(unsigned short code) const;
    /// Chooses between the memory's thresholds and the own ones.
    void setupMeterTable();
    /// Asks for a paint of the present picture.
    virtual void valueChange();
    /// Takes the size of one picture; when the meter is first shown.
    virtual void polish();

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showIncoming();
    void refreshPicture();
    void pictureChanged();
    QSize cellSize() const;

    struct Private;
    std::unique_ptr<Private> d;
};
