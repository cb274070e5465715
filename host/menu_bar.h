// The menu bar of the stand-alone host: a few pull-downs of its own and the
// menus of its first menu group, kept by the session so that they outlive
// loading and unloading of the application.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "commands/menu.h"

namespace vorn {

class HostPopup : public MenuPopup {
public:
    struct Item {
        enum class Kind { Command, Separator, SubMenu } kind = Kind::Command;
        std::string label;
        std::string macro;
        std::string helpText;
        std::unique_ptr<HostPopup> subMenu;
    };

    explicit HostPopup(std::string name) : name_(std::move(name)) {}
    void addMenuItem(int index, const std::string& label, const std::string& macro, const std::string& helpText) override;
    void addSeparator(int index) override;
    MenuPopup& addSubMenu(int index, const std::string& label) override;

    const std::string& name() const { return name_; }
    const std::vector<Item>& items() const { return items_; }
    // One line per item, sub-menus indented, macros with visible controls.
    void describe(std::string& out, int depth = 0) const;

private:
    Item& insertAt(int index);

    std::string name_;
    std::vector<Item> items_;
};

class HostMenuBar : public MenuAutomation {
public:
    // The host's own pull-downs: "File", "Edit", "View", "Window", "Help".
    HostMenuBar();

    int menuBarCount() const override { return static_cast<int>(bar_.size()); }
    MenuPopup* findMenu(const std::string& name) override;
    MenuPopup& addMenu(const std::string& name) override;
    bool isOnMenuBar(const std::string& name) const override;
    void insertInMenuBar(const std::string& name, int index) override;
    void removeFromMenuBar(const std::string& name) override;

    // The captions of the pull-downs on the bar, in order.
    const std::vector<std::string>& bar() const { return bar_; }
    const HostPopup* menu(const std::string& name) const;

private:
    std::vector<std::unique_ptr<HostPopup>> menus_;
    std::vector<std::string> bar_;
};

}  // namespace vorn
