#include "base/progress.h"

#include <cstdio>
#include <unistd.h>

#include "base/textnum.h"
#include "base/userbreak.h"

namespace {
constexpr auto kRedrawInterval = std::chrono::milliseconds(100);
constexpr std::size_t kLineWidth = 79;
}  // namespace

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
    if (!force && drawn_ && now - lastDraw_ < kRedrawInterval) return;
    lastDraw_ = now;
    std::string line = text_.empty() ? title_ : title_ + "  " + text_;
    if (line.size() > kLineWidth) line.resize(kLineWidth);
    std::fprintf(stderr, "\r%s\033[K", line.c_str());
    std::fflush(stderr);
    drawn_ = true;
}

void CProgressWnd::erase()
{
    if (!drawn_) return;
    std::fprintf(stderr, "\r\033[K");
    std::fflush(stderr);
    drawn_ = false;
}
