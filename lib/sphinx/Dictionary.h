// SPDX-License-Identifier: Apache-2.0
// Words and their pronunciations. A decoder gets only the words in use, which takes 13 MB of memory instead of 35.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace sphinx {

// Phones separated by spaces, such as "HH EY". A word may have several pronunciations.
using Pronunciations = std::map<std::string, std::vector<std::string>>;

// Adds the pronunciations of these words from a dictionary file with lines "word PHONES" and "word(2) PHONES". False if
// the file cannot be read.
bool readPronunciations(const std::string& file, const std::set<std::string>& words, Pronunciations& found);

// Formats the words as the text of a dictionary file.
std::string dictionaryText(const Pronunciations& words);

// The decoder's name for the n-th pronunciation of a word, counted from 0.
std::string variantName(const std::string& word, std::size_t variant);

// The phones of the model for American English, without silence.
const std::vector<std::string>& phones();
bool isPhoneSequence(const std::string& phonesText);

}  // namespace sphinx
