// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QString>

#include <limits>
#include <optional>

/// Thrown inside the model reader, caught by it: what is wrong with the file, as "path: reason".
struct JsonFault
{
    QString message;
};

/// A place in a JSON document that knows its own path, so that whatever is wrong there can be said
/// with the place: "blocks[3].parameters[0].min: a whole number is needed". Everything here throws
/// JsonFault on a value of the wrong kind.
class JsonCursor
{
public:
    explicit JsonCursor(QJsonValue value, QString path = {});

    const QString &path() const { return m_path; }
    [[noreturn]] void fail(const QString &reason) const;

    /// A member of an object, which must be there.
    JsonCursor operator[](QLatin1StringView key) const;
    /// A member of an object, if it is there.
    std::optional<JsonCursor> find(QLatin1StringView key) const;
    /// Fails when the object has a member with a key that is not among these.
    void expectKeys(std::initializer_list<QLatin1StringView> keys) const;
    QStringList keys() const;

    /// The elements of an array.
    QList<JsonCursor> items() const;

    int integer(int least = std::numeric_limits<int>::min(),
                int most = std::numeric_limits<int>::max()) const;
    double number() const;
    QString text() const;
    QVariant variant() const { return m_value.toVariant(); }

private:
    QJsonValue m_value;
    QString m_path;
};
