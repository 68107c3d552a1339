#include "platform/null/NullWindowSystem.h"
