// The objects that nothing reaches, as a graph of their own: its rings, and the grade of each.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "reach/reasons.h"

class Sought;

class DeadObjects {
public:
    explicit DeadObjects(const Reach& reach);

    [[nodiscard]] bool Contains(const CodeObject& object) const { return placeOf_[object.Number()] != 0; }
    /// The members of the ring, itself first, that the object belongs to if nothing outside calls any of them; empty
    /// otherwise.
    [[nodiscard]] std::vector<const CodeObject*> RingOf(const CodeObject& object) const;
    /// What calls or uses an object, each once, in the order of the code, without itself and
    /// its members.
    [[nodiscard]] std::vector<const CodeObject*> CallersOf(const CodeObject& object) const;
    [[nodiscard]] const Grading& GradeOf(const CodeObject& object) const {
        return grades_[placeOf_[object.Number()] - 1];
    }

private:
    void FindRings();
    void Grades();
    bool Lower(const CodeObject& object, const Grading& to);
    void ByMentions(const Sought& dead);
    void ByStrings(const Sought& dead);
    bool ByOwners();
    [[nodiscard]] bool OthersCountOn(const clsVariable& member) const;
    [[nodiscard]] bool GoesForSure(const CodeObject& object) const {
        return Contains(object) && GradeOf(object).grade == Grade::Sure;
    }
    void Spread();

    const Reach& reach_;
    std::vector<const CodeObject*> objects_;
    std::vector<std::uint32_t> placeOf_;                  // by number: place in objects_ from 1, or 0
    std::vector<std::uint32_t> ringOf_;                   // by place: objects of one number call each other in a ring
    std::vector<Grading> grades_;                         // by place
    std::unordered_map<const clsType*, bool> passedOut_;  // whether Declare statements take it, where that was asked
};
