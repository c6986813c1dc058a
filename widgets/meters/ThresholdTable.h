// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <atomic>
#include <memory>
#include <vector>

/// Level codes in ascending order that a delivering thread searches while the main thread may put
/// others in their place. What was replaced is kept until nobody can be searching it any more.
class CONSOLEWIDGETS_TESTED ThresholdTable
{
public:
    ThresholdTable();
    ~ThresholdTable();

    /// From now on the first `searched` of `codes` are searched, all of them at most. Main thread.
    void replace(const std::vector<unsigned short> &codes, int searched);
    /// Frees what was replaced: when no other thread delivers. Main thread.
    void dropReplaced();

    /// How many of the searched codes are at or below `code`. Any thread.
    int countUpTo(unsigned short code) const;

private:
    using Codes = std::vector<unsigned short>;

    std::vector<std::unique_ptr<const Codes>> m_all; ///< the last one is in use
    std::atomic<const Codes *> m_codes;
};
