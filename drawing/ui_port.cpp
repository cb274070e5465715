#include "drawing/ui_port.h"

#include <string>

#include "drawing/platform.h"
#include "base/textnum.h"

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

bool acedSetColorDialogTrueColor(int& colorIndex, bool allowMetaColor, int currentLayerColor)
{
    int chosen = colorIndex;
    if (!ui() || !ui()->colorDialog(colorIndex, allowMetaColor, chosen)) return false;
    colorIndex = chosen;
    return true;
}

namespace {

// Channel levels of the palette's hue rows, from the full colour down.
const double kShades[] = {255.0, 165.0, 127.0, 76.0, 38.0};

unsigned long rgb(int red, int green, int blue)
{
    return static_cast<unsigned long>(red) | (static_cast<unsigned long>(green) << 8) | (static_cast<unsigned long>(blue) << 16);
}

// The ramp of one channel on the hue wheel of 24 steps of 15 degrees.
double hueChannel(double hue)
{
    hue = hue - 360.0 * static_cast<int>(hue / 360.0);
    if (hue < 60.0) return 255.0;
    if (hue < 120.0) return 255.0 * (120.0 - hue) / 60.0;
    if (hue < 240.0) return 0.0;
    if (hue < 300.0) return 255.0 * (hue - 240.0) / 60.0;
    return 255.0;
}

}  // namespace

unsigned long acedGetRGB(int colorIndex)
{
    static const int basic[10][3] = {{0, 0, 0}, {255, 0, 0}, {255, 255, 0}, {0, 255, 0}, {0, 255, 255},
                                     {0, 0, 255}, {255, 0, 255}, {255, 255, 255}, {128, 128, 128}, {192, 192, 192}};
    static const int grays[6] = {51, 91, 132, 173, 214, 255};
    if (colorIndex < 1 || colorIndex > 255) return 0;
    if (colorIndex < 10) return rgb(basic[colorIndex][0], basic[colorIndex][1], basic[colorIndex][2]);
    if (colorIndex >= 250) return rgb(grays[colorIndex - 250], grays[colorIndex - 250], grays[colorIndex - 250]);
    double hue = (colorIndex / 10 - 1) * 15.0;
    double channels[3] = {hueChannel(hue), hueChannel(hue + 240.0), hueChannel(hue + 120.0)};
    int variant = colorIndex % 10;
    int value[3];
    for (int c = 0; c < 3; ++c) {
        double level = variant % 2 ? 255.0 - (255.0 - channels[c]) / 2.0 : channels[c];
        value[c] = static_cast<int>(level * kShades[variant / 2] / 255.0);
    }
    return rgb(value[0], value[1], value[2]);
}
