// SPDX-License-Identifier: MIT
#include "widgets/lists/GridStorage.h"

int GridAddressing::offset(int group, int value, bool ignoreAlternate) const
{
    const auto key = static_cast<qint16>(group);
    if (!ignoreAlternate && value >= alternateThreshold) {
        const auto alternate = alternateOffsets.constFind(key);
        if (alternate != alternateOffsets.constEnd())
            return *alternate;
    }
    return offsets.value(key, 0);
}

int GridAddressing::valueOfChannel(int group, int channel) const
{
    const auto written =
        static_cast<int>(numbering.remapSwapValues(static_cast<unsigned>(channel), true));
    return static_cast<int>(static_cast<unsigned>(offset(group, written, false))
                            + static_cast<unsigned>(written));
}

const IMemAPI::TSingleAddress *GridAddressing::lookupAddress(int channel, qint16 *element) const
{
    if (channelAddresses.isEmpty() || !element)
        return nullptr;
    if (channelAddresses.size() == 1) {
        *element = static_cast<qint16>(channel);
        return &channelAddresses.first();
    }
    for (const IMemAPI::TSingleAddress &range : channelAddresses) {
        if (channel < range.firstChannel || channel >= range.firstChannel + range.channelCount)
            continue;
        // Parameters with several elements per channel.
        const int served = channels - range.firstChannel;
        const int each = served != 0 ? range.channelCount / served : 0;
        *element = static_cast<qint16>((channel - range.firstChannel) * (each != 0 ? each : 1));
        return &range;
    }
    *element = -1;
    return nullptr;
}

std::optional<GridAddressing::Address> GridAddressing::addressOfChannel(int channel) const
{
    qint16 element = -1;
    const IMemAPI::TSingleAddress *found = lookupAddress(channel, &element);
    if (!found)
        return {};
    return Address{found->group, element, found->index};
}

// One value per channel -------------------------------------------------------------------------

bool ExclusiveStorage::connects(int value, int, int field) const
{
    return value == field + 1;
}

GridStorage::Click ExclusiveStorage::click(int value, int, int field) const
{
    // Deliberate: a channel that changes its field was connected, though not to this one.
    return {value == field + 1 ? 0 : field + 1, value != 0};
}

// One mask per channel --------------------------------------------------------------------------

quint32 MaskStorage::bits(int channel, int field) const
{
    return m_grid.numbering.getMemApiBitMask(channel, field);
}

bool MaskStorage::connects(int value, int channel, int field) const
{
    return static_cast<quint32>(value) & bits(channel, field);
}

GridStorage::Click MaskStorage::click(int value, int channel, int field) const
{
    const quint32 mask = bits(channel, field);
    auto present = static_cast<quint32>(value);
    if (field != m_grid.allField) {
        if (m_grid.allField >= 0)
            present &= ~bits(channel, m_grid.allField);
    } else {
        // Deliberate: the bit counts from 0 here, whatever groupIndexStart and bit order say.
        present &= quint32(1) << (static_cast<unsigned>(m_grid.allField) % GridNumbering::Bits);
    }
    return {static_cast<int>(present ^ mask), (present & mask) != 0};
}

// One parameter per field -----------------------------------------------------------------------

std::optional<GridStorage::Address> FieldStorage::address(int, int field) const
{
    if (field < 0 || field >= m_grid.fieldAddresses.size())
        return {};
    return m_grid.fieldAddresses[field];
}

bool FieldStorage::connects(int value, int channel, int field) const
{
    return value == m_grid.valueOfChannel(m_grid.fieldAddresses[field].group, channel);
}

GridStorage::Click FieldStorage::click(int value, int channel, int field) const
{
    // Deliberate: a field that changes its channel was connected, though not to this one.
    const int own = m_grid.valueOfChannel(m_grid.fieldAddresses[field].group, channel);
    return {value != 0 && value == own ? 0 : own, value != 0};
}
