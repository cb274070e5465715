// The progress window of long calculations, in its terminal form: the
// caption with status and percent, and the text line, on one line of
// standard error that rewrites itself, cut to the terminal's width (at most
// ten times a second, and only when standard error is a terminal). Cancel is the user break (Ctrl-C): `peekAndPump(true)` turns a
// pending user break into the window's `cancelled` state, which stays set
// until `clear`.
#pragma once

#include <chrono>
#include <string>

class CProgressWnd {
public:
    // `parent` and `smooth` are the window system's and have no terminal
    // meaning. The caption defaults to "Progress".
    CProgressWnd(void* parent = nullptr, const std::string& caption = "Progress", bool smooth = false);
    ~CProgressWnd();
    CProgressWnd(const CProgressWnd&) = delete;
    CProgressWnd& operator=(const CProgressWnd&) = delete;

    void setRange(int lower, int upper);
    void setStep(int step);
    // Moves the bar, shows the window if hidden, updates the title when the
    // percent changes; returns the old position.
    int setPos(int pos);
    int offsetPos(int offset);
    int stepIt();
    void setText(const std::string& text);
    // A non-empty status is kept with "-" behind it and shown in the title.
    void setStatus(const std::string& status);
    // Keeps the report alive from inside a loop. With `cancelOnEscape` a
    // pending user break (Ctrl-C, the terminal's Escape) cancels the window;
    // without it the break stays pending.
    void peekAndPump(bool cancelOnEscape = true);
    bool cancelled() const { return cancelled_; }
    // Empties the text, sets the bar to 0 and forgets a cancel.
    void clear();

    const std::string& title() const { return title_; }
    const std::string& text() const { return text_; }
    int pos() const { return pos_; }

private:
    int percentOf(int pos) const;
    void updateTitle();
    void cancel();
    void draw(bool force);
    void erase();

    std::string caption_;
    std::string status_;
    std::string text_;
    std::string title_;
    int lower_ = 0;
    int upper_ = 100;
    int step_ = 1;
    int pos_ = 0;
    int shownPercent_ = -1;
    bool cancelled_ = false;
    bool hidden_ = false;
    bool onTerminal_ = false;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point lastDraw_{};
};

namespace vorn {
// Takes the progress line off the terminal, if one is shown, so that other
// text can be written to standard error; the next redraw shows it again.
void eraseProgressLine();
}  // namespace vorn
