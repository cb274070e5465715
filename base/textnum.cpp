#include "base/textnum.h"

#include <cctype>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
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

namespace {

// The value times 10^6 rounded as printf rounds the exact binary value: to
// nearest, ties to even. The product is carried as hi + lo (exact through
// fma), so the tie test looks at the true product, not a rounded one.
uint64_t roundedMillionths(double magnitude)
{
    double hi = magnitude * 1e6;
    double lo = std::fma(magnitude, 1e6, -hi);
    double whole = std::floor(hi);
    double excess = (hi - whole - 0.5) + lo;
    uint64_t n = static_cast<uint64_t>(whole);
    // |lo| is far below one half, so the nearest integer is whole or whole + 1.
    if (excess > 0.0 || (excess == 0.0 && (n & 1) != 0)) ++n;
    return n;
}

// Writes `value` with at least `minDigits` digits so that it ends just
// before `end`; returns where it begins.
char* digitsBefore(char* end, uint64_t value, int minDigits)
{
    int written = 0;
    do {
        *--end = static_cast<char>('0' + value % 10);
        value /= 10;
        ++written;
    } while (value != 0 || written < minDigits);
    return end;
}

}  // namespace

void appendFixed6(std::string& out, double value)
{
    double magnitude = std::fabs(value);
    if (!(magnitude < 1e9)) {
        // Large, infinite or NaN: std::to_chars with a precision prints
        // exactly as printf does in the C locale.
        char buffer[400];
        auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6);
        out.append(buffer, result.ptr);
        return;
    }
    uint64_t millionths = roundedMillionths(magnitude);
    char buffer[32];
    char* end = buffer + sizeof buffer;
    char* begin = digitsBefore(end, millionths % 1000000, 6);
    *--begin = '.';
    begin = digitsBefore(begin, millionths / 1000000, 1);
    if (std::signbit(value)) *--begin = '-';
    out.append(begin, end);
}

void appendGeneral(std::string& out, double value, int width, int precision)
{
    // std::to_chars with the general format and a precision prints exactly
    // as printf's %g does in the C locale; only the padding is left to add.
    char buffer[400];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, precision);
    const auto length = static_cast<int>(result.ptr - buffer);
    if (length < width) out.append(static_cast<size_t>(width - length), ' ');
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
