// SPDX-License-Identifier: MIT
#pragma once

#include "toolkit/QtTypes.h"
#include "widgets/binding/BoundParameter.h"
#include "widgets/Export.h"

#include <QFrame>
#include <QPixmap>

#include <memory>

/// A column of lamps, one per bit, composed from a picture with every lamp lit and one with every lamp
/// dark. The bits are those of one parameter's value, lowest on top, or in multi mode the states of a
/// run of parameters. It displays only, and shows nothing before it has a memory. GUI thread, except
/// process().
class CONSOLEWIDGETS_EXPORT StateDisplayBit : public QFrame, public TMemProxy
{
    Q_OBJECT
    BOUND_PARAMETER
    /// The pictures with every lamp lit, and with every lamp dark; of one size.
    Q_PROPERTY(QPixmap combinedOnImage READ combinedOnImage WRITE setCombinedOnImage)
    Q_PROPERTY(QPixmap combinedOffImage READ combinedOffImage WRITE setCombinedOffImage)
    /// Number of lamps, modulo 256; default 0.
    Q_PROPERTY(int nSubImages READ nSubImages WRITE setnSubImages)
    /// Lamp i is on while the parameter at index + i is not 0. Takes effect at the next attach.
    Q_PROPERTY(bool multiMode READ multiMode WRITE setMultiMode)

public:
    /// The name is not used.
    explicit StateDisplayBit(QWidget *parent = nullptr, const char *name = nullptr);
    ~StateDisplayBit() override;

    QPixmap combinedOnImage() const;
    QPixmap combinedOffImage() const;
    int nSubImages() const;
    bool multiMode() const;

    /// The bits last told.
    int value() const;
    /// Shows the memory's present bits, if `value` is another one than the last.
    void setValue(int value);

    /// The bits in words: "2, 5 on".
    QString shownText() const;
    /// The composed picture; null while there is none.
    QPixmap erasePixmap() const;

    /// It shows and is not edited.
    bool disabledUI() const override { return true; }
    void connectMemAPI() override;
    void disconnectMemAPI() override;

    QSize sizeHint() const override;

public Q_SLOTS:
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void setCombinedOnImage(const QPixmap &picture);
    void setCombinedOffImage(const QPixmap &picture);
    void setnSubImages(int count);
    void setMultiMode(bool multi);

protected:
    class StateDisplayBit_PD;

    /// The bits as the memory holds them; 0 without a memory.
    int getBitParam() const;
    /// Composes the picture and asks for a paint of the lamps that changed. Nothing changes unless both
    /// pictures are there and of one size.
    void reCalc();
    /// Replaces the composed picture.
    void setErasePixmap(const QPixmap &picture);

    void paintEvent(QPaintEvent *event) override;

private:
    void refreshPictures(const QPixmap &picture);
    void announce();

    std::unique_ptr<StateDisplayBit_PD> d;
};
