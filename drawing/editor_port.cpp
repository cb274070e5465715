#include "drawing/editor_port.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/database_port.h"
#include "drawing/platform.h"

namespace vorn {

bool SelectionSet::contains(ObjectId id) const { return std::find(ids.begin(), ids.end(), id) != ids.end(); }

void SelectionSet::add(ObjectId id)
{
    if (id.isValid() && !contains(id)) ids.push_back(id);
}

void SelectionSet::remove(ObjectId id) { ids.erase(std::remove(ids.begin(), ids.end(), id), ids.end()); }

namespace {

EditorPort* editor() { return platform().editor; }

SelectionKeywordCallback& selectionKeywordCallback()
{
    static SelectionKeywordCallback callback;
    return callback;
}

std::string text(const char* s) { return s ? std::string(s) : std::string(); }

// The selection query of a mode letter; false for an interactive mode.
bool queryOfMode(const std::string& mode, const std::vector<Point2d>& points, SelectionQuery& query)
{
    static const std::pair<const char*, SelectMode> modes[] = {
        {"X", SelectMode::All}, {"C", SelectMode::Crossing}, {"W", SelectMode::Window},
        {"CP", SelectMode::CrossingPolygon}, {"WP", SelectMode::WindowPolygon},
    };
    for (const auto& [letters, selectMode] : modes) {
        if (mode == letters) {
            query.mode = selectMode;
            query.points = points;
            return true;
        }
    }
    return false;
}

}  // namespace

}  // namespace vorn

using vorn::editor;

int acedInitGet(int bits, const char* keywords) { return editor() ? editor()->initGet(bits, vorn::text(keywords)) : RTERROR; }

int acedGetPoint(const ads_point* base, const char* prompt, ads_point& result)
{
    return editor() ? editor()->getPoint(base, vorn::text(prompt), result) : RTERROR;
}

int acedGetCorner(const ads_point& base, const char* prompt, ads_point& result)
{
    return editor() ? editor()->getCorner(base, vorn::text(prompt), result) : RTERROR;
}

int acedGetDist(const ads_point* base, const char* prompt, double& result)
{
    return editor() ? editor()->getDist(base, vorn::text(prompt), result) : RTERROR;
}

int acedGetOrient(const ads_point* base, const char* prompt, double& result)
{
    return editor() ? editor()->getOrient(base, vorn::text(prompt), result) : RTERROR;
}

int acedGetReal(const char* prompt, double& result) { return editor() ? editor()->getReal(vorn::text(prompt), result) : RTERROR; }

int acedGetInt(const char* prompt, int& result) { return editor() ? editor()->getInt(vorn::text(prompt), result) : RTERROR; }

int acedGetString(int allowBlanks, const char* prompt, std::string& result)
{
    return editor() ? editor()->getString(allowBlanks != 0, vorn::text(prompt), result) : RTERROR;
}

int acedGetKword(const char* prompt, std::string& result)
{
    return editor() ? editor()->getKword(vorn::text(prompt), result) : RTERROR;
}

int acedGetInput(std::string& result)
{
    if (!editor()) return RTERROR;
    result = editor()->lastInput();
    return RTNORM;
}

int acedEntSel(const char* prompt, vorn::ObjectId& id, ads_point& picked)
{
    return editor() ? editor()->entSel(vorn::text(prompt), id, picked) : RTERROR;
}

int acedPrompt(const char* text)
{
    if (!editor()) return RTERROR;
    editor()->prompt(vorn::text(text));
    return RTNORM;
}

int acedDragGen(const vorn::SelectionSet& set, const char* prompt, int cursor, const vorn::DragCallback& callback,
                ads_point& result)
{
    return editor() ? editor()->dragGen(set, vorn::text(prompt), callback, result) : RTERROR;
}

int acedGrDraw(const ads_point& from, const ads_point& to, int color, int highlight)
{
    if (!editor()) return RTERROR;
    editor()->grDraw(from, to, color, highlight);
    return RTNORM;
}

int acedGrText(int box, const char* text, int highlight)
{
    if (!editor()) return RTERROR;
    editor()->grText(box, vorn::text(text));
    return RTNORM;
}

int acedRedraw()
{
    if (!editor()) return RTERROR;
    editor()->redraw();
    return RTNORM;
}

void acedUpdateDisplay()
{
    if (editor()) editor()->updateDisplay();
}

int acedSetStatusBarProgressMeter(const char* label, int minPos, int maxPos)
{
    return editor() ? editor()->setProgressMeter(vorn::text(label), minPos, maxPos) : -1;
}

int acedSetStatusBarProgressMeterPos(int pos) { return editor() ? editor()->setProgressMeterPos(pos) : -1; }

void acedRestoreStatusBar()
{
    if (editor()) editor()->restoreStatusBar();
}

bool acedUsrBrk() { return editor() && editor()->userBreak(); }

int acedGetVar(const char* name, vorn::ResultItem& result) { return editor() ? editor()->getVar(vorn::text(name), result) : RTERROR; }

int acedSetVar(const char* name, const vorn::ResultItem& value)
{
    return editor() ? editor()->setVar(vorn::text(name), value) : RTERROR;
}

int acdbWcs2Ucs(const ads_point& from, ads_point& to)
{
    if (!editor()) return RTERROR;
    to = editor()->worldToUser(from);
    return RTNORM;
}

int acdbUcs2Wcs(const ads_point& from, ads_point& to)
{
    if (!editor()) return RTERROR;
    to = editor()->userToWorld(from);
    return RTNORM;
}

double acutAngle(const ads_point& from, const ads_point& to) { return std::atan2(to.y - from.y, to.x - from.x); }

double acutDistance(const ads_point& from, const ads_point& to) { return from.distanceTo(to); }

int acdbRToS(double value, int unit, int precision, std::string& result)
{
    if (!editor()) return RTERROR;
    result = editor()->realToString(value, unit, precision);
    return RTNORM;
}

int acdbAngToS(double radians, int unit, int precision, std::string& result)
{
    if (!editor()) return RTERROR;
    result = editor()->angleToString(radians, unit, precision);
    return RTNORM;
}

int acdbDisToF(const char* text, int unit, double& result)
{
    return editor() ? editor()->distanceFromString(vorn::text(text), unit, result) : RTERROR;
}

int acedSSGet(const char* mode, const std::vector<vorn::Point2d>& points, const vorn::ResultBuffer& filter,
              vorn::SelectionSet& result, const vorn::InteractiveSelection* request)
{
    result.ids.clear();
    std::string letters = vorn::text(mode);
    vorn::SelectionQuery query;
    query.filter = filter;
    if (vorn::queryOfMode(letters, points, query)) {
        vorn::DatabasePort* database = vorn::platform().database;
        if (!database) return RTERROR;
        result.ids = database->select(query);
        return result.ids.empty() ? RTERROR : RTNORM;
    }
    if (!editor()) return RTERROR;
    vorn::InteractiveSelection asked = request ? *request : vorn::InteractiveSelection{};
    asked.filter = filter;
    asked.single = asked.single || letters.find(":S") != std::string::npos;
    bool withKeywords = letters.find(":K") != std::string::npos;
    if (!withKeywords) asked.keywords.clear();
    vorn::SelectionKeywordCallback none;
    return editor()->selectInteractive(asked, withKeywords ? vorn::selectionKeywordCallback() : none, result);
}

int acedSSSetKwordCallbackPtr(vorn::SelectionKeywordCallback callback)
{
    vorn::selectionKeywordCallback() = std::move(callback);
    return RTNORM;
}

long acedSSLength(const vorn::SelectionSet& set) { return set.length(); }

vorn::ObjectId acedSSName(const vorn::SelectionSet& set, long index)
{
    if (index < 0 || index >= set.length()) return {};
    return set.ids[static_cast<size_t>(index)];
}

int acedSSAdd(vorn::ObjectId id, vorn::SelectionSet& set)
{
    set.add(id);
    return RTNORM;
}

int acedSSDel(vorn::ObjectId id, vorn::SelectionSet& set)
{
    if (!set.contains(id)) return RTERROR;
    set.remove(id);
    return RTNORM;
}

int acedSSMemb(vorn::ObjectId id, const vorn::SelectionSet& set) { return set.contains(id) ? RTNORM : RTERROR; }

int acedSSFree(vorn::SelectionSet& set)
{
    set.ids.clear();
    return RTNORM;
}

vorn::ObjectId acdbEntLast()
{
    vorn::DatabasePort* database = vorn::platform().database;
    return database ? database->lastEntity() : vorn::ObjectId{};
}

int acdbEntDel(vorn::ObjectId id)
{
    vorn::DatabasePort* database = vorn::platform().database;
    if (!database) return RTERROR;
    return database->erase(id) == vorn::eOk ? RTNORM : RTERROR;
}

int acedZoomWindow(const ads_point& corner1, const ads_point& corner2)
{
    return editor() ? editor()->zoomWindow(corner1, corner2) : RTERROR;
}

int acedZoomPrevious() { return editor() ? editor()->zoomPrevious() : RTERROR; }

int acedHatchSolid(const vorn::SelectionSet& set) { return editor() ? editor()->hatchSolid(set) : RTERROR; }
