// The word lists: their sizes, their order, and the two ways between a word and its number.

#include "vrml/nodes/Names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace vrml {
namespace {

TEST(Names, NodeTypesAreTheKeywordsInAlphabeticalOrderAndTwoMore) {
  EXPECT_EQ(kNodeKeywordCount, 54u);
  EXPECT_TRUE(std::is_sorted(kNodeTypeNames.begin(), kNodeTypeNames.begin() + kNodeKeywordCount,
                             [](std::string_view a, std::string_view b) { return a < b; }));
  EXPECT_STREQ(kNodeTypeNames[54], "DEF");
  EXPECT_STREQ(kNodeTypeNames[55], "Root");
}

TEST(Names, NoWordStandsTwiceInAList) {
  const auto distinct = [](const auto& table) { return std::set<std::string>(table.begin(), table.end()).size(); };
  EXPECT_EQ(distinct(kNodeTypeNames), 56u);
  EXPECT_EQ(distinct(kFieldNames), kFieldKeyCount);
  EXPECT_EQ(distinct(kScriptWords), 27u);
}

TEST(Names, WordsAndNumbersLeadToEachOther) {
  for (std::size_t i = 0; i < kNodeTypeCount; ++i)
    EXPECT_EQ(static_cast<std::size_t>(findNodeType(kNodeTypeNames[i])), i);
  for (std::size_t i = 0; i < kFieldKeyCount; ++i) EXPECT_EQ(static_cast<std::size_t>(findFieldKey(kFieldNames[i])), i);
  for (std::size_t i = 0; i < kScriptWordCount; ++i)
    EXPECT_EQ(static_cast<std::size_t>(findScriptWord(kScriptWords[i])), i);
  EXPECT_STREQ(nodeTypeName(nodeType("LOD")), "LOD");
  EXPECT_STREQ(fieldName(fieldKey("zSpacing")), "zSpacing");
  EXPECT_STREQ(scriptWordName(scriptWord("MFImage")), "MFImage");
}

TEST(Names, OtherWordsAreNone) {
  EXPECT_EQ(findNodeType("transform"), NodeType::none);
  EXPECT_EQ(findNodeType(""), NodeType::none);
  EXPECT_EQ(findNodeType("Transforms"), NodeType::none);
  EXPECT_EQ(findFieldKey("set_translation"), FieldKey::none);
  EXPECT_EQ(findScriptWord("exposedField"), ScriptWord::none);
  EXPECT_EQ(findScriptWord("SFImage"), ScriptWord::none);
  EXPECT_STREQ(nodeTypeName(NodeType::none), "");
  EXPECT_STREQ(fieldName(FieldKey::none), "");
  EXPECT_STREQ(scriptWordName(ScriptWord::none), "");
}

TEST(Names, ASetHoldsWhatItWasMadeFrom) {
  constexpr NodeTypeSet set = NodeTypeSet("Anchor", "WorldInfo") | NodeTypeSet("Root");
  EXPECT_TRUE(set.contains(nodeType("Anchor")));
  EXPECT_TRUE(set.contains(nodeType("Root")));
  EXPECT_FALSE(set.contains(nodeType("Box")));
  EXPECT_FALSE(set.contains(NodeType::none));
  EXPECT_FALSE(NodeTypeSet().contains(nodeType("Anchor")));
}

}  // namespace
}  // namespace vrml
