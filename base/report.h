// The reporting port: the command line, message boxes and the console.
// Everything in the system that talks to the user goes through here, the
// numerics included, so that a host decides where the text ends up.
#pragma once

#include <cstdarg>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// Message box styles and answers, with the platform's values.
enum : unsigned {
    MB_OK = 0x0,
    MB_OKCANCEL = 0x1,
    MB_ABORTRETRYIGNORE = 0x2,
    MB_YESNOCANCEL = 0x3,
    MB_YESNO = 0x4,
    MB_RETRYCANCEL = 0x5,
    MB_TYPEMASK = 0xF,
    MB_ICONHAND = 0x10,
    MB_ICONERROR = 0x10,
    MB_ICONSTOP = 0x10,
    MB_ICONQUESTION = 0x20,
    MB_ICONEXCLAMATION = 0x30,
    MB_ICONWARNING = 0x30,
    MB_ICONINFORMATION = 0x40,
    MB_ICONASTERISK = 0x40,
    MB_DEFBUTTON1 = 0x000,
    MB_DEFBUTTON2 = 0x100,
    MB_DEFBUTTON3 = 0x200,
    MB_DEFMASK = 0xF00,
};

enum : int {
    IDOK = 1,
    IDCANCEL = 2,
    IDABORT = 3,
    IDRETRY = 4,
    IDIGNORE = 5,
    IDYES = 6,
    IDNO = 7,
};

namespace vorn {

// The buttons of a box style in their order, e.g. {IDYES, IDNO} for MB_YESNO.
std::vector<int> messageBoxButtons(unsigned type);
// The answer of a box that nobody answers: its default button.
int messageBoxDefault(unsigned type);
// "OK", "Cancel", "Yes", ... for an answer code.
const char* messageBoxAnswerName(int answer);

class Reporter {
public:
    virtual ~Reporter() = default;
    // Text for the command line, exactly as formatted.
    virtual void print(const std::string& text) = 0;
    // A modal message box; returns the button pressed.
    virtual int messageBox(const std::string& text, const std::string& caption, unsigned type) = 0;
    // Diagnostic output of the application (not the command line).
    virtual void console(const std::string& text) = 0;
    // The status bar meter: a label and a range, a position, and the
    // status bar restored. A host without a status bar ignores them.
    virtual void statusMeterStart(const std::string& label, int lower, int upper) {}
    virtual void statusMeterPos(int pos) {}
    virtual void statusMeterRestore() {}
};

// The stand-alone reporter: prints to standard output, shows boxes on
// standard error (one message a line, as it stands) and answers each box
// with the answer source when one is set, else with the default button.
class StandardReporter : public Reporter {
public:
    using AnswerSource = std::function<std::optional<int>(const std::string& text, unsigned type)>;

    void print(const std::string& text) override;
    int messageBox(const std::string& text, const std::string& caption, unsigned type) override;
    void console(const std::string& text) override;
    void setAnswerSource(AnswerSource source) { answers_ = std::move(source); }

private:
    AnswerSource answers_;
};

// A reporter that keeps everything, for tests: printed text, boxes and the
// answers to give them in order (the default button when none is queued).
class CaptureReporter : public Reporter {
public:
    struct Box {
        std::string text;
        std::string caption;
        unsigned type;
        int answer;
    };
    std::string printed;
    std::string consoleText;
    std::vector<Box> boxes;
    std::vector<int> queuedAnswers;

    void print(const std::string& text) override { printed += text; }
    int messageBox(const std::string& text, const std::string& caption, unsigned type) override;
    void console(const std::string& text) override { consoleText += text; }
};

// The console lines of the numerics go to standard error when it is not a
// terminal; on a terminal the progress line stands in for them unless
// verbose output was asked for (`--verbose`).
void setConsoleVerbose(bool verbose);
bool consoleShown();

// The reporter in use; a StandardReporter unless a host installs another.
Reporter& reporter();
// Installs a reporter (not owned); nullptr restores the standard one.
void setReporter(Reporter* r);

// Installs a reporter for the lifetime of the guard.
class ScopedReporter {
public:
    explicit ScopedReporter(Reporter& r);
    ~ScopedReporter();
    ScopedReporter(const ScopedReporter&) = delete;
    ScopedReporter& operator=(const ScopedReporter&) = delete;

private:
    Reporter* previous_;
};

inline void statusMeterStart(const std::string& label, int lower, int upper) { reporter().statusMeterStart(label, lower, upper); }
inline void statusMeterPos(int pos) { reporter().statusMeterPos(pos); }
inline void statusMeterRestore() { reporter().statusMeterRestore(); }

}  // namespace vorn

// The platform's calls, as the system's code uses them.
void acutPrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));
int AfxMessageBox(const std::string& text, unsigned type = MB_OK);
int MessageBox(const std::string& text, const std::string& caption, unsigned type = MB_OK);
void consolePrintf(const char* format, ...) __attribute__((format(printf, 1, 2)));
