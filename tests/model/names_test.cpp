#include "model/names.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Names, SearchingEntersNothing) {
    EXPECT_FALSE(Name::Find("NobodyIsCalledThis").Known());
    EXPECT_FALSE(Name::FindLower("NobodyIsCalledThis").Known());
    const Name name("NobodyIsCalledThis");
    EXPECT_EQ(Name::Find("NobodyIsCalledThis"), name);
    EXPECT_EQ(Name::FindLower("nobodyISCALLEDthis"), name.Lower());
    EXPECT_FALSE(Name::Find("nobodyISCALLEDthis").Known());
}

TEST(Names, LongOddAndManyNamesStayApart) {
    const std::string longName(200000, 'L');
    const Name name(longName);
    const std::string_view early = name.View();
    EXPECT_EQ(Name::FindLower(longName), name.Lower());
    EXPECT_FALSE(Name(std::string("a\0b", 3)) == Name("a"));
    for (int i = 0; i < 20000; ++i)
        ASSERT_EQ(Name("Many" + std::to_string(i)).Lower(), Name("many" + std::to_string(i)));
    for (int i = 0; i < 20000; i += 7)
        ASSERT_EQ(Name("Many" + std::to_string(i)).View(), "Many" + std::to_string(i));
    EXPECT_EQ(early, longName) << "names stay where they are while the pool grows";
}

}  // namespace
