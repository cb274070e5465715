// Saving the stand-alone database as a DXF R2000 file. Database ids serve as
// handles; the tables, blocks and layouts that every file needs get handles
// above the highest id.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <numbers>
#include <unordered_map>

#include "host/dxf_codec.h"
#include "host/dxf_groups.h"
#include "host/spline_fit.h"
#include "base/textnum.h"

namespace vorn::host {

namespace {

constexpr double kDegrees = 180.0 / std::numbers::pi;

class DxfWriter {
public:
    explicit DxfWriter(const HostDatabase& db) : db_(db), next_(db.highestId() + 1) {}
    std::string run();

private:
    std::uint64_t fresh() { return next_++; }
    bool live(ObjectId id) const { return id.isValid() && !db_.isErased(id) && db_.kindOf(id) == ObjectKind::Entity; }

    void header(DxfOut& out) const;
    void tables();
    void beginTable(const char* name, std::uint64_t handle, std::size_t count);
    void tableRecord(const char* type, const char* subclass, std::uint64_t owner, std::uint64_t handle);
    void viewportTable();
    void linetypeTable();
    void layerTable();
    void styleTable();
    void appTable();
    void dimstyleTable();
    void blockRecordTable();
    void blocks();
    void block(const char* name, std::uint64_t record, bool paper);
    void entities();
    using Reactors = std::vector<std::uint64_t>;
    void entity(const Entity& e);
    void write(const LwPolyline& pl, const Entity& e, const Reactors& reactors);
    void write(const Polyline2d& pl, const Entity& e, const Reactors& reactors);
    void write(const Polyline3d& pl, const Entity& e, const Reactors& reactors);
    void write(const Region& r, const Entity& e, const Reactors& reactors);
    // Kinds of one record: head, body, extended data.
    template <class Shape>
    void write(const Shape& shape, const Entity& e, const Reactors& reactors);
    void body(const Line& line);
    void body(const PointEntity& point);
    void body(const Circle& circle);
    void body(const Arc& arc);
    void body(const Text& text);
    void body(const Hatch& h);
    void body(const Face& face);
    void body(const Solid& solid);
    void body(const Spline& spline);
    void body(const Mline& m);
    void entityHead(const char* type, std::uint64_t handle, const EntityCommon& c, const std::vector<std::uint64_t>& reactors);
    void xdata(const EntityCommon& c);
    void lwpolyline(const LwPolyline& pl, std::uint64_t handle, const EntityCommon& c, const std::vector<std::uint64_t>& reactors);
    void polyline2d(const Polyline2d& pl, std::uint64_t handle, const EntityCommon& c);
    void polyline3d(const Polyline3d& pl, std::uint64_t handle, const EntityCommon& c);
    void vertexHead(std::uint64_t owner, const EntityCommon& c, const char* subclass);
    // Head of a vertex or the end of a polyline's sequence.
    void sequenceHead(const char* type, std::uint64_t owner, const EntityCommon& c);
    void region(const Region& r, const Entity& e);
    void objects();
    void objectHead(const char* type, std::uint64_t handle, std::uint64_t owner, const char* subclass);
    void dictionaryHead(std::uint64_t handle, std::uint64_t owner, bool reactor);
    void dictionaryEntry(const std::string& key, std::uint64_t handle);
    void userDictionary(ObjectId id, std::uint64_t owner);
    void groups();
    void mlineStyles();
    void layouts();
    void layout(std::uint64_t handle, const char* name, int order, std::uint64_t record);

    const HostDatabase& db_;
    std::uint64_t next_;
    DxfOut out_;
    std::uint64_t vportTable_ = fresh(), ltypeTable_ = fresh(), layerTable_ = fresh(), styleTable_ = fresh(), viewTable_ = fresh(),
                  ucsTable_ = fresh(), appTable_ = fresh(), dimstyleTable_ = fresh(), recordTable_ = fresh(), modelRecord_ = fresh(),
                  paperRecord_ = fresh(), modelLayout_ = fresh(), paperLayout_ = fresh(), layoutDict_ = fresh(), groupDict_ = fresh(),
                  styleDict_ = fresh(), textStyle_ = fresh();
    std::unordered_map<std::uint64_t, std::vector<std::uint64_t>> groupsOf_;  // entity -> its groups
};

std::string DxfWriter::run()
{
    for (const Group& g : db_.groups())
        for (ObjectId member : g.members) groupsOf_[member.value].push_back(g.id.value);
    tables();
    blocks();
    entities();
    objects();
    out_.text(0, "EOF");
    DxfOut head;
    header(head);
    return head.str() + out_.str();
}

void DxfWriter::header(DxfOut& out) const
{
    out.text(0, "SECTION");
    out.text(2, "HEADER");
    out.text(9, "$ACADVER");
    out.text(1, "AC1015");
    out.text(9, "$DWGCODEPAGE");
    out.text(3, "ANSI_1252");
    out.text(9, "$HANDSEED");
    out.handle(5, next_);
    out.text(9, "$CLAYER");
    out.text(8, db_.currentLayer());
    Extents3d e = db_.drawingExtents();
    if (e.isEmpty()) e.addPoint({0, 0, 0});
    out.text(9, "$EXTMIN");
    out.point(10, e.minPoint);
    out.text(9, "$EXTMAX");
    out.point(10, e.maxPoint);
    out.text(0, "ENDSEC");
    out.text(0, "SECTION");
    out.text(2, "CLASSES");
    out.text(0, "ENDSEC");
}

// ---- tables

void DxfWriter::beginTable(const char* name, std::uint64_t handle, std::size_t count)
{
    out_.text(0, "TABLE");
    out_.text(2, name);
    out_.handle(5, handle);
    out_.handle(330, 0);
    out_.text(100, "AcDbSymbolTable");
    out_.integer(70, static_cast<std::int64_t>(count));
}

void DxfWriter::tableRecord(const char* type, const char* subclass, std::uint64_t owner, std::uint64_t handle)
{
    out_.text(0, type);
    out_.handle(5, handle);
    out_.handle(330, owner);
    out_.text(100, "AcDbSymbolTableRecord");
    out_.text(100, subclass);
}

void DxfWriter::tables()
{
    out_.text(0, "SECTION");
    out_.text(2, "TABLES");
    viewportTable();
    linetypeTable();
    layerTable();
    styleTable();
    beginTable("VIEW", viewTable_, 0);
    out_.text(0, "ENDTAB");
    beginTable("UCS", ucsTable_, 0);
    out_.text(0, "ENDTAB");
    appTable();
    dimstyleTable();
    blockRecordTable();
    out_.text(0, "ENDSEC");
}

void DxfWriter::viewportTable()
{
    Extents3d e = db_.drawingExtents();
    if (e.isEmpty()) e.addPoint({0, 0, 0});
    beginTable("VPORT", vportTable_, 1);
    tableRecord("VPORT", "AcDbViewportTableRecord", vportTable_, fresh());
    out_.text(2, "*Active");
    out_.integer(70, 0);
    out_.point2d(10, {0, 0});
    out_.point2d(11, {1, 1});
    out_.point2d(12, {(e.minPoint.x + e.maxPoint.x) / 2, (e.minPoint.y + e.maxPoint.y) / 2});
    out_.real(40, std::max(1.0, (e.maxPoint.y - e.minPoint.y) * 1.1));
    out_.real(41, 1.5);
    out_.text(0, "ENDTAB");
}

void DxfWriter::linetypeTable()
{
    std::vector<std::string> names = db_.linetypes();
    beginTable("LTYPE", ltypeTable_, names.size());
    for (const std::string& name : names) {
        tableRecord("LTYPE", "AcDbLinetypeTableRecord", ltypeTable_, fresh());
        out_.text(2, name);
        out_.integer(70, 0);
        out_.text(3, iequals(name, "Continuous") ? "Solid line" : "");
        out_.integer(72, 65);
        out_.integer(73, 0);
        out_.real(40, 0.0);
    }
    out_.text(0, "ENDTAB");
}

void DxfWriter::layerTable()
{
    std::vector<LayerRecord> layers = db_.layers();
    beginTable("LAYER", layerTable_, layers.size());
    for (const LayerRecord& layer : layers) {
        tableRecord("LAYER", "AcDbLayerTableRecord", layerTable_, layer.id.value);
        out_.text(2, layer.name);
        out_.integer(70, (layer.frozen ? 1 : 0) | (layer.locked ? 4 : 0));
        int color = layer.color >= 1 && layer.color <= 255 ? layer.color : 7;
        out_.integer(62, layer.off ? -color : color);
        out_.text(6, db_.hasLinetype(layer.linetype) ? layer.linetype : "Continuous");
        out_.integer(370, -3);
    }
    out_.text(0, "ENDTAB");
}

void DxfWriter::styleTable()
{
    beginTable("STYLE", styleTable_, 1);
    tableRecord("STYLE", "AcDbTextStyleTableRecord", styleTable_, textStyle_);
    out_.text(2, "Standard");
    out_.integer(70, 0);
    out_.real(40, 0.0);
    out_.real(41, 1.0);
    out_.real(50, 0.0);
    out_.integer(71, 0);
    out_.real(42, 2.5);
    out_.text(3, "txt");
    out_.text(4, "");
    out_.text(0, "ENDTAB");
}

void DxfWriter::appTable()
{
    std::vector<std::string> apps = db_.registeredApplications();
    beginTable("APPID", appTable_, apps.size());
    for (const std::string& app : apps) {
        tableRecord("APPID", "AcDbRegAppTableRecord", appTable_, fresh());
        out_.text(2, app);
        out_.integer(70, 0);
    }
    out_.text(0, "ENDTAB");
}

void DxfWriter::dimstyleTable()
{
    beginTable("DIMSTYLE", dimstyleTable_, 1);
    out_.text(100, "AcDbDimStyleTable");
    out_.integer(71, 0);
    out_.text(0, "DIMSTYLE");
    out_.handle(105, fresh());
    out_.handle(330, dimstyleTable_);
    out_.text(100, "AcDbSymbolTableRecord");
    out_.text(100, "AcDbDimStyleTableRecord");
    out_.text(2, "Standard");
    out_.integer(70, 0);
    out_.text(0, "ENDTAB");
}

void DxfWriter::blockRecordTable()
{
    beginTable("BLOCK_RECORD", recordTable_, 2);
    const std::pair<const char*, std::uint64_t> records[] = {{"*Model_Space", modelRecord_}, {"*Paper_Space", paperRecord_}};
    for (const auto& [name, handle] : records) {
        tableRecord("BLOCK_RECORD", "AcDbBlockTableRecord", recordTable_, handle);
        out_.text(2, name);
        out_.handle(340, handle == modelRecord_ ? modelLayout_ : paperLayout_);
    }
    out_.text(0, "ENDTAB");
}

// ---- blocks

void DxfWriter::blocks()
{
    out_.text(0, "SECTION");
    out_.text(2, "BLOCKS");
    block("*Model_Space", modelRecord_, false);
    block("*Paper_Space", paperRecord_, true);
    out_.text(0, "ENDSEC");
}

void DxfWriter::block(const char* name, std::uint64_t record, bool paper)
{
    for (const char* type : {"BLOCK", "ENDBLK"}) {
        bool begin = type[0] == 'B';
        out_.text(0, type);
        out_.handle(5, fresh());
        out_.handle(330, record);
        out_.text(100, "AcDbEntity");
        if (paper) out_.integer(67, 1);
        out_.text(8, "0");
        out_.text(100, begin ? "AcDbBlockBegin" : "AcDbBlockEnd");
        if (!begin) continue;
        out_.text(2, name);
        out_.integer(70, 0);
        out_.point(10, {});
        out_.text(3, name);
        out_.text(1, "");
    }
}

// ---- entities

void DxfWriter::entities()
{
    out_.text(0, "SECTION");
    out_.text(2, "ENTITIES");
    for (ObjectId id : db_.modelSpace()) {
        Entity e;
        if (db_.readEntity(id, e) == eOk) entity(e);
    }
    out_.text(0, "ENDSEC");
}

void DxfWriter::entityHead(const char* type, std::uint64_t handle, const EntityCommon& c, const std::vector<std::uint64_t>& reactors)
{
    out_.text(0, type);
    out_.handle(5, handle);
    if (!reactors.empty()) {
        out_.text(102, "{ACAD_REACTORS");
        for (std::uint64_t r : reactors) out_.handle(330, r);
        out_.text(102, "}");
    }
    out_.handle(330, modelRecord_);
    out_.text(100, "AcDbEntity");
    out_.text(8, c.layer);
    if (!iequals(c.linetype, "ByLayer") && db_.hasLinetype(c.linetype)) out_.text(6, c.linetype);
    if (c.colorIndex != kColorByLayer) out_.integer(62, c.colorIndex);
    if (c.linetypeScale != 1.0) out_.real(48, c.linetypeScale);
    if (!c.visible) out_.integer(60, 1);
}

void DxfWriter::xdata(const EntityCommon& c)
{
    for (const ResultItem& item : c.xdata) out_.item(item);
}

void DxfWriter::entity(const Entity& e)
{
    std::vector<std::uint64_t> reactors;
    for (ObjectId r : e.common.reactors)
        if (live(r)) reactors.push_back(r.value);
    if (auto it = groupsOf_.find(e.common.id.value); it != groupsOf_.end()) reactors.insert(reactors.end(), it->second.begin(), it->second.end());
    std::visit([&](const auto& shape) { write(shape, e, reactors); }, e.shape);
}

void DxfWriter::write(const LwPolyline& pl, const Entity& e, const Reactors& reactors) { lwpolyline(pl, e.common.id.value, e.common, reactors); }

void DxfWriter::write(const Polyline2d& pl, const Entity& e, const Reactors& reactors)
{
    entityHead("POLYLINE", e.common.id.value, e.common, reactors);
    polyline2d(pl, e.common.id.value, e.common);
}

void DxfWriter::write(const Polyline3d& pl, const Entity& e, const Reactors& reactors)
{
    entityHead("POLYLINE", e.common.id.value, e.common, reactors);
    polyline3d(pl, e.common.id.value, e.common);
}

void DxfWriter::write(const Region& r, const Entity& e, const Reactors&) { region(r, e); }

template <class Shape>
void DxfWriter::write(const Shape& shape, const Entity& e, const Reactors& reactors)
{
    entityHead(dxfTypeName(e.kind()), e.common.id.value, e.common, reactors);
    body(shape);
    xdata(e.common);
}

void DxfWriter::body(const Line& line)
{
    out_.text(100, "AcDbLine");
    out_.point(10, line.start);
    out_.point(11, line.end);
}

void DxfWriter::body(const PointEntity& point)
{
    out_.text(100, "AcDbPoint");
    out_.point(10, point.position);
}

void DxfWriter::body(const Circle& circle)
{
    out_.text(100, "AcDbCircle");
    out_.point(10, circle.center);
    out_.real(40, circle.radius);
}

void DxfWriter::body(const Arc& arc)
{
    body(Circle{arc.center, arc.radius});
    out_.text(100, "AcDbArc");
    out_.real(50, arc.startAngle * kDegrees);
    out_.real(51, arc.endAngle * kDegrees);
}

void DxfWriter::body(const Text& text)
{
    out_.text(100, "AcDbText");
    out_.point(10, text.position);
    out_.real(40, text.height);
    out_.text(1, text.text);
    if (text.rotation != 0.0) out_.real(50, text.rotation * kDegrees);
    out_.text(7, "Standard");
    bool justified = text.horizontalMode != 0 || text.verticalMode != 0;
    if (text.horizontalMode != 0) out_.integer(72, text.horizontalMode);
    if (justified) out_.point(11, text.alignment);
    out_.text(100, "AcDbText");
    if (text.verticalMode != 0) out_.integer(73, text.verticalMode);
}

void DxfWriter::body(const Face& face)
{
    out_.text(100, "AcDbFace");
    for (int k = 0; k < 4; ++k) out_.point(10 + k, face.corners[k]);
    out_.integer(70, 0);
}

void DxfWriter::body(const Solid& solid)
{
    out_.text(100, "AcDbTrace");
    for (int k = 0; k < 4; ++k) out_.point(10 + k, solid.corners[k]);
}

void DxfWriter::body(const Spline& spline)
{
    const auto& fit = spline.fitPoints;
    bool planar = std::all_of(fit.begin(), fit.end(), [&](const Point3d& p) { return p.z == fit[0].z; });
    out_.text(100, "AcDbSpline");
    out_.point(210, {0, 0, 1});
    out_.integer(70, planar ? 8 : 0);
    // Readers draw a spline from its control points and knots; the fit
    // points alone are kept by few of them.
    SplineControl control;
    if (spline.degree >= 1 && static_cast<int>(fit.size()) > spline.degree) control = interpolateSpline(fit, spline.degree);
    out_.integer(71, spline.degree);
    out_.integer(72, static_cast<std::int64_t>(control.knots.size()));
    out_.integer(73, static_cast<std::int64_t>(control.points.size()));
    out_.integer(74, static_cast<std::int64_t>(fit.size()));
    out_.real(42, 1e-10);
    out_.real(43, 1e-10);
    out_.real(44, spline.fitTolerance);
    for (double knot : control.knots) out_.real(40, knot);
    for (const Point3d& p : control.points) out_.point(10, p);
    for (const Point3d& p : fit) out_.point(11, p);
}

void DxfWriter::lwpolyline(const LwPolyline& pl, std::uint64_t handle, const EntityCommon& c, const std::vector<std::uint64_t>& reactors)
{
    entityHead("LWPOLYLINE", handle, c, reactors);
    out_.text(100, "AcDbPolyline");
    out_.integer(90, static_cast<std::int64_t>(pl.vertices.size()));
    out_.integer(70, pl.closed ? 1 : 0);
    if (pl.constantWidth != 0.0) out_.real(43, pl.constantWidth);
    if (pl.elevation != 0.0) out_.real(38, pl.elevation);
    for (const PolyVertex& v : pl.vertices) {
        out_.point2d(10, v.point);
        if (v.startWidth >= 0.0 || v.endWidth >= 0.0) {
            out_.real(40, v.startWidth >= 0.0 ? v.startWidth : pl.constantWidth);
            out_.real(41, v.endWidth >= 0.0 ? v.endWidth : pl.constantWidth);
        }
        if (v.bulge != 0.0) out_.real(42, v.bulge);
    }
    xdata(c);
}

void DxfWriter::vertexHead(std::uint64_t owner, const EntityCommon& c, const char* subclass)
{
    sequenceHead("VERTEX", owner, c);
    out_.text(100, "AcDbVertex");
    out_.text(100, subclass);
}

void DxfWriter::sequenceHead(const char* type, std::uint64_t owner, const EntityCommon& c)
{
    out_.text(0, type);
    out_.handle(5, fresh());
    out_.handle(330, owner);
    out_.text(100, "AcDbEntity");
    out_.text(8, c.layer);
}

void DxfWriter::polyline2d(const Polyline2d& pl, std::uint64_t handle, const EntityCommon& c)
{
    bool splined = std::any_of(pl.vertices.begin(), pl.vertices.end(), [](const auto& v) { return v.type == 1 || v.type == 2; });
    out_.text(100, "AcDb2dPolyline");
    out_.integer(66, 1);
    out_.point(10, {0, 0, pl.elevation});
    out_.integer(70, (pl.closed ? 1 : 0) | (splined ? 4 : 0));
    if (pl.defaultStartWidth != 0.0) out_.real(40, pl.defaultStartWidth);
    if (pl.defaultEndWidth != 0.0) out_.real(41, pl.defaultEndWidth);
    xdata(c);
    for (const Polyline2dVertex& v : pl.vertices) {
        vertexHead(handle, c, "AcDb2dVertex");
        out_.point(10, {v.position.x, v.position.y, pl.elevation});
        if (v.startWidth != 0.0) out_.real(40, v.startWidth);
        if (v.endWidth != 0.0) out_.real(41, v.endWidth);
        if (v.bulge != 0.0) out_.real(42, v.bulge);
        out_.integer(70, v.type == 1 ? 16 : v.type == 2 ? 8 : v.type == 3 ? 1 : 0);
    }
    sequenceHead("SEQEND", handle, c);
}

void DxfWriter::polyline3d(const Polyline3d& pl, std::uint64_t handle, const EntityCommon& c)
{
    bool splined = std::any_of(pl.vertices.begin(), pl.vertices.end(), [](const auto& v) { return v.type != 0; });
    out_.text(100, "AcDb3dPolyline");
    out_.integer(66, 1);
    out_.point(10, {});
    out_.integer(70, 8 | (pl.closed ? 1 : 0) | (splined ? 4 : 0));
    xdata(c);
    for (const Polyline3dVertex& v : pl.vertices) {
        vertexHead(handle, c, "AcDb3dPolylineVertex");
        out_.point(10, v.position);
        out_.integer(70, 32 | (v.type == 1 ? 16 : v.type == 2 ? 8 : 0));
    }
    sequenceHead("SEQEND", handle, c);
}

void DxfWriter::body(const Hatch& h)
{
    out_.text(100, "AcDbHatch");
    out_.point(10, {0, 0, h.elevation});
    out_.point(210, {h.normal.x, h.normal.y, h.normal.z});
    out_.text(2, h.patternName);
    out_.integer(70, h.solidFill ? 1 : 0);
    out_.integer(71, h.associative ? 1 : 0);
    out_.integer(91, static_cast<std::int64_t>(h.loops.size()));
    for (std::size_t k = 0; k < h.loops.size(); ++k) {
        const HatchLoop& loop = h.loops[k];
        bool bulged = std::any_of(loop.bulges.begin(), loop.bulges.end(), [](double b) { return b != 0.0; });
        out_.integer(92, loop.loopType | 2);
        out_.integer(72, bulged ? 1 : 0);
        out_.integer(73, 1);
        out_.integer(93, static_cast<std::int64_t>(loop.points.size()));
        for (std::size_t i = 0; i < loop.points.size(); ++i) {
            out_.point2d(10, loop.points[i]);
            if (bulged) out_.real(42, i < loop.bulges.size() ? loop.bulges[i] : 0.0);
        }
        std::vector<std::uint64_t> sources;
        if (k == 0 && h.associative)
            for (ObjectId id : h.associatedIds)
                if (live(id)) sources.push_back(id.value);
        out_.integer(97, static_cast<std::int64_t>(sources.size()));
        for (std::uint64_t s : sources) out_.handle(330, s);
    }
    out_.integer(75, h.hatchStyle);
    out_.integer(76, h.patternType);
    if (!h.solidFill) {
        out_.real(52, 0.0);
        out_.real(41, 1.0);
        out_.integer(77, 0);
        out_.integer(78, 0);
    }
    out_.integer(98, 0);
}

void DxfWriter::region(const Region& r, const Entity& e)
{
    bool first = true;
    auto ring = [&](const Ring& points) {
        LwPolyline pl;
        pl.closed = true;
        pl.elevation = r.elevation;
        for (const Point2d& p : points) pl.vertices.push_back({p, 0.0});
        lwpolyline(pl, first ? e.common.id.value : fresh(), e.common, {});
        first = false;
    };
    for (const RegionFace& face : r.faces) {
        ring(face.outer);
        for (const Ring& hole : face.holes) ring(hole);
    }
}

// Offsets of the style's elements from the reference line, after the
// justification (0 top, 1 zero, 2 bottom) and scale.
std::vector<double> mlineOffsets(const MlineStyle& style, const Mline& m)
{
    double top = -1e300, bottom = 1e300;
    for (const auto& el : style.elements) {
        top = std::max(top, el.offset);
        bottom = std::min(bottom, el.offset);
    }
    double shift = m.justification == 0 ? top : m.justification == 2 ? bottom : 0.0;
    std::vector<double> offsets;
    for (const auto& el : style.elements) offsets.push_back((el.offset - shift) * m.scale);
    return offsets;
}

Point2d unit(double x, double y)
{
    double len = std::hypot(x, y);
    return len > 0.0 ? Point2d{x / len, y / len} : Point2d{1.0, 0.0};
}

void DxfWriter::body(const Mline& m)
{
    MlineStyle style;
    if (!db_.findMlineStyle(m.styleName, style)) db_.findMlineStyle("STANDARD", style);
    std::vector<double> offsets = mlineOffsets(style, m);
    const auto& v = m.vertices;
    std::size_t n = v.size();
    out_.text(100, "AcDbMline");
    out_.text(2, style.name);
    out_.handle(340, style.id.value);
    out_.real(40, m.scale);
    out_.integer(70, m.justification);
    out_.integer(71, (n > 0 ? 1 : 0) | (m.closed ? 2 : 0));
    out_.integer(72, static_cast<std::int64_t>(n));
    out_.integer(73, static_cast<std::int64_t>(offsets.size()));
    out_.point(10, n > 0 ? v[0] : Point3d{});
    out_.point(210, {m.normal.x, m.normal.y, m.normal.z});
    for (std::size_t i = 0; i < n; ++i) {
        bool hasNext = i + 1 < n || m.closed;
        const Point3d& next = v[(i + 1) % n];
        const Point3d& prev = v[(i + n - 1) % n];
        Point2d dir = hasNext ? unit(next.x - v[i].x, next.y - v[i].y) : unit(v[i].x - prev.x, v[i].y - prev.y);
        Point2d left{-dir.y, dir.x};
        Point2d miter = left;
        if ((i > 0 || m.closed) && hasNext) {
            Point2d before = unit(v[i].x - prev.x, v[i].y - prev.y);
            miter = unit(left.x - before.y, left.y + before.x);
        }
        double along = miter.x * left.x + miter.y * left.y;
        out_.point(11, v[i]);
        out_.point(12, {dir.x, dir.y, 0.0});
        out_.point(13, {miter.x, miter.y, 0.0});
        for (double offset : offsets) {
            out_.integer(74, 2);
            out_.real(41, std::abs(along) > 1e-9 ? offset / along : offset);
            out_.real(41, 0.0);
            out_.integer(75, 0);
        }
    }
}

// ---- objects

// An object owned by a dictionary, which is also its reactor.
void DxfWriter::objectHead(const char* type, std::uint64_t handle, std::uint64_t owner, const char* subclass)
{
    out_.text(0, type);
    out_.handle(5, handle);
    out_.text(102, "{ACAD_REACTORS");
    out_.handle(330, owner);
    out_.text(102, "}");
    out_.handle(330, owner);
    out_.text(100, subclass);
}

void DxfWriter::dictionaryHead(std::uint64_t handle, std::uint64_t owner, bool reactor)
{
    if (reactor) {
        objectHead("DICTIONARY", handle, owner, "AcDbDictionary");
    } else {
        out_.text(0, "DICTIONARY");
        out_.handle(5, handle);
        out_.handle(330, owner);
        out_.text(100, "AcDbDictionary");
    }
    out_.integer(281, 1);
}

void DxfWriter::dictionaryEntry(const std::string& key, std::uint64_t handle)
{
    out_.text(3, key);
    out_.handle(350, handle);
}

void DxfWriter::objects()
{
    out_.text(0, "SECTION");
    out_.text(2, "OBJECTS");
    ObjectId nod = db_.namedObjectsDictionary();
    dictionaryHead(nod.value, 0, false);
    const std::pair<const char*, std::uint64_t> fixed[] = {{"ACAD_GROUP", groupDict_}, {"ACAD_LAYOUT", layoutDict_}, {"ACAD_MLINESTYLE", styleDict_}};
    for (const auto& [key, handle] : fixed) {
        dictionaryEntry(key, handle);
    }
    auto entries = db_.dictionaryEntries(nod);
    for (const auto& [key, id] : entries) {
        dictionaryEntry(key, id.value);
    }
    groups();
    layouts();
    mlineStyles();
    for (const auto& [key, id] : entries) userDictionary(id, nod.value);
    out_.text(0, "ENDSEC");
}

void DxfWriter::userDictionary(ObjectId id, std::uint64_t owner)
{
    if (db_.kindOf(id) == ObjectKind::Dictionary) {
        auto entries = db_.dictionaryEntries(id);
        dictionaryHead(id.value, owner, true);
        for (const auto& [key, entry] : entries) {
            dictionaryEntry(key, entry.value);
        }
        for (const auto& [key, entry] : entries) userDictionary(entry, id.value);
        return;
    }
    ResultBuffer data;
    if (db_.readXrecord(id, data) != eOk) return;
    objectHead("XRECORD", id.value, owner, "AcDbXrecord");
    out_.integer(280, 1);
    for (const ResultItem& item : data) out_.item(item);
}

void DxfWriter::groups()
{
    std::vector<Group> all = db_.groups();
    dictionaryHead(groupDict_, db_.namedObjectsDictionary().value, true);
    for (const Group& g : all) {
        dictionaryEntry(g.name, g.id.value);
    }
    for (const Group& g : all) {
        objectHead("GROUP", g.id.value, groupDict_, "AcDbGroup");
        out_.text(300, g.description);
        out_.integer(70, 0);
        out_.integer(71, g.selectable ? 1 : 0);
        for (ObjectId member : g.members)
            if (live(member)) out_.handle(340, member.value);
    }
}

void DxfWriter::mlineStyles()
{
    std::vector<MlineStyle> styles = db_.mlineStyles();
    dictionaryHead(styleDict_, db_.namedObjectsDictionary().value, true);
    for (const MlineStyle& s : styles) {
        dictionaryEntry(s.name, s.id.value);
    }
    for (const MlineStyle& s : styles) {
        int flags = (s.fillOn ? 1 : 0) | (s.showMiters ? 2 : 0) | (s.startSquareCap ? 16 : 0) | (s.startInnerArcs ? 32 : 0) |
                    (s.startRoundCap ? 64 : 0) | (s.endSquareCap ? 256 : 0) | (s.endInnerArcs ? 512 : 0) | (s.endRoundCap ? 1024 : 0);
        objectHead("MLINESTYLE", s.id.value, styleDict_, "AcDbMlineStyle");
        out_.text(2, s.name);
        out_.integer(70, flags);
        out_.text(3, s.description);
        out_.integer(62, s.fillColor);
        out_.real(51, s.startAngle * kDegrees);
        out_.real(52, s.endAngle * kDegrees);
        out_.integer(71, static_cast<std::int64_t>(s.elements.size()));
        for (const MlineStyleElement& el : s.elements) {
            out_.real(49, el.offset);
            out_.integer(62, el.color);
            out_.text(6, db_.hasLinetype(el.linetype) ? el.linetype : "BYLAYER");
        }
    }
}

void DxfWriter::layouts()
{
    dictionaryHead(layoutDict_, db_.namedObjectsDictionary().value, true);
    dictionaryEntry("Model", modelLayout_);
    dictionaryEntry("Layout1", paperLayout_);
    layout(modelLayout_, "Model", 0, modelRecord_);
    layout(paperLayout_, "Layout1", 1, paperRecord_);
}

void DxfWriter::layout(std::uint64_t handle, const char* name, int order, std::uint64_t record)
{
    objectHead("LAYOUT", handle, layoutDict_, "AcDbPlotSettings");
    out_.text(1, "");
    out_.text(2, "none_device");
    out_.text(4, "");
    out_.text(6, "");
    for (int code = 40; code <= 49; ++code) out_.real(code, 0.0);
    out_.real(140, 0.0);
    out_.real(141, 0.0);
    out_.real(142, 1.0);
    out_.real(143, 1.0);
    out_.integer(70, 688);
    out_.integer(72, 0);
    out_.integer(73, 0);
    out_.integer(74, 5);
    out_.text(7, "");
    out_.integer(75, 16);
    out_.real(147, 1.0);
    out_.real(148, 0.0);
    out_.real(149, 0.0);
    out_.text(100, "AcDbLayout");
    out_.text(1, name);
    out_.integer(70, 1);
    out_.integer(71, order);
    out_.point2d(10, {0, 0});
    out_.point2d(11, {12, 9});
    out_.point(12, {});
    out_.point(14, {});
    out_.point(15, {});
    out_.real(146, 0.0);
    out_.point(13, {});
    out_.point(16, {1, 0, 0});
    out_.point(17, {0, 1, 0});
    out_.integer(76, 0);
    out_.handle(330, record);
}

}  // namespace

bool saveDxf(const std::string& path, const HostDatabase& db, std::string& error)
{
    std::string text = DxfWriter(db).run();
    std::string temporary = path + ".part";
    // The cause is taken before the partial file goes, which may set errno.
    auto fail = [&](bool removePartial) {
        error = formatString("cannot write %s: %s", path.c_str(), std::strerror(errno));
        if (removePartial) std::remove(temporary.c_str());
        return false;
    };
    {
        std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
        if (!out) return fail(false);
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        out.close();
        if (!out) return fail(true);
    }
    if (std::rename(temporary.c_str(), path.c_str()) != 0) return fail(true);
    return true;
}

}  // namespace vorn::host
