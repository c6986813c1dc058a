// SPDX-License-Identifier: MIT
#pragma once

#include "testkit/RecordingMemory.h"
