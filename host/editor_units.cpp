#include "host/editor_units.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "base/textnum.h"

namespace vorn {

namespace {

// printf shows a tiny negative value as "-0.00"; the command line does not.
double withoutNegativeZero(double value, int precision)
{
    double scale = std::pow(10.0, precision);
    return std::round(value * scale) == 0.0 ? 0.0 : value;
}

int clampPrecision(int precision) { return precision < 0 ? 0 : (precision > 8 ? 8 : precision); }

}  // namespace

std::string realToString(double value, int unit, int precision)
{
    precision = clampPrecision(precision);
    if (unit == 1) return formatString("%.*E", precision, value);
    return formatString("%.*f", precision, withoutNegativeZero(value, precision));
}

std::string angleToString(double radians, int unit, int precision)
{
    precision = clampPrecision(precision);
    const double turn = 2.0 * std::numbers::pi;
    double angle = std::fmod(radians, turn);
    if (angle < 0.0) angle += turn;
    switch (unit) {
    case 2: return formatString("%.*fg", precision, withoutNegativeZero(angle * 400.0 / turn, precision));
    case 3: return formatString("%.*fr", precision, withoutNegativeZero(angle, precision));
    default: return formatString("%.*f", precision, withoutNegativeZero(angle * 360.0 / turn, precision));
    }
}

bool stringToDistance(const std::string& text, int unit, double& value)
{
    size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return false;
    const char* start = text.c_str() + first;
    char* end = nullptr;
    errno = 0;
    double parsed = std::strtod(start, &end);
    if (end == start || errno != 0) return false;
    while (*end == ' ' || *end == '\t') ++end;
    if (*end != '\0') return false;
    value = parsed;
    return true;
}

}  // namespace vorn
