// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QSqlError;

/// Why an operation on a scene library failed: thrown inside of it, told as text outside.
struct SceneFault
{
    enum Kind { Refused, CannotWrite, InUse, Other };

    QString message; ///< one line, for the operator
    Kind kind = Refused;

    /// What the database complains of, in words.
    static SceneFault from(const QSqlError &error, const QString &fileName);
};
