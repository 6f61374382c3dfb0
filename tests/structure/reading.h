// What the tests of the readers share: tables of sources and what comes out, and the place of an object.
#pragma once

#include "support/project_test.h"

struct Case {
    std::string source;
    std::string objects;
};

inline void ExpectObjects(std::initializer_list<Case> cases, std::string_view fileName = "Module1.bas") {
    for (const Case& c : cases) {
        SCOPED_TRACE(c.source);
        EXPECT_EQ(DumpObjects(ReadModule(c.source, fileName)), c.objects);
    }
}

/// First and last character, as marks have them; the last is -1 where an object keeps no end.
inline PosRange Place(const CodeObject& object) {
    return {object.DeclareStart, object.DeclareEnd - 1};
}
