#include "drawing/ui_port.h"

#include <string>

#include "drawing/platform.h"
#include "shell/textnum.h"

namespace {
vorn::UiPort* ui() { return vorn::platform().ui; }
}  // namespace

std::string GetProfileString(const std::string& section, const std::string& key, const std::string& defaultValue)
{
    return ui() ? ui()->profileString(section, key, defaultValue) : defaultValue;
}

bool WriteProfileString(const std::string& section, const std::string& key, const std::string& value)
{
    return ui() && ui()->writeProfileString(section, key, value);
}

// The platform reads an integer entry as a number and gives the default
// for a missing one.
int GetProfileInt(const std::string& section, const std::string& key, int defaultValue)
{
    if (!ui()) return defaultValue;
    const std::string missing = "\x01";
    std::string value = ui()->profileString(section, key, missing);
    return value == missing ? defaultValue : _wtoi(value);
}

bool WriteProfileInt(const std::string& section, const std::string& key, int value)
{
    return WriteProfileString(section, key, std::to_string(value));
}
