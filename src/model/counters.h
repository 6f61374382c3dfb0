// How many objects of a class are alive; read by the diagnostic summary.
#pragma once

#include <cstdint>

struct ObjectCounts {
    std::int32_t variable = 0, type = 0, einEnum = 0, prozedur = 0, modul = 0, call = 0, collection = 0;
    ObjectCounts& operator+=(const ObjectCounts& other) {
        variable += other.variable;
        type += other.type;
        einEnum += other.einEnum;
        prozedur += other.prozedur;
        modul += other.modul;
        call += other.call;
        collection += other.collection;
        return *this;
    }
};

/// Of the program.
extern ObjectCounts gCounts;
inline std::int32_t &gCountVariable = gCounts.variable, &gCountType = gCounts.type, &gCountEnum = gCounts.einEnum,
                    &gCountProzedur = gCounts.prozedur, &gCountModul = gCounts.modul, &gCountCall = gCounts.call,
                    &gCountCollection = gCounts.collection;

/// Where this thread counts.
extern thread_local constinit ObjectCounts* tCounts;

/// While it lives, this thread counts apart: objects made beside the main thread join the program with their result.
class CountedApart {
public:
    CountedApart() : before_(tCounts) { tCounts = &counts_; }
    ~CountedApart() { tCounts = before_; }
    CountedApart(const CountedApart&) = delete;
    CountedApart& operator=(const CountedApart&) = delete;
    [[nodiscard]] const ObjectCounts& Counts() const { return counts_; }

private:
    ObjectCounts counts_;
    ObjectCounts* before_;
};

template <std::int32_t ObjectCounts::*counter>
class Counted {
public:
    Counted() { ++(tCounts->*counter); }
    Counted(const Counted&) { ++(tCounts->*counter); }
    Counted(Counted&&) noexcept { ++(tCounts->*counter); }
    Counted& operator=(const Counted&) = default;
    Counted& operator=(Counted&&) noexcept = default;
    ~Counted() { --(tCounts->*counter); }
};
