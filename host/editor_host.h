// The editor of the stand-alone host: prompts answered from the session's
// answers (a script or the terminal), keywords matched as the command line
// matches them, entity picks by point with an aperture, selections by
// `select` lines, temporary vectors kept in a list a test can read, the
// status bar meter, the user break (Ctrl-C), the system variables and a
// world coordinate system as user coordinate system.
#pragma once

#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "drawing/database_port.h"
#include "drawing/editor_port.h"
#include "host/editor_keywords.h"
#include "host/host_reporter.h"
#include "host/script_answers.h"

namespace vorn {

// A temporary vector as drawn.
struct TempVector {
    Point3d from;
    Point3d to;
    int color = 0;
    int highlight = 0;
};

// The status bar meter as last set.
struct ProgressMeter {
    bool shown = false;
    std::string label;
    int minPos = 0;
    int maxPos = 100;
    int pos = 0;
};

class HostEditor : public EditorPort {
public:
    HostEditor(DatabasePort& database, Answers& answers, HostReporter& reporter);

    int initGet(int bits, const std::string& keywords) override;
    int getPoint(const Point3d* base, const std::string& prompt, Point3d& out) override;
    int getCorner(const Point3d& base, const std::string& prompt, Point3d& out) override;
    int getDist(const Point3d* base, const std::string& prompt, double& out) override;
    int getOrient(const Point3d* base, const std::string& prompt, double& out) override;
    int getReal(const std::string& prompt, double& out) override;
    int getInt(const std::string& prompt, int& out) override;
    int getString(bool allowBlanks, const std::string& prompt, std::string& out) override;
    int getKword(const std::string& prompt, std::string& out) override;
    std::string lastInput() const override { return lastInput_; }
    int entSel(const std::string& prompt, ObjectId& idOut, Point3d& pickedOut) override;
    void prompt(const std::string& text) override;
    int selectInteractive(const InteractiveSelection& request, const SelectionKeywordCallback& onKeyword,
                          SelectionSet& out) override;
    int dragGen(const SelectionSet& set, const std::string& prompt, const DragCallback& callback, Point3d& out) override;

    void grDraw(const Point3d& from, const Point3d& to, int color, int highlight) override;
    void highlight(ObjectId id, bool on) override;
    void grText(int box, const std::string& text) override
    {
        statusText_ = text;
        if (box == -1) reporter_.statusText(text);
    }
    void redraw() override { tempVectors_.clear(); }
    void updateDisplay() override {}
    int setProgressMeter(const std::string& label, int minPos, int maxPos) override;
    int setProgressMeterPos(int pos) override;
    void restoreStatusBar() override;
    bool userBreak() override;

    int getVar(const std::string& name, ResultItem& out) override;
    int setVar(const std::string& name, const ResultItem& value) override;

    Point3d worldToUser(const Point3d& p) const override { return p; }
    Point3d userToWorld(const Point3d& p) const override { return p; }
    std::string realToString(double value, int unit, int precision) override;
    std::string angleToString(double radians, int unit, int precision) override;
    int distanceFromString(const std::string& text, int unit, double& out) override;

    int zoomWindow(const Point3d& corner1, const Point3d& corner2) override;
    int zoomPrevious() override;
    int hatchSolid(const SelectionSet& set) override;

    // ---- for the session and for tests
    const std::vector<TempVector>& tempVectors() const { return tempVectors_; }
    const ProgressMeter& progressMeter() const { return meter_; }
    const std::set<ObjectId>& highlighted() const { return highlighted_; }
    // The text last written to the status area.
    const std::string& statusText() const { return statusText_; }
    // Where the status bar meter shows itself (a terminal); null: nowhere.
    void setProgressOutput(std::FILE* out) { progressOut_ = out; }
    // The folder of the drawing (DWGPREFIX), with its trailing separator.
    void setDrawingFolder(const std::string& folder) { drawingFolder_ = folder; }
    // Shows the whole drawing (or a unit square round the origin when empty).
    void zoomExtents();
    // The pick aperture in drawing units: 3 pixels of the current view.
    double pickAperture() const;

private:
    struct Options {
        int bits = 0;
        std::vector<Keyword> keywords;
    };
    struct View {
        Point3d center;
        double height = 1.0;
    };

    Options takeOptions();
    Answer ask(const std::string& prompt, const std::string& what, const std::function<bool(const Answer&)>& accept);
    // Asks until a value of the prompt (`isValue`), Enter (unless the
    // options forbid it), Esc or a keyword comes: RTNORM for a value, RTNONE,
    // RTCAN, or RTKWORD with lastInput_ set.
    int askFor(const std::string& prompt, const std::string& kind, const Options& options,
               const std::function<bool(const Answer&)>& isValue, Answer& answer);
    bool isKeywordAnswer(const Answer& answer, const Options& options) const;
    std::string describe(const std::string& kind, const Options& options) const;
    bool numberAllowed(double value, const Options& options) const;
    int pickAt(const Point2d& point, ObjectId& idOut);
    void showMeter();
    int selectByAnswer(const Answer& answer, const ResultBuffer& filter, SelectionSet& out);
    void setErrno(int value);

    DatabasePort& database_;
    Answers& answers_;
    HostReporter& reporter_;
    Options pending_;
    std::string lastInput_;
    std::vector<TempVector> tempVectors_;
    ProgressMeter meter_;
    std::FILE* progressOut_ = nullptr;
    int shownPercent_ = -1;
    std::set<ObjectId> highlighted_;
    std::string statusText_;
    std::string drawingFolder_;
    std::map<std::string, ResultItem> variables_;
    View view_;
    std::vector<View> previousViews_;
};

}  // namespace vorn
