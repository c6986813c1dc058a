// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int DetentsPerPage = 5;

using Parameter = ConsoleModel::Parameter;

/// What the positions of a parameter's table count from.
qint64 origin(const Parameter *parameter)
{
    return parameter ? std::min(parameter->minimum, 0) : 0;
}

/// What the values that callers give and get count from.
qint64 callersOrigin(const Parameter *parameter, int tableId)
{
    return tableId >= 0 ? origin(parameter) : 0;
}

/// The caller's arithmetic wraps where a range is wider than an int; so does this.
int wrapped(qint64 value)
{
    return static_cast<int>(static_cast<quint32>(value));
}

int stepByDetent(const std::vector<int> &detents, int value, bool up)
{
    if (up) {
        const auto above = std::upper_bound(detents.begin(), detents.end(), value);
        return above == detents.end() ? value : *above;
    }
    const auto at = std::lower_bound(detents.begin(), detents.end(), value);
    return at == detents.begin() ? value : *std::prev(at);
}

} // namespace

ParameterText::ParameterText(const ConsoleModel &model) : m_model(model)
{
    for (const Parameter &parameter : model.parameters())
        m_ownTables.push_back(model.textTable(parameter.textTable));
}

const TextTable *ParameterText::tableFor(const Parameter *parameter, int tableId) const
{
    if (tableId > OwnTable)
        return m_model.textTable(tableId);
    if (tableId == OnOffTable || !parameter)
        return nullptr;
    return m_ownTables[static_cast<size_t>(parameter - m_model.parameters().data())];
}

QString ParameterText::text(const Parameter *parameter, int tableId, int value,
                            bool onOffFive) const
{
    static const QString on = QStringLiteral("ON");
    static const QString off = QStringLiteral("OFF");
    if (tableId == OnOffTable)
        return value == (onOffFive ? 5 : 1) ? on : off;
    const int plain = wrapped(value + callersOrigin(parameter, tableId));
    if (const TextTable *table = tableFor(parameter, tableId)) {
        const QString text = table->text(plain - origin(parameter));
        if (!text.isNull())
            return text;
    }
    return QString::number(plain);
}

int ParameterText::value(const Parameter *parameter, int tableId, double number) const
{
    // A table named by its number has its own ends; the parameter told last is not the one it is
    // for.
    if (tableId > OwnTable)
        parameter = nullptr;
    const qint64 lowest = parameter ? parameter->minimum : std::numeric_limits<int>::min();
    const qint64 highest = parameter ? parameter->maximum : std::numeric_limits<int>::max();
    qint64 plain = parameter ? lowest : 0;
    if (const TextTable *table = tableFor(parameter, tableId))
        plain = table->nearestPosition(number) + origin(parameter);
    else if (std::isfinite(number))
        plain = std::llround(std::clamp<double>(number, lowest, highest));
    return wrapped(std::clamp(plain, lowest, highest) - callersOrigin(parameter, tableId));
}

int ParameterText::step(const Parameter &parameter, int value, IMemAPI::Step step)
{
    const bool up = step == IMemAPI::LineUp || step == IMemAPI::PageUp;
    const bool page = step == IMemAPI::PageUp || step == IMemAPI::PageDown;
    qint64 stepped = value;
    if (parameter.detents.empty())
        stepped += up ? 1 : -1;
    for (int count = page ? DetentsPerPage : 1; !parameter.detents.empty() && count > 0; --count)
        stepped = stepByDetent(parameter.detents, static_cast<int>(stepped), up);
    return static_cast<int>(std::clamp<qint64>(stepped, parameter.minimum, parameter.maximum));
}
