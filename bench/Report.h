// SPDX-License-Identifier: MIT
#pragma once

#include "bench/Rows.h"

#include <QString>

/// A row and what it came to.
struct Result
{
    const Row *row;
    Measurement measured;

    bool holds() const { return measured.ratio <= row->limit; }
};

namespace report {

/// What was measured with what: cores, compiler, versions, date.
void printSetting();
void printHead();
void print(const Result &result);
/// The quartiles of a row's rounds and what its cases took.
void printDetails(const Result &result);

/// Measures and prints what live meters take of the GUI thread.
void printLiveLoad();

/// [{"name", "ratio", "limit"}]; false, and a line on the error output, when it cannot be written.
bool writeJson(const QString &fileName, const std::vector<Result> &results);

} // namespace report
