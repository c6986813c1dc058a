// SPDX-License-Identifier: MIT
#include "companions/memory/ModelReader.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int MostDecimals = 6;
constexpr int MostSteps = 1 << 20;
constexpr int MostMeterCode = (1 << 14) - 1;

QJsonDocument documentFrom(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        const qsizetype line = json.left(error.offset).count('\n') + 1;
        throw JsonFault{QStringLiteral("line %1, byte %2: %3")
                            .arg(line)
                            .arg(error.offset)
                            .arg(error.errorString())};
    }
    return document;
}

QString optionalText(const JsonCursor &at, QLatin1StringView key, const QString &otherwise = {})
{
    const auto member = at.find(key);
    return member ? member->text() : otherwise;
}

/// A name as it stands in addresses.
QString addressName(const JsonCursor &at)
{
    static const QRegularExpression valid(QStringLiteral("\\A[a-z][A-Za-z0-9_]*\\z"));
    const QString name = at.text();
    if (!valid.match(name).hasMatch())
        at.fail(QStringLiteral("\"%1\" is no name: a lower-case letter, then letters, digits and "
                               "underscores")
                    .arg(name));
    return name;
}

TextTable::Kind listFrom(const JsonCursor &at)
{
    at.expectKeys({"id"_L1, "kind"_L1, "texts"_L1});
    TextTable::List list;
    for (const JsonCursor &text : at["texts"_L1].items())
        list.texts.append(text.text());
    if (list.texts.isEmpty())
        at["texts"_L1].fail(QStringLiteral("at least one text is needed"));
    return list;
}

TextTable::Kind linearFrom(const JsonCursor &at)
{
    at.expectKeys({"id"_L1, "kind"_L1, "first"_L1, "scale"_L1, "decimals"_L1, "unit"_L1, "minus"_L1,
                   "plus"_L1, "zero"_L1, "lowest"_L1});
    TextTable::Linear table;
    table.first = at["first"_L1].number();
    table.scale = at["scale"_L1].number();
    if (table.scale <= 0)
        at["scale"_L1].fail(QStringLiteral("a number above 0 is needed"));
    table.decimals = at["decimals"_L1].integer(0, MostDecimals);
    table.unit = optionalText(at, "unit"_L1);
    table.minus = optionalText(at, "minus"_L1, table.minus);
    table.plus = optionalText(at, "plus"_L1);
    table.zero = optionalText(at, "zero"_L1);
    table.lowest = optionalText(at, "lowest"_L1);
    return table;
}

TextTable::Kind logarithmicFrom(const JsonCursor &at)
{
    at.expectKeys(
        {"id"_L1, "kind"_L1, "first"_L1, "last"_L1, "steps"_L1, "unit"_L1, "kiloUnit"_L1});
    TextTable::Logarithmic table;
    table.first = at["first"_L1].number();
    if (table.first <= 0)
        at["first"_L1].fail(QStringLiteral("a number above 0 is needed"));
    table.last = at["last"_L1].number();
    if (table.last <= table.first)
        at["last"_L1].fail(QStringLiteral("a number above \"first\" is needed"));
    table.steps = at["steps"_L1].integer(2, MostSteps);
    table.unit = optionalText(at, "unit"_L1);
    table.kiloUnit = optionalText(at, "kiloUnit"_L1);
    return table;
}

TextTable::Kind tableKind(const JsonCursor &at)
{
    const QString kind = at["kind"_L1].text();
    if (kind == "list"_L1)
        return listFrom(at);
    if (kind == "linear"_L1)
        return linearFrom(at);
    if (kind == "logarithmic"_L1)
        return logarithmicFrom(at);
    at["kind"_L1].fail(
        QStringLiteral("\"%1\" is no kind of table: list, linear or logarithmic").arg(kind));
}

} // namespace

ConsoleModel ModelReader::read(const QByteArray &json)
{
    const QJsonDocument document = documentFrom(json);
    if (!document.isObject())
        throw JsonFault{QStringLiteral("an object is needed")};
    const JsonCursor root{document.object()};
    root.expectKeys({"name"_L1, "tables"_L1, "meterTables"_L1, "preferences"_L1, "blocks"_L1});

    m_model.m_name = optionalText(root, "name"_L1);
    if (const auto tables = root.find("tables"_L1))
        for (const JsonCursor &table : tables->items())
            readTextTable(table);
    if (const auto tables = root.find("meterTables"_L1))
        for (const JsonCursor &table : tables->items())
            readMeterTable(table);
    if (const auto preferences = root.find("preferences"_L1))
        readPreferences(*preferences);
    for (const JsonCursor &block : root["blocks"_L1].items())
        readBlock(block);
    return std::move(m_model);
}

void ModelReader::readTextTable(const JsonCursor &at)
{
    const int id = at["id"_L1].integer(1);
    if (m_model.m_textTables.contains(id))
        at["id"_L1].fail(QStringLiteral("there is a table %1 already").arg(id));
    m_model.m_textTables.insert(id, TextTable(tableKind(at)));
}

void ModelReader::readMeterTable(const JsonCursor &at)
{
    at.expectKeys({"number"_L1, "codes"_L1});
    const int number = at["number"_L1].integer(1);
    if (m_model.m_meterTables.contains(number))
        at["number"_L1].fail(QStringLiteral("there is a meter table %1 already").arg(number));
    std::vector<quint16> codes;
    for (const JsonCursor &item : at["codes"_L1].items()) {
        const auto code = static_cast<quint16>(item.integer(0, MostMeterCode));
        if (!codes.empty() && code <= codes.back())
            item.fail(
                QStringLiteral("codes must ascend, but %1 follows %2").arg(code).arg(codes.back()));
        codes.push_back(code);
    }
    if (codes.empty())
        at["codes"_L1].fail(QStringLiteral("at least one code is needed"));
    m_model.m_meterTables.insert(number, std::move(codes));
}

void ModelReader::readPreferences(const JsonCursor &at)
{
    for (const QString &key : at.keys()) {
        bool isNumber = false;
        const int number = key.toInt(&isNumber);
        if (!isNumber)
            at.fail(QStringLiteral("\"%1\" is no preference number").arg(key));
        m_model.m_preferences.insert(number, at[QLatin1StringView(key.toLatin1())].variant());
    }
}

void ModelReader::readBlock(const JsonCursor &at)
{
    at.expectKeys({"name"_L1, "group"_L1, "label"_L1, "elements"_L1, "parameters"_L1});
    ConsoleModel::Block block;
    block.name = addressName(at["name"_L1]);
    if (m_blockNames.contains(block.name))
        at["name"_L1].fail(QStringLiteral("there is a block \"%1\" already").arg(block.name));
    m_blockNames.insert(block.name);
    block.group = at["group"_L1].integer(0, ConsoleModel::GroupCount - 1);
    block.label = optionalText(at, "label"_L1, block.name);
    const auto elementsAt = at.find("elements"_L1);
    const int elements = elementsAt ? elementsAt->integer(1, ConsoleModel::ElementCount) : 1;
    m_model.m_blocks.push_back(std::move(block));
    for (const JsonCursor &parameter : at["parameters"_L1].items())
        readParameter(parameter, elements);
}

void ModelReader::readParameter(const JsonCursor &at, int blockElements)
{
    at.expectKeys({"name"_L1, "index"_L1, "elements"_L1, "min"_L1, "max"_L1, "default"_L1,
                   "defaultStep"_L1, "altDefault"_L1, "text"_L1, "detents"_L1, "label"_L1});
    ConsoleModel::Parameter parameter;
    parameter.block = static_cast<int>(m_model.m_blocks.size()) - 1;
    parameter.name = addressName(at["name"_L1]);
    parameter.index = at["index"_L1].integer(0, ConsoleModel::IndexCount - 1);
    const auto elements = at.find("elements"_L1);
    parameter.elements =
        elements ? elements->integer(1, ConsoleModel::ElementCount) : blockElements;
    parameter.minimum = at["min"_L1].integer();
    parameter.maximum = at["max"_L1].integer();
    if (parameter.maximum < parameter.minimum)
        at["max"_L1].fail(QStringLiteral("%1 is below the minimum %2")
                              .arg(parameter.maximum)
                              .arg(parameter.minimum));
    readDefaults(at, parameter);
    readTextReference(at, parameter);
    readDetents(at, parameter);
    parameter.label = optionalText(at, "label"_L1, parameter.name);
    claimAddress(at, parameter);
    m_model.m_parameters.push_back(std::move(parameter));
}

void ModelReader::readDefaults(const JsonCursor &at, ConsoleModel::Parameter &parameter)
{
    const int minimum = parameter.minimum;
    const int maximum = parameter.maximum;
    parameter.defaultValue = at["default"_L1].integer(minimum, maximum);
    if (const auto alternative = at.find("altDefault"_L1))
        parameter.altDefault = alternative->integer(minimum, maximum);
    const auto step = at.find("defaultStep"_L1);
    if (!step)
        return;
    parameter.defaultStep = step->integer();
    const qint64 last = parameter.defaultValue
                        + static_cast<qint64>(parameter.elements - 1) * parameter.defaultStep;
    if (last < minimum || last > maximum)
        step->fail(QStringLiteral("the last element's default, %1, is not within %2 and %3")
                       .arg(last)
                       .arg(minimum)
                       .arg(maximum));
}

void ModelReader::readTextReference(const JsonCursor &at, ConsoleModel::Parameter &parameter)
{
    const auto text = at.find("text"_L1);
    if (!text)
        return;
    parameter.textTable = text->integer(1);
    const auto table = m_model.m_textTables.find(parameter.textTable);
    if (table == m_model.m_textTables.end())
        text->fail(QStringLiteral("there is no table %1").arg(parameter.textTable));
    table->requirePositions(parameter.positions());
}

void ModelReader::readDetents(const JsonCursor &at, ConsoleModel::Parameter &parameter)
{
    const auto detents = at.find("detents"_L1);
    if (!detents)
        return;
    for (const JsonCursor &item : detents->items()) {
        const int detent = item.integer(parameter.minimum, parameter.maximum);
        if (!parameter.detents.empty() && detent <= parameter.detents.back())
            item.fail(QStringLiteral("detents must ascend, but %1 follows %2")
                          .arg(detent)
                          .arg(parameter.detents.back()));
        parameter.detents.push_back(detent);
    }
}

void ModelReader::claimAddress(const JsonCursor &at, const ConsoleModel::Parameter &parameter)
{
    const QString address = m_model.addressOf(parameter);
    if (m_addresses.contains(address))
        at["name"_L1].fail(QStringLiteral("there is a parameter \"%1\" already").arg(address));
    m_addresses.insert(address);
    const std::pair number{m_model.groupOf(parameter), parameter.index};
    const auto taken = m_numbers.constFind(number);
    if (taken != m_numbers.constEnd())
        at["index"_L1].fail(QStringLiteral("group %1, index %2 belongs to %3 already")
                                .arg(number.first)
                                .arg(number.second)
                                .arg(*taken));
    m_numbers.insert(number, at.path());
}
