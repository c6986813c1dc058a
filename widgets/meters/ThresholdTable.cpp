// SPDX-License-Identifier: MIT
#include "widgets/meters/ThresholdTable.h"

#include <algorithm>

ThresholdTable::ThresholdTable()
{
    replace({}, 0);
}

ThresholdTable::~ThresholdTable() = default;

void ThresholdTable::replace(const std::vector<unsigned short> &codes, int searched)
{
    const auto end = codes.begin() + std::clamp(searched, 0, static_cast<int>(codes.size()));
    m_all.push_back(std::make_unique<const Codes>(codes.begin(), end));
    m_codes.store(m_all.back().get(), std::memory_order_release);
}

void ThresholdTable::dropReplaced()
{
    m_all.erase(m_all.begin(), m_all.end() - 1);
}

int ThresholdTable::countUpTo(unsigned short code) const
{
    const Codes &codes = *m_codes.load(std::memory_order_acquire);
    return static_cast<int>(std::upper_bound(codes.begin(), codes.end(), code) - codes.begin());
}
