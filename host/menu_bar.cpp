#include "host/menu_bar.h"

#include <algorithm>

#include "base/textnum.h"

namespace vorn {

namespace {
// The place to insert at `index` in a list of `size` entries, held to the list.
long insertionPoint(int index, size_t size)
{
    return static_cast<long>(std::min(static_cast<size_t>(std::max(index, 0)), size));
}
}  // namespace

HostPopup::Item& HostPopup::insertAt(int index)
{
    return *items_.insert(items_.begin() + insertionPoint(index, items_.size()), Item{});
}

void HostPopup::addMenuItem(int index, const std::string& label, const std::string& macro, const std::string& helpText)
{
    Item& item = insertAt(index);
    item.label = label;
    item.macro = macro;
    item.helpText = helpText;
}

void HostPopup::addSeparator(int index) { insertAt(index).kind = Item::Kind::Separator; }

MenuPopup& HostPopup::addSubMenu(int index, const std::string& label)
{
    Item& item = insertAt(index);
    item.kind = Item::Kind::SubMenu;
    item.label = label;
    item.subMenu = std::make_unique<HostPopup>(label);
    return *item.subMenu;
}

void HostPopup::describe(std::string& out, int depth) const
{
    std::string indent(static_cast<size_t>(depth) * 4, ' ');
    for (const Item& item : items_) {
        switch (item.kind) {
        case Item::Kind::Separator: out += indent + "--\n"; break;
        case Item::Kind::SubMenu:
            out += indent + item.label + "\n";
            item.subMenu->describe(out, depth + 1);
            break;
        case Item::Kind::Command:
            out += indent + item.label + "\t" + visibleMacro(item.macro) + "\t" + item.helpText + "\n";
            break;
        }
    }
}

HostMenuBar::HostMenuBar()
{
    for (const char* name : {"File", "Edit", "View", "Window", "Help"}) {
        addMenu(name);
        bar_.push_back(name);
    }
}

MenuPopup* HostMenuBar::findMenu(const std::string& name) { return const_cast<HostPopup*>(menu(name)); }

const HostPopup* HostMenuBar::menu(const std::string& name) const
{
    for (const auto& popup : menus_)
        if (iequals(popup->name(), name)) return popup.get();
    return nullptr;
}

MenuPopup& HostMenuBar::addMenu(const std::string& name)
{
    menus_.push_back(std::make_unique<HostPopup>(name));
    return *menus_.back();
}

bool HostMenuBar::isOnMenuBar(const std::string& name) const
{
    return std::any_of(bar_.begin(), bar_.end(), [&](const std::string& shown) { return iequals(shown, name); });
}

void HostMenuBar::insertInMenuBar(const std::string& name, int index)
{
    bar_.insert(bar_.begin() + insertionPoint(index, bar_.size()), name);
}

void HostMenuBar::removeFromMenuBar(const std::string& name)
{
    bar_.erase(std::remove_if(bar_.begin(), bar_.end(), [&](const std::string& shown) { return iequals(shown, name); }),
               bar_.end());
}

}  // namespace vorn
