// SPDX-License-Identifier: MIT
#include "fuzz/Mutator.h"

#include <iterator>
#include <string_view>

namespace {

constexpr int MostChanges = 6;
constexpr qsizetype LongestPiece = 64;
constexpr qsizetype LongestInput = 64 * 1024;

/// What readers of numbers and texts stumble over.
constexpr std::string_view Pitfalls[] = {"0",
                                         "-1",
                                         "1e999",
                                         "nan",
                                         "65536",
                                         "2147483648",
                                         "-2147483649",
                                         "99999999999999999999",
                                         "%s%n",
                                         "\"",
                                         "\\",
                                         "/",
                                         ";",
                                         ",",
                                         "\n",
                                         "\xff\xff\xff\xff",
                                         {"\0\0\0\0", 4},
                                         "\x7f\xff\xff\xff",
                                         "\x80",
                                         "\xed\xa0\x80",
                                         "\xf4\x90\x80\x80"};

} // namespace

Mutator::Mutator(const QList<QByteArray> &seeds) : m_seeds(seeds) {}

QByteArray Mutator::next()
{
    QByteArray input = anySeed();
    for (qsizetype changes = 1 + below(MostChanges); changes > 0; --changes)
        change(input);
    input.truncate(LongestInput);
    return input;
}

/// A number from 0 to `count` - 1.
qsizetype Mutator::below(qsizetype count)
{
    constexpr int poorBits = 4;
    return static_cast<qsizetype>(m_random() >> poorBits) % count;
}

const QByteArray &Mutator::anySeed()
{
    return m_seeds.at(below(m_seeds.size()));
}

QByteArray Mutator::anyPitfall()
{
    return QByteArrayView(Pitfalls[below(std::size(Pitfalls))]).toByteArray();
}

void Mutator::change(QByteArray &input)
{
    const qsizetype at = below(input.size() + 1);
    const qsizetype count = below(LongestPiece);
    switch (below(6)) {
    case 0: input.remove(at, count); break;
    case 1: putIn(input, input.mid(at, count)); break;
    case 2: {
        const QByteArray &other = anySeed();
        putIn(input, other.mid(below(other.size() + 1), count));
        break;
    }
    case 3: putIn(input, anyPitfall()); break;
    case 4: {
        const QByteArray pitfall = anyPitfall();
        input.replace(at, pitfall.size(), pitfall);
        break;
    }
    default: changeByte(input);
    }
}

void Mutator::changeByte(QByteArray &input)
{
    if (input.isEmpty())
        return;
    // The first byte is often a choice.
    const qsizetype at = below(4) == 0 ? 0 : below(input.size());
    input[at] = below(2) == 0 ? static_cast<char>(below(256))
                              : static_cast<char>(input.at(at) ^ (1 << below(8)));
}

void Mutator::putIn(QByteArray &input, const QByteArray &bytes)
{
    input.insert(below(input.size() + 1), bytes);
}
