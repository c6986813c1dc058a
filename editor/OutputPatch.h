// SPDX-License-Identifier: MIT
#pragma once

class ParameterMemory;
class QWidget;

/// The output patch has a parameter per output that names its bus, so that its grid cannot take its
/// addresses from one name in the form.
namespace outputpatch {

/// Gives the grid `outputPatch` below a bound page, if there is one, the parameters of its fields.
void appendAddresses(QWidget *page, const ParameterMemory &memory);

} // namespace outputpatch
