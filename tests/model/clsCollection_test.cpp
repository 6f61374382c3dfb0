#include "model/clsCollection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <string>

namespace {

using testing::ElementsAre;

template <class T>
std::vector<T> Values(const clsCollection<T>& collection) {
    std::vector<T> values;
    for (const T* value : collection)
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
    int umlaut = 2;
    int empty = 3;
    clsCollection<int> collection;
    collection.Add("Form1.Command1", &a);
    collection.Add("\xC4nderung", &umlaut);
    collection.Add("", &empty);  // a legal key
    EXPECT_EQ(collection.Item("FORM1.command1"), &a);
    EXPECT_EQ(collection.Item("\xE4nderung"), &umlaut);
    EXPECT_EQ(collection.Item(""), &empty);
    EXPECT_EQ(collection.Item("form1"), nullptr);
    EXPECT_FALSE(collection.Contains("never seen before, not even as a name"));
    // The first holder of a key stays.
    EXPECT_FALSE(collection.AddUnlessPresent(Name("FORM1.COMMAND1"), &empty));
    EXPECT_EQ(ErrorOf([&] { collection.Add("form1.Command1", &empty); }), 457);
    EXPECT_EQ(collection.Count(), 3);
    EXPECT_EQ(collection.Item("form1.command1"), &a);
}

TEST(Collection, PositionsCountFromOneInOrderOfEntry) {
    int values[] = {30, 10, 20};
    clsCollection<int> collection;
    collection.Add("z", &values[0]);
    collection.Add("A", &values[1]);
    collection.Add("m", &values[2]);
    EXPECT_THAT(Values(collection), ElementsAre(30, 10, 20));
    EXPECT_EQ(*collection.ItemNr(1), 30);
    EXPECT_EQ(*collection.ItemNr(3), 20);
    EXPECT_EQ(collection.KeyNr(2).View(), "a");
    for (const int nr : {-1, 0, 4})
        EXPECT_EQ(ErrorOf([&] { (void)collection.ItemNr(nr); }), 9) << nr;
}

TEST(Collection, RemovingKeepsTheOrderOfTheOthers) {
    int values[] = {1, 2, 3, 4};
    clsCollection<int> collection;
    for (int& value : values)
        collection.Add("k" + std::to_string(value), &value);
    EXPECT_TRUE(collection.Remove("K2"));
    EXPECT_FALSE(collection.Remove("k2"));
    EXPECT_FALSE(collection.Remove("k9"));
    EXPECT_THAT(Values(collection), ElementsAre(1, 3, 4));
    EXPECT_EQ(*collection.ItemNr(2), 3);
    collection.Add("k2", &values[1]);  // the key is free again, and its place is behind the others
    EXPECT_THAT(Values(collection), ElementsAre(1, 3, 4, 2));
    collection.Clear();
    EXPECT_EQ(collection.Count(), 0);
    EXPECT_FALSE(collection.Contains("k1"));
    EXPECT_THAT(Values(collection), ElementsAre());
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
    EXPECT_EQ(collection.Count(), 3000);
    EXPECT_EQ(ErrorOf([&] { collection.Add("pROC_2999", &values[0]); }), 457);

    for (int value = 3; value <= 3000; value += 3)
        ASSERT_TRUE(collection.Remove(key(value)));
    EXPECT_EQ(collection.Count(), 2000);
    int position = 0;
    for (int& value : values) {
        ASSERT_EQ(collection.Item(key(value)), value % 3 == 0 ? nullptr : &value) << value;
        if (value % 3 != 0) {
            ASSERT_EQ(collection.ItemNr(++position), &value);
        }
    }
    collection.Clear();
    collection.Add(key(1), &values[6]);
    EXPECT_EQ(collection.Item(key(1)), &values[6]);
    EXPECT_EQ(collection.Item(key(2)), nullptr);
}

}  // namespace
