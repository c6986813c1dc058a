// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterMemory.h"
#include "interfaces/TMemProxy.h"

#include <QCoreApplication>
#include <QtEndian>
#include <QWidget>

#include <atomic>
#include <functional>

/// A control reduced to its contract: it attaches, counts its calls and keeps the value it last saw.
class Probe : public QWidget, public TMemProxy
{
public:
    explicit Probe(const QString &address = {}, QWidget *parent = nullptr) : QWidget(parent)
    {
        TMemProxy::setNamedAddress(address);
    }
    ~Probe() override { leaveMemory(); }

    void connectMemAPI() override
    {
        if (onConnect)
            onConnect();
        if (memAPIReady() && isAttached())
            memAPI()->attachProxy(this, packed(), 0);
    }
    void disconnectMemAPI() override
    {
        if (isAttached() && memAPIReady())
            memAPI()->detachProxy(this, packed());
        setAttached(false);
    }
    void process(const Q_UINT8 *given, int operation, Q_UINT32) override
    {
        if (operation == Copy) {
            auto *stream = reinterpret_cast<QDataStream *>(const_cast<Q_UINT8 *>(given));
            const TParamInfoWriter writer(*this, stored(), stream, -1);
            return;
        }
        if (given) {
            reading = qFromBigEndian<quint32>(given);
            ++readings;
        } else {
            ++calls;
            seen = stored();
        }
        // A copy: the function may destroy this control.
        if (const auto then = onProcess)
            then();
    }
    int stored() const { return memAPI()->readValue(group, index, element, 0, 0); }
    bool autoUndoDisabled() const override { return recordedByOwner; }
    bool bindsWithoutAddress() const override { return servedAnyway; }

    int take() { return calls.exchange(0); }

    std::function<void()> onConnect;
    std::function<void()> onProcess;
    std::atomic<int> calls{0};
    int seen = 0;
    std::atomic<int> readings{0};
    std::atomic<quint32> reading{0}; ///< the four bytes, the first one highest
    bool recordedByOwner = false;
    bool servedAnyway = false;
};

/// A memory with the built-in model, and short ways to use it.
class Rig
{
public:
    Rig() { loaded = memory->load(ParameterMemory::builtInModel(), &error); }

    /// Binds and delivers what that causes.
    void bind(Probe &probe, int element = 0)
    {
        memory->bindProxy(&probe, element);
        turn();
        probe.take();
    }
    /// One delivery of what is waiting.
    static void turn() { QCoreApplication::sendPostedEvents(); }

    int read(const char *name, int element = 0) const
    {
        const auto at = address(name, element);
        return memory->readValue(at.group, at.index, at.element, 0, 0);
    }
    int write(const char *name, int element, int value) const
    {
        const auto at = address(name, element);
        return memory->writeValue(at.group, at.index, at.element, value, 0);
    }
    /// A write as a control makes it.
    void edit(Probe &probe, int value) const
    {
        const TMemOriginHelper origin(memory.get(), &probe);
        memory->writeValue(probe.group, probe.index, probe.element, value, memory->undoToken(0, 1));
    }
    IMemAPI::TSingleBaseAddress address(const char *name, int element = 0) const
    {
        IMemAPI::TSingleBaseAddress found{-1, -1, -1};
        memory->resolve(QLatin1String(name), element, found);
        return found;
    }

    QString error;
    bool loaded = false;
    std::unique_ptr<ParameterMemory> memory = std::make_unique<ParameterMemory>();
};
