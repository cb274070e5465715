// The transcript of a session: everything the system printed, every prompt
// with its answer, every message box and file dialog with its answer, and
// what the panel driver reports. Reads like the command line; boxes,
// dialogs and panel notes stand on lines of their own in square brackets.
#pragma once

#include <string>

namespace vorn {

class Transcript {
public:
    // Text printed on the command line (prompts included), as printed.
    void printed(const std::string& text) { text_ += text; }
    // The answer to the prompt printed last, as the user typed it.
    void answered(const std::string& answer);
    // A message box and the button that answered it.
    void messageBox(const std::string& text, const std::string& caption, const std::string& answer);
    // A file dialog: its title and filter, and the chosen path or "<esc>".
    void fileDialog(const std::string& title, const std::string& filter, const std::string& answer);
    // The colour dialog: its starting colour index and the chosen one or "<esc>".
    void colorDialog(int initialColor, const std::string& answer);
    // Text written to the status area (the cursor tracker of a drag).
    void statusText(const std::string& text) { bracketLine("status: " + text); }
    // A note of the panel driver ("panel \"Define a Grid\" opened", ...).
    void panel(const std::string& note);

    const std::string& text() const { return text_; }
    // Writes the transcript to a file; false when it cannot be written.
    bool writeTo(const std::string& path) const;

private:
    void bracketLine(const std::string& line);

    std::string text_;
};

}  // namespace vorn
