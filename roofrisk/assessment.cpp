#include "roofrisk/assessment.h"

#include <algorithm>

#include "base/report.h"
#include "base/textnum.h"
#include "drawing/create.h"
#include "drawing/database_port.h"
#include "drawing/drawing_helpers.h"
#include "drawing/platform.h"
#include "drawing/prompts.h"
#include "drawing/select_layer_dlg.h"
#include "drawing/sysvars.h"
#include "drawing/tempgraphics.h"
#include "grid/colorschema.h"
#include "grid/grid.h"
#include "grid/gridplot.h"
#include "shell/docdata.h"

using namespace vorn::rfri;

namespace {
// The caption of a group of controls.
vorn::PanelControl groupCaption(const std::string& caption)
{
    vorn::PanelControl control;
    control.caption = caption;
    control.kind = vorn::ControlKind::Static;
    return control;
}
}  // namespace

// ---- the panel -------------------------------------------------------------------

CRFRIDefectValue::CRFRIDefectValue() = default;

std::vector<vorn::PanelControl> CRFRIDefectValue::panelControls()
{
    using namespace vorn;
    std::vector<PanelControl> controls{editControl("Measurement ID:", measurementText)};
    std::string group;
    for (int k = 0; k < kFactorCount; ++k) {
        const DefectFactor& factor = defectFactor(k);
        if (group != factor.panelGroup) {
            group = factor.panelGroup;
            controls.push_back(groupCaption(group));
        }
        controls.push_back(comboControl(factor.panelCaption, comboTexts[static_cast<size_t>(k)], factor.panelWording));
    }
    return controls;
}

// Empty strings take their default entries; once the last string holds a
// value all strings go to the controls (by exact match), and the controls
// are read back.
void CRFRIDefectValue::OnInitDialog()
{
    bool transfer = !values.back().empty();
    for (int k = 0; k < kFactorCount; ++k) {
        const DefectFactor& factor = defectFactor(k);
        const std::vector<std::string>& items = factor.panelWording;
        std::string& control = comboTexts[static_cast<size_t>(k)];
        const std::string& value = values[static_cast<size_t>(k)];
        control.clear();
        if (value.empty()) control = items[static_cast<size_t>(factor.panelDefault)];
        if (transfer && std::find(items.begin(), items.end(), value) != items.end()) control = value;
        values[static_cast<size_t>(k)] = control;
    }
    measurementText = measurementId;
}

void CRFRIDefectValue::OnOK()
{
    values = comboTexts;
    measurementId = measurementText;
    EndDialog(IDOK);
}

std::vector<std::string> CRFRIDefectValue::recordStrings() const
{
    std::vector<std::string> strings(values.begin(), values.end());
    strings.push_back(measurementId);
    return strings;
}

// `record` is a whole valid record: the application name first.
void CRFRIDefectValue::loadRecord(const std::vector<std::string>& record)
{
    for (int k = 0; k < kFactorCount; ++k) values[static_cast<size_t>(k)] = record[static_cast<size_t>(k + 1)];
    measurementId = record[kMeasurementPosition];
}

namespace vorn::rfri {

namespace {

DatabasePort* database() { return platform().database; }

// Ends a polygon input that a finished script would otherwise answer with
// Esc for ever: so many refusals in a row count as Enter.
constexpr int kMaxRefusedPoints = 100;

// The points of a new polygon, entered until plain Enter, each prompt
// showing the outline so far.
std::vector<Point2d> enterPolygon()
{
    std::vector<Point2d> points;
    int color = getIntVar("CECOLOR");
    if (color <= 0 || color > 255) color = 7;
    int refused = 0;
    for (;;) {
        drawPolygonOutline(points, color, false);
        ads_point picked;
        ads_point user;
        int status;
        if (points.empty()) {
            status = acedGetPoint(nullptr, "\nStart Point:", picked);
        } else {
            acdbWcs2Ucs({points.back().x, points.back().y, 0.0}, user);
            status = acedGetPoint(&user, "\nNext Point:", picked);
        }
        if (status == RTNONE || ++refused > kMaxRefusedPoints) break;
        if (status != RTNORM) continue;
        refused = 0;
        ads_point world;
        acdbUcs2Wcs(picked, world);
        points.push_back(world.to2d());
    }
    redrawAndFlush();
    return points;
}

// Asks for the entity to assess: a pick, or a polygon drawn on the keyword.
// RTNORM with an entity; RTREJ to ask again; anything else ends the command.
int takeAssessedEntity(ObjectId& id)
{
    acedInitGet(0, "Draw,D");
    ads_point picked;
    int status = acedEntSel("\nAssign assessment value[Draw Polygon/<Select Polygon>]:", id, picked);
    if (status == RTKWORD) {
        std::vector<Point2d> points = enterPolygon();
        if (points.size() < 2) return RTNONE;
        return addPolylineFromPoints(id, points, true, 0.0, kColorByLayer) == eOk ? static_cast<int>(RTNORM) : static_cast<int>(RTNONE);
    }
    if (status == RTERROR) return getIntVar("ERRNO") == kErrnoNullInput ? static_cast<int>(RTNONE) : static_cast<int>(RTREJ);
    return status;
}

void assessEntity(CRFRIDefectValue& panel, ObjectId id)
{
    highlightEntity(id, true);
    acDocManagerPtr()->pushResourceHandle();
    panel.title = "Assign RFRI Assesment Value";
    std::vector<std::string> record;
    if (readValidAssessment(id, record)) {
        panel.loadRecord(record);
        panel.title = "Modify RFRI Assesment Value";
    }
    if (panel.DoModal() == IDOK) writeAssessmentRecord(id, panel.recordStrings());
    highlightEntity(id, false);
    acDocManagerPtr()->popResourceHandle();
}

// The label size of vorn_RFRI_Label, kept between runs; 0 is Auto size.
double gLabelSize = 0.0;

// The layer choice "Select Layer for Labels": one layer on OK.
void chooseLabelLayer(std::string& layer)
{
    CSelectLayerDlg choice("Select Layer for Labels");
    choice.singleChoice = true;
    if (choice.DoModal() == IDOK && !choice.result.empty()) layer = choice.result;
}

std::string trimmedBlanks(const std::string& text)
{
    size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Paints each entry: a solid hatch of the schema's colour of its index, and
// the index as a label on the current layer.
void paintEntries(const std::vector<MappedEntry>& entries, const ColorTable& table)
{
    myGrid colors;
    colors.setColorTable(table);
    for (const MappedEntry& entry : entries) {
        Entity hatch;
        if (makeHatchFromLoop(hatch, entry.id) != eOk) continue;
        hatch.common.colorIndex = colors.getValueColor(entry.index);
        hatch.common.layer = database()->currentLayer();
        ObjectId hatchId;
        appendToModelSpace(hatchId, hatch);
        placeLabel(entry.id, formatString("%d", entry.index), 0.0, "");
    }
}

}  // namespace

bool readAssessmentRecord(ObjectId id, std::vector<std::string>& record)
{
    Entity entity;
    if (!database() || database()->readEntity(id, entity) != eOk) return false;
    ResultBuffer data = xdataOf(entity.common, kAssessmentApplication);
    if (data.empty()) return false;
    record.clear();
    resbufToStrings(record, data);
    return true;
}

bool readValidAssessment(ObjectId id, std::vector<std::string>& record)
{
    return readAssessmentRecord(id, record) && isAssessmentRecord(record);
}

bool writeAssessmentRecord(ObjectId id, const std::vector<std::string>& thirteen)
{
    Entity entity;
    if (!database() || database()->readEntity(id, entity) != eOk) return false;
    ResultBuffer data = xdataOf(entity.common, kAssessmentApplication);
    if (data.empty()) {
        database()->registerApplication(kAssessmentApplication);
        data.push_back(ResultItem::ofText(1001, kAssessmentApplication));
    }
    data.resize(1);
    for (const std::string& text : thirteen) data.push_back(ResultItem::ofText(1000, text));
    setXData(entity.common, data);
    return database()->writeEntity(entity) == eOk;
}

int selectAssessmentEntities(SelectionSet& set)
{
    InteractiveSelection request;
    request.selectPrompt = "Select RFRI Entites:";
    request.removePrompt = "Remove RFRI Entites:";
    ResultBuffer filter{ResultItem::ofInt(-3, 0), ResultItem::ofText(1001, kAssessmentApplication)};
    request.filter = filter;
    return acedSSGet(":$", {}, filter, set, &request);
}

void assignAssessments()
{
    CRFRIDefectValue panel;
    for (;;) {
        ObjectId id;
        int status = takeAssessedEntity(id);
        if (status == RTREJ) continue;
        if (status != RTNORM) return;
        assessEntity(panel, id);
    }
}

void listAssessments()
{
    SelectionSet set;
    if (selectAssessmentEntities(set) != RTNORM) return;
    for (ObjectId id : set.ids) {
        std::vector<std::string> record;
        if (!readValidAssessment(id, record)) continue;
        highlightEntity(id, true);
        acutPrintf("\nMeasurment: %s\n", record[kMeasurementPosition].c_str());
        for (int k = 0; k < kFactorCount; ++k) acutPrintf(defectFactor(k).listLine, record[static_cast<size_t>(k + 1)].c_str());
        std::string reply;
        int status = acedGetString(0, "\n <Enter> key to continue ...", reply);
        highlightEntity(id, false);
        if (status == 2) break;
    }
    acedSSFree(set);
}

bool placeLabel(ObjectId id, const std::string& text, double height, const std::string& layer)
{
    Entity entity;
    Extents3d extents;
    if (database()->readEntity(id, entity) != eOk || database()->getGeomExtents(entity, extents) != eOk) return false;
    const Point3d& low = extents.minPoint;
    const Point3d& high = extents.maxPoint;
    Text label;
    label.position = {(low.x + high.x) / 2.0, (low.y + high.y) / 2.0, (low.z + high.z) / 2.0};
    label.text = text;
    label.horizontalMode = 1;
    label.verticalMode = 2;
    label.alignment = label.position;
    label.height = height > 1e-10 ? height : 0.6 * (high.x - low.x) / static_cast<double>(text.size());
    Entity made{{}, label};
    made.common.layer = layer.empty() ? database()->currentLayer() : layer;
    ObjectId madeId;
    return appendToModelSpace(madeId, made) == eOk;
}

void labelAssessments()
{
    SelectionSet set;
    if (selectAssessmentEntities(set) != RTNORM || set.ids.empty()) return;
    std::string layer = getStringVar("CLAYER");
    double size = gLabelSize;
    if (acedGetDist(nullptr, formatString("\nSpecify label size(0 - Auto size) <%g>:", gLabelSize).c_str(), size) == RTNORM) {
        gLabelSize = size;
    }
    chooseLabelLayer(layer);
    for (ObjectId id : set.ids) {
        std::vector<std::string> record;
        if (!readValidAssessment(id, record)) continue;
        std::string text = trimmedBlanks(record[kMeasurementPosition]);
        if (!text.empty()) placeLabel(id, text, gLabelSize, layer);
    }
    acedSSFree(set);
}

std::vector<MappedEntry> collectAssessments(const SelectionSet& set, int& minimum, int& maximum)
{
    std::vector<MappedEntry> entries;
    minimum = 10000;
    maximum = 0;
    for (ObjectId id : set.ids) {
        std::vector<std::string> record;
        if (!readValidAssessment(id, record)) continue;
        int index = assessmentIndex(record);
        entries.push_back({id, index});
        minimum = std::min(minimum, index);
        maximum = std::max(maximum, index);
    }
    return entries;
}

// The legend runs from the minimum rounded down to a multiple of 5 to the
// maximum rounded up to one (a maximum ending in 5 goes to the next ten).
void mapAssessments()
{
    SelectionSet set;
    if (selectAssessmentEntities(set) != RTNORM) return;
    if (set.ids.empty()) {
        acutPrintf("\nNo RFRI entity selected.");
        return;
    }
    int minimum = 0;
    int maximum = 0;
    std::vector<MappedEntry> entries = collectAssessments(set, minimum, maximum);
    acedSSFree(set);
    if (entries.empty()) {
        acutPrintf("\nNo RFRI Data present.");
        return;
    }
    int lower = 0;
    int upper = 0;
    legendRange(minimum, maximum, lower, upper);
    CColorRainbow schema;
    schema.setRange(lower, upper, 5);
    if (schema.DoModal() == IDOK) {
        const ColorTable& table = schema.getTable();
        paintEntries(entries, table);
        if (askYesNo("Draw Legend?", IDYES) == IDYES) drawColorLegend(table, 0);
    }
    acutPrintf("\n%d defects are processed.", static_cast<int>(entries.size()));
}

}  // namespace vorn::rfri
