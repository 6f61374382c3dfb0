#include "model/names.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

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

TEST(Names, ThreadsThatMakeTheSameNamesGetTheSameHandles) {
    constexpr int kThreads = 4;
    constexpr int kNames = 30000;  // enough to make the tables grow
    std::vector<std::vector<Name>> made(kThreads);
    std::vector<std::thread> threads;
    for (std::vector<Name>& names : made)
        threads.emplace_back([&names] {
            for (int i = 0; i < kNames; ++i) {
                const std::string text = "Together" + std::to_string(i);
                names.emplace_back(text);
                if (Name::Find(text) != names.back() || Name::FindLower(text) != names.back().Lower())
                    names.clear();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::vector<Name>& names : made)
        EXPECT_TRUE(names == made[0] && names.size() == kNames);
}

}  // namespace
