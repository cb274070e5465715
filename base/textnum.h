// Numbers and text as the system reads and writes them: the `_wtof` and
// `_wtoi` readings (leading blanks skipped, no number gives 0, trailing text
// ignored) and printf formatting into strings.
#pragma once

#include <cstdarg>
#include <string>
#include <string_view>

namespace vorn {

std::string formatString(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string vformatString(const char* format, va_list args);

// Appends `value` as "%f" would print it (six decimals, no exponent).
void appendFixed6(std::string& out, double value);
// Appends `value` as "%<width>.<precision>g" would print it (C locale),
// without the cost of a formatted print.
void appendGeneral(std::string& out, double value, int width, int precision);

std::string toLower(std::string_view text);
bool iequals(std::string_view a, std::string_view b);

}  // namespace vorn

// The platform's string to number readings.
double _wtof(std::string_view text);
int _wtoi(std::string_view text);
