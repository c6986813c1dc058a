// SPDX-License-Identifier: MIT
#include "companions/memory/TextTable.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace {

constexpr double Kilo = 1000;
constexpr int SignificantDigits = 3;

template<typename... Visitors>
struct Overloaded : Visitors...
{
    using Visitors::operator()...;
};
template<typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

QString withUnit(const QString &number, const QString &unit)
{
    return unit.isEmpty() ? number : number + u' ' + unit;
}

QString linearText(const TextTable::Linear &table, qint64 position)
{
    if (position == 0 && !table.lowest.isEmpty())
        return table.lowest;
    const double number = table.first + static_cast<double>(position) * table.scale;
    const QString digits = QString::number(std::abs(number), 'f', table.decimals);
    // What rounds to nothing has no sign.
    const bool isZero = digits.toDouble() == 0;
    if (isZero && !table.zero.isEmpty())
        return table.zero;
    const QString sign = isZero ? QString() : number < 0 ? table.minus : table.plus;
    return withUnit(sign + digits, table.unit);
}

/// Three digits: "0.100", "1.25", "20.0", "12500".
QString significant(double number)
{
    const int magnitude = number > 0 ? static_cast<int>(std::floor(std::log10(number))) : 0;
    const int decimals = std::max(0, SignificantDigits - 1 - magnitude);
    const QString text = QString::number(number, 'f', decimals);
    // Rounding may have gained a digit: 9.996 is "10.0", not "10.00".
    return decimals > 0 && text.toDouble() >= std::pow(10.0, magnitude + 1)
               ? QString::number(number, 'f', decimals - 1)
               : text;
}

double logarithmicNumber(const TextTable::Logarithmic &table, qint64 position)
{
    const double fraction = static_cast<double>(position) / (table.steps - 1);
    return table.first * std::pow(table.last / table.first, fraction);
}

QString logarithmicText(const TextTable::Logarithmic &table, qint64 position)
{
    const double number = logarithmicNumber(table, position);
    // Compared as it would be shown, so that 999.7 becomes "1.00 kHz" and not "1000 Hz".
    if (table.kiloUnit.isEmpty() || std::round(number) < Kilo)
        return withUnit(significant(number), table.unit);
    return withUnit(significant(number / Kilo), table.kiloUnit);
}

std::optional<double> leadingNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^[+-]?\\d+(\\.\\d+)?"));
    const QRegularExpressionMatch match = number.match(text);
    if (!match.hasMatch())
        return {};
    return match.capturedView().toDouble();
}

} // namespace

TextTable::TextTable(Kind kind) : m_kind(std::move(kind))
{
    if (const auto *list = std::get_if<List>(&m_kind)) {
        m_kept = list->texts;
        m_positions = m_kept.size();
    } else if (const auto *logarithmic = std::get_if<Logarithmic>(&m_kind)) {
        m_positions = logarithmic->steps;
    }
}

void TextTable::requirePositions(qint64 count)
{
    if (std::holds_alternative<Linear>(m_kind))
        m_positions = std::max(m_positions, count);
}

QString TextTable::text(qint64 position) const
{
    if (position >= 0 && position < m_kept.size() && !m_kept.at(position).isNull())
        return m_kept.at(position);
    const bool endsThere = !std::holds_alternative<Linear>(m_kind) && position >= m_positions;
    if (position < 0 || endsThere)
        return {};
    const qint64 kept = std::min(m_positions, MostKeptTexts);
    if (position >= kept)
        return render(position);
    m_kept.resize(kept);
    return m_kept[position] = render(position);
}

QString TextTable::render(qint64 position) const
{
    return std::visit(
        Overloaded{[&](const List &list) { return list.texts.at(position); },
                   [&](const Linear &table) { return linearText(table, position); },
                   [&](const Logarithmic &table) { return logarithmicText(table, position); }},
        m_kind);
}

qint64 TextTable::nearestPosition(double number) const
{
    if (!std::isfinite(number))
        return 0;
    const double exact = std::visit(
        Overloaded{
            [&](const List &list) { return static_cast<double>(nearestInList(list, number)); },
            [&](const Linear &table) { return (number - table.first) / table.scale; },
            [&](const Logarithmic &table) {
                const double ratio = std::max(number, table.first) / table.first;
                return std::log(ratio) / std::log(table.last / table.first) * (table.steps - 1);
            }},
        m_kind);
    const qint64 last = m_positions > 0 ? m_positions - 1 : std::numeric_limits<int>::max();
    return std::llround(std::clamp(exact, 0.0, static_cast<double>(last)));
}

qint64 TextTable::nearestInList(const List &list, double number) const
{
    qint64 nearest = -1;
    double smallest = 0;
    for (qint64 position = 0; position < list.texts.size(); ++position) {
        const std::optional<double> own = leadingNumber(list.texts.at(position));
        if (!own)
            continue;
        const double distance = std::abs(*own - number);
        if (nearest < 0 || distance < smallest) {
            nearest = position;
            smallest = distance;
        }
    }
    const double counted = std::clamp(number, 0.0, static_cast<double>(list.texts.size() - 1));
    return nearest >= 0 ? nearest : std::llround(counted);
}
