// The perfect hash finds every keyword, and nothing else.

#include "vrml/reader/KeywordHash.h"

#include <gtest/gtest.h>

#include <string>

namespace vrml {
namespace {

const Keyword* find(const std::string& word) {
  // The scanner's texts go on behind a word.
  const std::string text = word + std::string(16, 'x');
  return findKeyword(text.data(), word.size());
}

TEST(KeywordHash, finds_every_node_type) {
  for (std::size_t i = 0; i < kNodeKeywordCount; ++i) {
    const Keyword* const keyword = find(kNodeTypeNames[i]);
    ASSERT_NE(keyword, nullptr) << kNodeTypeNames[i];
    EXPECT_EQ(keyword->kind, KeywordKind::nodeType) << kNodeTypeNames[i];
    EXPECT_EQ(keyword->index, i) << kNodeTypeNames[i];
  }
}

TEST(KeywordHash, finds_every_field_name) {
  for (std::size_t i = 0; i < kFieldKeyCount; ++i) {
    const Keyword* const keyword = find(kFieldNames[i]);
    ASSERT_NE(keyword, nullptr) << kFieldNames[i];
    EXPECT_EQ(keyword->kind, KeywordKind::field) << kFieldNames[i];
    EXPECT_EQ(keyword->index, i) << kFieldNames[i];
  }
}

TEST(KeywordHash, finds_every_word_of_a_script) {
  for (std::size_t i = 0; i < kScriptWordCount; ++i) {
    const Keyword* const keyword = find(kScriptWords[i]);
    ASSERT_NE(keyword, nullptr) << kScriptWords[i];
    EXPECT_EQ(static_cast<std::size_t>(keyword->scriptWord), i) << kScriptWords[i];
  }
}

TEST(KeywordHash, tells_which_words_are_values_in_a_script_too) {
  for (const char* const word : {"TRUE", "FALSE", "NULL", "USE"}) EXPECT_TRUE(find(word)->valueInScript) << word;
  for (const char* const word : {"DEF", "PROTO", "ROUTE", "Group", "size"})
    EXPECT_FALSE(find(word)->valueInScript) << word;
}

TEST(KeywordHash, finds_no_word_that_differs_in_one_character) {
  for (std::size_t i = 0; i < keywordhash::kTable.count; ++i) {
    const std::string word = keywordhash::kTable.words[i].word;
    for (std::size_t at = 0; at < word.size(); ++at) {
      std::string changed = word;
      changed[at] = changed[at] == 'q' ? 'j' : 'q';
      EXPECT_EQ(find(changed), nullptr) << changed;
    }
  }
}

TEST(KeywordHash, finds_no_beginning_and_no_extension_of_a_word) {
  for (std::size_t i = 0; i < keywordhash::kTable.count; ++i) {
    const std::string word = keywordhash::kTable.words[i].word;
    const Keyword* const shorter = find(word.substr(0, word.size() - 1));
    EXPECT_TRUE(!shorter || shorter->word == word.substr(0, word.size() - 1)) << word;
    EXPECT_EQ(find(word + "q"), nullptr) << word;
    EXPECT_EQ(find("q" + word), nullptr) << word;
  }
  EXPECT_EQ(find(""), nullptr);
  EXPECT_EQ(find(std::string(1000, 'a')), nullptr);
}

}  // namespace
}  // namespace vrml
