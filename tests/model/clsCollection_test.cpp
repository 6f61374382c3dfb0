#include "model/clsCollection.h"

#include <gmock/gmock.h>

#include <numeric>
#include <string>

namespace {

using testing::ElementsAre;

std::vector<int> Values(const clsCollection<int>& collection) {
    std::vector<int> values;
    for (const int* value : collection)
        values.push_back(*value);
    return values;
}

template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const VbError& error) {
        return error.number;
    }
    return 0;
}

TEST(Collection, KeysAreComparedWithoutRegardToCase) {
    int a = 1;
    int b = 2;
    clsCollection<int> collection;
    collection.Add("Form1.\xC4nderung", &a);
    collection.Add("", &b);  // a valid key
    EXPECT_EQ(collection.Item("FORM1.\xE4nderung"), &a);
    EXPECT_EQ(collection.Item(""), &b);
    EXPECT_EQ(collection.Item("form1"), nullptr);
    EXPECT_FALSE(collection.Contains("never seen before, not even as a name"));
    // The first holder of a key keeps it.
    EXPECT_FALSE(collection.AddUnlessPresent(Name("FORM1.\xC4NDERUNG"), &b));
    EXPECT_EQ(ErrorOf([&] { collection.Add("form1.\xC4nderung", &b); }), 457);
    EXPECT_THAT(Values(collection), ElementsAre(1, 2));
}

TEST(Collection, PositionsCountFromOneInOrderOfEntryAndRemovingKeepsTheOrder) {
    int values[] = {3, 1, 4, 2};
    clsCollection<int> collection;
    for (int& value : values)
        collection.Add("K" + std::to_string(value), &value);
    EXPECT_THAT(Values(collection), ElementsAre(3, 1, 4, 2));
    EXPECT_EQ(collection.KeyNr(2).View(), "k1");
    for (const int nr : {-1, 0, 5})
        EXPECT_EQ(ErrorOf([&] { (void)collection.ItemNr(nr); }), 9) << nr;
    EXPECT_TRUE(collection.Remove("k1"));
    EXPECT_FALSE(collection.Remove("k1"));
    EXPECT_EQ(*collection.ItemNr(2), 4);
    collection.Add("k1", &values[1]);  // the key is free again, and the new entry goes to the end
    EXPECT_THAT(Values(collection), ElementsAre(3, 4, 2, 1));
}

TEST(Collection, FindsEveryOneOfManyWhileItGrowsAndShrinks) {
    std::vector<int> values(3000);
    std::iota(values.begin(), values.end(), 1);
    const auto key = [](int value) { return "Proc_" + std::to_string(value); };
    clsCollection<int> collection;
    for (int& value : values) {
        ASSERT_FALSE(collection.Contains(key(value)));
        collection.Add(key(value), &value);
        ASSERT_EQ(collection.Item(key((value + 1) / 2)), &values[static_cast<std::size_t>((value + 1) / 2) - 1]);
    }
    for (int value = 3; value <= 3000; value += 3)
        ASSERT_TRUE(collection.Remove(key(value)));
    EXPECT_EQ(collection.Count(), 2000);
    for (int& value : values)
        ASSERT_EQ(collection.Item(key(value)), value % 3 == 0 ? nullptr : &value) << value;
    EXPECT_EQ(collection.ItemNr(2000), &values[2998]);
    collection.Clear();
    EXPECT_EQ(collection.Count(), 0);
    collection.Add(key(1), &values[6]);
    EXPECT_EQ(collection.Item(key(1)), &values[6]);
    EXPECT_EQ(collection.Item(key(2)), nullptr);
}

}  // namespace
