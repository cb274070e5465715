#include "host/select_filter.h"

#include <cctype>

#include "base/textnum.h"

namespace vorn::host {

namespace {

bool charMatches(char p, char c)
{
    switch (p) {
    case '?': return true;
    case '#': return std::isdigit(static_cast<unsigned char>(c)) != 0;
    case '@': return std::isalpha(static_cast<unsigned char>(c)) != 0;
    default: return std::tolower(static_cast<unsigned char>(p)) == std::tolower(static_cast<unsigned char>(c));
    }
}

bool matchFrom(const std::string& p, std::size_t pi, const std::string& t, std::size_t ti)
{
    while (pi < p.size()) {
        if (p[pi] == '*') {
            for (std::size_t k = ti; k <= t.size(); ++k)
                if (matchFrom(p, pi + 1, t, k)) return true;
            return false;
        }
        if (ti >= t.size()) return false;
        if (p[pi] == '`' && pi + 1 < p.size()) {
            if (std::tolower(static_cast<unsigned char>(p[pi + 1])) != std::tolower(static_cast<unsigned char>(t[ti]))) return false;
            pi += 2;
        } else {
            if (!charMatches(p[pi], t[ti])) return false;
            ++pi;
        }
        ++ti;
    }
    return ti == t.size();
}

}  // namespace

bool wildcardMatch(const std::string& pattern, const std::string& text)
{
    if (!pattern.empty() && pattern[0] == '~') return !matchFrom(pattern, 1, text, 0);
    return matchFrom(pattern, 0, text, 0);
}

bool matchesPatternList(const std::string& list, const std::string& text)
{
    std::size_t start = 0;
    while (true) {
        std::size_t comma = list.find(',', start);
        std::string piece = list.substr(start, comma == std::string::npos ? std::string::npos : comma - start);
        if (wildcardMatch(piece, text)) return true;
        if (comma == std::string::npos) return false;
        start = comma + 1;
    }
}

SelectionFilter::SelectionFilter(const ResultBuffer& filter)
{
    bool inXdata = false;
    for (const ResultItem& item : filter) {
        if (item.restype == -3) {
            inXdata = true;
        } else if (item.restype == 1001 && inXdata) {
            applications_.push_back(item.text);
        } else if (item.restype == 0) {
            types_.push_back(item.text);
        } else if (item.restype == 8) {
            layers_.push_back(item.text);
        } else if (item.restype == 62) {
            colors_.push_back(item.integer);
        } else {
            supported_ = false;
        }
    }
}

bool SelectionFilter::matches(const Entity& entity) const
{
    if (!supported_) return false;
    for (const std::string& list : types_)
        if (!matchesPatternList(list, dxfTypeName(entity.kind()))) return false;
    for (const std::string& list : layers_)
        if (!matchesPatternList(list, entity.common.layer)) return false;
    for (std::int64_t color : colors_)
        if (entity.common.colorIndex != color) return false;
    if (applications_.empty()) return true;
    std::vector<std::string> present = xdataApplications(entity.common);
    for (const std::string& list : applications_) {
        bool found = false;
        for (const std::string& name : present) found = found || matchesPatternList(list, name);
        if (!found) return false;
    }
    return true;
}

}  // namespace vorn::host
