// Small helpers the stability panels share: text replacement as the
// platform's strings do it, numbers in edit fields, ids read from text.
#pragma once

#include <string>

namespace vorn {

// Every occurrence of `what` replaced by `with`, compared exactly.
std::string replaceAll(std::string text, const std::string& what, const std::string& with);

// A double as an edit field of the platform shows it ("%.15g").
std::string doubleFieldText(double value);

// The platform's `_wtol`: a leading integer, 0 when there is none; the
// result is a 32-bit long.
long wtol32(const std::string& text);

}  // namespace vorn
