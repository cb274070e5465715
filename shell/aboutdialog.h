// The about box: a static text and three hyperlink fields, each handing its
// address to the system shell when clicked.
#pragma once

#include <string>
#include <vector>

#include "drawing/panel_port.h"

class CHyperLink {
public:
    CHyperLink(std::string text, std::string address) : text_(std::move(text)), address_(std::move(address)) {}
    const std::string& text() const { return text_; }
    const std::string& address() const { return address_; }
    // Hands the address to the shell.
    void follow() const;

private:
    std::string text_;
    std::string address_;
};

class aboutdialog : public vorn::Panel {
public:
    aboutdialog();
    std::string panelTitle() const override { return "About Vornmark"; }
    std::vector<vorn::PanelControl> panelControls() override;

    std::string aboutText;
    CHyperLink webLink;
    CHyperLink mailLink;
    CHyperLink supportLink;
};
