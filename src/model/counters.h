// Number of objects of each class in a project, for the diagnostic summary.
#pragma once

#include <cstdint>

struct ObjectCounts {
    std::int32_t variable = 0, type = 0, einEnum = 0, prozedur = 0, modul = 0, call = 0, collection = 0;
};
