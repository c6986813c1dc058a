// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QList>
#include <QString>

#include <variant>

/// A value-to-text table of the console model: turns positions (0, 1, 2 ...) into the texts that
/// the operator reads, and typed numbers into positions.
///
/// Texts are rendered once and then shared, so that showing one costs neither formatting nor
/// allocation. GUI thread.
class CONSOLECOMPANIONS_EXPORT TextTable
{
public:
    /// One text per position.
    struct List
    {
        QList<QString> texts; ///< by position
    };
    /// Equal steps of `scale` from `first`: "-12.0 dB", "L63".
    struct Linear
    {
        double first = 0;                    ///< the number at position 0
        double scale = 1;                    ///< what a position adds
        int decimals = 0;                    ///< digits behind the point
        QString unit;                        ///< follows the number and a space
        QString minus = QStringLiteral("-"); ///< leads numbers below zero
        QString plus;                        ///< leads numbers above zero
        QString zero;                        ///< stands for zero, unless empty
        QString lowest;                      ///< stands for position 0, unless empty
    };
    /// Equal ratios from `first` to `last` in `steps` positions, shown with three digits; from 1000
    /// on in thousands with `kiloUnit`, unless that is empty: "20.0 Hz", "1.25 kHz".
    struct Logarithmic
    {
        double first = 1; ///< the number at position 0; above 0
        double last = 1;  ///< the number at the last position; above 0
        int steps = 2;    ///< positions
        QString unit;     ///< follows the number and a space
        QString kiloUnit; ///< the unit of thousands
    };
    /// The three ways to make texts.
    using Kind = std::variant<List, Linear, Logarithmic>;

    /// An open-ended table (Linear) has no positions yet; see requirePositions().
    explicit TextTable(Kind kind);

    /// Says that a parameter with that many positions uses the table. The table's own end stands
    /// where it has one (a list, a logarithmic table).
    void requirePositions(qint64 count);

    /// How many positions there are; 0 while an open-ended table is used by no parameter.
    qint64 positions() const { return m_positions; }

    /// The text of a position; a null text when the table has none for it.
    QString text(qint64 position) const;

    /// The position nearest to a number in the unit of the texts, within 0 and positions() - 1. A
    /// number that is not finite gives 0. In a list, a number leading a text is that text's number;
    /// a list without numbers is counted.
    qint64 nearestPosition(double number) const;

private:
    /// Longer tables are rendered at every call, to bound the memory they take.
    static constexpr qint64 MostKeptTexts = 4096;

    QString render(qint64 position) const;
    qint64 nearestInList(const List &list, double number) const;

    Kind m_kind;
    qint64 m_positions = 0;
    mutable QList<QString> m_kept;
};
