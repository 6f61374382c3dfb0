// How many objects of each class a project holds; the diagnostic summary shows them.
#pragma once

#include <cstdint>

struct ObjectCounts {
    std::int32_t variable = 0, type = 0, einEnum = 0, prozedur = 0, modul = 0, call = 0, collection = 0;
};
