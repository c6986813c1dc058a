// SPDX-License-Identifier: MIT
#include "widgets/lists/GridMemory.h"

#include "interfaces/TMemProxy.h"

#include <algorithm>

namespace {
constexpr int BitsOfValue = 32;
} // namespace

/// Switches beyond the bits of a number are nobody's: they are not read, and never written.
int GridMemory::lengthOfRun() const
{
    return std::min(m_switches, BitsOfValue);
}

int GridMemory::readSingle(const Address &at, int offset) const
{
    return m_memory->readValue(at.group, at.index + offset, at.element, 0, 0);
}

int GridMemory::getBitParam(const Address &at, quint32 bits) const
{
    if (!m_memory)
        return 0;
    if (m_switches == 0)
        return readSingle(at, 0);
    quint32 value = 0;
    for (int bit = lengthOfRun() - 1; bit >= 0; --bit) {
        const bool wanted = bits >> bit & 1;
        value = value * 2 + (wanted && readSingle(at, bit) != 0 ? 1 : 0);
    }
    return static_cast<int>(value);
}

int GridMemory::setBitParam(TMemProxy &proxy, const Address &at, int value) const
{
    if (!m_memory)
        return IMemAPI::Failed;
    const TMemOriginHelper origin(m_memory, &proxy);
    if (m_switches == 0)
        return m_memory->writeValue(at.group, at.index, at.element, value,
                                    m_memory->undoToken(0, 1));
    for (int bit = 0; bit < lengthOfRun(); ++bit) {
        const int on = static_cast<quint32>(value) >> bit & 1;
        const int token = m_memory->undoToken(0, 1);
        const int result = m_memory->writeValue(at.group, at.index + bit, at.element, on, token);
        if (result != 0)
            return result;
    }
    return IMemAPI::Ok;
}

void GridMemory::note(IUndoRecord &record, int key, const Address &at) const
{
    if (!m_memory)
        return;
    for (int bit = 0; bit < std::max(1, lengthOfRun()); ++bit)
        record.add(
            key, {at.group, at.element, static_cast<qint16>(at.index + bit), readSingle(at, bit)});
}
