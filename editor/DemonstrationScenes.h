// SPDX-License-Identifier: MIT
#pragma once

class ParameterMemory;
class SceneLibrary;

namespace demonstrationscenes {

/// Fills a library with scenes as a show has them, stored at times that are always the same, for
/// pictures.
void fill(SceneLibrary &library, const ParameterMemory &memory);

} // namespace demonstrationscenes
