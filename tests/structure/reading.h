// Shared by the tests of the readers: tables of sources and expected objects, and the range of an object.
#pragma once

#include "support/project_test.h"

struct Case {
    std::string source;
    std::string objects;
};

inline void ExpectObjects(std::initializer_list<Case> cases, std::string_view fileName = "Module1.bas") {
    for (const Case& c : cases)
        EXPECT_EQ(DumpObjects(ReadModule(c.source, fileName)), c.objects) << c.source;
}

/// First and last character of an object, like a mark; the last is -1 for an object without an end.
inline PosRange Place(const CodeObject& object) {
    return {object.DeclareStart, object.DeclareEnd - 1};
}
