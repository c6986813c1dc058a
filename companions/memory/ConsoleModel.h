// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/TextTable.h"
#include "interfaces/Export.h"

#include <QHash>
#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>
#include <vector>

/// A console as a description: its blocks of parameters with their ranges, defaults and names, the
/// text tables, the meter tables and the preferences it starts with. Read from a JSON file and
/// complete, or not there at all; unchanged afterwards.
class CONSOLECOMPANIONS_EXPORT ConsoleModel
{
public:
    /// Bounds of addresses: groups, indexes and elements count from 0 to one less.
    static constexpr int GroupCount = 1024;
    /// See GroupCount.
    static constexpr int IndexCount = 2048;
    /// See GroupCount.
    static constexpr int ElementCount = 2048;

    /// What belongs together in the console: the first part of an address.
    struct Block
    {
        QString name;  ///< in addresses: "kInputEQ"
        QString label; ///< for people: "Input"
        int group = 0; ///< 0 to GroupCount - 1
    };

    /// One parameter of every element of its block. Values are as stored.
    struct Parameter
    {
        int block = 0;                 ///< place of its block in blocks()
        int index = 0;                 ///< 0 to IndexCount - 1
        int elements = 1;              ///< channels or units; 1 to ElementCount
        int minimum = 0;               ///< lowest value, of all elements
        int maximum = 0;               ///< highest value, not below the minimum
        int defaultValue = 0;          ///< of element 0
        int defaultStep = 0;           ///< what the default grows by from element to element
        std::optional<int> altDefault; ///< the alternative default, of all elements
        int textTable = 0;             ///< 0: none
        std::vector<int> detents;      ///< where steps stop, ascending; empty: everywhere
        QString name;                  ///< in addresses: "kLowGain"
        QString label;                 ///< for people: "EQ Low Gain"

        /// The default of an element.
        int defaultOf(int element) const { return defaultValue + element * defaultStep; }
        /// How many positions a text table needs for it; they count from the minimum where that is
        /// negative, else from 0.
        qint64 positions() const
        {
            return static_cast<qint64>(maximum) - (minimum < 0 ? minimum : 0) + 1;
        }
    };

    /// Reads a model file. Nothing, and one line in `error` (file, place in the JSON, reason), when
    /// it cannot be read or anything in it is not as it must be.
    static std::optional<ConsoleModel> read(const QString &fileName, QString *error = nullptr);
    /// The same for the contents of a file; `fileName` only serves the error text.
    static std::optional<ConsoleModel> parse(const QByteArray &json, const QString &fileName,
                                             QString *error = nullptr);

    /// What the model calls itself.
    const QString &name() const { return m_name; }
    /// In the order of the file; so are the parameters.
    const std::vector<Block> &blocks() const { return m_blocks; }
    /// All of all blocks.
    const std::vector<Parameter> &parameters() const { return m_parameters; }

    /// The block that a parameter of this model belongs to.
    const Block &blockOf(const Parameter &parameter) const { return m_blocks[parameter.block]; }
    /// The group under which a parameter of this model is addressed.
    int groupOf(const Parameter &parameter) const { return blockOf(parameter).group; }
    /// "block/parameter".
    QString addressOf(const Parameter &parameter) const;
    /// "Input 12 EQ Low Gain"; elements count from 1 for people, a single one is not counted.
    QString labelOf(const Parameter &parameter, int element) const;

    /// Null when there is no table with that number.
    const TextTable *textTable(int id) const;
    /// Level codes, ascending; null when there is no table with that number.
    const std::vector<quint16> *meterTable(int number) const;
    /// What the numbered preferences begin with.
    const QHash<int, QVariant> &preferences() const { return m_preferences; }

private:
    friend class ModelReader;

    QString m_name;
    std::vector<Block> m_blocks;
    std::vector<Parameter> m_parameters;
    QMap<int, TextTable> m_textTables;
    QMap<int, std::vector<quint16>> m_meterTables;
    QHash<int, QVariant> m_preferences;
};
