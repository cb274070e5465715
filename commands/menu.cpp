#include "commands/menu.h"

#include <algorithm>

namespace {

std::string trimmed(const std::string& text)
{
    const char* blanks = " \t\r\n";
    size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return {};
    size_t last = text.find_last_not_of(blanks);
    return text.substr(first, last - first + 1);
}

std::string withoutAmpersands(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
    return text;
}

}  // namespace

void CVornMenu::addItem(const std::string& label, const std::string& command, const std::string& help)
{
    std::string cleanLabel = trimmed(label);
    if (cleanLabel.empty()) return;
    macros.push_back(std::string("\x03\x03") + trimmed(command) + " ");
    labels.push_back(cleanLabel);
    if (help.empty())
        helpTexts.push_back(withoutAmpersands(cleanLabel) + " -- " + menuName + " Command.");
    else
        helpTexts.push_back(help);
}

CVornMenu buildVornMenu()
{
    struct Item {
        const char* label;
        const char* command;
        const char* help;
    };
    static const Item items[] = {
        {"&Define Base Grid", "_vorn_setgrid", "defines a base grid for this session"},
        {"--", "", ""},
        {"Factor from &Contour Lines", "_vorn_gridFromContour", "generates grid files from various contour lines"},
        {"Factor from Point Features", "_vorn_gridfrompoint",
         "generates grid file from point geological features such as drill holes"},
        {"Factor from Linear Features", "_vorn_geofeatures",
         "generates grid file from linear geological features such as faults and cutter roof"},
        {"Factor from &Area Boundaries", "_vorn_sFactorInArea",
         "generates grid file from closed boundary areas such as valleys or ponds"},
        {"--", "", ""},
        {"&Topography Stress Calculation", "vorn_topostressmodel", ""},
        {"&Horizontal Stress Gridding", "vorn_horizstress", ""},
        {"--", "", ""},
        {"RFRI - Assign/Input Defects", "vorn_RFRI_Input", ""},
        {"RFRI - List Defects", "vorn_RFRI_List", ""},
        {"RFRI - Label Defects", "vorn_RFRI_Label", ""},
        {"RFRI - Calculate and Mapping", "vorn_RFRI_Mapping", ""},
        {"--", "", ""},
        {"RFRI - Draw Defects", "vorn_RFRI_Draw", ""},
        {"RFRI - Calculate RFRI", "vorn_RFRI_Calc", ""},
        {"--", "", ""},
        {"Topography Grid Generation for Keldar", "vorn_topogrid", ""},
        {"&Seam Grid Generation for Keldar", "vorn_seamgrid", "generates a grid for importing into KelPre application."},
        {"&Keldar Calculation", "vorn_keldar", ""},
        {"Transfer &Keldar/MulSim Results", "vorn_convkelgrid",
         "transfers the results of Keldar to grid file of Vornmark Modules"},
        {"--", "", ""},
        {"Transformation of Individual &Factors", "_vorn_genFactor",
         "generates individual stability index for selected grid"},
        {"Final Stability &Index", "vorn_StabilityIndex",
         "integrates individual index grids into composite stability index"},
        {"&Index Mapping", "vorn_indexmapping", "mapping stability index grid over entries"},
        {"--", "", ""},
        {"Grid &Utilities", "vorn_gridutility", "views, plots and manipulates grids"},
        {"->&Polyline Utilities", "", ""},
        {"Create Polyline from Objects", "vorn_createPolylineFromObjects", ""},
        {"Join Polylines", "vorn_joinPolylines", ""},
        // The macro names no registered command: the item brings the platform's
        // reply to an unknown command.
        {"Close Polylines", "vorn_checkClosedPloylines", ""},
        {"Check Overlaped Polygones", "vorn_checkOverlaps", ""},
        {"Check Duplicate Polygones", "vorn_checkDuplicates", ""},
        {"Check Abnormal Contour Lines", "vorn_checkContours", ""},
        {"--", "", ""},
        {"<-Clear Objects in Layer", "vorn_clearWorkingLayer", ""},
        {"--", "", ""},
        // The apostrophe makes the about box a transparent invocation.
        {"About Vornmark", "'_vorn_vornabout", "About Vornmark System for Mines"},
    };
    CVornMenu menu;
    menu.menuName = "Vornmark";
    for (const Item& item : items) menu.addItem(item.label, item.command, item.help);
    return menu;
}

namespace vorn {

namespace {

MenuAutomation*& currentAutomation()
{
    static MenuAutomation* automation = nullptr;
    return automation;
}

bool startsWith(const std::string& text, const char* prefix) { return text.rfind(prefix, 0) == 0; }

void fillPopup(MenuPopup& popup, const CVornMenu& menu)
{
    MenuPopup* subMenu = nullptr;
    int position = 0;
    int subPosition = 0;
    for (size_t k = 0; k < menu.labels.size(); ++k) {
        const std::string& label = menu.labels[k];
        if (startsWith(label, "->")) {
            subMenu = &popup.addSubMenu(position++, label.substr(2));
            subPosition = 0;
            continue;
        }
        MenuPopup& target = subMenu ? *subMenu : popup;
        int& index = subMenu ? subPosition : position;
        if (startsWith(label, "--")) {
            target.addSeparator(index++);
        } else if (startsWith(label, "<-")) {
            target.addMenuItem(index++, label.substr(2), menu.macros[k], menu.helpTexts[k].substr(2));
            subMenu = nullptr;
        } else {
            target.addMenuItem(index++, label, menu.macros[k], menu.helpTexts[k]);
        }
    }
}

}  // namespace

MenuAutomation* menuAutomation() { return currentAutomation(); }
void setMenuAutomation(MenuAutomation* automation) { currentAutomation() = automation; }

void installMenu(const CVornMenu& menu)
{
    MenuAutomation* automation = menuAutomation();
    if (!automation) return;
    int barCount = automation->menuBarCount();
    if (!automation->findMenu(menu.menuName)) fillPopup(automation->addMenu(menu.menuName), menu);
    if (automation->isOnMenuBar(menu.menuName))
        automation->removeFromMenuBar(menu.menuName);
    else
        automation->insertInMenuBar(menu.menuName, std::max(barCount - 2, 1));
}

std::string visibleMacro(const std::string& macro)
{
    std::string shown;
    for (char c : macro) {
        if (static_cast<unsigned char>(c) < 32) {
            shown += '^';
            shown += static_cast<char>(c + 64);
        } else {
            shown += c;
        }
    }
    return shown;
}

}  // namespace vorn
