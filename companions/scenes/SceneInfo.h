// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

/// What a list of scenes tells of a slot.
struct SceneInfo
{
    QString title;    ///< of an empty slot: empty
    QDateTime stored; ///< UTC
    bool hasData = false;
    bool isProtected = false; ///< by the operator, who may take it off again
    bool isReadOnly = false;  ///< for good
};
