#include "host/host_reporter.h"

#include <algorithm>

#include "drawing/editor_port.h"
#include "base/progress.h"
#include "base/textnum.h"

namespace vorn {

namespace {

void write(std::FILE* file, const std::string& text)
{
    if (!file) return;
    std::fwrite(text.data(), 1, text.size(), file);
    std::fflush(file);
}

std::string buttonNames(const std::vector<int>& buttons)
{
    std::string names;
    for (int button : buttons) {
        if (!names.empty()) names += '/';
        names += toLower(messageBoxAnswerName(button));
    }
    return names;
}

// A button typed at the terminal without the word "box".
int buttonOfWord(const std::string& word)
{
    for (int button : {IDOK, IDCANCEL, IDYES, IDNO, IDABORT, IDRETRY, IDIGNORE}) {
        if (iequals(word, messageBoxAnswerName(button))) return button;
    }
    return 0;
}

}  // namespace

void HostReporter::print(const std::string& text)
{
    write(out_, text);
    transcript_.printed(text);
}

// Console lines are kept in the transcript as they are; standard error
// shows them by the rule of `consoleShown`.
void HostReporter::console(const std::string& text)
{
    transcript_.printed(text);
    if (err_ != stderr || consoleShown()) {
        if (err_ == stderr) eraseProgressLine();
        write(err_, text);
    }
}

void HostReporter::echoAnswer(const std::string& answer)
{
    if (!answers_.interactive()) write(out_, answer + "\n");
    transcript_.answered(answer);
}

// Escape closes a box by its Cancel button; a box without one is answered
// with its safe choice: OK for a plain box, No for a question.
int HostReporter::answerOfEsc(unsigned type) const
{
    std::vector<int> buttons = messageBoxButtons(type);
    if (std::find(buttons.begin(), buttons.end(), IDCANCEL) != buttons.end()) return IDCANCEL;
    if (std::find(buttons.begin(), buttons.end(), IDNO) != buttons.end()) return IDNO;
    return buttons.front();
}

int HostReporter::messageBox(const std::string& text, const std::string& caption, unsigned type)
{
    if (out_) std::fflush(out_);
    write(err_, text + "\n");
    std::vector<int> buttons = messageBoxButtons(type);
    int answer = messageBoxDefault(type);
    if (hasAnswers_) {
        bool interactive = answers_.interactive();
        if (interactive) write(err_, formatString("[%s]: ", buttonNames(buttons).c_str()));
        auto offered = [&buttons](int button) { return std::find(buttons.begin(), buttons.end(), button) != buttons.end(); };
        Answer given = answers_.next(
            formatString("an answer to the message box \"%s\" (box %s)", text.c_str(), buttonNames(buttons).c_str()),
            [&](const Answer& a) {
                if (a.kind == Answer::Kind::Box) return offered(a.box);
                return interactive && a.isWordLike() && offered(buttonOfWord(a.text()));
            });
        if (given.kind == Answer::Kind::Box) answer = given.box;
        else if (given.kind == Answer::Kind::Esc) answer = answerOfEsc(type);
        else answer = buttonOfWord(given.text());
    }
    transcript_.messageBox(text, caption, messageBoxAnswerName(answer));
    return answer;
}

void HostReporter::statusMeterStart(const std::string& label, int lower, int upper)
{
    acedSetStatusBarProgressMeter(label.c_str(), lower, upper);
}

void HostReporter::statusMeterPos(int pos) { acedSetStatusBarProgressMeterPos(pos); }

void HostReporter::statusMeterRestore() { acedRestoreStatusBar(); }

}  // namespace vorn
