// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/lists/GridMemory.h"
#include "widgets/lists/GridNumbering.h"

#include <QHash>
#include <QList>

#include <optional>

/// What a grid's storage layouts know about it, and share.
struct GridAddressing
{
    using Address = GridMemory::Address;
    using Addresses = QList<IMemAPI::TSingleAddress>;

    /// `own` are the addresses of the proxy, which outlives this.
    explicit GridAddressing(const Addresses &own) : channelAddresses(own) {}

    /// The value that stands for channel 0 in a group's parameters, where fields name channels.
    int offset(int group, int value, bool ignoreAlternate) const;
    /// The same for a channel as it is written.
    int valueOfChannel(int group, int channel) const;
    /// The record of a channel and its element there; null when there is none.
    const IMemAPI::TSingleAddress *lookupAddress(int channel, qint16 *element) const;
    std::optional<Address> addressOfChannel(int channel) const;

    GridNumbering numbering;
    const Addresses &channelAddresses;
    Addresses fieldAddresses; ///< one per field; empty: channels have addresses
    QHash<qint16, int> offsets;
    QHash<qint16, int> alternateOffsets;
    quint16 alternateThreshold = 65535;
    int channels = 0; ///< how many the grid has
    int allField = -1;
};

/// Where a grid's connections are in the memory and what the values there mean. Fields are numbered as
/// in the memory. A parameter serves a lane of cells: all of a channel, or all of a field.
class GridStorage
{
public:
    using Address = GridMemory::Address;
    enum class Lane { Channel, Field };

    /// What a click makes of a value.
    struct Click
    {
        int value = 0;
        bool wasConnected = false;
    };

    explicit GridStorage(const GridAddressing &addressing) : m_grid(addressing) {}
    virtual ~GridStorage() = default;

    virtual Lane lane() const { return Lane::Channel; }
    /// The parameter of a cell, if there is one.
    virtual std::optional<Address> address(int channel, int) const
    {
        return m_grid.addressOfChannel(channel);
    }
    /// The bits of the value on which a cell depends.
    virtual quint32 bits(int, int) const { return GridMemory::AllBits; }
    virtual bool connects(int value, int channel, int field) const = 0;
    virtual Click click(int value, int channel, int field) const = 0;

protected:
    const GridAddressing &m_grid;
};

/// One value per channel: the number of its field plus one, or 0.
class ExclusiveStorage : public GridStorage
{
public:
    using GridStorage::GridStorage;
    bool connects(int value, int channel, int field) const override;
    Click click(int value, int channel, int field) const override;
};

/// One mask per channel with a bit per field.
class MaskStorage : public GridStorage
{
public:
    using GridStorage::GridStorage;
    quint32 bits(int channel, int field) const override;
    bool connects(int value, int channel, int field) const override;
    Click click(int value, int channel, int field) const override;
};

/// One parameter per field that names its channel.
class FieldStorage : public GridStorage
{
public:
    using GridStorage::GridStorage;
    Lane lane() const override { return Lane::Field; }
    std::optional<Address> address(int channel, int field) const override;
    bool connects(int value, int channel, int field) const override;
    Click click(int value, int channel, int field) const override;
};
