// Text helpers of the stand-alone host's readers.
#pragma once

#include <string>

namespace vorn {

// The text without blanks, tabs and line ends at either end.
std::string trimBlanks(const std::string& text);

}  // namespace vorn
