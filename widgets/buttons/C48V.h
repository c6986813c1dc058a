// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/buttons/COnOffButton.h"

/// The phantom-power key of an input channel. The voltage is switched at the head amp to which the
/// input is patched: the key is named by its channel's own parameter and shows and switches the one at
/// the patch, following every change of it. While the input is patched to no head amp that this
/// console may operate, the key is disabled. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT C48V : public COnOffButton
{
    Q_OBJECT
    /// Extra addressing text, "element,index": where the parameters of the head amps' ports begin;
    /// empty (default): where the console's model has them.
    Q_PROPERTY(QString xtraInfo READ xtraInfo WRITE setXtraInfo)

public:
    explicit C48V(QWidget *parent = nullptr, const char *name = nullptr);
    ~C48V() override;

    QString xtraInfo() const;
    /// What the memory made of xtraInfo; -1 until known.
    qint16 baseElement() const;
    qint16 baseIndex() const;

    IMemAPI::TSingleBaseAddress valueAddress() const override;
    void connectMemAPI() override;
    void disconnectMemAPI() override;

public Q_SLOTS:
    void setXtraInfo(const QString &text);
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    void handleStateChanged(int state) override;
    /// The patch, or what it leads to, has changed; the argument is not used.
    void handle_patchInChange(int value);

private:
    int clip() const;

    struct Private;
    std::unique_ptr<Private> d;
};
