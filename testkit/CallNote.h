// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <algorithm>

/// Calls of a memory as text, and which of them a test asks for.
namespace callnote {

/// "readValue 3 7 2"
template<class... Numbers>
QString line(const char *what, Numbers... numbers)
{
    QStringList words{QString::fromLatin1(what)};
    (words.append(QString::number(numbers)), ...);
    return words.join(u' ');
}

/// "writeValue 3 7 2 = 40 token 9"
inline QString write(int group, int index, int element, int value, int token)
{
    return line("writeValue", group, index, element) + line(" =", value) + line(" token", token);
}

/// Those that begin with one of the words.
inline QStringList filter(QStringList calls, const QStringList &words)
{
    calls.removeIf([&](const QString &call) {
        return std::none_of(words.begin(), words.end(),
                            [&](const QString &word) { return call.startsWith(word); });
    });
    return calls;
}

} // namespace callnote
