// SPDX-License-Identifier: MIT
#pragma once

#include "companions/memory/TestedExport.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IParameterNames.h"

#include <QHash>
#include <QList>
#include <QString>

class ConsoleModel;

/// Finds the addresses that names mean, and the names that misspelt ones may have meant.
///
/// A name is `[UU]block/parameter`. UU, two upper-case hexadecimal digits, is the element; FE
/// there, or nothing, stands for the element that the caller gives. Several names in a list,
/// separated by ";", serve the kinds of channel one after the other, and the element given is then
/// a channel: the first name takes the channels from 0 up to the size of its parameter, every
/// further one is led by two more hexadecimal digits, the number of channels that it takes.
class CONSOLECOMPANIONS_TESTED NameIndex
{
public:
    using Outcome = IParameterNames::Outcome;
    using enum IParameterNames::Outcome;

    struct Result
    {
        Outcome outcome = UnknownName;
        /// Without meaning for UnknownName; all -1 for a channel beyond a list.
        IMemAPI::TSingleBaseAddress address;
        QString culprit; ///< for UnknownName: the name that is not known
    };

    NameIndex() = default;
    explicit NameIndex(const ConsoleModel &model);

    Result resolve(const QString &names, int element) const;

    /// The addresses that the names of a list stand for, each with the channels that it serves;
    /// element 0 is the first channel's. Ends at the first name that is not known.
    QList<IMemAPI::TSingleAddress> channelRanges(const QString &names) const;

    /// The known name that takes the fewest edits to reach from `name`; empty for one that is far
    /// longer than any name.
    QString nearest(const QString &name) const;
    /// Empty when there is no such parameter.
    QString nameOf(int group, int index) const;

private:
    struct Target
    {
        int group = 0;
        int index = 0;
        int elements = 0;
    };
    struct Entry;

    Entry entryFor(QStringView name) const;
    Result resolveEntry(const Entry &entry, int element) const;

    QHash<QString, Target> m_targets;
    QHash<std::pair<int, int>, QString> m_names;
};
