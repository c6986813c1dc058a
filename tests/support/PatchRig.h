// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ParameterMemory.h"

#include <QCoreApplication>
#include <QTest>
#include <QWidget>

/// The built-in console, with ways to patch its inputs: 16 units of 8 head amps each, whose ports are
/// the sources 1 to 128; at first input n is patched to source n.
struct PatchRig
{
    PatchRig() { loaded = memory.load(ParameterMemory::builtInModel()); }

    template<class Control>
    void bind(Control &control, const QString &name, int element)
    {
        QVERIFY(loaded);
        control.setNamedAddress(name);
        memory.bindProxy(&control, element);
        QCoreApplication::processEvents();
    }
    IMemAPI::TSingleBaseAddress at(const QString &name, int element) const
    {
        IMemAPI::TSingleBaseAddress address{-1, -1, -1};
        memory.resolve(name, element, address);
        return address;
    }
    void set(const QString &name, int element, int value)
    {
        const IMemAPI::TSingleBaseAddress to = at(name, element);
        memory.writeValue(to.group, to.index, to.element, value, 0);
        QCoreApplication::processEvents();
    }
    int get(const QString &name, int element) const
    {
        const IMemAPI::TSingleBaseAddress from = at(name, element);
        return memory.readValue(from.group, from.index, from.element, 0, 0);
    }
    void patch(int input, int source)
    {
        set(QStringLiteral("kPatchInInput/kPatchIn"), input, source);
    }
    /// Phantom power of the port with that source number.
    int phantom(int source) const { return get(QStringLiteral("kHeadAmp/k48V"), source - 1); }
    void setPhantom(int source, int value)
    {
        set(QStringLiteral("kHeadAmp/k48V"), source - 1, value);
    }

    ParameterMemory memory;
    bool loaded = false;
    QWidget window;
};
