// The editor part of the platform port: the command line's prompts, each
// returning a status and a value, interactive selection, temporary vectors,
// the status bar meter, the user break, system variables, coordinate and
// unit conversion and the two drawing commands the system drives.
//
// Below the port class stand the platform's calls under their own names
// (acedGetPoint, acedInitGet, acedSSGet, ...) as the system's code uses
// them; they forward to the editor (and, for selection sets, the database)
// of the installed platform.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "drawing/entity_types.h"
#include "drawing/geom_types.h"

namespace vorn {

// Status of a prompt (RTNONE, 5000, is in drawing/geom_types.h).
enum PromptStatus : int {
    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RTREJ = -5003,
    RTKWORD = -5005,
};

// Bits of the prompt options (acedInitGet).
enum InitGetBits : int {
    RSG_NONULL = 1,      // Enter is not an answer
    RSG_NOZERO = 2,      // no zero
    RSG_NONEG = 4,       // no negative value
    RSG_NOLIM = 8,
    RSG_GETZ = 16,
    RSG_DASH = 32,
    RSG_2D = 64,         // distances in plan
    RSG_OTHER = 128,     // any text is taken as a keyword
    RSG_DDISTFIRST = 256,
    RSG_TRACKUCS = 512,
    RSG_NOORTHOZ = 1024,
    RSG_NOOSNAP = 2048,
    RSG_NODDIST = 4096,
};

// ERRNO after a pick: the user pressed Enter; nothing was found at the point.
inline constexpr int kErrnoNullInput = 52;
inline constexpr int kErrnoNothingPicked = 7;

// A selection set: the selected entities in the order they were selected.
// The platform's set handle is freed with the value.
struct SelectionSet {
    std::vector<ObjectId> ids;

    long length() const { return static_cast<long>(ids.size()); }
    bool contains(ObjectId id) const;
    // Adds an id not yet in the set; removes one.
    void add(ObjectId id);
    void remove(ObjectId id);
};

// The keyword callback of an interactive selection: called with the keyword
// the user chose; it may return a set to take as the selection (a null chain
// otherwise).
using SelectionKeywordCallback = std::function<bool(const std::string& keyword, SelectionSet& setOut)>;

// An interactive selection (acedSSGet without a selection mode letter, or
// with ":$", ":K", ":S").
struct InteractiveSelection {
    std::string selectPrompt = "\nSelect objects:";  // ":$": "Select %s"
    std::string removePrompt = "\nRemove objects:";
    std::string keywords;                            // ":K": offered keywords
    bool single = false;                             // ":S": one answer
    ResultBuffer filter;                             // as in SelectionQuery
};

// The cursor callback of a drag: from the cursor point, fills the
// transform (row-major 4 x 4) that shows the dragged objects there.
using DragCallback = std::function<int(const Point3d& cursor, double matrix[4][4])>;

// The system variables the system reads and writes, with their types:
// CLAYER, DWGPREFIX (strings); CMDECHO, DYNMODE, ERRNO, LUNITS, LUPREC
// (shorts); VIEWSIZE, ELEVATION (reals); VIEWCTR (3-D point); SCREENSIZE
// (2-D point, pixels).
class EditorPort {
public:
    virtual ~EditorPort() = default;

    // ---- prompts. Each prints its prompt, takes an answer and returns its
    // status: RTNORM with a value, RTNONE for plain Enter, RTKWORD for a
    // keyword (read it with `lastInput`), RTCAN for cancel, RTERROR.
    // Keywords and option bits for the next prompt only.
    virtual int initGet(int bits, const std::string& keywords) = 0;
    virtual int getPoint(const Point3d* base, const std::string& prompt, Point3d& out) = 0;
    virtual int getCorner(const Point3d& base, const std::string& prompt, Point3d& out) = 0;
    // A distance typed, or the distance from `base` to a point given.
    virtual int getDist(const Point3d* base, const std::string& prompt, double& out) = 0;
    // An angle in radians (typed in degrees), or the direction from `base`
    // to a point given.
    virtual int getOrient(const Point3d* base, const std::string& prompt, double& out) = 0;
    virtual int getReal(const std::string& prompt, double& out) = 0;
    virtual int getInt(const std::string& prompt, int& out) = 0;
    // Enter gives RTNORM and an empty string; without `allowBlanks` the
    // answer ends at its first blank.
    virtual int getString(bool allowBlanks, const std::string& prompt, std::string& out) = 0;
    virtual int getKword(const std::string& prompt, std::string& out) = 0;
    // The keyword (or other text) of the last RTKWORD answer.
    virtual std::string lastInput() const = 0;
    // Picks an entity by a point: RTNORM with its id and the picked point;
    // RTERROR with ERRNO 52 for Enter or 7 when nothing lies at the point.
    virtual int entSel(const std::string& prompt, ObjectId& idOut, Point3d& pickedOut) = 0;
    // Prints a prompt without asking (acedPrompt).
    virtual void prompt(const std::string& text) = 0;
    // Asks for a selection. RTNORM with at least one entity; RTERROR when
    // nothing was selected; RTCAN on cancel.
    virtual int selectInteractive(const InteractiveSelection& request, const SelectionKeywordCallback& onKeyword,
                                  SelectionSet& out) = 0;
    // Drags `set` until a point is given; the callback is shown each cursor
    // position. The objects are not moved: the caller transforms them.
    virtual int dragGen(const SelectionSet& set, const std::string& prompt, const DragCallback& callback,
                        Point3d& out) = 0;

    // ---- screen
    // A temporary vector in user coordinates, colour index, highlight 1 dashed.
    virtual void grDraw(const Point3d& from, const Point3d& to, int color, int highlight) = 0;
    // Highlights an entity (or ends its highlight) until it is redrawn.
    virtual void highlight(ObjectId id, bool on) = 0;
    // Text in the status area (box -1) or a screen menu box.
    virtual void grText(int box, const std::string& text) = 0;
    // Removes every temporary vector (redraw of the whole view).
    virtual void redraw() = 0;
    virtual void updateDisplay() = 0;
    // Status bar meter: a label and a range, a position, and the plain bar.
    virtual int setProgressMeter(const std::string& label, int minPos, int maxPos) = 0;
    virtual int setProgressMeterPos(int pos) = 0;
    virtual void restoreStatusBar() = 0;
    // True once the user pressed the cancel key (cleared on reading).
    virtual bool userBreak() = 0;

    // ---- system variables: RTNORM, or RTERROR for an unknown variable, a
    // value of the wrong type or a read-only one.
    virtual int getVar(const std::string& name, ResultItem& out) = 0;
    virtual int setVar(const std::string& name, const ResultItem& value) = 0;

    // ---- conversion. `unit` and `precision` of -1 take LUNITS/LUPREC
    // (AUNITS/AUPREC for angles).
    virtual Point3d worldToUser(const Point3d& p) const = 0;
    virtual Point3d userToWorld(const Point3d& p) const = 0;
    virtual std::string realToString(double value, int unit, int precision) = 0;
    virtual std::string angleToString(double radians, int unit, int precision) = 0;
    // RTNORM with the value, or RTERROR when the text is no distance.
    virtual int distanceFromString(const std::string& text, int unit, double& out) = 0;

    // ---- drawing commands the system drives
    // "ZOOM" "W" with two corners in user coordinates, and "ZOOM" "P".
    virtual int zoomWindow(const Point3d& corner1, const Point3d& corner2) = 0;
    virtual int zoomPrevious() = 0;
    // "hatch" with pattern "Solid" on the closed objects of `set`: the new
    // hatch becomes the last entity, on the current layer.
    virtual int hatchSolid(const SelectionSet& set) = 0;
};

}  // namespace vorn

using vorn::RTCAN;
using vorn::RTERROR;
using vorn::RTKWORD;
using vorn::RTNONE;
using vorn::RTNORM;
using vorn::RTREJ;
using vorn::RSG_2D;
using vorn::RSG_NONEG;
using vorn::RSG_NONULL;
using vorn::RSG_NOZERO;
using vorn::RSG_OTHER;

using ads_point = vorn::Point3d;

// The platform's editor calls, on the installed platform. A call without
// an installed editor returns RTERROR.
int acedInitGet(int bits, const char* keywords);
int acedGetPoint(const ads_point* base, const char* prompt, ads_point& result);
int acedGetCorner(const ads_point& base, const char* prompt, ads_point& result);
int acedGetDist(const ads_point* base, const char* prompt, double& result);
int acedGetOrient(const ads_point* base, const char* prompt, double& result);
int acedGetReal(const char* prompt, double& result);
int acedGetInt(const char* prompt, int& result);
int acedGetString(int allowBlanks, const char* prompt, std::string& result);
int acedGetKword(const char* prompt, std::string& result);
int acedGetInput(std::string& result);
int acedEntSel(const char* prompt, vorn::ObjectId& id, ads_point& picked);
int acedPrompt(const char* text);
int acedDragGen(const vorn::SelectionSet& set, const char* prompt, int cursor, const vorn::DragCallback& callback,
                ads_point& result);
int acedGrDraw(const ads_point& from, const ads_point& to, int color, int highlight);
int acedGrText(int box, const char* text, int highlight);
int acedRedraw();
void acedUpdateDisplay();
int acedSetStatusBarProgressMeter(const char* label, int minPos, int maxPos);
int acedSetStatusBarProgressMeterPos(int pos);
void acedRestoreStatusBar();
bool acedUsrBrk();
int acedGetVar(const char* name, vorn::ResultItem& result);
int acedSetVar(const char* name, const vorn::ResultItem& value);
int acdbWcs2Ucs(const ads_point& from, ads_point& to);
int acdbUcs2Wcs(const ads_point& from, ads_point& to);
double acutAngle(const ads_point& from, const ads_point& to);
double acutDistance(const ads_point& from, const ads_point& to);
int acdbRToS(double value, int unit, int precision, std::string& result);
int acdbAngToS(double radians, int unit, int precision, std::string& result);
int acdbDisToF(const char* text, int unit, double& result);

// Selection sets. Mode "X" (all, no points), "C" (crossing, two corners),
// "W" (window, two corners), "CP"/"WP" (polygon); an empty mode or one
// starting with ":" asks the user (":$" with `request` prompts, ":K" with
// its keywords and the callback of acedSSSetKwordCallbackPtr). RTNORM with
// at least one entity, RTERROR when none, RTCAN on cancel.
int acedSSGet(const char* mode, const std::vector<vorn::Point2d>& points, const vorn::ResultBuffer& filter,
              vorn::SelectionSet& result, const vorn::InteractiveSelection* request = nullptr);
int acedSSSetKwordCallbackPtr(vorn::SelectionKeywordCallback callback);
long acedSSLength(const vorn::SelectionSet& set);
// The id of member `index` (acedSSName and acdbGetObjectId in one); null
// beyond the end.
vorn::ObjectId acedSSName(const vorn::SelectionSet& set, long index);
int acedSSAdd(vorn::ObjectId id, vorn::SelectionSet& set);
int acedSSDel(vorn::ObjectId id, vorn::SelectionSet& set);
int acedSSMemb(vorn::ObjectId id, const vorn::SelectionSet& set);
int acedSSFree(vorn::SelectionSet& set);
// The last entity of model space, and deletion of an entity.
vorn::ObjectId acdbEntLast();
int acdbEntDel(vorn::ObjectId id);

// "ZOOM" and "hatch" through the command stack (acedCommandS).
int acedZoomWindow(const ads_point& corner1, const ads_point& corner2);
int acedZoomPrevious();
int acedHatchSolid(const vorn::SelectionSet& set);
