// SPDX-License-Identifier: MIT
#include "companions/memory/JsonCursor.h"

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

JsonCursor::JsonCursor(QJsonValue value, QString path)
    : m_value(std::move(value)), m_path(std::move(path))
{
}

void JsonCursor::fail(const QString &reason) const
{
    throw JsonFault{m_path.isEmpty() ? reason : m_path + QLatin1String(": ") + reason};
}

std::optional<JsonCursor> JsonCursor::find(QLatin1StringView key) const
{
    if (!m_value.isObject())
        fail(QStringLiteral("an object is needed"));
    const QJsonObject object = m_value.toObject();
    const auto member = object.constFind(key);
    if (member == object.constEnd())
        return {};
    return JsonCursor(*member, m_path.isEmpty() ? QString(key) : m_path + u'.' + key);
}

JsonCursor JsonCursor::operator[](QLatin1StringView key) const
{
    std::optional<JsonCursor> member = find(key);
    if (!member)
        fail(QStringLiteral("\"%1\" is missing").arg(key));
    return *std::move(member);
}

void JsonCursor::expectKeys(std::initializer_list<QLatin1StringView> known) const
{
    for (const QString &key : keys()) {
        if (std::find(known.begin(), known.end(), key) == known.end())
            fail(QStringLiteral("\"%1\" is not known here").arg(key));
    }
}

QStringList JsonCursor::keys() const
{
    if (!m_value.isObject())
        fail(QStringLiteral("an object is needed"));
    return m_value.toObject().keys();
}

QList<JsonCursor> JsonCursor::items() const
{
    if (!m_value.isArray())
        fail(QStringLiteral("an array is needed"));
    QList<JsonCursor> all;
    for (const QJsonValue value : m_value.toArray())
        all.append(JsonCursor(value, QStringLiteral("%1[%2]").arg(m_path).arg(all.size())));
    return all;
}

int JsonCursor::integer(int least, int most) const
{
    const double number = m_value.toDouble(std::nan(""));
    if (!m_value.isDouble() || number != std::floor(number))
        fail(QStringLiteral("a whole number is needed"));
    if (number < least || number > most)
        fail(QStringLiteral("%1 is not within %2 and %3")
                 .arg(number, 0, 'f', 0)
                 .arg(least)
                 .arg(most));
    return static_cast<int>(number);
}

double JsonCursor::number() const
{
    if (!m_value.isDouble())
        fail(QStringLiteral("a number is needed"));
    return m_value.toDouble();
}

QString JsonCursor::text() const
{
    if (!m_value.isString())
        fail(QStringLiteral("a text is needed"));
    return m_value.toString();
}
