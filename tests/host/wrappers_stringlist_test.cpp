#include <gtest/gtest.h>

#include "drawing/stringlist.h"
#include "wrappers_fixture.h"

namespace vorn {
namespace {

class StringListWrappers : public ScriptedHost {};

TEST_F(StringListWrappers, ASecondSaveReplacesTheRecordAnEmptyOneRemovesIt)
{
    std::vector<std::string> loaded;
    run([&] {
        EXPECT_FALSE(loadStringList("VornBaseGrid", loaded));  // no dictionary yet: no word
        EXPECT_TRUE(saveStringList("VornBaseGrid", {"a", "b", "c"}));
        EXPECT_TRUE(saveStringList("VornBaseGrid", {"x"}));
        EXPECT_TRUE(loadStringList("VornBaseGrid", loaded));
    });
    EXPECT_EQ(loaded, (std::vector<std::string>{"x"}));
    ObjectId ours;
    ASSERT_EQ(database().dictionaryGetAt(database().namedObjectsDictionary(), kStabilityDictionaryName, ours), eOk);
    EXPECT_EQ(database().dictionaryEntries(ours).size(), 1u);
    EXPECT_EQ(transcript(), "");
    // An empty list removes the old record and fails; a failed load leaves the list.
    run([&] {
        EXPECT_FALSE(saveStringList("VornBaseGrid", {}));
        EXPECT_FALSE(loadStringList("VornBaseGrid", loaded));
        EXPECT_FALSE(loadStringList("Other", loaded));
    });
    EXPECT_EQ(loaded, (std::vector<std::string>{"x"}));
}

TEST_F(StringListWrappers, DictionaryMessages)
{
    ObjectId id;
    database().addXrecord(database().namedObjectsDictionary(), kStabilityDictionaryName, {ResultItem::ofText(1, "x")}, id);
    std::vector<std::string> loaded;
    run([&] {
        EXPECT_FALSE(saveStringList("Key", {"1"}));
        EXPECT_FALSE(loadStringList("Key", loaded));
    });
    EXPECT_EQ(transcript(),
              "\nEntry found in the NOD, but it is not a dictionary.\nEntry found in the NOD, but it is not a dictionary.");

    start("");
    ObjectId ours, inner;
    database().addDictionary(database().namedObjectsDictionary(), kStabilityDictionaryName, ours);
    database().addDictionary(ours, "Key", inner);
    run([&] { EXPECT_FALSE(loadStringList("Key", loaded)); });
    EXPECT_EQ(transcript(), "\nEntry found in the NOD, but it is not a xRecord.");
}

}  // namespace
}  // namespace vorn
