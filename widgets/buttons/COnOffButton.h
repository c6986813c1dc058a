// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QPushButton>

#include <functional>
#include <memory>

class CSimpleNotifier;

/// A two-state key bound to one parameter, drawn from an image strip: row 0 the on picture, row 1 off,
/// row 2 held down, last row disabled. It shows what the memory holds, whoever changed it, and writes
/// what the operator clicks; one click is one undo step.
///
/// With a bool clip value of 0 it writes 1 and 0. With N above 0 it is on while the parameter holds
/// N - 1: a row of such keys chooses one value each, and the one that is on cannot be clicked off
/// unless it has an off state. Base of all other keys, which replace its virtual hooks.
///
/// Works by mouse and, focused, by Space. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT COnOffButton : public QPushButton, public TMemProxy
{
    Q_OBJECT
    BOUND_BASE_PROPERTIES
    BOUND_SIGNALS
    /// The off picture means on, and the other way round.
    Q_PROPERTY(bool imagesSwapped READ imagesSwapped WRITE setimagesSwapped)
    /// When a click that switches the key on, or off, takes effect. Default buttonRelease.
    Q_PROPERTY(TOnOffStateTrigger onStateTrigger READ onStateTrigger WRITE setOnStateTrigger)
    Q_PROPERTY(TOnOffStateTrigger offStateTrigger READ offStateTrigger WRITE setOffStateTrigger)
    /// The picture of row 2 shows while the key is held and 100 ms longer. Default true.
    Q_PROPERTY(bool useTrackingImage READ useTrackingImage WRITE setUseTrackingImage)
    /// The last row is the disabled picture, however many rows there are (of four it always is);
    /// without one a disabled key is grey.
    Q_PROPERTY(bool hasDisableImage READ hasDisableImage WRITE setHasDisableImage)
    /// The key refuses operation but keeps its look.
    Q_PROPERTY(bool disabledUI READ disabledUI WRITE setDisabledUI)
    /// A key with a bool clip value can be clicked off, writing 0.
    Q_PROPERTY(bool hasOffState READ hasOffState WRITE setHasOffState)
    /// 0 (default): the key writes 1 and 0. N above 0: it is on while the parameter holds N - 1.
    Q_PROPERTY(int boolClipValue READ boolClipValue WRITE setBoolClipValue)
    /// On is shown where the value means off.
    Q_PROPERTY(bool invertedLogic READ invertedLogic WRITE setInvertedLogic)
    /// Colour of the focus ring; the palette's highlight colour while invalid (default).
    Q_PROPERTY(QColor focusColor READ focusColor WRITE setFocusColor)
    /// Columns of the strip, modulo 256; default 1.
    Q_PROPERTY(int nImageCategories READ nImageCategories WRITE setnImageCategories)
    /// Rows of the strip, modulo 256; default 0.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// The strip. A key with one category gives it up once its pictures are cut; it is null then.
    Q_PROPERTY(QPixmap combinedImage READ combinedImage WRITE setCombinedImage)

public:
    /// Whether a click takes effect when the key is let go, or at once when it is pressed.
    enum TOnOffStateTrigger : int { buttonRelease, buttonPush };
    Q_ENUM(TOnOffStateTrigger)

    /// What state() and stateChanged() tell.
    enum ToggleState { Off = 0, NoChange = 1, On = 2 };

    explicit COnOffButton(QWidget *parent = nullptr, const char *name = nullptr);
    ~COnOffButton() override;

    bool imagesSwapped() const;
    virtual TOnOffStateTrigger onStateTrigger() const;
    virtual TOnOffStateTrigger offStateTrigger() const;
    bool useTrackingImage() const;
    bool hasDisableImage() const;
    bool hasOffState() const;
    int boolClipValue() const;
    bool invertedLogic() const;
    QColor focusColor() const;
    int nImageCategories() const;
    int nSubImages() const;
    QPixmap combinedImage() const;
    bool disableAutoHide() const override;
    bool disabledUI() const override;

    /// Whether clicks switch the key; true at first. Otherwise it only reports them.
    void setToggleButton(bool toggle);
    bool isToggleButton() const;
    /// Switches the key as a click does, without waiting for one.
    void setOn(bool on);
    /// Whether the key stands switched on, whatever picture that is.
    bool isOn() const;
    /// On or Off (ToggleState).
    int state() const;

    /// Whether the key counts as held down; the key must be painted again. Returns what it was.
    bool setClicked(bool clicked);
    /// Draws the present look at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);
    /// The look has changed: what the key shows without being painted is taken anew. The argument is
    /// not used.
    void updateErasePixmap(QPixmap *pixmap);
    /// That picture.
    QPixmap erasePixmap();
    /// The picture for the present state, not regarding grey.
    virtual QPixmap staticPixmap() const;
    /// Whether the key blinks with the console's blink clock.
    virtual bool blinkingMode() const;

    void connectMemAPI() override;
    void disconnectMemAPI() override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    /// Chooses the column of the strip; ignored outside 0 ... nImageCategories - 1.
    void setCurrentImage(int category);
    /// The key is shown as let go.
    void clickDelayDone();
    /// From now on the key shows the object's value, not the parameter's; null: the parameter's.
    void setSelectionObject(CSimpleNotifier *selection);
    /// Shows what a value means, and leaves the memory alone.
    void setNonBoolValue(int value);
    /// Cuts the pictures again.
    void reloadImage();
    // These take effect with the next change of the look.
    void setimagesSwapped(bool swapped);
    void setUseTrackingImage(bool use);
    void setHasDisableImage(bool has);
    void setHasOffState(bool has);
    void setInvertedLogic(bool inverted);
    void setOnStateTrigger(const TOnOffStateTrigger mode);
    void setOffStateTrigger(const TOnOffStateTrigger mode);
    void setBoolClipValue(int value);
    void setDisabledUI(bool disabled) override;
    void setDisableAutoHide(bool disable) override;
    void setFocusColor(const QColor &colour);
    void setnImageCategories(int categories);
    void setnSubImages(int rows);
    void setCombinedImage(const QPixmap &picture);
    /// updateErasePixmap() as a slot.
    void updateErasePixmapSlot();
    /// Writes a new state (ToggleState) to the parameter, unless the key is silent.
    virtual void handleStateChanged(int state);

Q_SIGNALS:
    /// The key went to another ToggleState, by whomever.
    void stateChanged(int state);
    // Deliberate: declared for the family, emitted by others of it only.
    /// Never sent by this class; for keys derived from it that have further values.
    void valueChanged(int value);

protected:
    class COnOffButton_PD;

    /// Shows the state that a process() call means; does nothing for operations above 2. `force`
    /// takes the look anew and emits the value signals, changed or not.
    void handleProcessChange(int operation, bool on, bool force);
    /// Clicks write to the memory no longer.
    void disconnectAutomaticObserver();
    /// Paints the key if it must be painted; a toggle button that need not be is left alone.
    virtual void drawButton(QPainter *painter);
    /// Takes the look from the strip and the palette; when the key is first shown and when its
    /// style changes.
    virtual void polish();
    /// Called after the key was enabled or disabled.
    virtual void enabledChange(bool oldEnabled);
    /// Called after the window was activated or left.
    virtual void windowActivationChange(bool oldActive);

    bool hitButton(const QPoint &position) const override;
    void nextCheckState() override;
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    using Pass = std::function<void()>;

    void handleToggled(bool on);
    void announceValue();
    bool refusesClick() const;
    bool pressTriggers() const;
    void press(const Pass &passPress, const Pass &passRelease);
    void release(const Pass &passRelease);
    void letGo();
    void cutImages(bool giveUpStrip);
    void refreshImage();
    void markDirty();
    void adoptSharedLook();
    QPixmap shownPicture() const;
    void drawPicture(QPainter &painter, const QPixmap &shown) const;
    int incomingValue(const Q_UINT8 *bytes, int operation);

    struct Private;
    std::unique_ptr<Private> d;
};
