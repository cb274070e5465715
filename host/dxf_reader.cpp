// Loading a DXF file into the stand-alone database: the tables, the entities
// of model space, and the named dictionary with its xrecords, groups and
// mline styles. References by handle (group members, hatch boundaries,
// reactors) are resolved after all entities are in.
#include <cmath>
#include <numbers>
#include <unordered_map>

#include "host/dxf_codec.h"
#include "host/dxf_groups.h"
#include "base/textnum.h"

namespace vorn::host {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;

// One record: the pairs from a 0 group up to the next.
struct Record {
    const DxfPair* begin = nullptr;
    const DxfPair* end = nullptr;

    const std::string& type() const { return begin->value; }
    std::size_t size() const { return static_cast<std::size_t>(end - begin); }
    const DxfPair& operator[](std::size_t i) const { return begin[i]; }
};

// Common properties and the pairs that remain for the kind's own reader.
struct EntityHead {
    EntityCommon common;
    std::uint64_t handle = 0;
    std::vector<std::uint64_t> reactors;
    bool paperSpace = false;
    std::vector<DxfPair> own;
};

std::string text(const DxfPair& p) { return decodeDxfText(p.value); }

// Reads one result buffer entry at `i` (points take their y and z pairs).
ResultItem readItem(const std::vector<DxfPair>& pairs, std::size_t& i)
{
    const DxfPair& p = pairs[i];
    switch (valueKindOfCode(p.code)) {
    case ValueKind::Real: return ResultItem::ofReal(p.code, p.real());
    case ValueKind::Integer: return ResultItem::ofInt(p.code, p.integer());
    case ValueKind::EntityName: return ResultItem::ofInt(p.code, static_cast<std::int64_t>(p.handle()));
    case ValueKind::Text: return ResultItem::ofText(p.code, text(p));
    case ValueKind::Point: break;
    }
    Point3d point{p.real(), 0.0, 0.0};
    if (i + 1 < pairs.size() && pairs[i + 1].code == p.code + 10) point.y = pairs[++i].real();
    if (i + 1 < pairs.size() && pairs[i + 1].code == p.code + 20) point.z = pairs[++i].real();
    return ResultItem::ofPoint(p.code, point);
}

EntityHead readHead(const Record& r)
{
    EntityHead head;
    std::vector<DxfPair> xdata;
    bool inXdata = false;
    int braces = 0;
    bool inReactors = false;
    bool pastOwner = false;  // 330 before the first subclass marker is the owner
    for (std::size_t i = 1; i < r.size(); ++i) {
        const DxfPair& p = r[i];
        if (p.code == 100) pastOwner = true;
        if (p.code >= 1000 || inXdata) {
            inXdata = true;
            xdata.push_back(p);
        } else if (p.code == 102) {
            braces += p.value.starts_with("{") ? 1 : -1;
            inReactors = p.value == "{ACAD_REACTORS";
        } else if (braces > 0) {
            if (inReactors && p.code == 330) head.reactors.push_back(p.handle());
        } else if (p.code == 5) {
            head.handle = p.handle();
        } else if (p.code == 8) {
            head.common.layer = text(p);
        } else if (p.code == 62) {
            head.common.colorIndex = static_cast<int>(p.integer());
        } else if (p.code == 6) {
            head.common.linetype = text(p);
        } else if (p.code == 48) {
            head.common.linetypeScale = p.real();
        } else if (p.code == 60) {
            head.common.visible = p.integer() == 0;
        } else if (p.code == 67) {
            head.paperSpace = p.integer() == 1;
        } else if ((p.code != 330 || pastOwner) && p.code != 100) {
            head.own.push_back(p);
        }
    }
    for (std::size_t i = 0; i < xdata.size(); ++i) head.common.xdata.push_back(readItem(xdata, i));
    return head;
}

// The pairs of a non-graphical object after its type, without handle,
// owner and the bracketed 102 groups.
std::vector<DxfPair> objectPairs(const Record& r)
{
    std::vector<DxfPair> own;
    int braces = 0;
    for (std::size_t i = 1; i < r.size(); ++i) {
        if (r[i].code == 102) {
            braces += r[i].value.starts_with("{") ? 1 : -1;
        } else if (braces == 0 && r[i].code != 5 && r[i].code != 330 && r[i].code != 100) {
            own.push_back(r[i]);
        }
    }
    return own;
}

// Walks the kind's own pairs with a point reader.
struct Fields {
    const std::vector<DxfPair>& pairs;

    Point3d point(int code) const
    {
        Point3d p;
        for (const DxfPair& q : pairs) {
            if (q.code == code) p.x = q.real();
            if (q.code == code + 10) p.y = q.real();
            if (q.code == code + 20) p.z = q.real();
        }
        return p;
    }
    double real(int code, double fallback = 0.0) const
    {
        for (const DxfPair& q : pairs)
            if (q.code == code) return q.real();
        return fallback;
    }
    std::int64_t integer(int code, std::int64_t fallback = 0) const
    {
        for (const DxfPair& q : pairs)
            if (q.code == code) return q.integer();
        return fallback;
    }
    std::string string(int code) const
    {
        for (const DxfPair& q : pairs)
            if (q.code == code) return text(q);
        return {};
    }
    // All points of a repeated code, in order.
    std::vector<Point3d> points(int code) const
    {
        std::vector<Point3d> out;
        for (const DxfPair& q : pairs) {
            if (q.code == code) out.push_back({q.real(), 0.0, 0.0});
            if (q.code == code + 10 && !out.empty()) out.back().y = q.real();
            if (q.code == code + 20 && !out.empty()) out.back().z = q.real();
        }
        return out;
    }
};

LwPolyline readLwPolyline(const Fields& f)
{
    LwPolyline pl;
    pl.closed = (f.integer(70) & 1) != 0;
    pl.elevation = f.real(38);
    pl.constantWidth = f.real(43);
    for (const DxfPair& p : f.pairs) {
        if (p.code == 10) pl.vertices.push_back({{p.real(), 0.0}});
        if (pl.vertices.empty()) continue;
        PolyVertex& v = pl.vertices.back();
        if (p.code == 20) v.point.y = p.real();
        if (p.code == 40) v.startWidth = p.real();
        if (p.code == 41) v.endWidth = p.real();
        if (p.code == 42) v.bulge = p.real();
    }
    return pl;
}

int vertex2dType(std::int64_t flags) { return (flags & 16) ? k2dSplineCtlVertex : (flags & 8) ? k2dSplineFitVertex : (flags & 1) ? k2dCurveFitVertex : k2dVertex; }
int vertex3dType(std::int64_t flags) { return (flags & 16) ? k3dControlVertex : (flags & 8) ? k3dFitVertex : k3dSimpleVertex; }

// A POLYLINE with its VERTEX records; polyface and mesh kinds give false.
bool readHeavyPolyline(const Fields& f, const std::vector<EntityHead>& vertices, EntityShape& out)
{
    std::int64_t flags = f.integer(70);
    if (flags & (16 | 64)) return false;
    bool closed = (flags & 1) != 0;
    if (flags & 8) {
        Polyline3d pl;
        pl.closed = closed;
        for (const EntityHead& v : vertices) {
            Fields vf{v.own};
            pl.vertices.push_back({vf.point(10), vertex3dType(vf.integer(70))});
        }
        out = pl;
        return true;
    }
    Polyline2d pl;
    pl.closed = closed;
    pl.elevation = f.point(10).z;
    pl.defaultStartWidth = f.real(40);
    pl.defaultEndWidth = f.real(41);
    for (const EntityHead& v : vertices) {
        Fields vf{v.own};
        Point3d p = vf.point(10);
        pl.vertices.push_back({{p.x, p.y, pl.elevation}, vf.real(42), vf.real(40), vf.real(41), vertex2dType(vf.integer(70))});
    }
    out = pl;
    return true;
}

// An edge-defined boundary path (lines and arcs) as points with bulges.
void readEdgePath(const std::vector<DxfPair>& p, std::size_t& i, std::int64_t edges, HatchLoop& loop)
{
    for (std::int64_t e = 0; e < edges && i < p.size(); ++e) {
        while (i < p.size() && p[i].code != 72) ++i;
        if (i >= p.size()) return;
        std::int64_t kind = p[i++].integer();
        std::vector<double> values;
        while (i < p.size() && p[i].code != 72 && p[i].code != 97) values.push_back(p[i++].real());
        if (kind == 1 && values.size() >= 4) {
            loop.points.push_back({values[0], values[1]});
            loop.bulges.push_back(0.0);
        } else if (kind == 2 && values.size() >= 6) {
            double cx = values[0], cy = values[1], r = values[2], a0 = values[3] * kRadians, a1 = values[4] * kRadians;
            bool ccw = values[5] != 0.0;
            double sweep = a1 - a0;
            while (sweep <= 0.0) sweep += 2.0 * std::numbers::pi;
            double start = ccw ? a0 : -a0;
            loop.points.push_back({cx + r * std::cos(start), cy + r * std::sin(start)});
            loop.bulges.push_back(std::tan((ccw ? sweep : -sweep) / 4.0));
        }
    }
}

// A polyline boundary path: its vertices up to the source count (97).
void readPolylinePath(const std::vector<DxfPair>& p, std::size_t& i, HatchLoop& loop)
{
    for (; i < p.size() && p[i].code != 97 && p[i].code != 92; ++i) {
        if (p[i].code == 10) loop.points.push_back({p[i].real(), 0.0});
        if (loop.points.empty()) continue;
        if (p[i].code == 20) loop.points.back().y = p[i].real();
        if (p[i].code == 42) {
            loop.bulges.resize(loop.points.size(), 0.0);
            loop.bulges.back() = p[i].real();
        }
    }
}

// One boundary loop from its 92 pair on, with the handles of its sources.
HatchLoop readLoop(const std::vector<DxfPair>& p, std::size_t& i, std::vector<std::uint64_t>& sources)
{
    HatchLoop loop;
    std::int64_t type = p[i++].integer();
    loop.loopType = static_cast<int>(type & ~2);
    if (type & 2) {
        readPolylinePath(p, i, loop);
    } else {
        std::int64_t edges = i < p.size() && p[i].code == 93 ? p[i++].integer() : 0;
        readEdgePath(p, i, edges, loop);
    }
    if (!loop.bulges.empty()) loop.bulges.resize(loop.points.size(), 0.0);
    if (i < p.size() && p[i].code == 97) {
        std::int64_t count = p[i++].integer();
        for (std::int64_t s = 0; s < count && i < p.size() && p[i].code == 330; ++s) sources.push_back(p[i++].handle());
    }
    return loop;
}

Hatch readHatch(const Fields& f, std::vector<std::uint64_t>& sources)
{
    Hatch h;
    h.elevation = f.point(10).z;
    Point3d n = f.point(210);
    h.normal = n == Point3d{} ? Vector3d{0, 0, 1} : Vector3d{n.x, n.y, n.z};
    h.patternName = f.string(2);
    h.solidFill = f.integer(70) == 1;
    h.associative = f.integer(71) == 1;
    h.hatchStyle = static_cast<int>(f.integer(75));
    h.patternType = static_cast<int>(f.integer(76, 1));
    const auto& p = f.pairs;
    std::size_t i = 0;
    while (i < p.size() && p[i].code != 91) ++i;
    std::int64_t loops = i < p.size() ? p[i++].integer() : 0;
    for (std::int64_t k = 0; k < loops; ++k) {
        while (i < p.size() && p[i].code != 92) ++i;
        if (i >= p.size()) break;
        h.loops.push_back(readLoop(p, i, sources));
    }
    return h;
}

Mline readMline(const Fields& f)
{
    Mline m;
    m.styleName = f.string(2);
    m.scale = f.real(40, 1.0);
    m.justification = static_cast<int>(f.integer(70));
    m.closed = (f.integer(71) & 2) != 0;
    Point3d n = f.point(210);
    if (!(n == Point3d{})) m.normal = {n.x, n.y, n.z};
    m.vertices = f.points(11);
    return m;
}

template <int N>
void readCorners(const Fields& f, Point3d (&corners)[N])
{
    for (int k = 0; k < N; ++k) corners[k] = f.point(10 + k);
}

// The shape of a simple entity record; false for types not read.
bool readShape(const std::string& type, const Fields& f, EntityShape& out)
{
    if (type == "LWPOLYLINE") {
        out = readLwPolyline(f);
    } else if (type == "LINE") {
        out = Line{f.point(10), f.point(11)};
    } else if (type == "POINT") {
        out = PointEntity{f.point(10)};
    } else if (type == "CIRCLE") {
        out = Circle{f.point(10), f.real(40)};
    } else if (type == "ARC") {
        out = Arc{f.point(10), f.real(40), f.real(50) * kRadians, f.real(51) * kRadians};
    } else if (type == "TEXT") {
        out = Text{f.point(10), f.real(40, 1.0), f.real(50) * kRadians, f.string(1), static_cast<int>(f.integer(72)),
                   static_cast<int>(f.integer(73)), f.point(11)};
    } else if (type == "3DFACE") {
        Face face;
        readCorners(f, face.corners);
        out = face;
    } else if (type == "SOLID") {
        Solid solid;
        readCorners(f, solid.corners);
        out = solid;
    } else if (type == "SPLINE") {
        Spline spline;
        spline.degree = static_cast<int>(f.integer(71, 3));
        spline.fitTolerance = f.real(44);
        spline.fitPoints = f.points(11);
        if (spline.fitPoints.empty()) spline.fitPoints = f.points(10);
        out = spline;
    } else if (type == "MLINE") {
        out = readMline(f);
    } else {
        return false;
    }
    return true;
}

// ---- the loader

class DxfLoader {
public:
    DxfLoader(const std::vector<DxfPair>& pairs, HostDatabase& db, DxfLoadResult& result) : pairs_(pairs), db_(db), result_(result) {}
    void run();

private:
    std::vector<Record> section(const std::string& name) const;
    void header();
    void tables();
    void ensureLayer(const std::string& name);
    void entities();
    void appendEntity(EntityHead& head, EntityShape shape, const std::vector<std::uint64_t>& hatchSources);
    void resolveReferences();
    void objects();
    void userEntry(const std::string& key, std::uint64_t handle, ObjectId parent);
    void groupDictionary(std::uint64_t handle);
    void styleDictionary(std::uint64_t handle);
    std::vector<std::pair<std::string, std::uint64_t>> entries(const Record& dictionary) const;
    std::vector<std::pair<std::string, std::vector<DxfPair>>> entriesOfType(std::uint64_t dictionary, const char* type) const;
    ObjectId mapped(std::uint64_t handle) const;

    const std::vector<DxfPair>& pairs_;
    HostDatabase& db_;
    DxfLoadResult& result_;
    std::string currentLayer_;
    std::vector<LayerRecord> layerStates_;
    std::unordered_map<std::uint64_t, ObjectId> handles_;
    std::unordered_map<std::uint64_t, Record> objects_;
    struct Pending {
        ObjectId id;
        std::vector<std::uint64_t> reactors;
        std::vector<std::uint64_t> sources;
    };
    std::vector<Pending> pending_;
};

std::vector<Record> DxfLoader::section(const std::string& name) const
{
    std::vector<Record> records;
    const DxfPair* p = pairs_.data();
    const DxfPair* end = p + pairs_.size();
    for (; p + 1 < end; ++p) {
        if (p->code == 0 && p->value == "SECTION" && p[1].code == 2 && p[1].value == name) break;
    }
    if (p + 1 >= end) return records;
    for (p += 2; p < end && !(p->code == 0 && p->value == "ENDSEC"); ++p) {
        if (p->code != 0) continue;
        const DxfPair* next = p + 1;
        while (next < end && next->code != 0) ++next;
        records.push_back({p, next});
        p = next - 1;
    }
    return records;
}

void DxfLoader::run()
{
    header();
    tables();
    entities();
    objects();
    resolveReferences();
    for (const LayerRecord& layer : layerStates_) db_.updateLayer(layer);
    if (!currentLayer_.empty()) db_.setCurrentLayer(currentLayer_);
    result_.ok = true;
}

void DxfLoader::header()
{
    bool inHeader = false;
    for (std::size_t i = 0; i + 1 < pairs_.size(); ++i) {
        const DxfPair& p = pairs_[i];
        if (p.code == 0) inHeader = p.value == "SECTION" && pairs_[i + 1].code == 2 && pairs_[i + 1].value == "HEADER";
        if (inHeader && p.code == 9 && p.value == "$CLAYER") currentLayer_ = text(pairs_[i + 1]);
    }
}

void DxfLoader::tables()
{
    for (const Record& r : section("TABLES")) {
        std::vector<DxfPair> own = objectPairs(r);
        Fields f{own};
        std::string name = f.string(2);
        if (r.type() == "LTYPE") db_.addLinetype(name);
        if (r.type() == "APPID") db_.registerApplication(name);
        if (r.type() != "LAYER" || name.empty()) continue;
        LayerRecord layer;
        layer.name = name;
        int color = static_cast<int>(f.integer(62, 7));
        layer.color = color == 0 ? 7 : std::abs(color);
        layer.off = color < 0;
        layer.frozen = (f.integer(70) & 1) != 0;
        layer.locked = (f.integer(70) & 4) != 0;
        layer.linetype = f.string(6).empty() ? "Continuous" : f.string(6);
        // States are set at the end, so references can be resolved on
        // layers that are locked.
        LayerRecord plain = layer;
        plain.locked = false;
        ObjectId id;
        if (db_.addLayer(plain, id) == eDuplicateKey) db_.updateLayer(plain);
        layerStates_.push_back(layer);
    }
}

void DxfLoader::ensureLayer(const std::string& name)
{
    LayerRecord existing;
    if (db_.findLayer(name, existing)) return;
    LayerRecord layer;
    layer.name = name;
    ObjectId id;
    db_.addLayer(layer, id);
}

void DxfLoader::entities()
{
    std::vector<Record> records = section("ENTITIES");
    for (std::size_t k = 0; k < records.size(); ++k) {
        const Record& r = records[k];
        const std::string& type = r.type();
        if (type == "VERTEX" || type == "SEQEND") continue;
        EntityHead head = readHead(r);
        Fields f{head.own};
        EntityShape shape;
        std::vector<std::uint64_t> sources;
        bool known = true;
        if (type == "POLYLINE") {
            std::vector<EntityHead> vertices;
            while (k + 1 < records.size() && records[k + 1].type() == "VERTEX") vertices.push_back(readHead(records[++k]));
            known = readHeavyPolyline(f, vertices, shape);
        } else if (type == "HATCH") {
            shape = readHatch(f, sources);
        } else {
            known = readShape(type, f, shape);
        }
        if (!known || head.paperSpace) {
            ++result_.skipped[head.paperSpace ? "paper space" : type];
            continue;
        }
        appendEntity(head, std::move(shape), sources);
    }
}

void DxfLoader::appendEntity(EntityHead& head, EntityShape shape, const std::vector<std::uint64_t>& hatchSources)
{
    ensureLayer(head.common.layer);
    if (!db_.hasLinetype(head.common.linetype)) head.common.linetype = "ByLayer";
    for (const std::string& app : xdataApplications(head.common)) db_.registerApplication(app);
    Entity e;
    e.common = head.common;
    e.shape = std::move(shape);
    ObjectId id;
    if (db_.appendToModelSpace(e, id) != eOk) {
        ++result_.skipped[dxfTypeName(e.kind())];
        return;
    }
    if (head.handle != 0) handles_[head.handle] = id;
    if (!head.reactors.empty() || !hatchSources.empty()) pending_.push_back({id, head.reactors, hatchSources});
}

ObjectId DxfLoader::mapped(std::uint64_t handle) const
{
    auto it = handles_.find(handle);
    return it == handles_.end() ? ObjectId{} : it->second;
}

void DxfLoader::resolveReferences()
{
    for (const Pending& p : pending_) {
        Entity e;
        if (db_.readEntity(p.id, e) != eOk) continue;
        for (std::uint64_t r : p.reactors)
            if (ObjectId id = mapped(r); id.isValid()) e.common.reactors.push_back(id);
        if (auto* hatch = e.as<Hatch>())
            for (std::uint64_t s : p.sources)
                if (ObjectId id = mapped(s); id.isValid()) hatch->associatedIds.push_back(id);
        db_.writeEntity(e);
    }
}

// ---- objects

std::vector<std::pair<std::string, std::uint64_t>> DxfLoader::entries(const Record& dictionary) const
{
    std::vector<std::pair<std::string, std::uint64_t>> out;
    for (std::size_t i = 1; i + 1 < dictionary.size(); ++i)
        if (dictionary[i].code == 3 && (dictionary[i + 1].code == 350 || dictionary[i + 1].code == 360))
            out.push_back({text(dictionary[i]), dictionary[i + 1].handle()});
    return out;
}

void DxfLoader::objects()
{
    std::vector<Record> records = section("OBJECTS");
    if (records.empty()) return;
    for (const Record& r : records) {
        for (std::size_t i = 1; i < r.size(); ++i) {
            if (r[i].code == 5 || r[i].code == 105) {
                objects_[r[i].handle()] = r;
                break;
            }
        }
    }
    const Record& root = records.front();
    for (const auto& [key, handle] : entries(root)) {
        if (iequals(key, "ACAD_GROUP")) {
            groupDictionary(handle);
        } else if (iequals(key, "ACAD_MLINESTYLE")) {
            styleDictionary(handle);
        } else if (!key.starts_with("ACAD_") && !key.starts_with("AcDb")) {
            userEntry(key, handle, db_.namedObjectsDictionary());
        }
    }
}

void DxfLoader::userEntry(const std::string& key, std::uint64_t handle, ObjectId parent)
{
    auto it = objects_.find(handle);
    if (it == objects_.end()) return;
    const Record& r = it->second;
    ObjectId id;
    if (r.type() == "DICTIONARY") {
        if (db_.addDictionary(parent, key, id) != eOk) return;
        for (const auto& [childKey, child] : entries(r)) userEntry(childKey, child, id);
    } else if (r.type() == "XRECORD") {
        std::vector<DxfPair> data;
        std::size_t i = 1;
        while (i < r.size() && !(r[i].code == 100 && r[i].value == "AcDbXrecord")) ++i;
        if (i + 1 < r.size() && r[i + 1].code == 280) ++i;
        data.assign(r.begin + std::min(i + 1, r.size()), r.end);
        ResultBuffer items;
        for (std::size_t k = 0; k < data.size(); ++k) items.push_back(readItem(data, k));
        db_.addXrecord(parent, key, items, id);
    }
}

// The entries of a dictionary whose objects are of one type, each with the
// object's own pairs.
std::vector<std::pair<std::string, std::vector<DxfPair>>> DxfLoader::entriesOfType(std::uint64_t dictionary, const char* type) const
{
    std::vector<std::pair<std::string, std::vector<DxfPair>>> out;
    auto it = objects_.find(dictionary);
    if (it == objects_.end()) return out;
    for (const auto& [name, handle] : entries(it->second)) {
        auto object = objects_.find(handle);
        if (object != objects_.end() && object->second.type() == type) out.push_back({name, objectPairs(object->second)});
    }
    return out;
}

void DxfLoader::groupDictionary(std::uint64_t handle)
{
    for (const auto& [name, own] : entriesOfType(handle, "GROUP")) {
        Fields f{own};
        Group group;
        group.name = name;
        group.description = f.string(300);
        group.selectable = f.integer(71, 1) != 0;
        for (const DxfPair& p : own)
            if (p.code == 340)
                if (ObjectId id = mapped(p.handle()); id.isValid()) group.members.push_back(id);
        ObjectId id;
        db_.addGroup(group, id);
    }
}

void DxfLoader::styleDictionary(std::uint64_t handle)
{
    for (const auto& [name, own] : entriesOfType(handle, "MLINESTYLE")) {
        Fields f{own};
        MlineStyle style;
        style.name = f.string(2).empty() ? name : f.string(2);
        std::int64_t flags = f.integer(70);
        style.fillOn = flags & 1;
        style.showMiters = flags & 2;
        style.startSquareCap = flags & 16;
        style.startInnerArcs = flags & 32;
        style.startRoundCap = flags & 64;
        style.endSquareCap = flags & 256;
        style.endInnerArcs = flags & 512;
        style.endRoundCap = flags & 1024;
        style.description = f.string(3);
        style.fillColor = static_cast<int>(f.integer(62, kColorByLayer));
        style.startAngle = f.real(51, 90.0) * kRadians;
        style.endAngle = f.real(52, 90.0) * kRadians;
        for (const DxfPair& p : own) {
            if (p.code == 49) style.elements.push_back({p.real()});
            if (style.elements.empty()) continue;
            if (p.code == 62) style.elements.back().color = static_cast<int>(p.integer());
            if (p.code == 6) style.elements.back().linetype = text(p);
        }
        MlineStyle existing;
        if (db_.findMlineStyle(style.name, existing)) continue;
        ObjectId id;
        db_.addMlineStyle(style, id);
    }
}

}  // namespace

DxfLoadResult loadDxf(const std::string& path, HostDatabase& db)
{
    DxfLoadResult result;
    std::vector<DxfPair> pairs;
    if (!readDxfPairs(path, pairs, result.error)) return result;
    if (pairs.empty()) {
        result.error = path + " holds no DXF data";
        return result;
    }
    DxfLoader(pairs, db, result).run();
    return result;
}

}  // namespace vorn::host
