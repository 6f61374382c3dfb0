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

class Collection : public testing::Test {
protected:
    Name Key(std::string_view text) { return names_.Intern(text); }

private:
    Names names_{CodePage()};
};

TEST_F(Collection, KeysAreComparedWithoutRegardToCase) {
    int a = 1;
    int b = 2;
    clsCollection<int> collection;
    collection.Add(Key("Form1.\xC4nderung"), &a);
    collection.Add(Name(), &b);  // a valid key
    EXPECT_EQ(collection.Item(Key("FORM1.\xE4nderung")), &a);
    EXPECT_EQ(collection.Item("form1.\xE4nderung"), &a);
    EXPECT_EQ(collection.Item("Form1.\xE4nderung"), nullptr) << "a text is expected in lower case";
    EXPECT_EQ(collection.Item(""), &b);
    EXPECT_EQ(collection.Item("form1"), nullptr);
    // The first holder of a key keeps it.
    EXPECT_FALSE(collection.AddUnlessPresent(Key("FORM1.\xC4NDERUNG"), &b));
    EXPECT_EQ(ErrorOf([&] { collection.Add(Key("form1.\xC4nderung"), &b); }), 457);
    EXPECT_THAT(Values(collection), ElementsAre(1, 2));
}

TEST_F(Collection, PositionsCountFromOneInOrderOfEntryAndRemovingKeepsTheOrder) {
    int values[] = {3, 1, 4, 2};
    clsCollection<int> collection;
    for (int& value : values)
        collection.Add(Key("K" + std::to_string(value)), &value);
    EXPECT_THAT(Values(collection), ElementsAre(3, 1, 4, 2));
    EXPECT_EQ(collection.KeyNr(2).View(), "k1");
    for (const int nr : {-1, 0, 5})
        EXPECT_EQ(ErrorOf([&] { (void)collection.ItemNr(nr); }), 9) << nr;
    EXPECT_TRUE(collection.Remove(Key("k1")));
    EXPECT_FALSE(collection.Remove(Key("k1")));
    EXPECT_EQ(*collection.ItemNr(2), 4);
    collection.Add(Key("k1"), &values[1]);  // the key is free again, and the new entry goes to the end
    EXPECT_THAT(Values(collection), ElementsAre(3, 4, 2, 1));
}

TEST_F(Collection, FindsEveryOneOfManyWhileItGrowsAndShrinks) {
    std::vector<int> values(3000);
    std::iota(values.begin(), values.end(), 1);
    const auto key = [this](int value) { return Key("Proc_" + std::to_string(value)); };
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
        for (int* found : {collection.Item(key(value)), collection.Item("proc_" + std::to_string(value))})
            ASSERT_EQ(found, value % 3 == 0 ? nullptr : &value) << value;
    EXPECT_EQ(collection.ItemNr(2000), &values[2998]);
    collection.Clear();
    EXPECT_EQ(collection.Count(), 0);
    collection.Add(key(1), &values[6]);
    EXPECT_EQ(collection.Item(key(1)), &values[6]);
    EXPECT_EQ(collection.Item(key(2)), nullptr);
}

}  // namespace
