#include "base/nearest_name.h"

#include <algorithm>
#include <cctype>

namespace vorn {

namespace {

std::string lowered(const std::string& text)
{
    std::string out = text;
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

// Edits between two words: insertions, deletions, substitutions and swaps
// of two neighbouring letters, each counting one.
size_t editDistance(const std::string& a, const std::string& b)
{
    std::vector<std::vector<size_t>> d(a.size() + 1, std::vector<size_t>(b.size() + 1));
    for (size_t i = 0; i <= a.size(); ++i) d[i][0] = i;
    for (size_t j = 0; j <= b.size(); ++j) d[0][j] = j;
    for (size_t i = 1; i <= a.size(); ++i) {
        for (size_t j = 1; j <= b.size(); ++j) {
            d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, d[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
        }
    }
    return d[a.size()][b.size()];
}

}  // namespace

std::string nearestName(const std::string& typed, const std::vector<std::string>& names)
{
    std::string key = lowered(typed);
    if (key.empty()) return "";
    std::string best;
    size_t bestDistance = key.size() / 3 + 1;
    for (const std::string& name : names) {
        std::string candidate = lowered(name);
        size_t distance = candidate.rfind(key, 0) == 0 ? 0 : editDistance(key, candidate);
        if (distance < bestDistance) {
            bestDistance = distance;
            best = name;
        }
    }
    return best;
}

}  // namespace vorn
