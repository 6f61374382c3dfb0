#include "model/counters.h"

std::int32_t gCountVariable, gCountType, gCountEnum, gCountProzedur, gCountModul, gCountCall, gCountCollection;
