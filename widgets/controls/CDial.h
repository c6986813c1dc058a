// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/controls/UnboundDial.h"
#include "widgets/Export.h"

#include <array>
#include <memory>
#include <typeinfo>

/// A rotary knob bound to one parameter, drawn from an image strip with one picture per position.
///
/// The operator turns it by a drag around its centre over 270 degrees (or, in the application-wide
/// vertical mode, by a straight drag, right and up raising), by wheel, arrow and page keys, and by a
/// typed number (a digit, Return or a double click opens the field). A press alone changes nothing;
/// Shift and Ctrl presses are left to the editor. A drag, and a burst of steps, is one undo step.
///
/// It starts with the range -559038801 to 2125315823, so that the first range from the memory always
/// counts as a change. GUI thread, except process(). Delete it with deleteLater() from slots of its
/// own signals.
class CONSOLEWIDGETS_EXPORT CDial : public UnboundDial, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER
    /// Rows run from the maximum down to the minimum. Default false.
    Q_PROPERTY(bool inverted READ inverted WRITE setInverted)
    /// The parent shows through where the picture lets it, and clicks outside the picture's outline go
    /// to the parent. False (default): the background of the dial's own palette is behind the picture.
    Q_PROPERTY(bool transparent READ transparent WRITE setTransparent)
    /// Row of the picture for the disabled dial; -1 (default): the current one is shown grey.
    Q_PROPERTY(int disabledImageIndex READ disabledImageIndex WRITE setdisabledImageIndex)
    /// A yellow popup under the dial tells the value while the pointer is on it. Default false.
    Q_PROPERTY(bool numberToolTip READ numberToolTip WRITE setNumberToolTip)
    /// Colour of the focus ring; the palette's highlight colour while invalid (default).
    Q_PROPERTY(QColor focusColor READ focusColor WRITE setFocusColor)
    /// Columns of the strip, modulo 8; default 1.
    Q_PROPERTY(int nImageCategories READ nImageCategories WRITE setnImageCategories)
    /// Rows of the strip, the disabled picture included; default 1.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// The strip.
    Q_PROPERTY(QPixmap combinedImage READ combinedImage WRITE setCombinedImage)

public:
    /// A translation table: 45 positions for memory values (less the minimum), then 45 memory values
    /// for positions.
    static constexpr int TranslationOffset = 45;
    /// See TranslationOffset.
    using TranslationTable = std::array<int, 2 * TranslationOffset>;

    explicit CDial(QWidget *parent = nullptr, const char *name = nullptr);
    ~CDial() override;

    bool inverted() const;
    bool transparent() const;
    int disabledImageIndex() const;
    bool numberToolTip() const;
    QColor focusColor() const;
    int nImageCategories() const;
    int nSubImages() const;
    QPixmap combinedImage() const;

    /// The index used in alternative-address mode; -1 (default): none.
    int alternativeIndex() const;
    void setAlternativeIndex(int alternative);
    /// Between memory values and positions; none by default. Values outside the table stand for
    /// themselves.
    void setTranslationTable(const TranslationTable &table);
    void clearTranslationTable();

    /// Straight instead of circular drags, for every dial at once.
    static void setVerticalMode(bool vertical);
    static bool verticalMode();

    /// The row of the strip for the present value.
    int currentIndex() const;
    /// Draws the current picture at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// The picture has changed: it is rendered anew when next asked for. The argument is not used.
    void updateErasePixmap(QPixmap *pixmap);
    /// The dial's present picture on its background.
    QPixmap erasePixmap();

    /// Emits the value signals; with `write`, stores the value first unless the dial is silent.
    void emitValueChanges(bool write);
    void triggerEmitValueChanged(bool write);

    /// The handling of mouse events, for a container that forwards them.
    void mousePressEventInternal(QMouseEvent *event);
    void mouseMoveEventInternal(QMouseEvent *event);
    void mouseReleaseEventInternal(QMouseEvent *event);

    void connectMemAPI() override;
    void disconnectMemAPI() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    /// Chooses the column of the strip; ignored at or beyond nImageCategories.
    void setCurrentImage(int category);
    /// Emit text and signals again on every refresh, changed or not.
    void setfxValueTransform(bool on);
    /// A typed number, in the unit of the display text, becomes the value.
    void acceptNum(double number);
    void setTransparent(bool transparent);
    void setdisabledImageIndex(int row);
    /// Switches to the alternative address and back; the index is replaced at the next attach.
    void changeAltAddressMode(bool on);
    void setNumberToolTip(bool on);
    void setFocusColor(const QColor &colour);
    void setnImageCategories(int categories);
    void setnSubImages(int rows);
    void setCombinedImage(const QPixmap &picture);
    /// The alternative parameter changed; the argument is not used.
    void handle_changeAltNamedValue(int value);
    /// A step as by the page or arrow keys, written with undo.
    void subtractPage();
    void addPage();
    void subtractLine();
    void addLine();
    void setInverted(bool inverted);
    /// Opens the field for typing a number.
    void editNumber();

protected:
    /// A subclass whose picture is the dial's says so in its constructor, with its own type: until then
    /// its objects get a paint event for every new picture (BatchedPicture).
    void drawsLikeDial(const std::type_info &subclass);

    /// Between degrees and radians.
    static double Radian(double degrees);
    static double Degree(double radians);
    /// Turns an angle clockwise from the top into a mathematical one, and back. Radians.
    static double CnvAngle(double angle);
    /// The angle of a point about the centre of the running drag, in radians; false, and `angle`
    /// untouched, at the centre itself.
    bool CalcAngle(double x, double y, double &angle) const;
    /// Where the segments from 1 to 2 and from 3 to 4 meet; touching counts. False, and the result
    /// untouched, when they do not.
    static bool CalcIntersection(double x1, double y1, double x2, double y2, double x3, double y3,
                                 double x4, double y4, double &x, double &y);
    /// The smaller angle between two vectors, 0 to pi.
    static double CalcVectorAngle(double x1, double y1, double x2, double y2);
    /// The knob angle of the running drag, in degrees.
    double GetAngle() const;
    /// Begins a drag over the sweep from `startDegrees` to `endDegrees`; `relative`: it follows the
    /// rotation from the tip of the knob instead of from the last point. Returns the knob angle in
    /// degrees.
    double mousePressMoveStart(QMouseEvent *event, double startDegrees, double endDegrees,
                               bool relative);
    /// Follows the drag and returns the knob angle in degrees.
    double mousePressMoveTrace(QMouseEvent *event);
    /// The picture, 0 to 30, of an attenuator whose value is in tenths of a decibel.
    int getAttKnobIndex(int value) const;
    /// The entry of a table for `value`, `offset` entries further on; a value outside the table
    /// stands for itself.
    static int translateValue(int value, const int *table, int offset);

    /// Writes the value and returns what the memory stored.
    virtual int changeMemApiValue();
    /// Called after the value has changed, by whomever.
    virtual void valueChange();
    /// Takes the look from the palette; when the dial is first shown and when its style changes.
    virtual void polish();
    /// Called after the dial was enabled or disabled.
    virtual void enabledChange(bool oldEnabled);

    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void sliderChange(SliderChange change) override;
    /// A painter opened on the dial starts as one on a picture: the palette and the font stay out of it.
    void initPainter(QPainter *painter) const override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void setOpacity();
    int pictureNumber() const;
    void pictureChanged();
    void refreshImage();
    void shareErasePixmap();
    void openNumberField(const QString &text, bool selectAll);
    void stepBy(IMemAPI::Step step, SliderAction action);
    void drag(QMouseEvent *event);
    int valueAfter(int change) const;
    void notifyMoved(int next);
    void endDrag();

    struct Private;
    std::unique_ptr<Private> d;
};
