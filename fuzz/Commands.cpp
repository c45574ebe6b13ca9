// SPDX-License-Identifier: Apache-2.0
// The sentence file, and after a zero byte the recognized texts, one on each line.
#include <algorithm>
#include <sstream>
#include <string>

#include "Entries.h"
#include "json/BoundedJson.h"
#include "sphinx/Decoder.h"
#include "sphinx/Dictionary.h"
#include "sphinx/MemoryFile.h"
#include "sphinx/Models.h"
#include "voice/Dialogue.h"
#include "voice/Understanding.h"
#include "voice/recognizer/Grammar.h"

namespace fuzz {
namespace {

constexpr char kDictionary[] =
    "a AH\na(2) EY\nthe DH AH\nopen OW P AH N\nclose K L OW Z\nmusic M Y UW Z IH K\nplayer P L EY ER\nfor F AO R\n"
    "search S ER CH\nrecipe R EH S AH P IY\nnext N EH K S T\nstep S T EH P\nsoup S UW P\n";

// The grammar uses only its arithmetic.
const sphinx::Decoder& decoder() {
    static const sphinx::MemoryFile dictionary(kDictionary);
    static const sphinx::Decoder instance({{"hmm", sphinx::modelPath("en-us/en-us")}, {"dict", dictionary.path()}});
    return instance;
}

void interpret(const std::string& text, const voice::SentenceFile& commands, voice::Dialogue& dialogue) {
    if (const auto intent = voice::understand(text, commands, dialogue)) {
        const auto result = nlohmann::json::parse(voice::toJson(*intent, text));
        require(result.is_object() && result.contains("agent"), "an intent becomes a JSON object");
    }
}

}  // namespace

void commands(std::string_view bytes) {
    const std::size_t end = std::min(bytes.find('\0'), bytes.size());
    auto file = voice::parseSentenceFile(std::string(bytes.substr(0, end)), [](int line, const std::string& what) {
        require(line > 0 && !what.empty(), "a fault has a line number and a text");
    });
    voice::Dialogue dialogue;
    std::istringstream texts(std::string(bytes.substr(std::min(end + 1, bytes.size()))));
    for (std::string text; std::getline(texts, text);) {
        interpret(text, file, dialogue);
    }
    static const sphinx::MemoryFile dictionary(kDictionary);
    const auto sounds = voice::soundsOf(file, dictionary.path());
    require(!sphinx::dictionaryText(sounds).empty(), "the dictionary has at least the phones");
    voice::buildGrammar(file, decoder());
}

}  // namespace fuzz
