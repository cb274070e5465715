#include "host/script_answers.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "base/report.h"
#include "base/textfile.h"
#include "host/host_text.h"
#include "base/textnum.h"

namespace vorn {

namespace {


// A whole number in the text, nothing else.
bool parseNumber(const std::string& text, double& value)
{
    if (text.empty() || text.find_first_of(" \t") != std::string::npos) return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtod(text.c_str(), &end);
    return end == text.c_str() + text.size() && errno == 0;
}

// "x,y" or "x,y,z".
bool parsePoint(const std::string& text, double& x, double& y, double& z, bool& hasZ)
{
    size_t first = text.find(',');
    if (first == std::string::npos) return false;
    size_t second = text.find(',', first + 1);
    hasZ = second != std::string::npos;
    z = 0.0;
    if (!parseNumber(trimBlanks(text.substr(0, first)), x)) return false;
    if (!hasZ) return parseNumber(trimBlanks(text.substr(first + 1)), y);
    return parseNumber(trimBlanks(text.substr(first + 1, second - first - 1)), y) && parseNumber(trimBlanks(text.substr(second + 1)), z);
}

// Splits "word rest" at the first blank; rest is trimmed.
void splitWord(const std::string& text, std::string& word, std::string& rest)
{
    size_t blank = text.find_first_of(" \t");
    word = toLower(text.substr(0, blank));
    rest = blank == std::string::npos ? std::string() : trimBlanks(text.substr(blank));
}

// A leading double-quoted text: the caption of a panel line.
bool takeQuoted(std::string& text, std::string& quoted)
{
    if (text.size() < 2 || text[0] != '"') return false;
    size_t close = text.find('"', 1);
    if (close == std::string::npos) return false;
    quoted = text.substr(1, close - 1);
    text = trimBlanks(text.substr(close + 1));
    return true;
}

std::string unquoted(const std::string& text)
{
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"') return text.substr(1, text.size() - 2);
    return text;
}

bool parseSelect(const std::string& rest, SelectAnswer& select)
{
    std::string mode, args;
    splitWord(rest, mode, args);
    if (mode == "all" && args.empty()) {
        select.mode = SelectAnswer::Mode::All;
        return true;
    }
    if (mode == "layer" && !args.empty()) {
        select.mode = SelectAnswer::Mode::Layer;
        select.layers = args;
        return true;
    }
    if (mode != "window" && mode != "crossing") return false;
    select.mode = mode == "window" ? SelectAnswer::Mode::Window : SelectAnswer::Mode::Crossing;
    std::string firstCorner, secondCorner;
    splitWord(args, firstCorner, secondCorner);
    double z = 0.0;
    bool hasZ = false;
    return parsePoint(firstCorner, select.x1, select.y1, z, hasZ) && parsePoint(secondCorner, select.x2, select.y2, z, hasZ);
}

bool parseBox(const std::string& rest, int& box)
{
    std::string word = toLower(rest);
    if (word == "yes") box = IDYES;
    else if (word == "no") box = IDNO;
    else if (word == "ok") box = IDOK;
    else if (word == "cancel") box = IDCANCEL;
    else return false;
    return true;
}

bool parsePanel(const std::string& word, std::string rest, PanelAnswer& panel)
{
    using Action = PanelAnswer::Action;
    if (word == "ok" || word == "cancel") {
        panel.action = word == "ok" ? Action::Ok : Action::Cancel;
        return rest.empty();
    }
    if (!takeQuoted(rest, panel.caption)) return false;
    if (word == "press" || word == "tab") {
        panel.action = word == "press" ? Action::Press : Action::Tab;
        return rest.empty();
    }
    if (word == "check") {
        panel.action = Action::Check;
        std::string state = toLower(rest);
        panel.on = state == "on";
        return state == "on" || state == "off";
    }
    if (word == "set" || word == "choose") {
        panel.action = word == "set" ? Action::Set : Action::Choose;
        panel.value = unquoted(rest);
        return true;
    }
    return false;
}

}  // namespace

bool Answer::isWordLike() const
{
    if (kind == Kind::Text || kind == Kind::Number || kind == Kind::Point) return true;
    return kind == Kind::Panel && (panel.action == PanelAnswer::Action::Ok || panel.action == PanelAnswer::Action::Cancel);
}

Answer parseAnswerLine(const ScriptLine& line)
{
    Answer answer;
    answer.line = line;
    answer.panel.line = line;
    const std::string& text = line.text;
    std::string lower = toLower(text);
    std::string word, rest;
    splitWord(text, word, rest);
    using Kind = Answer::Kind;
    if (lower == "<enter>") answer.kind = Kind::Enter;
    else if (lower == "<esc>") answer.kind = Kind::Esc;
    else if (parsePoint(text, answer.x, answer.y, answer.z, answer.hasZ)) answer.kind = Kind::Point;
    else if (parseNumber(text, answer.number)) answer.kind = Kind::Number;
    else if (word == "pick" && parsePoint(rest, answer.x, answer.y, answer.z, answer.hasZ)) answer.kind = Kind::Pick;
    else if (word == "select" && parseSelect(rest, answer.select)) answer.kind = Kind::Select;
    else if (word == "box" && parseBox(rest, answer.box)) answer.kind = Kind::Box;
    else if (word == "file" && !rest.empty()) {
        answer.kind = Kind::File;
        answer.fileCancelled = toLower(rest) == "<esc>";
        if (!answer.fileCancelled) answer.path = unquoted(rest);
    } else if (parsePanel(word, rest, answer.panel)) answer.kind = Kind::Panel;
    else answer.kind = Kind::Text;
    return answer;
}

std::string describeLine(const ScriptLine& line)
{
    return formatString("%s line %d", line.source.c_str(), line.number);
}

std::unique_ptr<ScriptSource> ScriptSource::fromText(const std::string& text, const std::string& name)
{
    auto source = std::make_unique<ScriptSource>();
    int number = 0;
    size_t start = 0;
    while (start <= text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        ++number;
        std::string line = trimBlanks(text.substr(start, end - start));
        if (!line.empty() && line[0] != '#') source->lines_.push_back({name, number, line});
        start = end + 1;
    }
    return source;
}

std::unique_ptr<ScriptSource> ScriptSource::fromFile(const std::string& path, std::string& error)
{
    TextReader reader;
    int cause = 0;
    if (!reader.open(path, &cause)) {
        error = formatString("cannot read the script %s: %s", path.c_str(), std::strerror(errno));
        return nullptr;
    }
    std::string text, line;
    while (reader.readLine(line)) text += line + "\n";
    return fromText(text, path);
}

std::optional<ScriptLine> ScriptSource::nextLine()
{
    if (next_ >= lines_.size()) return std::nullopt;
    return lines_[next_++];
}

std::optional<ScriptLine> TerminalSource::nextLine()
{
    std::string text;
    int c = 0;
    while ((c = std::fgetc(in_)) != EOF && c != '\n') text += static_cast<char>(c);
    if (c == EOF && text.empty()) return std::nullopt;
    return ScriptLine{"terminal", ++lineNumber_, trimBlanks(text)};
}

Answers::Answers(std::unique_ptr<AnswerSource> source) : source_(std::move(source)) {}

void Answers::setSource(std::unique_ptr<AnswerSource> source)
{
    source_ = std::move(source);
    exhausted_ = false;
}

Answer Answers::next(const std::string& asked, const std::function<bool(const Answer&)>& accept)
{
    while (source_ && !exhausted_) {
        std::optional<ScriptLine> line = source_->nextLine();
        if (!line) break;
        // A blank line at the terminal is plain Enter.
        if (line->text.empty()) line->text = "<enter>";
        Answer answer = parseAnswerLine(*line);
        if (answer.kind == Answer::Kind::Esc || accept(answer)) return answer;
        reject(*line, "the system asked for " + asked);
    }
    exhausted_ = true;
    return Answer{};
}

PanelAnswer Answers::nextPanelAnswer(const std::string& panelTitle)
{
    Answer answer = next(formatString("an action on the panel \"%s\"", panelTitle.c_str()),
                         [](const Answer& a) { return a.kind == Answer::Kind::Panel; });
    if (answer.kind == Answer::Kind::Panel) return answer.panel;
    PanelAnswer cancel;
    cancel.line = answer.line;
    return cancel;
}

void Answers::reject(const ScriptLine& line, const std::string& why)
{
    std::string message = formatString("%s: \"%s\": %s", describeLine(line).c_str(), line.text.c_str(), why.c_str());
    if (!interactive()) throw ScriptError(message);
    if (complain_) complain_(message);
}

}  // namespace vorn
