// SPDX-License-Identifier: MIT
#include "widgets/lists/GridNumbering.h"

#include "widgets/lists/GridText.h"

#include <QRegularExpression>

void GridNumbering::removeFieldRange(int from, int to)
{
    const auto count =
        static_cast<qint16>(static_cast<unsigned>(to) - static_cast<unsigned>(from) + 1);
    if (count != 0)
        m_removed.push_back({static_cast<quint16>(from), count});
}

int GridNumbering::fieldToValue(int field) const
{
    int sum = 0;
    for (const RemovedRange &range : m_removed) {
        sum += range.count;
        if (range.start <= field)
            return field + sum;
    }
    return field;
}

void GridNumbering::addBitOrder(QStringView text)
{
    gridtext::forEachItem(text, u';', [this](QStringView item) {
        BitOrder order;
        if (readBitOrder(item, order))
            m_bitOrders.push_back(order);
        return true;
    });
}

bool GridNumbering::isBitOrder(QStringView item)
{
    BitOrder order;
    return readBitOrder(item, order);
}

/// False when the item is not one.
bool GridNumbering::readBitOrder(QStringView item, BitOrder &order)
{
    static const QRegularExpression channels(QStringLiteral(R"(^\d+,\d+)"));
    std::vector<QStringView> parts;
    gridtext::forEachItem(item, u':', [&](QStringView part) {
        parts.push_back(part);
        return parts.size() <= 2;
    });
    if (parts.size() != 2 || !channels.match(parts[0].toString()).hasMatch())
        return false;
    const QList<QStringView> ends = parts[0].split(u',');
    bool first = false;
    bool last = false;
    order.firstChannel = ends[0].toInt(&first);
    order.lastChannel = ends[1].toInt(&last);
    if (ends.size() != 2 || !first || !last)
        return false;
    int field = 0;
    gridtext::forEachItem(parts[1], u',', [&](QStringView position) {
        order.positions[field] = gridtext::numberOr(position, 0, Bits - 1, field);
        return ++field < Bits;
    });
    for (; field < Bits; ++field)
        order.positions[field] = field;
    return true;
}

quint32 GridNumbering::getMemApiBitMask(int channel, int field) const
{
    int position = field;
    for (const BitOrder &order : m_bitOrders) {
        if (channel < order.firstChannel || channel > order.lastChannel)
            continue;
        if (field >= 0 && field < Bits)
            position = order.positions[field];
        break;
    }
    const auto bit = static_cast<unsigned>(m_groupIndexStart) + static_cast<unsigned>(position) - 1;
    return quint32(1) << (bit % Bits);
}

void GridNumbering::swapChannels(unsigned a, unsigned b, unsigned c, unsigned d)
{
    m_forward[a] = c;
    m_forward[c] = a;
    m_reverse[b] = d;
    m_reverse[d] = b;
}

unsigned GridNumbering::remapSwapValues(unsigned number, bool forward) const
{
    const QHash<unsigned, unsigned> &map = forward ? m_forward : m_reverse;
    return map.value(number, number);
}
