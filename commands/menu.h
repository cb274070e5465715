// The pull-down menu "Vornmark": the menu record built item by item, and
// its installation on the menu bar through the automation layer of the
// host (add pop-up, add item, add separator, add sub-menu, insert in bar,
// remove from bar, is-on-bar, count).
#pragma once

#include <string>
#include <vector>

// A menu under construction: three parallel lists and the menu's caption.
struct CVornMenu {
    std::vector<std::string> helpTexts;
    std::vector<std::string> macros;
    std::vector<std::string> labels;
    std::string menuName;

    // Adds one item: the macro is Ctrl-C Ctrl-C, the command and a blank; an
    // empty help text becomes "<label without &> -- <menuName> Command.".
    void addItem(const std::string& label, const std::string& command, const std::string& help);
};

// The record of the pull-down "Vornmark" with its 39 items.
CVornMenu buildVornMenu();

namespace vorn {

class MenuPopup {
public:
    virtual ~MenuPopup() = default;
    virtual void addMenuItem(int index, const std::string& label, const std::string& macro,
                             const std::string& helpText) = 0;
    virtual void addSeparator(int index) = 0;
    virtual MenuPopup& addSubMenu(int index, const std::string& label) = 0;
};

// The menu bar and the menus of the first menu group of the running host.
class MenuAutomation {
public:
    virtual ~MenuAutomation() = default;
    virtual int menuBarCount() const = 0;
    // The group's menu of that name, nullptr if there is none.
    virtual MenuPopup* findMenu(const std::string& name) = 0;
    virtual MenuPopup& addMenu(const std::string& name) = 0;
    virtual bool isOnMenuBar(const std::string& name) const = 0;
    virtual void insertInMenuBar(const std::string& name, int index) = 0;
    virtual void removeFromMenuBar(const std::string& name) = 0;
};

// The automation layer in use, nullptr when the host has no menu bar.
MenuAutomation* menuAutomation();
void setMenuAutomation(MenuAutomation* automation);

// Adds the record's pop-up to the host's menus unless one of that name
// exists, then toggles it on the menu bar.
void installMenu(const CVornMenu& menu);

// A macro with its control characters shown as ^C.
std::string visibleMacro(const std::string& macro);

}  // namespace vorn
