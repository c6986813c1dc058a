// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/IParameterNames.h"
#include "widgets/Export.h"
#include "widgets/forms/FormFinding.h"

/// What a check asks about a console. Without names no address is looked up, without a memory no
/// range and no table.
struct FormConsole
{
    const IParameterNames *names = nullptr; ///< null: addresses are not looked at
    const IMemAPI *memory = nullptr;        ///< null: ranges are not looked at
};

/// Looks for everything in a form that would not work, or not as its author meant it, in the order of
/// the file: what FormLoader would report, and besides
/// - addresses that lead nowhere, each with the one that may have been meant;
/// - strips whose rows or columns do not divide their picture, pictures that belong together and
///   differ in size, pictures for scaled screens that are not of twice the size;
/// - pictures, items and lamps that are too few or too many for the parameter's values;
/// - lists with items that are passed over, and numbers that are not taken as they stand;
/// - object names that are taken, and controls without a name for people.
///
/// Forms that the form repeats are checked with it, for their first and their last channel. A form with
/// "{ch}" or "{element}" in it, checked by itself, is taken for channel 1.
///
/// The form is built for this and destroyed again; it is never shown. Any file may be given: what is no
/// form, or too large or too deep for one, is one finding of the kind Unreadable. At most
/// MostFormFindings are told. GUI thread.
CONSOLEWIDGETS_EXPORT FormFindings checkForm(const QString &fileName,
                                             const FormConsole &console = {});

/// A form with more faults than these has them listed no further.
constexpr qsizetype MostFormFindings = 1000;
