// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/controls/CDial.h"

/// The dial form of the phantom-power key: see C48V. GUI thread, except process().
class CONSOLEWIDGETS_EXPORT C48VDial : public CDial
{
    Q_OBJECT
    /// Extra addressing text, "element,index": where the parameters of the head amps' ports begin;
    /// empty (default): where the console's model has them.
    Q_PROPERTY(QString xtraInfo READ xtraInfo WRITE setXtraInfo)

public:
    explicit C48VDial(QWidget *parent = nullptr, const char *name = nullptr);
    ~C48VDial() override;

    QString xtraInfo() const;
    /// See C48V::baseElement().
    qint16 baseElement() const;
    qint16 baseIndex() const;

    IMemAPI::TSingleBaseAddress valueAddress() const override;
    void connectMemAPI() override;
    void disconnectMemAPI() override;

public Q_SLOTS:
    void setXtraInfo(const QString &text);
    void process(const Q_UINT8 *data, int operation, Q_UINT32 extra) override;
    /// The patch, or what it leads to, has changed; the argument is not used.
    void handle_patchInChange(int value);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
