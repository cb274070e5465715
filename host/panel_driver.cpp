#include "host/panel_driver.h"

#include <algorithm>

#include "base/report.h"
#include "base/textnum.h"

namespace vorn {

std::vector<std::string> addressableCaptions(const std::vector<PanelControl>& controls)
{
    std::vector<std::string> captions;
    for (size_t k = 0; k < controls.size(); ++k) {
        long earlier = std::count_if(controls.begin(), controls.begin() + static_cast<long>(k),
                                     [&](const PanelControl& c) { return c.caption == controls[k].caption; });
        captions.push_back(earlier == 0 ? controls[k].caption
                                        : controls[k].caption + formatString(" [%ld]", earlier + 1));
    }
    return captions;
}

namespace {

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string resultName(int result) { return result == IDOK ? "OK" : result == IDCANCEL ? "Cancel" : formatString("%d", result); }

const char* actionWord(PanelAnswer::Action action)
{
    switch (action) {
    case PanelAnswer::Action::Set: return "set";
    case PanelAnswer::Action::Check: return "check";
    case PanelAnswer::Action::Choose: return "choose";
    case PanelAnswer::Action::Press: return "press";
    case PanelAnswer::Action::Tab: return "tab";
    case PanelAnswer::Action::Ok: return "ok";
    case PanelAnswer::Action::Cancel: return "cancel";
    }
    return "panel action";
}

// The kinds of control each action works on.
bool fits(PanelAnswer::Action action, const PanelControl& control)
{
    switch (action) {
    // A combo box takes typed text too; a read-only button is disabled.
    case PanelAnswer::Action::Set:
        return (control.kind == ControlKind::Edit || control.kind == ControlKind::Combo) && !control.readOnly;
    case PanelAnswer::Action::Check: return control.kind == ControlKind::Check || control.kind == ControlKind::Radio;
    case PanelAnswer::Action::Choose: return control.kind == ControlKind::List || control.kind == ControlKind::Combo;
    case PanelAnswer::Action::Press: return control.kind == ControlKind::Button && !control.readOnly;
    default: return false;
    }
}

}  // namespace

void PanelDriver::noteFields(Panel& panel, const std::string& heading)
{
    std::string note = quoted(panel.panelTitle()) + " " + heading;
    std::vector<std::string> tabs = panel.panelTabs();
    if (panel.panelActiveTab() >= 0 && panel.panelActiveTab() < static_cast<int>(tabs.size()))
        note += ", tab " + quoted(tabs[static_cast<size_t>(panel.panelActiveTab())]);
    for (const PanelControl& control : panel.panelControls()) {
        if (control.kind == ControlKind::Button) continue;
        note += formatString("\n  %s %s = %s", controlKindName(control.kind), quoted(control.caption).c_str(),
                             quoted(control.valueText()).c_str());
    }
    transcript_.panel(note);
}

void PanelDriver::noteAction(Panel& panel, const PanelAnswer& answer)
{
    std::string note = quoted(panel.panelTitle()) + ": " + actionWord(answer.action);
    if (!answer.caption.empty()) note.append(1, ' ').append(quoted(answer.caption));
    if (answer.action == PanelAnswer::Action::Set || answer.action == PanelAnswer::Action::Choose)
        note.append(1, ' ').append(answer.value);
    if (answer.action == PanelAnswer::Action::Check) note += answer.on ? " on" : " off";
    transcript_.panel(note);
}

int PanelDriver::runModal(Panel& panel)
{
    panel.beginModal();
    panel.OnInitDialog();
    noteFields(panel, "opens");
    while (!panel.hasEnded()) {
        PanelAnswer answer = nextAnswer(panel);
        noteAction(panel, answer);
        apply(panel, answer);
    }
    noteFields(panel, "closes with " + resultName(panel.endResult()));
    return panel.endResult();
}

PanelAnswer PanelDriver::nextAnswer(Panel& panel) { return answers_.nextPanelAnswer(panel.panelTitle()); }

void PanelDriver::refuse(const PanelAnswer& answer, const std::string& why) { answers_.reject(answer.line, why); }

void PanelDriver::apply(Panel& panel, const PanelAnswer& answer)
{
    switch (answer.action) {
    case PanelAnswer::Action::Ok: panel.OnOK(); return;
    case PanelAnswer::Action::Cancel: panel.OnCancel(); return;
    case PanelAnswer::Action::Tab: {
        std::vector<std::string> tabs = panel.panelTabs();
        auto found = std::find(tabs.begin(), tabs.end(), answer.caption);
        if (found == tabs.end())
            refuse(answer, "the panel " + quoted(panel.panelTitle()) + " has no tab " + quoted(answer.caption));
        else
            panel.selectPanelTab(static_cast<int>(found - tabs.begin()));
        return;
    }
    default: applyToControl(panel, answer); return;
    }
}

void PanelDriver::applyToControl(Panel& panel, const PanelAnswer& answer)
{
    std::vector<PanelControl> controls = panel.panelControls();
    std::vector<std::string> captions = addressableCaptions(controls);
    auto found = std::find(captions.begin(), captions.end(), answer.caption);
    if (found == captions.end()) {
        refuse(answer, "the panel " + quoted(panel.panelTitle()) + " has no control " + quoted(answer.caption));
        return;
    }
    // Where a caption names several controls (a list and its button), the
    // first that takes the action is meant.
    auto fitting = std::find_if(controls.begin(), controls.end(), [&](const PanelControl& c) {
        return c.caption == answer.caption && fits(answer.action, c);
    });
    PanelControl& control = fitting != controls.end() ? *fitting : controls[static_cast<size_t>(found - captions.begin())];
    if (!fits(answer.action, control)) {
        refuse(answer, formatString("%s cannot be used on the %s%s %s", actionWord(answer.action),
                                    !control.readOnly ? "" : control.kind == ControlKind::Button ? "disabled " : "read-only ",
                                    controlKindName(control.kind),
                                    quoted(control.caption).c_str()));
        return;
    }
    if (answer.action == PanelAnswer::Action::Choose) {
        const std::vector<std::string>& items = *control.items;
        if (std::find(items.begin(), items.end(), answer.value) == items.end()) {
            refuse(answer, quoted(control.caption) + " offers no item " + quoted(answer.value));
            return;
        }
    }
    if (answer.action == PanelAnswer::Action::Set || answer.action == PanelAnswer::Action::Choose)
        *control.text = answer.value;
    if (answer.action == PanelAnswer::Action::Check) *control.checked = answer.on;
    if (control.action) control.action();
}

void PanelDriver::panelVisibility(Panel& panel, bool hidden)
{
    transcript_.panel(quoted(panel.panelTitle()) + (hidden ? " hidden" : " shown again"));
}

void PanelDriver::openAddress(const std::string& address)
{
    transcript_.panel("hands the address " + quoted(address) + " to the shell");
    consolePrintf("Open %s\n", address.c_str());
}

// ---- terminal

void TerminalPanelDriver::showForm(Panel& panel)
{
    std::fprintf(out_, "\n== %s ==\n", panel.panelTitle().c_str());
    std::vector<std::string> tabs = panel.panelTabs();
    for (size_t k = 0; k < tabs.size(); ++k)
        std::fprintf(out_, " t%zu %s%s\n", k + 1, tabs[k].c_str(),
                     static_cast<int>(k) == panel.panelActiveTab() ? "  (shown)" : "");
    std::vector<PanelControl> controls = panel.panelControls();
    std::vector<std::string> captions = addressableCaptions(controls);
    for (size_t k = 0; k < controls.size(); ++k) {
        const PanelControl& control = controls[k];
        if (control.kind == ControlKind::Button)
            std::fprintf(out_, " %2zu (%s)\n", k + 1, captions[k].c_str());
        else
            std::fprintf(out_, " %2zu %s [%s]%s\n", k + 1, captions[k].c_str(), control.valueText().c_str(),
                         control.readOnly ? " (read-only)" : "");
        if (control.items)
            for (const std::string& item : *control.items) std::fprintf(out_, "      - %s\n", item.c_str());
    }
    std::fprintf(out_, "Number [value], t<number> for a tab, ok or cancel: ");
    std::fflush(out_);
}

namespace {
std::string trimmedLine(std::string text)
{
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) text.pop_back();
    size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first);
}
}  // namespace

// Turns a typed choice into the action of the numbered control.
bool TerminalPanelDriver::readChoice(Panel& panel, PanelAnswer& answer)
{
    char buffer[4096];
    if (!std::fgets(buffer, sizeof buffer, in_)) {
        answer.action = PanelAnswer::Action::Cancel;
        return true;
    }
    answer.line = {"terminal", ++lineNumber_, trimmedLine(buffer)};
    const std::string& typed = answer.line.text;
    if (iequals(typed, "ok") || iequals(typed, "cancel")) {
        answer.action = iequals(typed, "ok") ? PanelAnswer::Action::Ok : PanelAnswer::Action::Cancel;
        return true;
    }
    std::vector<std::string> tabs = panel.panelTabs();
    if (!typed.empty() && (typed[0] == 't' || typed[0] == 'T')) {
        int index = _wtoi(typed.substr(1)) - 1;
        if (index < 0 || index >= static_cast<int>(tabs.size())) return false;
        answer.action = PanelAnswer::Action::Tab;
        answer.caption = tabs[static_cast<size_t>(index)];
        return true;
    }
    std::vector<PanelControl> controls = panel.panelControls();
    int index = _wtoi(typed) - 1;
    if (index < 0 || index >= static_cast<int>(controls.size())) return false;
    const PanelControl& control = controls[static_cast<size_t>(index)];
    answer.caption = addressableCaptions(controls)[static_cast<size_t>(index)];
    size_t blank = typed.find(' ');
    answer.value = blank == std::string::npos ? std::string() : trimmedLine(typed.substr(blank + 1));
    switch (control.kind) {
    case ControlKind::Button: answer.action = PanelAnswer::Action::Press; break;
    case ControlKind::Check:
    case ControlKind::Radio:
        answer.action = PanelAnswer::Action::Check;
        answer.on = answer.value.empty() ? !*control.checked : iequals(answer.value, "on");
        break;
    case ControlKind::List:
    case ControlKind::Combo: answer.action = PanelAnswer::Action::Choose; break;
    default: answer.action = PanelAnswer::Action::Set; break;
    }
    return true;
}

PanelAnswer TerminalPanelDriver::nextAnswer(Panel& panel)
{
    PanelAnswer answer;
    showForm(panel);
    while (!readChoice(panel, answer)) {
        std::fprintf(out_, "No such entry; ");
        showForm(panel);
    }
    return answer;
}

void TerminalPanelDriver::refuse(const PanelAnswer&, const std::string& why)
{
    std::fprintf(out_, "%s\n", why.c_str());
}

}  // namespace vorn
