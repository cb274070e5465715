// Real numbers and angles as the command line shows and reads them, for
// the unit modes of the stand-alone host: linear 1 scientific and 2
// decimal, angular 0 degrees, 2 grads and 3 radians. Other modes are shown
// in decimal form (the host's drawings carry no architectural units).
#pragma once

#include <string>

namespace vorn {

// `value` in linear unit mode `unit` with `precision` decimals.
std::string realToString(double value, int unit, int precision);
// `radians` in angular unit mode `unit` with `precision` decimals; the
// angle is brought into [0, 2 pi) first.
std::string angleToString(double radians, int unit, int precision);
// Reads a distance written in linear unit mode `unit`: the whole text (blanks
// around it aside) must be a number. False when it is not.
bool stringToDistance(const std::string& text, int unit, double& value);

}  // namespace vorn
