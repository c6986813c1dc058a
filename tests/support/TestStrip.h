// SPDX-License-Identifier: MIT
#pragma once

#include "testkit/TestStrip.h"
