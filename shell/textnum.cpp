#include "shell/textnum.h"

#include <cctype>
#include <charconv>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace vorn {

std::string vformatString(const char* format, va_list args)
{
    char small[512];
    va_list copy;
    va_copy(copy, args);
    int needed = std::vsnprintf(small, sizeof small, format, copy);
    va_end(copy);
    if (needed < 0) return {};
    if (static_cast<size_t>(needed) < sizeof small) return std::string(small, static_cast<size_t>(needed));
    std::vector<char> big(static_cast<size_t>(needed) + 1);
    std::vsnprintf(big.data(), big.size(), format, args);
    return std::string(big.data(), static_cast<size_t>(needed));
}

std::string formatString(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = vformatString(format, args);
    va_end(args);
    return text;
}

void appendFixed6(std::string& out, double value)
{
    // std::to_chars with a precision prints exactly as printf does in the C
    // locale, and is several times faster than snprintf.
    char buffer[400];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6);
    out.append(buffer, result.ptr);
}

std::string toLower(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return lower;
}

bool iequals(std::string_view a, std::string_view b)
{
    if (a.size() != b.size()) return false;
    for (size_t k = 0; k < a.size(); ++k) {
        if (std::tolower(static_cast<unsigned char>(a[k])) != std::tolower(static_cast<unsigned char>(b[k]))) return false;
    }
    return true;
}

}  // namespace vorn

namespace {
bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }

// Where the digits of a number begin: after leading blanks and one sign.
struct NumberStart {
    const char* digits;
    const char* end;
    bool negative;
};

NumberStart numberStart(std::string_view text)
{
    const char* p = text.data();
    const char* end = p + text.size();
    while (p < end && isBlank(*p)) ++p;
    bool negative = false;
    if (p < end && (*p == '+' || *p == '-')) negative = *p++ == '-';
    return {p, end, negative};
}

bool startsWithSign(const char* p, const char* end) { return p < end && (*p == '+' || *p == '-'); }
}  // namespace

double _wtof(std::string_view text)
{
    NumberStart n = numberStart(text);
    // from_chars would take a second sign; the platform reads no number.
    if (startsWithSign(n.digits, n.end)) return 0.0;
    double value = 0.0;
    auto result = std::from_chars(n.digits, n.end, value, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars leaves the value untouched on range errors; strtod's
        // reading (huge values become inf, tiny ones 0) is the platform's.
        std::string copy(n.digits, n.end);
        value = std::strtod(copy.c_str(), nullptr);
    } else if (result.ec != std::errc()) {
        return 0.0;
    }
    return n.negative ? -value : value;
}

int _wtoi(std::string_view text)
{
    NumberStart n = numberStart(text);
    long long value = 0;
    for (const char* p = n.digits; p < n.end && *p >= '0' && *p <= '9'; ++p) {
        value = value * 10 + (*p - '0');
        if (value > static_cast<long long>(INT_MAX) + 1) break;
    }
    if (n.negative) value = -value;
    if (value > INT_MAX) return INT_MAX;
    if (value < INT_MIN) return INT_MIN;
    return static_cast<int>(value);
}
