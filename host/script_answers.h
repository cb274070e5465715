// Answers to the system's requests in the stand-alone host: one line per
// answer, from a script file (batch runs, tests) or from the terminal.
//
// A line is read in the light of what the system asks, so "Ok" is a keyword
// at a keyword prompt and the OK button of an open panel. A script line of
// the wrong kind stops the run (ScriptError names the line and what was
// asked); the terminal says what it expects and reads again. When the
// answers run out, every further request is answered with <esc>.
#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorn {

// One line of answers with its place, for messages.
struct ScriptLine {
    std::string source;  // file name, or "terminal"
    int number = 0;      // 1-based line number
    std::string text;    // trimmed
};

// What `select ...` asks for.
struct SelectAnswer {
    enum class Mode { All, Window, Crossing, Layer };
    Mode mode = Mode::All;
    double x1 = 0.0, y1 = 0.0, x2 = 0.0, y2 = 0.0;  // window and crossing corners
    std::string layers;                              // comma list for Layer
};

// A line that drives the open panel.
struct PanelAnswer {
    enum class Action { Set, Check, Choose, Press, Tab, Ok, Cancel };
    Action action = Action::Cancel;
    std::string caption;  // control caption (Set, Check, Choose, Press, Tab)
    std::string value;    // Set: the text; Choose: the item
    bool on = false;      // Check
    ScriptLine line;      // where it came from (number 0 when answers ran out)
};

// One answer line, classified by its form.
struct Answer {
    enum class Kind { Point, Number, Text, Enter, Esc, Pick, Select, Box, File, Panel };
    Kind kind = Kind::Esc;
    ScriptLine line;
    double x = 0.0, y = 0.0, z = 0.0;  // Point, Pick
    bool hasZ = false;                 // Point given with z
    double number = 0.0;               // Number
    SelectAnswer select;               // Select
    int box = 0;                       // Box: IDYES, IDNO, IDOK or IDCANCEL
    std::string path;                  // File (empty with fileCancelled)
    bool fileCancelled = false;        // `file <esc>`
    PanelAnswer panel;                 // Panel

    // The raw text of the line: the word of a keyword or string answer.
    const std::string& text() const { return line.text; }
    // True for a line that could stand as a keyword or string: a word, a
    // number or a point written as text, or the panel words "ok"/"cancel".
    bool isWordLike() const;
};

// Classifies one line of answers (the text trimmed, not a comment).
Answer parseAnswerLine(const ScriptLine& line);

// Raised when a script answers a request with a line of the wrong kind;
// the run stops with `what()`.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Where answer lines come from.
class AnswerSource {
public:
    virtual ~AnswerSource() = default;
    // The next answer line, or nothing when the answers have run out.
    virtual std::optional<ScriptLine> nextLine() = 0;
    // True when a person answers: a wrong answer is asked again instead of
    // stopping the run.
    virtual bool interactive() const = 0;
};

// The lines of a script file or text; `#` comment lines and blank lines
// are skipped.
class ScriptSource : public AnswerSource {
public:
    // False (and `error` set) when the file cannot be read.
    static std::unique_ptr<ScriptSource> fromFile(const std::string& path, std::string& error);
    static std::unique_ptr<ScriptSource> fromText(const std::string& text, const std::string& name = "script");

    std::optional<ScriptLine> nextLine() override;
    bool interactive() const override { return false; }
    // Lines not yet used.
    size_t remaining() const { return lines_.size() - next_; }

private:
    std::vector<ScriptLine> lines_;
    size_t next_ = 0;
};

// Reads answers typed at the terminal (or any stream), one line each.
class TerminalSource : public AnswerSource {
public:
    explicit TerminalSource(std::FILE* in = stdin) : in_(in) {}
    std::optional<ScriptLine> nextLine() override;
    bool interactive() const override { return true; }

private:
    std::FILE* in_;
    int lineNumber_ = 0;
};

// The answers of a session: takes lines from a source, checks each against
// what is asked, and answers <esc> once the source is done.
class Answers {
public:
    // `complain` shows the hint to a person at the terminal after a wrong
    // answer (the message names what is expected).
    using Complain = std::function<void(const std::string& message)>;

    explicit Answers(std::unique_ptr<AnswerSource> source = nullptr);

    void setSource(std::unique_ptr<AnswerSource> source);
    void setComplain(Complain complain) { complain_ = std::move(complain); }
    bool interactive() const { return source_ && source_->interactive(); }

    // The next answer that `accept` takes. `asked` says what the system
    // asks for ("a point for \"Pick a point:\""). A line that `accept`
    // refuses raises ScriptError from a script and is asked again at the
    // terminal. Once the source is done the answer is Esc.
    Answer next(const std::string& asked, const std::function<bool(const Answer&)>& accept);

    // The panel lines for an open panel with this title: `set`, `check`,
    // `choose`, `press`, `tab`, `ok`, `cancel`. At the end of the answers
    // the panel is cancelled.
    PanelAnswer nextPanelAnswer(const std::string& panelTitle);

    // Stops the run (or, at the terminal, reports and returns) because an
    // accepted line cannot be carried out, e.g. a panel caption that the
    // open panel lacks. Raises ScriptError from a script.
    void reject(const ScriptLine& line, const std::string& why);

private:
    std::unique_ptr<AnswerSource> source_;
    Complain complain_;
    bool exhausted_ = false;
};

// "file.scr line 7: ..." for messages about a line.
std::string describeLine(const ScriptLine& line);

}  // namespace vorn
