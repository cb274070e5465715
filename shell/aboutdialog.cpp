#include "shell/aboutdialog.h"

#include "drawing/platform.h"

void CHyperLink::follow() const
{
    if (vorn::PanelPort* port = vorn::platform().panels) port->openAddress(address_);
}

aboutdialog::aboutdialog()
    : aboutText("Vornmark System for Mines\nGround stability analysis for underground coal mines"),
      webLink("www.vornmark.example", "http://www.vornmark.example/"),
      mailLink("support@vornmark.example", "mailto:support@vornmark.example"),
      supportLink("www.vornmark.example/support", "http://www.vornmark.example/support/")
{
}

std::vector<vorn::PanelControl> aboutdialog::panelControls()
{
    using namespace vorn;
    std::vector<PanelControl> controls{staticControl("Vornmark", aboutText)};
    for (const CHyperLink* link : {&webLink, &mailLink, &supportLink})
        controls.push_back(buttonControl(link->text(), [link] { link->follow(); }));
    controls.push_back(buttonControl("OK", [this] { OnOK(); }));
    return controls;
}
