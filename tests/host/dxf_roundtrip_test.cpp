// DXF drawings of the stand-alone host: what a save and a load keep, what an
// independent reader makes of our files, and the drawing commands.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <numbers>

#include <gtest/gtest.h>

#include "host/dxf_codec.h"
#include "host/dxf_groups.h"

namespace vorn::host {
namespace {

namespace fs = std::filesystem;

// A folder of this test process, removed when the process ends.
struct ScratchFolder {
    fs::path path = fs::temp_directory_path() / ("vorn_dxf_" + std::to_string(::getpid()));
    ScratchFolder() { fs::create_directories(path); }
    ~ScratchFolder()
    {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
};

fs::path scratch(const std::string& name)
{
    static ScratchFolder folder;
    return folder.path / name;
}

std::string run(const std::string& command, int& status)
{
    std::string output;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    char buffer[4096];
    while (pipe != nullptr && std::fgets(buffer, sizeof buffer, pipe) != nullptr) output += buffer;
    status = pipe == nullptr ? -1 : pclose(pipe);
    return output;
}

// A python that has ezdxf, or empty.
std::string ezdxfPython()
{
    for (const char* python : {"python3", "/usr/bin/python3"}) {
        int status = 0;
        run(std::string(python) + " -c \"import ezdxf\"", status);
        if (status == 0) return python;
    }
    return {};
}

ObjectId append(HostDatabase& db, Entity e, const std::string& layer, int color = kColorByLayer)
{
    e.common.layer = layer;
    e.common.colorIndex = color;
    ObjectId id;
    EXPECT_EQ(db.appendToModelSpace(e, id), eOk);
    return id;
}

template <class Shape>
Entity entityOf(Shape shape)
{
    Entity e;
    e.shape = std::move(shape);
    return e;
}

// A drawing with every entity kind and every kind of named storage.
void fillDrawing(HostDatabase& db)
{
    const std::pair<const char*, int> layers[] = {{"Pillars", 3}, {"VORN_Working_Layer", 7}, {"Gob", 1}, {"Off", 2}, {"Frozen", 4}, {"Locked", 5}};
    for (const auto& [name, color] : layers) {
        ObjectId id;
        db.addLayer(LayerRecord{{}, name, color, "Continuous", std::string(name) == "Off", std::string(name) == "Frozen"}, id);
    }
    db.registerApplication("RFRI_QRL_TOVAX_APPLICATION");

    LwPolyline pillar{{{{0, 0}, 0.0, 1.0, 2.0}, {{10, 0}, 0.5}, {{10, 10}}, {{0, 10}, -0.25}}, true, 12.5, 0.75};
    Entity pillarEntity = entityOf(pillar);
    setXData(pillarEntity.common, {ResultItem::ofText(1001, "RFRI_QRL_TOVAX_APPLICATION"), ResultItem::ofText(1000, "(3) One Weak Contact or Unknown"),
                                   ResultItem::ofInt(1070, 12), ResultItem::ofInt(1071, 70000), ResultItem::ofReal(1040, 2.5),
                                   ResultItem::ofPoint(1010, {1, 2, 3})});
    ObjectId pillarId = append(db, pillarEntity, "Pillars", 1);

    Polyline2d heavy;
    heavy.closed = true;
    heavy.elevation = 4.0;
    heavy.vertices = {{{0, 0, 4}, 0.0, 0, 0, k2dVertex}, {{5, 0, 4}, 0.3, 0, 0, k2dSplineFitVertex}, {{5, 5, 4}, 0, 0, 0, k2dSplineCtlVertex}};
    append(db, entityOf(heavy), "Gob");
    Polyline3d space;
    space.vertices = {{{0, 0, 1}, k3dSimpleVertex}, {{1, 2, 3}, k3dControlVertex}, {{4, 5, 6}, k3dFitVertex}};
    append(db, entityOf(space), "Gob");
    append(db, entityOf(Line{{0, 0, 0}, {3, 4, 5}}), "0", 2);
    append(db, entityOf(PointEntity{{7, 8, 9}}), "Off");
    append(db, entityOf(Arc{{1, 1, 0}, 2.0, 0.25, 2.5}), "Frozen");
    append(db, entityOf(Circle{{2, 2, 1}, 3.0}), "0");
    append(db, entityOf(Text{{1, 1, 0}, 2.5, std::numbers::pi / 2, "Pillar \xC3\xA9 3"}), "0");
    Hatch hatch;
    hatch.associative = true;
    hatch.elevation = 1.5;
    hatch.loops = {{1, {{0, 0}, {10, 0}, {10, 10}}, {0.0, 0.5, 0.0}}, {0, {{2, 2}, {3, 2}, {3, 3}}, {}}};
    hatch.associatedIds = {pillarId};
    ObjectId hatchId = append(db, entityOf(hatch), "Gob", 6);
    Entity boundary;
    db.readEntity(pillarId, boundary);
    boundary.common.reactors = {hatchId};
    db.writeEntity(boundary);
    append(db, entityOf(Face{{{0, 0, 0}, {1, 0, 0}, {1, 1, 1}, {0, 1, 1}}}), "0");
    append(db, entityOf(Solid{{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0}}}), "0", 3);
    append(db, entityOf(Spline{2, 0.0, {{0, 0, 0}, {1, 1, 0}, {2, 0, 0}, {3, 1, 0}}}), "0");

    MlineStyle style;
    style.name = "MineGrid_Pillar";
    style.description = "MLineStyle created By Ornsby at QRL";
    style.elements = {{0.5, 3, "Continuous"}, {-0.5, 3, "Continuous"}};
    ObjectId styleId;
    db.addMlineStyle(style, styleId);
    Mline mline;
    mline.styleName = "MineGrid_Pillar";
    mline.vertices = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}};
    ObjectId mlineId = append(db, entityOf(mline), "Pillars");

    Region region;
    region.faces = {{{{20, 0}, {30, 0}, {30, 10}, {20, 10}}, {{{22, 2}, {22, 4}, {24, 4}, {24, 2}}}}};
    append(db, entityOf(region), "Gob", 1);

    ObjectId dict, record, sub;
    db.addDictionary(db.namedObjectsDictionary(), "VORN_STABILITY_DICTIONARY", dict);
    db.addXrecord(dict, "VornBaseGrid", {ResultItem::ofText(1, "100"), ResultItem::ofText(1, "80"), ResultItem::ofText(1, "10.5")}, record);
    db.addDictionary(dict, "Nested", sub);
    db.addXrecord(sub, "Mixed", {ResultItem::ofReal(40, 1.25), ResultItem::ofInt(70, 3), ResultItem::ofPoint(10, {1, 2, 3})}, record);

    ObjectId groupId;
    db.addGroup(Group{{}, "VORN_Legend", "legend", true, {pillarId, mlineId}}, groupId);

    LayerRecord locked;
    db.findLayer("Locked", locked);
    locked.locked = true;
    db.updateLayer(locked);
    db.setCurrentLayer("Pillars");
}

HostDatabase& savedAndLoaded(const HostDatabase& original, HostDatabase& copy, const std::string& name)
{
    std::string error;
    EXPECT_TRUE(saveDxf(scratch(name).string(), original, error)) << error;
    DxfLoadResult result = loadDxf(scratch(name).string(), copy);
    EXPECT_TRUE(result.ok) << result.error;
    EXPECT_TRUE(result.skipped.empty());
    return copy;
}

std::vector<Entity> entitiesOf(const HostDatabase& db)
{
    std::vector<Entity> out;
    for (ObjectId id : db.modelSpace()) {
        Entity e;
        db.readEntity(id, e);
        out.push_back(e);
    }
    return out;
}

TEST(DxfRoundTrip, TablesNamedStorageAndEntitiesSurvive)
{
    HostDatabase original, copy;
    fillDrawing(original);
    savedAndLoaded(original, copy, "tables.dxf");

    for (const LayerRecord& layer : original.layers()) {
        LayerRecord back;
        ASSERT_TRUE(copy.findLayer(layer.name, back)) << layer.name;
        EXPECT_EQ(back.color, layer.color) << layer.name;
        EXPECT_EQ(back.off, layer.off) << layer.name;
        EXPECT_EQ(back.frozen, layer.frozen) << layer.name;
        EXPECT_EQ(back.locked, layer.locked) << layer.name;
    }
    EXPECT_EQ(copy.currentLayer(), "Pillars");
    EXPECT_TRUE(copy.isApplicationRegistered("RFRI_QRL_TOVAX_APPLICATION"));

    ObjectId dict, record, sub;
    ASSERT_EQ(copy.dictionaryGetAt(copy.namedObjectsDictionary(), "VORN_STABILITY_DICTIONARY", dict), eOk);
    ASSERT_EQ(copy.dictionaryGetAt(dict, "VornBaseGrid", record), eOk);
    ResultBuffer data;
    ASSERT_EQ(copy.readXrecord(record, data), eOk);
    ASSERT_EQ(data.size(), 3u);
    EXPECT_EQ(data[2].restype, 1);
    EXPECT_EQ(data[2].text, "10.5");
    ASSERT_EQ(copy.dictionaryGetAt(dict, "Nested", sub), eOk);
    ASSERT_EQ(copy.dictionaryGetAt(sub, "Mixed", record), eOk);
    copy.readXrecord(record, data);
    ASSERT_EQ(data.size(), 3u);
    EXPECT_EQ(data[0], ResultItem::ofReal(40, 1.25));
    EXPECT_EQ(data[1], ResultItem::ofInt(70, 3));
    EXPECT_EQ(data[2], ResultItem::ofPoint(10, {1, 2, 3}));

    Group group;
    ASSERT_TRUE(copy.findGroup("VORN_Legend", group));
    EXPECT_EQ(group.description, "legend");
    ASSERT_EQ(group.members.size(), 2u);
    Entity member;
    ASSERT_EQ(copy.readEntity(group.members[1], member), eOk);
    EXPECT_EQ(member.kind(), EntityKind::Mline);

    MlineStyle style;
    ASSERT_TRUE(copy.findMlineStyle("MineGrid_Pillar", style));
    EXPECT_EQ(style.description, "MLineStyle created By Ornsby at QRL");
    ASSERT_EQ(style.elements.size(), 2u);
    const MlineStyleElement& lower = style.elements[1];
    EXPECT_TRUE(lower.offset == -0.5 && lower.color == 3 && lower.linetype == "Continuous");
    // Entities keep their geometry and properties.
    std::vector<Entity> before = entitiesOf(original), after = entitiesOf(copy);
    // The region comes back as its two rings.
    ASSERT_EQ(after.size(), before.size() + 1);
    for (std::size_t k = 0; k + 1 < before.size(); ++k) {
        const Entity& a = before[k];
        const Entity& b = after[k];
        ASSERT_EQ(a.kind(), b.kind()) << k;
        EXPECT_EQ(a.common.layer, b.common.layer) << k;
        EXPECT_EQ(a.common.colorIndex, b.common.colorIndex) << k;
        EXPECT_EQ(a.common.xdata, b.common.xdata) << k;
        // Polylines keep elevation, widths and bulges too.
        if (a.kind() == EntityKind::Hatch) continue;  // references compared below
        EXPECT_TRUE(a.shape == b.shape) << "entity " << k << " " << dxfTypeName(a.kind());
    }
    const Hatch& h = *after[8].as<Hatch>();
    EXPECT_EQ(h.loops.size(), 2u);
    EXPECT_EQ(h.loops[0].bulges, (std::vector<double>{0.0, 0.5, 0.0}));
    EXPECT_EQ(h.elevation, 1.5);
    ASSERT_EQ(h.associatedIds.size(), 1u);
    EXPECT_EQ(h.associatedIds[0], after[0].id());
    EXPECT_EQ(after[0].common.reactors, std::vector<ObjectId>{after[8].id()});

    const LwPolyline& outer = *after[after.size() - 2].as<LwPolyline>();
    EXPECT_TRUE(outer.closed);
    EXPECT_EQ(outer.vertices.size(), 4u);
    EXPECT_EQ(after.back().common.layer, "Gob");
    EXPECT_EQ(after.back().common.colorIndex, 1);

    // A second save and load keeps what the first gave.
    HostDatabase again;
    std::vector<Entity> twice = entitiesOf(savedAndLoaded(copy, again, "second.dxf"));
    ASSERT_EQ(twice.size(), after.size());
    for (std::size_t k = 0; k < after.size(); ++k) EXPECT_EQ(twice[k].kind(), after[k].kind()) << k;
}

TEST(DxfRoundTrip, IndependentReaderFindsNoErrors)
{
    std::string python = ezdxfPython();
    if (python.empty()) GTEST_SKIP() << "no python3 with ezdxf";
    HostDatabase db;
    fillDrawing(db);
    fs::path path = scratch("audit.dxf");
    std::string error;
    ASSERT_TRUE(saveDxf(path.string(), db, error)) << error;
    std::string script = "import sys, ezdxf\n"
                         "d = ezdxf.readfile(sys.argv[1])\n"
                         "a = d.audit()\n"
                         "for e in a.errors + a.fixes: print(e.code, e.message)\n"
                         "print(len(d.modelspace()), len(a.errors), len(a.fixes), len(d.groups), len(d.mline_styles))\n";
    std::ofstream(scratch("audit.py")) << script;
    int status = 0;
    std::string out = run(python + " " + scratch("audit.py").string() + " " + path.string(), status);
    EXPECT_EQ(status, 0) << out;
    EXPECT_EQ(out, "15 0 0 1 2\n");
}

// A 2-D heavy polyline keeps its elevation in its own record, with every
// vertex at z 0, as independent writers put it, and reads back the same.
TEST(DxfRoundTrip, HeavyPolylineElevationStaysInItsOwnRecord)
{
    HostDatabase db;
    Polyline2d heavy;
    heavy.elevation = 4.0;
    heavy.vertices = {{{0, 0, 4}}, {{5, 0, 4}, 0.5}, {{5, 5, 4}}};
    append(db, entityOf(heavy), "0");
    HostDatabase copy;
    savedAndLoaded(db, copy, "heavy.dxf");
    std::vector<DxfPair> pairs;
    std::string error;
    ASSERT_TRUE(readDxfPairs(scratch("heavy.dxf").string(), pairs, error)) << error;
    std::map<std::string, std::vector<double>> zByRecord;
    std::string record;
    for (const DxfPair& pair : pairs) {
        if (pair.code == 0) record = pair.value;
        if (pair.code == 30 && (record == "POLYLINE" || record == "VERTEX")) zByRecord[record].push_back(pair.real());
    }
    EXPECT_EQ(zByRecord["POLYLINE"], std::vector<double>{4.0});
    EXPECT_EQ(zByRecord["VERTEX"], std::vector<double>(3, 0.0));
    std::vector<Entity> back = entitiesOf(copy);
    ASSERT_EQ(back.size(), 1u);
    ASSERT_NE(back[0].as<Polyline2d>(), nullptr);
    EXPECT_EQ(*back[0].as<Polyline2d>(), heavy);
}

TEST(DxfLoad, BadFilesFailWithAReason)
{
    HostDatabase db;
    DxfLoadResult missing = loadDxf(scratch("nowhere.dxf").string(), db);
    EXPECT_FALSE(missing.ok);
    EXPECT_NE(missing.error.find("cannot open"), std::string::npos);
    std::ofstream(scratch("broken.dxf")) << "  0\nSECTION\nnot a code\nvalue\n";
    DxfLoadResult broken = loadDxf(scratch("broken.dxf").string(), db);
    EXPECT_FALSE(broken.ok);
    EXPECT_NE(broken.error.find("line 3"), std::string::npos);
    std::string error;
    EXPECT_FALSE(saveDxf((scratch("no_such_dir") / "x.dxf").string(), db, error));
    EXPECT_FALSE(error.empty());
}

TEST(DxfLoad, ForeignKindsAreCountedNotRead)
{
    fs::path path = scratch("foreign.dxf");
    std::ofstream(path) << "0\nSECTION\n2\nENTITIES\n0\nELLIPSE\n8\nA\n0\nLINE\n8\nB\n10\n1\n20\n2\n11\n3\n21\n4\n0\nENDSEC\n0\nEOF\n";
    HostDatabase db;
    DxfLoadResult result = loadDxf(path.string(), db);
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.skipped["ELLIPSE"], 1);
    ASSERT_EQ(db.modelSpace().size(), 1u);
    LayerRecord made;
    EXPECT_TRUE(db.findLayer("B", made));
}

// A drawing written by an independent writer, with an edge-defined hatch
// boundary, a kind we do not read and UTF-8 text.
TEST(DxfLoad, IndependentWritersDrawingLoads)
{
    std::string python = ezdxfPython();
    if (python.empty()) GTEST_SKIP() << "no python3 with ezdxf";
    std::ofstream(scratch("foreign.py")) <<
        "import sys, ezdxf\n"
        "doc = ezdxf.new(\"R2010\")\n"
        "msp = doc.modelspace()\n"
        "doc.layers.add(\"Gob\", color=1)\n"
        "doc.appids.new(\"MYAPP\")\n"
        "h = msp.add_hatch(color=2, dxfattribs={\"layer\": \"Gob\"})\n"
        "p = h.paths.add_edge_path()\n"
        "p.add_line((0, 0), (10, 0))\n"
        "p.add_arc((10, 5), radius=5, start_angle=270, end_angle=90)\n"
        "p.add_line((10, 10), (0, 10))\n"
        "p.add_line((0, 10), (0, 0))\n"
        "h.paths.add_polyline_path([(2, 2), (4, 2), (4, 4)], is_closed=True)\n"
        "pl = msp.add_lwpolyline([(0, 0, 0, 0, 0.5), (5, 0), (5, 5)], format=\"xyseb\", dxfattribs={\"layer\": \"Gob\"})\n"
        "pl.set_xdata(\"MYAPP\", [(1000, \"hello\"), (1040, 2.5), (1010, (1, 2, 3))])\n"
        "msp.add_polyline3d([(0, 0, 0), (1, 1, 1), (2, 0, 2)])\n"
        "msp.add_polyline2d([(0, 0), (1, 1), (2, 0)], close=True)\n"
        "msp.add_spline([(0, 0), (1, 1), (2, 0), (3, 1)])\n"
        "msp.add_mline([(0, 0), (10, 0), (10, 10)])\n"
        "msp.add_ellipse((0, 0), (2, 0), 0.5)\n"
        "msp.add_text(\"\xC3\x9Cn\xC3\xAF" "code\", dxfattribs={\"height\": 2})\n"
        "g = doc.groups.new(\"G1\")\n"
        "g.extend([pl])\n"
        "d = doc.rootdict.add_new_dict(\"VORN_STABILITY_DICTIONARY\")\n"
        "x = d.add_xrecord(\"VornBaseGrid\")\n"
        "x.reset([(1, \"100\"), (1, \"200\"), (40, 1.5)])\n"
        "doc.saveas(sys.argv[1])\n";
    int status = 0;
    std::string out = run(python + " " + scratch("foreign.py").string() + " " + scratch("foreign.dxf").string(), status);
    ASSERT_EQ(status, 0) << out;
    HostDatabase db;
    DxfLoadResult result = loadDxf(scratch("foreign.dxf").string(), db);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_EQ(result.skipped, (std::map<std::string, int>{{"ELLIPSE", 1}}));
    std::vector<Entity> all = entitiesOf(db);
    ASSERT_EQ(all.size(), 7u);
    double area = 0.0;
    ASSERT_EQ(db.getArea(all[0], area), eOk);
    EXPECT_NEAR(area, 100.0 + std::numbers::pi * 12.5 - 2.0, 1e-9);
    EXPECT_EQ(all[0].common.colorIndex, 2);
    ResultBuffer xdata = xdataOf(all[1].common, "MYAPP");
    ASSERT_EQ(xdata.size(), 4u);
    EXPECT_EQ(xdata[1].text, "hello");
    EXPECT_EQ(xdata[3], ResultItem::ofPoint(1010, {1, 2, 3}));
    EXPECT_EQ(all[1].as<LwPolyline>()->vertices[0].bulge, 0.5);
    EXPECT_EQ(all[6].as<Text>()->text, "\xC3\x9Cn\xC3\xAF" "code");
    Group group;
    ASSERT_TRUE(db.findGroup("G1", group));
    EXPECT_EQ(group.members, std::vector<ObjectId>{all[1].id()});
}

TEST(DrawingCommand, InfoListsLayersCountsAndStorage)
{
    HostDatabase db;
    fillDrawing(db);
    std::string error;
    ASSERT_TRUE(saveDxf(scratch("info.dxf").string(), db, error));
    int status = 0;
    std::string out = run(std::string(VORN_BINARY) + " drawing info " + scratch("info.dxf").string(), status);
    EXPECT_EQ(status, 0) << out;
    EXPECT_NE(out.find("Locked "), std::string::npos);
    EXPECT_NE(out.find("locked"), std::string::npos);
    EXPECT_NE(out.find("current"), std::string::npos);
    EXPECT_NE(out.find("Pillars: LWPOLYLINE 1 MLINE 1"), std::string::npos) << out;
    EXPECT_NE(out.find("VornBaseGrid (xrecord, 3 values)"), std::string::npos) << out;
    EXPECT_NE(out.find("VORN_Legend: 2 members"), std::string::npos) << out;

    out = run(std::string(VORN_BINARY) + " drawing copy " + scratch("info.dxf").string() + " " + scratch("copied.dxf").string(), status);
    EXPECT_EQ(status, 0) << out;
    EXPECT_TRUE(fs::exists(scratch("copied.dxf")));
    run(std::string(VORN_BINARY) + " drawing info " + scratch("missing.dxf").string(), status);
    EXPECT_EQ(WEXITSTATUS(status), 1);
}

TEST(DrawingCommand, ExamplePlanLoads)
{
    HostDatabase db;
    DxfLoadResult result = loadDxf(std::string(VORN_SOURCE_DIR) + "/examples/plan.dxf", db);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_TRUE(result.skipped.empty());
    EXPECT_EQ(db.select({SelectMode::All, {}, {ResultItem::ofText(8, "Pillars"), ResultItem::ofText(0, "LWPOLYLINE,POLYLINE")}}).size(), 24u);
}

}  // namespace
}  // namespace vorn::host
