#include "model/names.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

TEST(Names, SearchingEntersNothing) {
    Names names{CodePage()};
    EXPECT_FALSE(names.Find("NobodyIsCalledThis").Known());
    const Name name = names.Intern("NobodyIsCalledThis");
    EXPECT_EQ(names.Find("NobodyIsCalledThis"), name);
    EXPECT_EQ(names.Find("nobodyiscalledthis"), name.Lower());
    EXPECT_FALSE(names.Find("nobodyISCALLEDthis").Known());
    EXPECT_EQ(names.Find(""), Name());
    EXPECT_TRUE(Name().Known() && Name().Empty());
}

TEST(Names, LongOddAndManyNamesStayApart) {
    Names names{CodePage()};
    const std::string longName(200000, 'L');
    const Name name = names.Intern(longName);
    const std::string_view early = name.View();
    EXPECT_EQ(names.Find(LowerCase(longName)), name.Lower());
    EXPECT_FALSE(names.Intern(std::string("a\0b", 3)) == names.Intern("a"));
    for (int i = 0; i < 100000; ++i)
        ASSERT_EQ(names.Intern("Many" + std::to_string(i)).Lower(), names.Intern("many" + std::to_string(i)));
    names.FreeOutgrown();
    for (int i = 0; i < 100000; i += 7)
        ASSERT_EQ(names.Find("Many" + std::to_string(i)).View(), "Many" + std::to_string(i));
    EXPECT_EQ(early, longName) << "names stay where they are while the pool grows";
}

TEST(Names, ThreadsThatMakeTheSameNamesGetTheSameHandles) {
    constexpr int kThreads = 4;
    constexpr int kNames = 100000;  // enough to make the tables grow
    Names pool{CodePage()};
    std::vector<std::vector<Name>> made(kThreads);
    std::vector<std::thread> threads;
    for (std::vector<Name>& names : made)
        threads.emplace_back([&pool, &names] {
            for (int i = 0; i < kNames; ++i) {
                const std::string text = "Together" + std::to_string(i);
                names.push_back(pool.Intern(text));
                if (pool.Find(text) != names.back() || pool.Find(LowerCase(text)) != names.back().Lower())
                    names.clear();
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::vector<Name>& names : made)
        EXPECT_TRUE(names == made[0] && names.size() == kNames);
}

}  // namespace
