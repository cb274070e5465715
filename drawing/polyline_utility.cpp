// The polyline commands that change polylines: closing, joining, building
// one from picked objects, and clearing layers.
#include "drawing/polyline_utility.h"

#include <algorithm>
#include <iterator>
#include <cmath>

#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/layers.h"
#include "drawing/platform.h"
#include "drawing/polygon.h"
#include "drawing/polyline_join.h"
#include "drawing/prompts.h"
#include "drawing/select_layer_dlg.h"
#include "drawing/selection.h"
#include "drawing/sysvars.h"
#include "drawing/tempgraphics.h"
#include "base/report.h"
#include "base/textnum.h"

using vorn::Entity;
using vorn::LwPolyline;
using vorn::ObjectId;
using vorn::Point2d;
using namespace polyline_utility;

namespace {

vorn::DatabasePort& database() { return *vorn::platform().database; }

}  // namespace

namespace polyline_utility {

void printBanner(const char* purpose)
{
    acedPrompt("\nVornmark Modules' Polyline Utility");
    acedPrompt(purpose);
}

bool selectObjects(std::vector<ObjectId>& idsOut)
{
    idsOut.clear();
    acedSSSetKwordCallbackPtr(layerInputCallback);
    vorn::InteractiveSelection request;
    request.keywords = "SLayer";
    vorn::SelectionSet set;
    if (acedSSGet(":K", {}, {}, set, &request) == RTNORM) selectionToIds(set, idsOut);
    acedSSFree(set);
    if (!idsOut.empty()) return true;
    acedPrompt("\n No Objects selectes");
    return false;
}

std::vector<ObjectId> closedCurves(const std::vector<ObjectId>& ids)
{
    std::vector<ObjectId> closed;
    for (ObjectId id : ids)
        if (isClosedCurve(id)) closed.push_back(id);
    return closed;
}

bool waitForEnter()
{
    std::string reply;
    return acedGetString(0, "\n <Enter> to continue ...", reply) != RTCAN;
}

bool readEntity(ObjectId id, Entity& out) { return vorn::platform().database && database().readEntity(id, out) == vorn::eOk; }

}  // namespace polyline_utility

// ---------------------------------------------------------------- closing

namespace {

bool isOpenPolyline(ObjectId id)
{
    Entity entity;
    return readEntity(id, entity) && isPolylineEntity(entity) && !database().isClosed(entity);
}

// Closes a polyline of any kind; false when it cannot be written.
bool closePolyline(ObjectId id)
{
    Entity entity;
    if (!readEntity(id, entity)) return false;
    if (auto* lw = entity.as<LwPolyline>()) lw->closed = true;
    else if (auto* p2 = entity.as<vorn::Polyline2d>()) p2->closed = true;
    else if (auto* p3 = entity.as<vorn::Polyline3d>()) p3->closed = true;
    else return false;
    return database().writeEntity(entity) == vorn::eOk;
}

std::string notClosedQuestion(size_t open, size_t total, const char* question)
{
    return vorn::formatString(" %d objects (in total %d) are not closed polylines!", static_cast<int>(open), static_cast<int>(total)) +
           question;
}

}  // namespace

void checkClosedPolylines()
{
    printBanner("\nThis command checks non-closed polylines and trys to make them closed.");
    std::vector<ObjectId> ids;
    if (!selectObjects(ids)) return;
    highlightIds(ids, false);
    flushGraphics();
    std::vector<ObjectId> open;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(open), isOpenPolyline);
    if (open.empty()) {
        acutPrintf("\nAll selected polylines are closed");
        return;
    }
    highlightIds(open, true);
    if (askYesNo(notClosedQuestion(open.size(), ids.size(), "\n\r Do you want to close these polylines?"), IDYES) == IDYES) {
        long closed = std::count_if(open.begin(), open.end(), closePolyline);
        acutPrintf("\n%ld polylines are made closed", closed);
    }
    highlightIds(open, false);
}

// ---------------------------------------------------------------- joining

namespace {

// A lightweight polyline with the common properties of `source`.
Entity lightweightLike(const Entity& source, LwPolyline polyline)
{
    Entity made;
    made.common = source.common;
    made.common.id = ObjectId{};
    made.common.xdata.clear();
    made.common.reactors.clear();
    made.shape = std::move(polyline);
    return made;
}

LwPolyline lightweightOf(const vorn::Polyline2d& heavy)
{
    LwPolyline lw;
    for (const vorn::Polyline2dVertex& v : heavy.vertices)
        if (v.type != vorn::k2dSplineCtlVertex) lw.vertices.push_back({v.position.to2d(), v.bulge, v.startWidth, v.endWidth});
    lw.elevation = heavy.elevation;
    return lw;
}

// Puts `replacement` in the place of `old`: appended, then the old erased.
// When the old cannot be erased the replacement goes again, so nothing is
// doubled. The new id, null on failure.
ObjectId replaceEntity(ObjectId old, Entity replacement)
{
    ObjectId id;
    if (appendToModelSpace(id, replacement) != vorn::eOk) return {};
    if (database().erase(old) == vorn::eOk) return id;
    database().erase(id);
    return {};
}

bool isOnLockedLayer(const Entity& entity)
{
    vorn::LayerRecord layer;
    return database().findLayer(entity.common.layer, layer) && layer.locked;
}

// The walk of the join over the selection: which polylines take part, with
// heavy 2-D polylines and (when the user agrees) flat lines replaced by
// lightweight ones. False when the user cancelled.
class JoinList {
public:
    explicit JoinList(std::vector<ObjectId> ids) : ids_(std::move(ids)) {}

    bool build()
    {
        for (size_t k = ids_.size(); k-- > 0;) {
            Entity entity;
            if (!readEntity(ids_[k], entity) || isOnLockedLayer(entity) || !takeIn(k, entity)) drop(k);
            if (cancelled_) return false;
        }
        return true;
    }
    const std::vector<ObjectId>& ids() const { return ids_; }
    int convertedLines() const { return convertedLines_; }

private:
    // True when the entity at k stays in the list.
    bool takeIn(size_t k, const Entity& entity)
    {
        if (const auto* lw = entity.as<LwPolyline>()) return !lw->closed;
        if (const auto* heavy = entity.as<vorn::Polyline2d>()) {
            if (!heavy->closed) appendReplacement(ids_[k], lightweightLike(entity, lightweightOf(*heavy)));
            return false;
        }
        if (const auto* line = entity.as<vorn::Line>()) takeLine(ids_[k], entity, *line);
        return false;
    }

    void takeLine(ObjectId id, const Entity& entity, const vorn::Line& line)
    {
        if (linesAnswer_ == 0) {
            linesAnswer_ = askYesNo("Convert Line to Polyline?", IDYES);
            cancelled_ = linesAnswer_ == IDCANCEL;
        }
        if (linesAnswer_ != IDYES || std::fabs(line.start.z - line.end.z) >= vorn::kOverlapTolerance) return;
        LwPolyline lw;
        lw.vertices = {{line.start.to2d()}, {line.end.to2d()}};
        lw.elevation = line.start.z;
        if (appendReplacement(id, lightweightLike(entity, lw))) ++convertedLines_;
    }

    bool appendReplacement(ObjectId old, const Entity& replacement)
    {
        ObjectId id = replaceEntity(old, replacement);
        if (id.isValid()) ids_.push_back(id);
        return id.isValid();
    }

    void drop(size_t k) { ids_.erase(ids_.begin() + static_cast<std::ptrdiff_t>(k)); }

    std::vector<ObjectId> ids_;
    int linesAnswer_ = 0;
    bool cancelled_ = false;
    int convertedLines_ = 0;
};

}  // namespace

void joinPolylines()
{
    printBanner("\nThis command trys to join the polylines(lines) objects as many as possible");
    std::vector<ObjectId> ids;
    if (!selectObjects(ids)) return;
    highlightIds(ids, false);
    flushGraphics();
    JoinList list(ids);
    if (!list.build()) return;
    std::vector<ObjectId> open = list.ids();
    if (open.empty()) {
        acutPrintf("\nAll selected polylines are closed");
        return;
    }
    highlightIds(open, true);
    if (list.convertedLines() > 0) acutPrintf("\n %d Lines are converted to Polylines.", list.convertedLines());
    if (askYesNo(notClosedQuestion(open.size(), ids.size(), "\n\r Do you want to join these polylines?"), IDYES) == IDYES) {
        resetPolylineJoinCount();
        highlightIds(open, false);
        joinPolylineSet(open);
        highlightIds(open, true);
        acutPrintf("\n %d polylines have been joined", polylineJoinCount());
        waitForEnter();
    }
    highlightIds(open, false);
}

// ------------------------------------------------------- polyline building

namespace {

// The state of the building command: the points so far and the objects
// they came from.
class PolylineBuilder {
public:
    PolylineBuilder() : elevation_(getRealVar("ELEVATION")) {}

    // Runs the prompt loop; false when the user cancelled the command.
    bool run()
    {
        acutPrintf("\nCurrent elevation is <%f>", elevation_);
        for (;;) {
            acedInitGet(0, "Elevation Reverse Close Nearest Farthest Undo");
            ObjectId id;
            ads_point picked;
            int status = acedEntSel(nearest_ ? "\n[Elevation/Close/Reverse order/Undo object/to Farthest end/<Select object:>]"
                                             : "\n[Elevation/Close/Reverse order/Undo object/to Nearest end/<Select object:>]",
                                    id, picked);
            if (status == RTCAN) return false;
            if (status == RTNORM) add(id);
            else if (status == RTKWORD && !keyword()) return true;
            else if (status == RTERROR && getIntVar("ERRNO") == vorn::kErrnoNullInput) return true;
            else if (status != RTKWORD) continue;
            showPoints();
        }
    }

    // Makes the polyline of more than one point on the current layer.
    void finish()
    {
        if (points_.size() > 1) {
            ObjectId id;
            addPolylineFromPoints(id, points_, close_, elevation_, vorn::kColorByLayer);
        }
        redrawAndFlush();
    }

private:
    void add(ObjectId id)
    {
        std::vector<Point2d> added;
        if (getEntityVertices2d(id, added) < 1) return;
        if (added.size() > 1 && added.front().isEqualTo(added.back())) added.pop_back();
        if (!points_.empty()) {
            double toFirst = planarDistance(points_.back(), added.front());
            double toLast = planarDistance(points_.back(), added.back());
            if (nearest_ ? toLast < toFirst : toFirst < toLast) std::reverse(added.begin(), added.end());
        }
        points_.insert(points_.end(), added.begin(), added.end());
        picked_.push_back(id);
    }

    // Acts on a keyword; false when it finishes the command.
    bool keyword()
    {
        std::string word;
        acedGetInput(word);
        if (word == "Close") {
            close_ = true;
            return false;
        }
        if (word == "Elevation") return askElevation();
        if (word == "Reverse") {
            std::reverse(points_.begin(), points_.end());
            acutPrintf("\nInput <%d> Points  Reversed!", static_cast<int>(points_.size()));
        } else if (word == "Farthest" || word == "Nearest") {
            nearest_ = word == "Nearest";
        } else if (word == "Undo") {
            undoObject();
        } else {
            acutPrintf("\nUnknown Key Word <%s>", word.c_str());
        }
        return true;
    }

    bool askElevation()
    {
        double value = elevation_;
        int status = acedGetReal(vorn::formatString("\nInput new elevation <%f>:", elevation_).c_str(), value);
        if (status == RTCAN) return false;
        if (status == RTNORM) elevation_ = value;
        return true;
    }

    // Takes the points of a picked object out again, each at its first
    // occurrence.
    void undoObject()
    {
        ObjectId id;
        ads_point picked;
        if (acedEntSel("\nSelect object:", id, picked) != RTNORM) return;
        auto found = std::find(picked_.begin(), picked_.end(), id);
        if (found == picked_.end()) return;
        std::vector<Point2d> removed;
        getEntityVertices2d(id, removed);
        for (const Point2d& p : removed) {
            auto at = std::find(points_.begin(), points_.end(), p);
            if (at != points_.end()) points_.erase(at);
        }
        picked_.erase(found);
    }

    void showPoints() const
    {
        if (points_.empty()) return;
        redrawAndFlush();
        drawPolygonOutline(points_, 6, false);
        drawPointMarker(points_.back(), 10, 2);
    }

    std::vector<Point2d> points_;
    std::vector<ObjectId> picked_;
    bool nearest_ = true;
    bool close_ = false;
    double elevation_ = 0.0;
};

}  // namespace

void createPolylineFromObjects()
{
    printBanner("\nThis command creates a polyline from selected objects");
    PolylineBuilder builder;
    if (builder.run()) builder.finish();
}

// ---------------------------------------------------------- layer clearing

namespace {

// The layers to clear: the working layer, or those chosen in the layer
// panel. False when the user cancelled.
bool layersToClear(std::string& layers)
{
    acedInitGet(0, "Select Working");
    std::string word;
    int status = acedGetKword("\n[Select Layers to clear/<VORN_Working_Layer>]:", word);
    if (status == RTCAN) return false;
    layers = kWorkingLayerName;
    if (status != RTNORM || word != "Select") return true;
    CSelectLayerDlg dialog("Select Layers to Clear");
    if (dialog.DoModal() != IDOK) return false;
    layers = dialog.result;
    return true;
}

}  // namespace

void clearWorkingLayer()
{
    std::string layers;
    if (!layersToClear(layers)) return;
    vorn::SelectionSet set;
    long count = selectByLayer(set, layers, {}, "");
    if (count < 1) {
        acutPrintf("\n no objects in layer: %s", layers.c_str());
        return;
    }
    highlightSelection(set, true);
    int answer = AfxMessageBox(vorn::formatString("Remove all %ld objects in layer:<%s>!", count, layers.c_str()), MB_OKCANCEL);
    highlightSelection(set, false);
    if (answer == IDOK) {
        long removed = std::count_if(set.ids.begin(), set.ids.end(), [](ObjectId id) { return acdbEntDel(id) == RTNORM; });
        acutPrintf("\n %ld objects in layer:<%s> are removed!", removed, layers.c_str());
    }
    acedSSFree(set);
}
