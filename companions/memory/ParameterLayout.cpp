// SPDX-License-Identifier: MIT
#include "companions/memory/ParameterLayout.h"

#include "companions/memory/ConsoleModel.h"

#include <QCryptographicHash>
#include <QList>

namespace {

using Parameters = std::vector<ParameterLayout::Parameter>;

Parameters parametersOf(const ConsoleModel &model)
{
    Parameters parameters;
    parameters.reserve(model.parameters().size());
    for (const ConsoleModel::Parameter &each : model.parameters())
        parameters.push_back(
            {model.addressOf(each), model.groupOf(each), each.index, each.elements});
    return parameters;
}

QByteArray describe(const Parameters &parameters)
{
    QByteArray text;
    for (const ParameterLayout::Parameter &each : parameters) {
        text += each.name.toUtf8() + ' ' + QByteArray::number(each.group) + ' '
                + QByteArray::number(each.index) + ' ' + QByteArray::number(each.elements) + '\n';
    }
    return text;
}

/// A number from `lowest` to below `end`.
std::optional<int> numberFrom(const QByteArray &word, int lowest, int end)
{
    bool valid = false;
    const int number = word.toInt(&valid);
    return valid && number >= lowest && number < end ? std::optional(number) : std::nullopt;
}

std::optional<ParameterLayout::Parameter> parameterFrom(const QByteArray &line)
{
    const QList<QByteArray> words = line.split(' ');
    if (words.size() != 4 || words[0].isEmpty())
        return {};
    const auto group = numberFrom(words[1], 0, ConsoleModel::GroupCount);
    const auto index = numberFrom(words[2], 0, ConsoleModel::IndexCount);
    const auto elements = numberFrom(words[3], 1, ConsoleModel::ElementCount + 1);
    if (!group || !index || !elements)
        return {};
    return ParameterLayout::Parameter{QString::fromUtf8(words[0]), *group, *index, *elements};
}

} // namespace

ParameterLayout::ParameterLayout(const ConsoleModel &model) : ParameterLayout(parametersOf(model))
{
}

ParameterLayout::ParameterLayout(std::vector<Parameter> parameters)
    : m_parameters(std::move(parameters)), m_description(describe(m_parameters)),
      m_fingerprint(QCryptographicHash::hash(m_description, QCryptographicHash::Sha256))
{
    for (const Parameter &each : m_parameters)
        m_valueCount += static_cast<size_t>(each.elements);
}

std::optional<ParameterLayout> ParameterLayout::fromDescription(const QByteArray &description)
{
    if (!description.isEmpty() && !description.endsWith('\n'))
        return {};
    QList<QByteArray> lines = description.split('\n');
    lines.removeLast();
    Parameters parameters;
    for (const QByteArray &line : lines) {
        auto parameter = parameterFrom(line);
        if (!parameter)
            return {};
        parameters.push_back(*std::move(parameter));
    }
    return ParameterLayout(std::move(parameters));
}
