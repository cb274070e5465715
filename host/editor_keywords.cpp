#include "host/editor_keywords.h"

#include <cctype>


namespace vorn {

namespace {

std::string upper(const std::string& text)
{
    std::string out = text;
    for (char& c : out) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return out;
}

// "Keep" -> shortcut "K"; "eXit" -> "X" (not a prefix); "all" or "YES"
// without a mix of cases -> the whole word.
Keyword plainKeyword(const std::string& word)
{
    Keyword keyword{word, {}, true};
    bool hasLower = false;
    for (char c : word) hasLower = hasLower || std::islower(static_cast<unsigned char>(c));
    size_t leading = 0;
    while (leading < word.size() && !std::islower(static_cast<unsigned char>(word[leading]))) ++leading;
    std::string capitals;
    for (char c : word) {
        if (std::isupper(static_cast<unsigned char>(c)) || std::isdigit(static_cast<unsigned char>(c))) capitals += c;
    }
    if (!hasLower || capitals.empty()) {
        keyword.shortcut = upper(word);
    } else if (leading > 0 && capitals.size() == leading) {
        keyword.shortcut = word.substr(0, leading);
    } else {
        keyword.shortcut = capitals;
        keyword.shortcutIsPrefix = false;
    }
    return keyword;
}

}  // namespace

std::vector<Keyword> parseKeywords(const std::string& list)
{
    std::vector<Keyword> keywords;
    size_t start = 0;
    while (start < list.size()) {
        size_t end = list.find(' ', start);
        if (end == std::string::npos) end = list.size();
        std::string item = list.substr(start, end - start);
        start = end + 1;
        if (item.empty() || item == "_") continue;
        size_t comma = item.find(',');
        if (comma == std::string::npos) {
            keywords.push_back(plainKeyword(item));
            continue;
        }
        Keyword keyword{item.substr(0, comma), upper(item.substr(comma + 1)), true};
        keyword.shortcutIsPrefix = upper(keyword.word).rfind(keyword.shortcut, 0) == 0;
        keywords.push_back(keyword);
    }
    return keywords;
}

std::optional<std::string> matchKeyword(const std::vector<Keyword>& keywords, const std::string& input)
{
    if (input.empty()) return std::nullopt;
    std::string typed = upper(input);
    for (const Keyword& keyword : keywords) {
        std::string word = upper(keyword.word);
        if (typed == word || typed == keyword.shortcut) return keyword.word;
        bool startsWord = word.rfind(typed, 0) == 0;
        if (keyword.shortcutIsPrefix && startsWord && typed.size() >= keyword.shortcut.size()) return keyword.word;
    }
    return std::nullopt;
}

}  // namespace vorn
