// SPDX-License-Identifier: Apache-2.0
// Words and their pronunciations. A decoder gets only the words in use: that takes 13 MB of memory instead of 35.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace sphinx {

// Phones separated by blanks, as "HH EY"; a word may have several.
using Pronunciations = std::map<std::string, std::vector<std::string>>;

// Adds the pronunciations of these words from a dictionary file with lines "word PHONES" and "word(2) PHONES". False if
// the file cannot be read.
bool readPronunciations(const std::string& file, const std::set<std::string>& words, Pronunciations& found);

// The same words as the text of a dictionary file.
std::string dictionaryText(const Pronunciations& words);

// The name under which a decoder knows a word's n-th pronunciation (counted from 0).
std::string variantName(const std::string& word, std::size_t variant);

// The phones of the model for American English, without silence.
const std::vector<std::string>& phones();
bool isPhoneSequence(const std::string& phonesText);

}  // namespace sphinx
