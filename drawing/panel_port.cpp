#include "drawing/panel_port.h"

#include "drawing/platform.h"
#include "base/report.h"

namespace vorn {

const char* controlKindName(ControlKind kind)
{
    switch (kind) {
    case ControlKind::Edit: return "edit";
    case ControlKind::Check: return "check";
    case ControlKind::Radio: return "radio";
    case ControlKind::List: return "list";
    case ControlKind::Combo: return "combo";
    case ControlKind::Button: return "button";
    case ControlKind::Static: return "static";
    }
    return "control";
}

std::string PanelControl::valueText() const
{
    if (checked) return *checked ? "on" : "off";
    if (text) return *text;
    return {};
}

namespace {
PanelControl makeControl(std::string caption, ControlKind kind, std::function<void()> action)
{
    PanelControl control;
    control.caption = std::move(caption);
    control.kind = kind;
    control.action = std::move(action);
    return control;
}
}  // namespace

PanelControl editControl(std::string caption, std::string& field, std::function<void()> onChange)
{
    PanelControl control = makeControl(std::move(caption), ControlKind::Edit, std::move(onChange));
    control.text = &field;
    return control;
}

PanelControl readOnlyControl(std::string caption, std::string& field)
{
    PanelControl control = editControl(std::move(caption), field);
    control.readOnly = true;
    return control;
}

PanelControl staticControl(std::string caption, std::string& field)
{
    PanelControl control = makeControl(std::move(caption), ControlKind::Static, {});
    control.text = &field;
    control.readOnly = true;
    return control;
}

PanelControl checkControl(std::string caption, bool& field, std::function<void()> onChange)
{
    PanelControl control = makeControl(std::move(caption), ControlKind::Check, std::move(onChange));
    control.checked = &field;
    return control;
}

PanelControl radioControl(std::string caption, bool& field, std::function<void()> onChange)
{
    PanelControl control = checkControl(std::move(caption), field, std::move(onChange));
    control.kind = ControlKind::Radio;
    return control;
}

PanelControl comboControl(std::string caption, std::string& field, const std::vector<std::string>& items,
                          std::function<void()> onChange)
{
    PanelControl control = makeControl(std::move(caption), ControlKind::Combo, std::move(onChange));
    control.text = &field;
    control.items = &items;
    return control;
}

PanelControl listControl(std::string caption, std::string& field, const std::vector<std::string>& items,
                         std::function<void()> onChange)
{
    PanelControl control = comboControl(std::move(caption), field, items, std::move(onChange));
    control.kind = ControlKind::List;
    return control;
}

PanelControl buttonControl(std::string caption, std::function<void()> press)
{
    return makeControl(std::move(caption), ControlKind::Button, std::move(press));
}

int Panel::DoModal()
{
    PanelPort* port = platform().panels;
    if (!port) {
        consolePrintf("No panel host is installed; \"%s\" cannot be shown.\n", panelTitle().c_str());
        return IDCANCEL;
    }
    return port->runModal(*this);
}

void Panel::EndDialog(int result)
{
    ended_ = true;
    result_ = result;
}

void Panel::beginModal()
{
    ended_ = false;
    result_ = 0;
    hidden_ = false;
}

void Panel::setHidden(bool hidden)
{
    if (hidden_ == hidden) return;
    hidden_ = hidden;
    if (PanelPort* port = platform().panels) port->panelVisibility(*this, hidden);
}

const PanelControl* findControl(const std::vector<PanelControl>& controls, const std::string& caption)
{
    for (const PanelControl& control : controls)
        if (control.caption == caption) return &control;
    return nullptr;
}

}  // namespace vorn
