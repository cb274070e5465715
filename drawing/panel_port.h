// The panel port: modal panels that declare their controls.
//
// A panel is a class with plain fields and a member for each button. It
// declares its controls (caption, kind, the field each is bound to, the
// member a button calls) and the host renders that declaration as it can: a
// scripted driver finds controls by caption, a terminal driver shows a
// numbered form, a graphical host would build widgets. The panel's logic
// never depends on how it is shown.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/report.h"

namespace vorn {

enum class ControlKind { Edit, Check, Radio, List, Combo, Button, Static };

// "edit", "check", ... as a driver shows the kind.
const char* controlKindName(ControlKind kind);

struct PanelControl {
    std::string caption;
    ControlKind kind = ControlKind::Static;
    // Edit, static: the text. List, combo: the text of the chosen item.
    std::string* text = nullptr;
    // Check, radio: the state.
    bool* checked = nullptr;
    // List, combo: the items offered.
    const std::vector<std::string>* items = nullptr;
    // Button: the member it calls. Other kinds: the field event that runs
    // after the user changed the value (an edit losing the focus, a click
    // on a check box, a new choice in a list).
    std::function<void()> action;
    // Edit: the user cannot type; button: disabled.
    bool readOnly = false;

    // The value as a driver shows it: the text, "on"/"off", or "" for a button.
    std::string valueText() const;
};

// Builders for the common declarations.
PanelControl editControl(std::string caption, std::string& field, std::function<void()> onChange = {});
PanelControl readOnlyControl(std::string caption, std::string& field);
PanelControl staticControl(std::string caption, std::string& field);
PanelControl checkControl(std::string caption, bool& field, std::function<void()> onChange = {});
PanelControl radioControl(std::string caption, bool& field, std::function<void()> onChange = {});
PanelControl comboControl(std::string caption, std::string& field, const std::vector<std::string>& items,
                          std::function<void()> onChange = {});
PanelControl listControl(std::string caption, std::string& field, const std::vector<std::string>& items,
                         std::function<void()> onChange = {});
PanelControl buttonControl(std::string caption, std::function<void()> press);

// The base of every modal panel. A tabbed panel also names its tabs and
// which one is shown; its controls are those of the shown tab and its own.
class Panel {
public:
    virtual ~Panel() = default;

    virtual std::string panelTitle() const = 0;
    virtual std::vector<PanelControl> panelControls() = 0;
    virtual std::vector<std::string> panelTabs() const { return {}; }
    virtual int panelActiveTab() const { return -1; }
    // The user clicks a tab; a page that refuses to be left keeps the tab.
    virtual void selectPanelTab(int index) {}

    // Called by the host when the panel opens.
    virtual void OnInitDialog() {}
    // The panel's OK and Cancel (the "ok" and "cancel" of a driver).
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }

    // Runs the panel modally through the platform; IDOK, IDCANCEL, ...
    int DoModal();
    void EndDialog(int result);
    bool hasEnded() const { return ended_; }
    int endResult() const { return result_; }
    // The host clears the end state when the panel opens.
    void beginModal();

    // A panel gives way to the drawing while it works there.
    void setHidden(bool hidden);
    bool isHidden() const { return hidden_; }

private:
    bool ended_ = false;
    int result_ = 0;
    bool hidden_ = false;
};

class PanelPort {
public:
    virtual ~PanelPort() = default;
    // Shows `panel` and drives it until it ends; returns its result.
    virtual int runModal(Panel& panel) = 0;
    // The panel was hidden or shown again while it runs.
    virtual void panelVisibility(Panel& panel, bool hidden) = 0;
    // Hands a web or mail address to the system shell.
    virtual void openAddress(const std::string& address) = 0;
};

// The control with this caption, or nullptr.
const PanelControl* findControl(const std::vector<PanelControl>& controls, const std::string& caption);

}  // namespace vorn
