// How many objects of a class are alive; read by the diagnostic summary.
#pragma once

#include <cstdint>

extern std::int32_t gCountVariable, gCountType, gCountEnum, gCountProzedur, gCountModul, gCountCall, gCountCollection;

template <std::int32_t& counter>
class Counted {
public:
    Counted() { ++counter; }
    Counted(const Counted&) { ++counter; }
    Counted(Counted&&) noexcept { ++counter; }
    Counted& operator=(const Counted&) = default;
    Counted& operator=(Counted&&) noexcept = default;
    ~Counted() { --counter; }
};
