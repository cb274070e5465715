#include "base/report.h"

#include <unistd.h>

#include <cstdio>

#include "base/progress.h"
#include "base/textnum.h"

namespace vorn {

std::vector<int> messageBoxButtons(unsigned type)
{
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL: return {IDOK, IDCANCEL};
    case MB_ABORTRETRYIGNORE: return {IDABORT, IDRETRY, IDIGNORE};
    case MB_YESNOCANCEL: return {IDYES, IDNO, IDCANCEL};
    case MB_YESNO: return {IDYES, IDNO};
    case MB_RETRYCANCEL: return {IDRETRY, IDCANCEL};
    default: return {IDOK};
    }
}

int messageBoxDefault(unsigned type)
{
    std::vector<int> buttons = messageBoxButtons(type);
    size_t index = (type & MB_DEFMASK) >> 8;
    return index < buttons.size() ? buttons[index] : buttons.front();
}

const char* messageBoxAnswerName(int answer)
{
    switch (answer) {
    case IDOK: return "OK";
    case IDCANCEL: return "Cancel";
    case IDABORT: return "Abort";
    case IDRETRY: return "Retry";
    case IDIGNORE: return "Ignore";
    case IDYES: return "Yes";
    case IDNO: return "No";
    default: return "?";
    }
}

void StandardReporter::print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

int StandardReporter::messageBox(const std::string& text, const std::string& caption, unsigned type)
{
    std::fflush(stdout);
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fputc('\n', stderr);
    std::fflush(stderr);
    if (answers_) {
        if (std::optional<int> answer = answers_(text, type)) return *answer;
    }
    return messageBoxDefault(type);
}

void StandardReporter::console(const std::string& text)
{
    if (!consoleShown()) return;
    eraseProgressLine();
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

namespace {
bool consoleVerbose = false;
}  // namespace

void setConsoleVerbose(bool verbose) { consoleVerbose = verbose; }

bool consoleShown() { return consoleVerbose || isatty(STDERR_FILENO) == 0; }

int CaptureReporter::messageBox(const std::string& text, const std::string& caption, unsigned type)
{
    int answer = messageBoxDefault(type);
    if (!queuedAnswers.empty()) {
        answer = queuedAnswers.front();
        queuedAnswers.erase(queuedAnswers.begin());
    }
    boxes.push_back({text, caption, type, answer});
    return answer;
}

namespace {
StandardReporter& standardReporter()
{
    static StandardReporter instance;
    return instance;
}
Reporter* installed = nullptr;
}  // namespace

Reporter& reporter() { return installed ? *installed : standardReporter(); }
void setReporter(Reporter* r) { installed = r; }

ScopedReporter::ScopedReporter(Reporter& r) : previous_(installed) { installed = &r; }
ScopedReporter::~ScopedReporter() { installed = previous_; }

}  // namespace vorn

void acutPrintf(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = vorn::vformatString(format, args);
    va_end(args);
    vorn::reporter().print(text);
}

int AfxMessageBox(const std::string& text, unsigned type) { return vorn::reporter().messageBox(text, "Vornmark", type); }

int MessageBox(const std::string& text, const std::string& caption, unsigned type)
{
    return vorn::reporter().messageBox(text, caption, type);
}

void consolePrintf(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    std::string text = vorn::vformatString(format, args);
    va_end(args);
    vorn::reporter().console(text);
}
