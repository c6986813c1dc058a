// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ConsoleModel.h"
#include "companions/memory/JsonCursor.h"

#include <QSet>

/// Reads a console model from JSON and checks every number, name and cross-reference in it. Throws
/// JsonFault at the first thing that is wrong. One reader reads one model.
class ModelReader
{
public:
    ConsoleModel read(const QByteArray &json);

private:
    void readTextTable(const JsonCursor &at);
    void readMeterTable(const JsonCursor &at);
    void readPreferences(const JsonCursor &at);
    void readBlock(const JsonCursor &at);
    void readParameter(const JsonCursor &at, int blockElements);
    void readDefaults(const JsonCursor &at, ConsoleModel::Parameter &parameter);
    void readDetents(const JsonCursor &at, ConsoleModel::Parameter &parameter);
    void readTextReference(const JsonCursor &at, ConsoleModel::Parameter &parameter);
    void claimAddress(const JsonCursor &at, const ConsoleModel::Parameter &parameter);

    ConsoleModel m_model;
    QSet<QString> m_blockNames;
    QSet<QString> m_addresses;
    QHash<std::pair<int, int>, QString> m_numbers; ///< (group, index) to the path that took it
};
