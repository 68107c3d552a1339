// SPDX-License-Identifier: MIT

#include "platform/null/NullWindowSystem.h"
