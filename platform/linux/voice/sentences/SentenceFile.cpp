// SPDX-License-Identifier: Apache-2.0
#include "voice/SentenceFile.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "BuiltInLists.h"
#include "FieldValue.h"
#include "dlog.h"

namespace voice {

namespace {

constexpr char kBlanks[] = " \t\r\v\f";
constexpr std::size_t kMaxLine = 2000;

std::string trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> splitAt(const std::string& text, char mark) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, mark);) {
        parts.push_back(trim(part));
    }
    return parts;
}

// The kinds of sections.
enum class Section { None, Sounds, Names, RecipeSteps, Sentences };

class Reader {
public:
    Reader(SentenceFile& into, const LineFault& report) : mInto(into), mReport(report) {}

    void read(const std::string& text) {
        std::istringstream in(text);
        for (std::string line; std::getline(in, line);) {
            ++mLine;
            try {
                readLine(line);
            } catch (const std::exception& fault) {
                mReport(mLine, fault.what());
            }
        }
    }

private:
    void readLine(const std::string& raw) {
        const std::string line = trim(raw.substr(0, raw.find('#')));
        if (line.empty()) {
            return;
        }
        if (line.size() > kMaxLine) {
            throw std::invalid_argument("too long");
        }
        if (isHeader(line)) {
            openSection(trim(line.substr(1, line.size() - 2)));
            return;
        }
        switch (mSection) {
            case Section::Sounds:
                return readSound(line);
            case Section::Names:
                return readName(line);
            case Section::RecipeSteps:
                return readSteps(line);
            case Section::Sentences:
                return line.find('=') == std::string::npos ? readSentence(line) : readField(line);
            case Section::None:
                throw std::invalid_argument("not in a section");
        }
    }

    // "[Agent / Action]" is a header; "[please] open the door" is a sentence.
    static bool isHeader(const std::string& line) {
        return line.front() == '[' && line.find(']') == line.size() - 1 &&
               (line.find('/') != std::string::npos || line == "[sounds]" || line == "[recipe steps]" ||
                line.rfind("[names ", 0) == 0);
    }

    void openSection(const std::string& header) {
        mSection = Section::None;  // the lines after an invalid header do not belong to the previous section
        if (header == "sounds") {
            mSection = Section::Sounds;
        } else if (header == "recipe steps") {
            mSection = Section::RecipeSteps;
        } else if (header.rfind("names ", 0) == 0) {
            openList(trim(header.substr(6)));
        } else {
            openCommand(splitAt(header, '/'));
        }
    }

    // The file's own list replaces the built-in one, even for the sentences above.
    void openList(const std::string& name) {
        mList = name;
        if (mBuiltIn.erase(name) > 0) {
            mInto.lists.erase(name);
        }
        mInto.lists[name];
        mSection = Section::Names;
    }

    void openCommand(const std::vector<std::string>& parts) {
        if (parts.size() < 2 || parts.size() > 3 || parts[0].empty() || parts[1].empty()) {
            throw std::invalid_argument("a section is [agent / action name] or [agent / action name / action type]");
        }
        mInto.commands.push_back({parts[0], parts[1], parts.size() == 3 ? parts[2] : "Action", "", {}, {}});
        mSection = Section::Sentences;
    }

    static std::pair<std::string, std::string> splitField(const std::string& line) {
        const std::size_t mark = line.find('=');
        if (mark == std::string::npos || trim(line.substr(0, mark)).empty() || trim(line.substr(mark + 1)).empty()) {
            throw std::invalid_argument("expected: name = value");
        }
        return {trim(line.substr(0, mark)), trim(line.substr(mark + 1))};
    }

    void readSound(const std::string& line) {
        const auto [word, phones] = splitField(line);
        if (!sphinx::isPhoneSequence(phones)) {
            throw std::invalid_argument("unknown sounds \"" + phones + "\"");
        }
        mInto.sounds[parseSentence(word).parts.at(0).text].push_back(phones);
    }

    void readSteps(const std::string& line) {
        const auto [dish, count] = splitField(line);
        std::size_t used = 0;
        const int steps = std::stoi(count, &used);
        if (used != count.size() || steps < 1) {
            throw std::invalid_argument("\"" + count + "\" is not a number of steps");
        }
        mInto.recipeSteps[dish] = steps;
    }

    void readName(const std::string& line) {
        const auto [value, text] = splitField(line);
        Sentence spoken = parseSentence(text);
        std::set<std::string> inner;
        collectLists(spoken, inner);
        if (!inner.empty()) {
            throw std::invalid_argument("a name cannot refer to another list");
        }
        if (containsAnything(spoken)) {
            throw std::invalid_argument("a name cannot contain \"*\"");
        }
        mInto.lists[mList].push_back({value, std::move(spoken)});
    }

    void readSentence(const std::string& line) {
        Sentence sentence = parseSentence(line);
        requireLists(sentence);
        mInto.commands.back().sentences.push_back(std::move(sentence));
    }

    void requireLists(const Sentence& sentence) {
        std::set<std::string> lists;
        collectLists(sentence, lists);
        for (const std::string& list : lists) {
            if (mInto.lists.count(list) == 0 && isBuiltInList(list)) {
                mInto.lists[list] = builtInNames(list);
                mBuiltIn.insert(list);
            }
            const auto found = mInto.lists.find(list);
            if (found == mInto.lists.end() || found->second.empty()) {
                throw std::invalid_argument("the list <" + list + "> is empty or is not defined above");
            }
        }
    }

    void readField(const std::string& line) {
        auto field = splitField(line);
        checkFieldValue(field.second);
        if (field.first == "only after") {
            mInto.commands.back().onlyAfter = field.second;
        } else {
            mInto.commands.back().fields.push_back(std::move(field));
        }
    }

    SentenceFile& mInto;
    const LineFault& mReport;
    Section mSection = Section::None;
    std::string mList;
    std::set<std::string> mBuiltIn;  // the lists that the file uses without defining them
    int mLine = 0;
};

}  // namespace

SentenceFile parseSentenceFile(const std::string& text, const LineFault& report) {
    SentenceFile commands;
    Reader(commands, report).read(text);
    return commands;
}

bool readSentenceFile(const std::string& path, SentenceFile& commands) {
    std::ifstream in(path);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in) {
        dlog_print(DLOG_ERROR, "orvane-voice", "cannot read %s", path.c_str());
        return false;
    }
    commands = parseSentenceFile(text, [&path](int line, const std::string& what) {
        dlog_print(DLOG_WARN, "orvane-voice", "%s:%d: %s", path.c_str(), line, what.c_str());
    });
    return true;
}

}  // namespace voice
