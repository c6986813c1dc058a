// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaMethod>
#include <QObject>

/// The method of an object that a SLOT() or SIGNAL() text means, with or without the leading code
/// digit, white space being ignored. Invalid when the object has no such method.
inline QMetaMethod methodFromText(const QObject &object, const char *text)
{
    if (*text >= '0' && *text <= '9')
        ++text;
    const QByteArray signature = QMetaObject::normalizedSignature(text);
    return object.metaObject()->method(object.metaObject()->indexOfMethod(signature));
}
