// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QLabel>

#include <memory>

class CMenuObject;

/// Chooses one value of a parameter from a drop-down list of texts: the item at position n of
/// `menuItemList` stands for the parameter's lowest value plus n. Closed it shows the current item, or,
/// when it has a strip of pictures, the picture of the current position.
///
/// A click, or Space or Return while focused, opens the list; a choice is one undo step. Values without
/// an item leave what is shown. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT CPullDownMenu : public QLabel, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER
    /// The items, separated by ";". Empty ones are left out.
    Q_PROPERTY(QString menuItemList READ menuItemList WRITE setMenuItemList)
    /// The menu shows the items as ascending whole numbers; items that are none come last and cannot be
    /// chosen. Default false.
    Q_PROPERTY(bool sorted READ sorted WRITE setSorted)
    /// The current item has a check mark in the menu. Default false.
    Q_PROPERTY(bool wantCheck READ wantCheck WRITE setWantCheck)
    /// Whether the menu takes the focus, shows it, and opens by key. Default true.
    Q_PROPERTY(bool enableFocusRect READ focusRectEnabled WRITE setEnableFocusRect)
    /// Number of pictures in the strip, below one another; default 1.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// The strip; null (default) for a menu that shows texts.
    Q_PROPERTY(QPixmap combinedImage READ combinedImage WRITE setCombinedImage)

public:
    explicit CPullDownMenu(QWidget *parent = nullptr, const char *name = nullptr);
    ~CPullDownMenu() override;

    QString menuItemList() const;
    bool sorted() const;
    bool wantCheck() const;
    bool focusRectEnabled() const;
    void setEnableFocusRect(bool enable);
    int nSubImages() const;
    QPixmap combinedImage() const;

    /// Opens the menu under the widget.
    void popup();
    /// The next picture, after the last one the first.
    void toggleImage();
    /// Shows and writes a position; ignored outside the list.
    void indexChanged(int position);
    /// Shows a menu position and, unless it came from the memory, writes its value. Positions outside
    /// the list or the strip are ignored.
    void setCurrentImage(int position);
    /// The menu position shown.
    int selectedItem() const;

    /// Position in the menu to position in the list, and back.
    int menuToMemapi(int position) const;
    int memapiToMenu(int position) const;

    /// The current item's text; empty in a menu of pictures.
    QString shownText() const;
    /// Whether the list is open.
    bool isOpen() const;
    /// Draws the closed menu at the painter's origin.
    void repaintScreenPrimitive(QPainter &painter);

    void connectMemAPI() override;
    void disconnectMemAPI() override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void setMenuItemList(const QString &list);
    void setSorted(bool bSorted);
    void setWantCheck(bool bDoYouWantItOrNot);
    void setnSubImages(int count);
    void setCombinedImage(const QPixmap &picture);
    /// An item of the menu was chosen; a position below 0 is remembered only.
    void changedTheMenu(int position);
    /// One picture further, or back, stopping at the ends.
    void incMenu();
    void decMenu();

Q_SIGNALS:
    /// The menu position, after every setCurrentImage().
    void valueChanged(int position);

protected:
    /// Back to the first position.
    void adjustParams();
    /// In a menu of pictures: fixes the widget's size to that of one picture.
    void updateDimensions();

    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void fillMenu();
    void takeValueOffset();
    void showValue(int value);
    void updateCheck(int position);
    void stepTo(int position);
    bool accepts(int position) const;
    void write(int position);
    void refreshText();
    void announce();
    void drawText(QPainter &painter);

    struct Private;
    std::unique_ptr<Private> d;
};
