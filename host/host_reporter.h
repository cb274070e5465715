// The reporter of the stand-alone host: the command line goes to standard
// output and the transcript; a message box shows its text on standard error
// and takes its answer from the session's answers (the default button when
// the session has no answers at all).
#pragma once

#include <cstdio>
#include <string>

#include "host/script_answers.h"
#include "host/transcript.h"
#include "base/report.h"

namespace vorn {

class HostReporter : public Reporter {
public:
    // `out` and `err` may be null to keep the terminal quiet (tests).
    HostReporter(Answers& answers, Transcript& transcript, std::FILE* out = stdout, std::FILE* err = stderr)
        : answers_(answers), transcript_(transcript), out_(out), err_(err)
    {
    }

    void print(const std::string& text) override;
    int messageBox(const std::string& text, const std::string& caption, unsigned type) override;
    void console(const std::string& text) override;
    // The numerics' status bar meter is the editor's.
    void statusMeterStart(const std::string& label, int lower, int upper) override;
    void statusMeterPos(int pos) override;
    void statusMeterRestore() override;

    // The answer to the prompt just printed: into the transcript, and onto
    // standard output when a script answers (a person's typing shows itself).
    void echoAnswer(const std::string& answer);
    void setHasAnswers(bool hasAnswers) { hasAnswers_ = hasAnswers; }
    // Text of the status area, noted in the transcript.
    void statusText(const std::string& text) { transcript_.statusText(text); }

private:
    int answerOfEsc(unsigned type) const;

    Answers& answers_;
    Transcript& transcript_;
    std::FILE* out_;
    std::FILE* err_;
    bool hasAnswers_ = true;
};

}  // namespace vorn
