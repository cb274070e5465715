// Keyword matching as the CAD program's command line does it. A keyword
// list is the text given with the prompt's keywords: words separated by
// blanks, each either "Keep" (the capital letters mark the shortest input
// that selects it, here "K") or "WINDOW,W" (the word and its shortcut).
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vorn {

struct Keyword {
    std::string word;      // returned when the keyword is chosen
    std::string shortcut;  // shortest accepted input (upper case)
    bool shortcutIsPrefix = true;  // inputs between shortcut and word count
};

// Parses a keyword list ("Yes No", "YES,Y NO,N", "Draw,D").
std::vector<Keyword> parseKeywords(const std::string& list);

// The keyword that `input` selects, compared without regard to case: the
// whole word, the shortcut, or (when the shortcut starts the word) any
// start of the word at least as long as the shortcut. The first keyword of
// the list that matches wins.
std::optional<std::string> matchKeyword(const std::vector<Keyword>& keywords, const std::string& input);

}  // namespace vorn
