#include "base/progress.h"

#include <cstdio>
#include <sys/ioctl.h>
#include <unistd.h>

#include "base/textnum.h"
#include "base/userbreak.h"

namespace {
constexpr auto kRedrawInterval = std::chrono::milliseconds(100);
constexpr std::size_t kFallbackWidth = 80;

// The progress line on the terminal, if one is drawn: console text erases
// it before it prints and the next redraw brings it back.
bool lineShown = false;

// One less than the terminal's width, so the cursor never wraps.
std::size_t lineWidth()
{
    winsize size{};
    std::size_t columns = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kFallbackWidth;
    return columns > 1 ? columns - 1 : 1;
}
}  // namespace

void vorn::eraseProgressLine()
{
    if (!lineShown) return;
    std::fprintf(stderr, "\r\033[K");
    std::fflush(stderr);
    lineShown = false;
}

CProgressWnd::CProgressWnd(void* parent, const std::string& caption, bool smooth)
    : caption_(caption), title_(caption), onTerminal_(isatty(STDERR_FILENO) != 0)
{
}

CProgressWnd::~CProgressWnd() { erase(); }

void CProgressWnd::setRange(int lower, int upper)
{
    lower_ = lower;
    upper_ = upper;
}

void CProgressWnd::setStep(int step) { step_ = step; }

int CProgressWnd::percentOf(int pos) const
{
    if (upper_ <= lower_) return 0;
    return static_cast<int>(static_cast<long long>(pos) * 100 / (upper_ - lower_));
}

void CProgressWnd::updateTitle()
{
    title_ = vorn::formatString("%s [%s%d%%]", caption_.c_str(), status_.c_str(), shownPercent_);
}

int CProgressWnd::setPos(int pos)
{
    const int old = pos_;
    pos_ = pos;
    hidden_ = false;
    const int percent = percentOf(pos);
    if (percent != shownPercent_) {
        shownPercent_ = percent;
        updateTitle();
        draw(false);
    }
    return old;
}

int CProgressWnd::offsetPos(int offset) { return setPos(pos_ + offset); }
int CProgressWnd::stepIt() { return setPos(pos_ + step_); }

void CProgressWnd::setText(const std::string& text)
{
    text_ = text;
    draw(false);
}

void CProgressWnd::setStatus(const std::string& status)
{
    status_ = status.empty() ? std::string() : status + "-";
    if (shownPercent_ < 0) shownPercent_ = percentOf(pos_);
    updateTitle();
    draw(false);
}

void CProgressWnd::peekAndPump(bool cancelOnEscape)
{
    if (cancelled_) return;
    // Ctrl-C is the terminal's Escape: it cancels only when the caller asks
    // for that, and stays pending for the next poll otherwise.
    if (cancelOnEscape && vorn::userBreakRequested()) {
        vorn::clearUserBreak();
        cancel();
    }
}

void CProgressWnd::cancel()
{
    cancelled_ = true;
    hidden_ = true;
    erase();
}

void CProgressWnd::clear()
{
    text_.clear();
    cancelled_ = false;
    setPos(0);
}

void CProgressWnd::draw(bool force)
{
    if (!onTerminal_ || hidden_) return;
    const auto now = std::chrono::steady_clock::now();
    if (!force && drawn_ && lineShown && now - lastDraw_ < kRedrawInterval) return;
    lastDraw_ = now;
    std::string line = text_.empty() ? title_ : title_ + "  " + text_;
    if (line.size() > lineWidth()) line.resize(lineWidth());
    std::fprintf(stderr, "\r%s\033[K", line.c_str());
    std::fflush(stderr);
    drawn_ = true;
    lineShown = true;
}

void CProgressWnd::erase()
{
    if (!drawn_) return;
    vorn::eraseProgressLine();
    drawn_ = false;
}
