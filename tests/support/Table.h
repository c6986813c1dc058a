// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

#include <array>
#include <tuple>

/// The rows of a test, and the values of the row that runs:
///   Table<int, bool>().row("silence", 0, false).row("full scale", 127, true);
///   const auto [level, lit] = Table<int, bool>::fetch();
template<class... Values>
class Table
{
public:
    Table()
    {
        std::size_t column = 0;
        (QTest::addColumn<Values>(Names[column++]), ...);
    }

    Table &row(const char *name, const Values &...values)
    {
        (QTest::newRow(name) << ... << values);
        return *this;
    }

    static std::tuple<Values...> fetch() { return fetch(std::index_sequence_for<Values...>()); }

private:
    template<std::size_t... Columns>
    static std::tuple<Values...> fetch(std::index_sequence<Columns...>)
    {
        return {
            *static_cast<const Values *>(QTest::qData(Names[Columns], qMetaTypeId<Values>()))...};
    }

    static constexpr std::array Names{"1", "2", "3", "4", "5", "6", "7", "8", "9"};
};
