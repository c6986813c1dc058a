// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/ConsoleModel.h"
#include "interfaces/IMemAPI.h"

/// Between a parameter's values and what the operator reads, types and steps through. GUI thread.
class ParameterText
{
public:
    /// Table numbers with a meaning of their own.
    enum TableId { OwnTable = 0, OnOffTable = -3 };

    /// The model must outlive this.
    explicit ParameterText(const ConsoleModel &model);

    /// See IMemAPI::valueText(). `parameter` may be null.
    QString text(const ConsoleModel::Parameter *parameter, int tableId, int value,
                 bool onOffFive) const;
    /// See IMemAPI::numberToValue(). `parameter` is the one whose table and bounds count where
    /// `tableId` names no table; it may be null.
    int value(const ConsoleModel::Parameter *parameter, int tableId, double number) const;
    /// See IMemAPI::stepValue().
    static int step(const ConsoleModel::Parameter &parameter, int value, IMemAPI::Step step);

private:
    const TextTable *tableFor(const ConsoleModel::Parameter *parameter, int tableId) const;

    const ConsoleModel &m_model;
    std::vector<const TextTable *> m_ownTables; ///< by number of the parameter
};
