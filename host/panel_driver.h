// The panel drivers of the stand-alone host. Both run a panel modally on
// its declaration of controls: the scripted driver takes the panel lines of
// the session's answers (set, check, choose, press, tab, ok, cancel) and
// finds controls by caption; the terminal driver shows a numbered form and
// reads the user's choice. Every panel is noted in the transcript with its
// fields as they stand when it opens and when it closes.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "drawing/panel_port.h"
#include "host/script_answers.h"
#include "host/transcript.h"

namespace vorn {

// Captions by which controls are found: a caption that an earlier control
// already has gets " [2]", " [3]", ... behind it.
std::vector<std::string> addressableCaptions(const std::vector<PanelControl>& controls);

class PanelDriver : public PanelPort {
public:
    PanelDriver(Answers& answers, Transcript& transcript) : answers_(answers), transcript_(transcript) {}

    int runModal(Panel& panel) override;
    void panelVisibility(Panel& panel, bool hidden) override;
    void openAddress(const std::string& address) override;

protected:
    // The next action for the open panel.
    virtual PanelAnswer nextAnswer(Panel& panel);
    // Refuses an action that the panel cannot carry out.
    virtual void refuse(const PanelAnswer& answer, const std::string& why);

    void noteFields(Panel& panel, const std::string& heading);
    void noteAction(Panel& panel, const PanelAnswer& answer);
    Transcript& transcript() { return transcript_; }

private:
    void apply(Panel& panel, const PanelAnswer& answer);
    void applyToControl(Panel& panel, const PanelAnswer& answer);

    Answers& answers_;
    Transcript& transcript_;
};

// Shows each panel as a numbered form on `out` and reads the choice from
// `in`: a number (followed by the value for a field), "t" and a number for
// a tab, "ok" or "cancel".
class TerminalPanelDriver : public PanelDriver {
public:
    TerminalPanelDriver(Answers& answers, Transcript& transcript, std::FILE* in = stdin, std::FILE* out = stdout)
        : PanelDriver(answers, transcript), in_(in), out_(out)
    {
    }

protected:
    PanelAnswer nextAnswer(Panel& panel) override;
    void refuse(const PanelAnswer& answer, const std::string& why) override;

private:
    void showForm(Panel& panel);
    bool readChoice(Panel& panel, PanelAnswer& answer);

    std::FILE* in_;
    std::FILE* out_;
    int lineNumber_ = 0;
};

}  // namespace vorn
