#include "model/counters.h"

ObjectCounts gCounts;
thread_local constinit ObjectCounts* tCounts = &gCounts;
