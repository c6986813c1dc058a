// SPDX-License-Identifier: MIT
#include "widgets/forms/FormFinding.h"

#include <QCoreApplication>
#include <QStringList>

QString FormFinding::kindName() const
{
    static const char *const names[] = {"unreadable",    "class",      "property", "picture",
                                        "rows",          "list",       "address",  "name",
                                        "accessibility", "connection", "contents"};
    return QLatin1StringView(names[kind]);
}

QString FormFinding::text() const
{
    const auto tr = [](const char *source) {
        return QCoreApplication::translate("FormLoader", source);
    };
    QStringList place;
    if (!widget.isEmpty() || !property.isEmpty())
        place << tr("widget '%1'").arg(widget);
    if (!property.isEmpty())
        place << tr("property '%1'").arg(property);
    QString text = place.isEmpty() ? reason : place.join(", ") + ": " + reason;
    if (!nearest.isEmpty())
        text += tr("; the nearest is \"%1\"").arg(nearest);
    return text;
}

QString FormFinding::located() const
{
    const QString place = line > 0 ? QString("%1:%2: ").arg(file).arg(line) : file + ": ";
    return place + text();
}
