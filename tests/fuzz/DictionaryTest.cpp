// The dictionary of the targets that read worlds has every keyword of the reader, each once, and no word that is none
// where it says that it is one.

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "vrml/nodes/Names.h"
#include "vrml/reader/KeywordHash.h"

namespace {

// The entries by the heading that they stand under. A heading is a comment; an entry is a text in quotes.
std::vector<std::string> entries(const std::string& name) {
  std::ifstream in(std::string(WRL_FUZZ_FOLDER) + "/" + name);
  std::vector<std::string> found;
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line.front() == '#') continue;
    EXPECT_TRUE(line.size() > 2 && line.front() == '"' && line.back() == '"') << line;
    found.push_back(line.substr(1, line.size() - 2));
  }
  return found;
}

std::set<std::string> keywords() {
  std::set<std::string> words;
  for (std::size_t i = 0; i < vrml::keywordhash::kTable.count; ++i)
    words.insert(vrml::keywordhash::kTable.words[i].word);
  return words;
}

TEST(Dictionary, has_every_keyword) {
  const std::vector<std::string> found = entries("vrml.dict");
  for (const std::string& word : keywords())
    EXPECT_EQ(std::count(found.begin(), found.end(), word), 1) << '"' << word << "\" belongs into vrml.dict";
}

TEST(Dictionary, names_no_keyword_that_is_none) {
  const std::set<std::string> words = keywords();
  const std::vector<std::string> found = entries("vrml.dict");
  const auto other = std::find(found.begin(), found.end(), "EXTERNPROTO");  // the first that is none
  ASSERT_NE(other, found.end());
  for (auto word = found.begin(); word != other; ++word)
    EXPECT_TRUE(words.count(*word)) << '"' << *word << "\" is no keyword";
}

TEST(Dictionary, of_the_others_is_well_formed) {
  EXPECT_GT(entries("gif.dict").size(), 5U);
  EXPECT_GT(entries("stage.dict").size(), 80U);
}

}  // namespace
