#include "host/editor_host.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/create.h"
#include "host/editor_units.h"
#include "host/select_filter.h"
#include "base/textnum.h"
#include "base/userbreak.h"

namespace vorn {

namespace {

using Kind = Answer::Kind;

constexpr double kScreenWidth = 1024.0;
constexpr double kScreenHeight = 768.0;
constexpr int kPickBoxPixels = 3;

std::string upper(std::string text)
{
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// The prompt as a message quotes it: without line breaks.
std::string oneLine(const std::string& prompt)
{
    std::string text;
    for (char c : prompt) text += c == '\n' ? ' ' : c;
    size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string() : text.substr(first);
}

Point3d pointOf(const Answer& answer) { return {answer.x, answer.y, answer.z}; }

double planAngle(const Point3d& from, const Point3d& to)
{
    double angle = std::atan2(to.y - from.y, to.x - from.x);
    return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
}

double distanceBetween(const Point3d& a, const Point3d& b, bool inPlan)
{
    return inPlan ? a.to2d().distanceTo(b.to2d()) : a.distanceTo(b);
}

bool isShortVariable(const std::string& name)
{
    static const char* const names[] = {"CMDECHO", "PICKBOX", "DYNMODE", "ERRNO", "LUNITS", "LUPREC", "AUNITS", "AUPREC"};
    return std::any_of(std::begin(names), std::end(names), [&name](const char* n) { return name == n; });
}

}  // namespace

HostEditor::HostEditor(DatabasePort& database, Answers& answers, HostReporter& reporter)
    : database_(database), answers_(answers), reporter_(reporter)
{
    const std::pair<const char*, int> shorts[] = {{"CMDECHO", 1}, {"PICKBOX", kPickBoxPixels}, {"DYNMODE", 3}, {"ERRNO", 0},
                                                  {"LUNITS", 2},  {"LUPREC", 4},                {"AUNITS", 0},  {"AUPREC", 0}};
    for (const auto& [name, value] : shorts) variables_[name] = ResultItem::ofInt(RTSHORT, value);
    variables_["ELEVATION"] = ResultItem::ofReal(RTREAL, 0.0);
    zoomExtents();
}

// ---------------------------------------------------------------- prompts

int HostEditor::initGet(int bits, const std::string& keywords)
{
    pending_.bits = bits;
    pending_.keywords = parseKeywords(keywords);
    return RTNORM;
}

HostEditor::Options HostEditor::takeOptions()
{
    Options options = pending_;
    pending_ = Options{};
    return options;
}

Answer HostEditor::ask(const std::string& prompt, const std::string& what, const std::function<bool(const Answer&)>& accept)
{
    reporter_.print(prompt);
    Answer answer = answers_.next(formatString("%s at \"%s\"", what.c_str(), oneLine(prompt).c_str()), accept);
    reporter_.echoAnswer(answer.line.number == 0 ? std::string("<esc>") : answer.text());
    return answer;
}

std::string HostEditor::describe(const std::string& kind, const Options& options) const
{
    std::string text = kind.empty() ? std::string("a keyword") : kind;
    if (!kind.empty() && (options.bits & (RSG_NOZERO | RSG_NONEG))) {
        text += (options.bits & RSG_NOZERO) ? " (not zero" : " (";
        if (options.bits & RSG_NONEG) text += (options.bits & RSG_NOZERO) ? ", not negative" : "not negative";
        text += ")";
    }
    if (!options.keywords.empty()) {
        text += kind.empty() ? " (" : " or a keyword (";
        for (size_t i = 0; i < options.keywords.size(); ++i) text += (i ? ", " : "") + options.keywords[i].word;
        text += ")";
    }
    if (options.bits & RSG_OTHER) text += " or any text";
    if (!(options.bits & RSG_NONULL)) text += " or <enter>";
    return text;
}

bool HostEditor::isKeywordAnswer(const Answer& answer, const Options& options) const
{
    if (!answer.isWordLike()) return false;
    return (options.bits & RSG_OTHER) || matchKeyword(options.keywords, answer.text()).has_value();
}

int HostEditor::askFor(const std::string& prompt, const std::string& kind, const Options& options,
                       const std::function<bool(const Answer&)>& isValue, Answer& answer)
{
    bool enterAllowed = !(options.bits & RSG_NONULL);
    answer = ask(prompt, describe(kind, options), [&](const Answer& a) {
        if (a.kind == Kind::Enter) return enterAllowed;
        return isValue(a) || isKeywordAnswer(a, options);
    });
    if (answer.kind == Kind::Esc) return RTCAN;
    if (answer.kind == Kind::Enter) return RTNONE;
    // A keyword wins over a value written the same way.
    if (std::optional<std::string> keyword = matchKeyword(options.keywords, answer.text())) {
        lastInput_ = *keyword;
        return RTKWORD;
    }
    if (isValue(answer)) return RTNORM;
    lastInput_ = answer.text();  // any text, with RSG_OTHER
    return RTKWORD;
}

bool HostEditor::numberAllowed(double value, const Options& options) const
{
    if ((options.bits & RSG_NOZERO) && value == 0.0) return false;
    return !((options.bits & RSG_NONEG) && value < 0.0);
}

int HostEditor::getPoint(const Point3d* base, const std::string& prompt, Point3d& out)
{
    Answer answer;
    int status = askFor(prompt, "a point", takeOptions(), [](const Answer& a) { return a.kind == Kind::Point; }, answer);
    if (status == RTNORM) out = pointOf(answer);
    return status;
}

int HostEditor::getCorner(const Point3d& base, const std::string& prompt, Point3d& out) { return getPoint(&base, prompt, out); }

int HostEditor::getDist(const Point3d* base, const std::string& prompt, double& out)
{
    Options options = takeOptions();
    bool inPlan = (options.bits & RSG_2D) != 0;
    auto isValue = [&](const Answer& a) {
        if (a.kind == Kind::Number) return numberAllowed(a.number, options);
        if (a.kind != Kind::Point) return false;
        return !base || numberAllowed(distanceBetween(*base, pointOf(a), inPlan), options);
    };
    Answer answer;
    int status = askFor(prompt, "a distance or a point", options, isValue, answer);
    if (status != RTNORM) return status;
    if (answer.kind == Kind::Number) {
        out = answer.number;
        return status;
    }
    if (base) {
        out = distanceBetween(*base, pointOf(answer), inPlan);
        return status;
    }
    // A first point without a base point: the distance runs to a second one.
    Point3d first = pointOf(answer);
    auto isSecond = [&](const Answer& a) { return a.kind == Kind::Point && numberAllowed(distanceBetween(first, pointOf(a), inPlan), options); };
    Options plain;
    plain.bits = RSG_NONULL;
    status = askFor("\nSpecify second point: ", "a second point", plain, isSecond, answer);
    if (status == RTNORM) out = distanceBetween(first, pointOf(answer), inPlan);
    return status;
}

int HostEditor::getOrient(const Point3d* base, const std::string& prompt, double& out)
{
    auto isValue = [base](const Answer& a) { return a.kind == Kind::Number || (a.kind == Kind::Point && base); };
    Answer answer;
    int status = askFor(prompt, base ? "an angle in degrees or a point" : "an angle in degrees", takeOptions(), isValue, answer);
    if (status != RTNORM) return status;
    const double turn = 2.0 * std::numbers::pi;
    double angle = answer.kind == Kind::Number ? answer.number * std::numbers::pi / 180.0 : planAngle(*base, pointOf(answer));
    angle = std::fmod(angle, turn);
    out = angle < 0.0 ? angle + turn : angle;
    return status;
}

int HostEditor::getReal(const std::string& prompt, double& out)
{
    Options options = takeOptions();
    auto isValue = [&options, this](const Answer& a) { return a.kind == Kind::Number && numberAllowed(a.number, options); };
    Answer answer;
    int status = askFor(prompt, "a number", options, isValue, answer);
    if (status == RTNORM) out = answer.number;
    return status;
}

int HostEditor::getInt(const std::string& prompt, int& out)
{
    Options options = takeOptions();
    auto isValue = [&options, this](const Answer& a) {
        bool integer = a.number == std::floor(a.number) && a.number >= -32768.0 && a.number <= 32767.0;
        return a.kind == Kind::Number && integer && numberAllowed(a.number, options);
    };
    Answer answer;
    int status = askFor(prompt, "an integer", options, isValue, answer);
    if (status == RTNORM) out = static_cast<int>(answer.number);
    return status;
}

int HostEditor::getString(bool allowBlanks, const std::string& prompt, std::string& out)
{
    takeOptions();
    Answer answer = ask(prompt, "a text or <enter>", [](const Answer& a) { return a.kind == Kind::Enter || a.isWordLike(); });
    if (answer.kind == Kind::Esc) return RTCAN;
    out = answer.kind == Kind::Enter ? std::string() : answer.text();
    if (!allowBlanks) out = out.substr(0, out.find(' '));
    return RTNORM;
}

int HostEditor::getKword(const std::string& prompt, std::string& out)
{
    Answer answer;
    int status = askFor(prompt, "", takeOptions(), [](const Answer&) { return false; }, answer);
    if (status != RTKWORD) return status;
    out = lastInput_;
    return RTNORM;
}

void HostEditor::prompt(const std::string& text) { reporter_.print(text); }

// ----------------------------------------------------------------- picks

void HostEditor::setErrno(int value) { variables_["ERRNO"].integer = value; }

double HostEditor::pickAperture() const
{
    return variables_.at("PICKBOX").integer * view_.height / kScreenHeight;
}

int HostEditor::pickAt(const Point2d& point, ObjectId& idOut)
{
    std::vector<ObjectId> near = database_.entitiesNear(point, pickAperture());
    if (near.empty()) {
        setErrno(kErrnoNothingPicked);
        return RTERROR;
    }
    idOut = near.front();
    setErrno(0);
    return RTNORM;
}

int HostEditor::entSel(const std::string& prompt, ObjectId& idOut, Point3d& pickedOut)
{
    Answer answer;
    auto isValue = [](const Answer& a) { return a.kind == Kind::Pick || a.kind == Kind::Point; };
    int status = askFor(prompt, "a pick (pick X,Y)", takeOptions(), isValue, answer);
    if (status == RTNONE) {
        setErrno(kErrnoNullInput);
        return RTERROR;
    }
    if (status != RTNORM) return status;
    pickedOut = pointOf(answer);
    return pickAt(pickedOut.to2d(), idOut);
}

int HostEditor::selectByAnswer(const Answer& answer, const ResultBuffer& filter, SelectionSet& out)
{
    SelectionQuery query;
    query.filter = filter;
    const SelectAnswer& select = answer.select;
    if (answer.kind == Kind::Pick) {
        ObjectId picked;
        Entity entity;
        if (pickAt({answer.x, answer.y}, picked) != RTNORM || database_.readEntity(picked, entity) != eOk) return RTERROR;
        // Only the picked entity need pass the filter.
        host::SelectionFilter pickFilter(filter);
        if (!pickFilter.supported() || !pickFilter.matches(entity)) return RTERROR;
        out.ids = {picked};
        return RTNORM;
    }
    if (select.mode == SelectAnswer::Mode::Window || select.mode == SelectAnswer::Mode::Crossing) {
        query.mode = select.mode == SelectAnswer::Mode::Window ? SelectMode::Window : SelectMode::Crossing;
        query.points = {{select.x1, select.y1}, {select.x2, select.y2}};
    }
    out.ids = database_.select(query);
    if (select.mode == SelectAnswer::Mode::Layer) {
        SelectionQuery onLayers;
        onLayers.filter = {ResultItem::ofText(8, select.layers)};
        std::vector<ObjectId> layered = database_.select(onLayers);
        std::sort(layered.begin(), layered.end());
        std::erase_if(out.ids, [&layered](ObjectId id) { return !std::binary_search(layered.begin(), layered.end(), id); });
    }
    return out.ids.empty() ? RTERROR : RTNORM;
}

int HostEditor::selectInteractive(const InteractiveSelection& request, const SelectionKeywordCallback& onKeyword,
                                  SelectionSet& out)
{
    out.ids.clear();
    std::vector<Keyword> keywords = parseKeywords(request.keywords);
    Options options;
    options.keywords = keywords;
    for (;;) {
        Answer answer = ask(request.selectPrompt, describe("a selection (select ...|pick X,Y)", options), [&](const Answer& a) {
            return a.kind == Kind::Select || a.kind == Kind::Pick || a.kind == Kind::Enter ||
                   (a.isWordLike() && matchKeyword(keywords, a.text()));
        });
        if (answer.kind == Kind::Esc) return RTCAN;
        if (answer.kind == Kind::Enter) return RTERROR;
        if (answer.kind == Kind::Select || answer.kind == Kind::Pick) return selectByAnswer(answer, request.filter, out);
        lastInput_ = *matchKeyword(keywords, answer.text());
        SelectionSet chosen;
        if (onKeyword && onKeyword(lastInput_, chosen) && !chosen.ids.empty()) {
            out = chosen;
            return RTNORM;
        }
    }
}

int HostEditor::dragGen(const SelectionSet& set, const std::string& prompt, const DragCallback& callback, Point3d& out)
{
    Answer answer;
    int status = askFor(prompt, "a point", takeOptions(), [](const Answer& a) { return a.kind == Kind::Point; }, answer);
    if (status != RTNORM) return status;
    out = pointOf(answer);
    double matrix[4][4] = {};
    if (callback) callback(out, matrix);
    return status;
}

// ---------------------------------------------------------------- screen

void HostEditor::grDraw(const Point3d& from, const Point3d& to, int color, int highlight)
{
    tempVectors_.push_back({from, to, color, highlight});
}

void HostEditor::highlight(ObjectId id, bool on)
{
    if (on) highlighted_.insert(id);
    else highlighted_.erase(id);
}

int HostEditor::setProgressMeter(const std::string& label, int minPos, int maxPos)
{
    meter_ = ProgressMeter{true, label, minPos, maxPos, minPos};
    shownPercent_ = -1;
    showMeter();
    return 0;
}

int HostEditor::setProgressMeterPos(int pos)
{
    meter_.pos = pos;
    showMeter();
    return 0;
}

// The meter on one terminal line, redrawn when the whole percentage moves.
void HostEditor::showMeter()
{
    if (!progressOut_ || !meter_.shown) return;
    int span = meter_.maxPos - meter_.minPos;
    long long done = static_cast<long long>(meter_.pos) - meter_.minPos;
    int percent = span > 0 ? static_cast<int>(std::clamp(done * 100 / span, 0LL, 100LL)) : 0;
    if (percent == shownPercent_) return;
    shownPercent_ = percent;
    std::fprintf(progressOut_, "\r%s %3d%%", meter_.label.c_str(), percent);
    std::fflush(progressOut_);
}

void HostEditor::restoreStatusBar()
{
    if (progressOut_ && meter_.shown) {
        std::fprintf(progressOut_, "\r%*s\r", static_cast<int>(meter_.label.size()) + 5, "");
        std::fflush(progressOut_);
    }
    meter_ = ProgressMeter{};
}

bool HostEditor::userBreak()
{
    if (!userBreakRequested()) return false;
    clearUserBreak();
    return true;
}

// ------------------------------------------------------ system variables

int HostEditor::getVar(const std::string& name, ResultItem& out)
{
    std::string key = upper(name);
    if (key == "CLAYER") out = ResultItem::ofText(RTSTR, database_.currentLayer());
    else if (key == "DWGPREFIX") out = ResultItem::ofText(RTSTR, drawingFolder_);
    else if (key == "VIEWCTR") out = ResultItem::ofPoint(RT3DPOINT, view_.center);
    else if (key == "VIEWSIZE") out = ResultItem::ofReal(RTREAL, view_.height);
    else if (key == "SCREENSIZE") out = ResultItem::ofPoint(RTPOINT, {kScreenWidth, kScreenHeight, 0.0});
    else if (auto found = variables_.find(key); found != variables_.end()) out = found->second;
    else return RTERROR;
    return RTNORM;
}

int HostEditor::setVar(const std::string& name, const ResultItem& value)
{
    std::string key = upper(name);
    if (key == "CLAYER") {
        if (value.restype != RTSTR) return RTERROR;
        return database_.setCurrentLayer(value.text) == eOk ? RTNORM : RTERROR;
    }
    auto found = variables_.find(key);
    if (found == variables_.end()) return RTERROR;
    bool integerGiven = value.restype == RTSHORT || value.restype == RTLONG;
    if (isShortVariable(key)) {
        if (!integerGiven) return RTERROR;
        found->second.integer = value.integer;
    } else {
        if (value.restype != RTREAL && !integerGiven) return RTERROR;
        found->second.real = value.restype == RTREAL ? value.real : static_cast<double>(value.integer);
    }
    return RTNORM;
}

// ------------------------------------------------------------ conversion

std::string HostEditor::realToString(double value, int unit, int precision)
{
    if (unit < 0) unit = static_cast<int>(variables_["LUNITS"].integer);
    if (precision < 0) precision = static_cast<int>(variables_["LUPREC"].integer);
    return vorn::realToString(value, unit, precision);
}

std::string HostEditor::angleToString(double radians, int unit, int precision)
{
    if (unit < 0) unit = static_cast<int>(variables_["AUNITS"].integer);
    if (precision < 0) precision = static_cast<int>(variables_["AUPREC"].integer);
    return vorn::angleToString(radians, unit, precision);
}

int HostEditor::distanceFromString(const std::string& text, int unit, double& out)
{
    if (unit < 0) unit = static_cast<int>(variables_["LUNITS"].integer);
    return stringToDistance(text, unit, out) ? RTNORM : RTERROR;
}

// -------------------------------------------------------------- commands

int HostEditor::zoomWindow(const Point3d& corner1, const Point3d& corner2)
{
    double width = std::fabs(corner2.x - corner1.x);
    double height = std::fabs(corner2.y - corner1.y);
    if (width <= 0.0 && height <= 0.0) return RTERROR;
    previousViews_.push_back(view_);
    view_.center = {(corner1.x + corner2.x) / 2.0, (corner1.y + corner2.y) / 2.0, 0.0};
    view_.height = std::max(height, width * kScreenHeight / kScreenWidth);
    return RTNORM;
}

int HostEditor::zoomPrevious()
{
    if (previousViews_.empty()) return RTNORM;
    view_ = previousViews_.back();
    previousViews_.pop_back();
    return RTNORM;
}

void HostEditor::zoomExtents()
{
    Extents3d extents = database_.drawingExtents();
    if (extents.isEmpty()) {
        view_ = View{{0.0, 0.0, 0.0}, 1.0};
        return;
    }
    view_.center = {(extents.minPoint.x + extents.maxPoint.x) / 2.0, (extents.minPoint.y + extents.maxPoint.y) / 2.0, 0.0};
    double width = extents.maxPoint.x - extents.minPoint.x;
    double height = extents.maxPoint.y - extents.minPoint.y;
    view_.height = std::max({height, width * kScreenHeight / kScreenWidth, 1e-6}) * 1.05;
}

int HostEditor::hatchSolid(const SelectionSet& set)
{
    Hatch hatch;
    hatch.patternName = "SOLID";
    for (ObjectId id : set.ids) {
        Entity entity;
        if (database_.readEntity(id, entity) != eOk) continue;
        if (!isCurve(entity.kind()) && !entity.as<Region>()) continue;
        if (isCurve(entity.kind()) && !database_.isClosed(entity)) continue;
        for (const HatchLoop& loop : hatchLoopsOfBoundary(entity)) hatch.loops.push_back(loop);
        hatch.elevation = entity.as<Region>() ? entity.as<Region>()->elevation : hatch.elevation;
    }
    if (hatch.loops.empty()) return RTERROR;
    Entity entity;
    entity.common.layer = database_.currentLayer();
    entity.shape = hatch;
    ObjectId id;
    return database_.appendToModelSpace(entity, id) == eOk ? RTNORM : RTERROR;
}

}  // namespace vorn
