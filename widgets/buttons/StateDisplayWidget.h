// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QFrame>
#include <QPixmap>

#include <memory>

/// Shows the state of one parameter as one picture of a strip: picture n for value n, or with boolean
/// logic picture 1 while the value is `cmpValue` and picture 0 otherwise. A click changes nothing: it
/// is reported, and the owner may write through setValueFromData(). GUI thread, except process().
class CONSOLEWIDGETS_EXPORT StateDisplayWidget : public QFrame, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER
    // What is set here shows with the next change of the value, or when the widget is first shown.
    /// The value that shows picture 1 with boolean logic. Default 0.
    Q_PROPERTY(int cmpValue READ cmpValue WRITE setCmpValue)
    /// Two pictures: 1 for cmpValue, 0 for all other values. Default false.
    Q_PROPERTY(bool booleanLogic READ booleanLogic WRITE setBooleanLogic)
    /// Number of pictures below one another, modulo 256; default 1.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// The strip.
    Q_PROPERTY(QPixmap combinedImage READ combinedImage WRITE setCombinedImage)

public:
    /// The name is not used.
    explicit StateDisplayWidget(QWidget *parent = nullptr, const char *name = nullptr);
    ~StateDisplayWidget() override;

    int cmpValue() const;
    bool booleanLogic() const;
    int nSubImages() const;
    QPixmap combinedImage() const;

    /// The value shown; -2147483647 before the first one.
    int value() const;
    /// Shows the picture for another value than the last, and leaves the memory alone.
    void setValue(int value);
    /// The row of the strip for a value.
    int pixmapId(int value) const;

    /// The value's display text; empty while not attached.
    QString shownText() const;
    /// Reports a click, as the mouse does.
    void click();

    /// Draws the present picture at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// The picture has changed: it is rendered anew when next asked for. The argument is not used.
    void updateErasePixmap(QPixmap *pixmap);
    /// The present picture on the widget's background.
    QPixmap erasePixmap();

    /// It shows and is not edited.
    bool disabledUI() const override { return true; }
    void connectMemAPI() override;
    void disconnectMemAPI() override;

    QSize sizeHint() const override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void setCmpValue(int value);
    void setBooleanLogic(bool boolean);
    void setnSubImages(int count);
    void setCombinedImage(const QPixmap &picture);
    /// Writes a value to the parameter; the picture follows when the memory tells of the change.
    void setValueFromData(int value);

Q_SIGNALS:
    /// The left mouse button was pressed here and released, wherever; with the parameter's channel.
    void clicked(int channel);

protected:
    class StateDisplayWidget_PD;

    /// Shows what was set before; when the widget is first shown and when its style changes.
    virtual void polish();

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    std::unique_ptr<StateDisplayWidget_PD> d;
};
