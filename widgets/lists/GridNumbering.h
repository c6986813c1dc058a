// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/TestedExport.h"

#include <QHash>
#include <QStringView>

#include <array>
#include <vector>

/// How the fields and channels of a grid are numbered in the memory: gaps in the fields' numbers, the
/// bits that stand for fields, channels that changed places.
class CONSOLEWIDGETS_TESTED GridNumbering
{
public:
    static constexpr int Bits = 32;

    /// Fields from `from` on are numbered on from behind `to`. Numbers count in 16 bits.
    void removeFieldRange(int from, int to);
    /// The number of a field.
    // Deliberate: the ranges count in the order in which they were removed; the first one that begins
    // at or below the field is the last that counts, and those before it count wherever they begin.
    int fieldToValue(int field) const;

    int groupIndexStart() const { return m_groupIndexStart; }
    void setGroupIndexStart(int bit) { m_groupIndexStart = bit; }

    /// Adds the records of a list "first channel,last channel:position,position...; ...": the bit
    /// positions of the fields from 0 on, for these channels. Positions outside 0-31 and fields without
    /// a position stand for themselves. Other items are skipped. Earlier records stay.
    void addBitOrder(QStringView text);
    /// Whether an item of such a list is a record.
    static bool isBitOrder(QStringView item);
    /// The bit of a field in a channel's mask. The first record with the channel counts.
    quint32 getMemApiBitMask(int channel, int field) const;

    /// Two channels change places: `a` and `c` where channels are written, `b` and `d` where they are
    /// read.
    void swapChannels(unsigned a, unsigned b, unsigned c, unsigned d);
    /// The number that stands for a channel, written (`forward`) or read.
    unsigned remapSwapValues(unsigned number, bool forward) const;

private:
    struct RemovedRange
    {
        quint16 start;
        qint16 count;
    };
    struct BitOrder
    {
        int firstChannel = 0;
        int lastChannel = 0;
        std::array<int, Bits> positions;
    };

    static bool readBitOrder(QStringView item, BitOrder &order);

    std::vector<RemovedRange> m_removed;
    std::vector<BitOrder> m_bitOrders;
    QHash<unsigned, unsigned> m_forward;
    QHash<unsigned, unsigned> m_reverse;
    int m_groupIndexStart = 1;
};
