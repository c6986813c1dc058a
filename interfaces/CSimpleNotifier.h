// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IMemAPI.h"

#include <QObject>

/// A subscription of one object to one further parameter: its slot is called with the value whenever
/// the parameter changes. A child of its receiver; deleting it ends the subscription. GUI thread.
class CONSOLEINTERFACES_EXPORT CSimpleNotifier : public QObject
{
public:
    /// See IMemAPI::createNotifier(). Null when nothing resolves.
    static CSimpleNotifier *Create(IMemAPI &memory, QObject *receiver, const QString &names,
                                   int selector, const char *slot, CSimpleNotifier *reuse,
                                   void *context)
    {
        return memory.createNotifier(receiver, names, selector, slot, reuse, context);
    }
    /// The same for an address in fields.
    static CSimpleNotifier *Create(IMemAPI &memory, QObject *receiver,
                                   const IMemAPI::TSingleAddress *address, int selector,
                                   const char *slot, CSimpleNotifier *reuse, void *context)
    {
        return memory.createNotifier(receiver, address, selector, slot, reuse, context);
    }

    /// The parameter's value, and writing it (with undo).
    virtual int value() const = 0;
    virtual void setValue(int value) = 0;

    /// The proxy that holds the subscription's address; selectAltAddress() on it moves the
    /// subscription to another element.
    virtual TMemProxy *valueHolder() = 0;

protected:
    using QObject::QObject;
};
