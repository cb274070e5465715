// The stand-alone drawing database: tables, entities by id, named storage,
// groups and extended data.
#include <gtest/gtest.h>

#include "host/db_database.h"

namespace vorn::host {
namespace {

Entity polylineOn(const std::string& layer, std::vector<Point2d> points, bool closed = false)
{
    LwPolyline pl;
    for (const Point2d& p : points) pl.vertices.push_back({p});
    pl.closed = closed;
    Entity e;
    e.common.layer = layer;
    e.shape = pl;
    return e;
}

ObjectId append(HostDatabase& db, const Entity& e)
{
    ObjectId id;
    EXPECT_EQ(db.appendToModelSpace(e, id), eOk);
    return id;
}

void addLayer(HostDatabase& db, const std::string& name, int color = 7)
{
    ObjectId id;
    EXPECT_EQ(db.addLayer(LayerRecord{{}, name, color}, id), eOk);
}

TEST(DbLayers, TableKeepsStatesAndNamesCompareWithoutCase)
{
    HostDatabase db;
    LayerRecord zero;
    ASSERT_TRUE(db.findLayer("0", zero));
    addLayer(db, "Pillars", 3);
    ObjectId id;
    EXPECT_EQ(db.addLayer(LayerRecord{{}, "PILLARS"}, id), eDuplicateKey);
    EXPECT_EQ(db.addLayer(LayerRecord{{}, "a*b"}, id), eInvalidInput);

    LayerRecord p;
    ASSERT_TRUE(db.findLayer("pillars", p));
    EXPECT_EQ(p.name, "Pillars");
    p.frozen = true;
    p.color = 5;
    ASSERT_EQ(db.updateLayer(p), eOk);
    ASSERT_TRUE(db.findLayer("Pillars", p));
    EXPECT_TRUE(p.frozen);
    EXPECT_EQ(p.color, 5);
    EXPECT_EQ(db.setCurrentLayer("Pillars"), eInvalidInput);  // frozen
    EXPECT_EQ(db.setCurrentLayer("Nowhere"), eKeyNotFound);
    EXPECT_EQ(db.currentLayer(), "0");
}

TEST(DbEntities, AppendReadWriteEraseByIdUnlessLocked)
{
    HostDatabase db;
    addLayer(db, "A");
    ObjectId id;
    EXPECT_EQ(db.appendToModelSpace(polylineOn("B", {{0, 0}, {1, 1}}), id), eKeyNotFound);

    ObjectId first = append(db, polylineOn("A", {{0, 0}, {1, 1}}));
    ObjectId second = append(db, polylineOn("A", {{5, 5}, {6, 6}}));
    EXPECT_EQ(db.lastEntity(), second);

    Entity e;
    ASSERT_EQ(db.readEntity(first, e), eOk);
    EXPECT_EQ(e.id(), first);
    e.common.colorIndex = 1;
    e.as<LwPolyline>()->closed = true;
    ASSERT_EQ(db.writeEntity(e), eOk);
    Entity back;
    ASSERT_EQ(db.readEntity(first, back), eOk);
    EXPECT_EQ(back.common.colorIndex, 1);
    EXPECT_TRUE(back.as<LwPolyline>()->closed);

    ASSERT_EQ(db.erase(second), eOk);
    EXPECT_TRUE(db.isErased(second));
    EXPECT_EQ(db.readEntity(second, back), eWasErased);
    EXPECT_EQ(db.erase(second), eWasErased);
    EXPECT_EQ(db.lastEntity(), first);
    EXPECT_EQ(db.modelSpace(), std::vector<ObjectId>{first});
    EXPECT_EQ(db.readEntity(ObjectId{}, back), eNullObjectId);
    EXPECT_EQ(db.readEntity(db.namedObjectsDictionary(), back), eNotThatKindOfClass);
    // A locked layer refuses changes but not reading.
    addLayer(db, "Locked");
    addLayer(db, "Open");
    ObjectId onLocked = append(db, polylineOn("Locked", {{0, 0}, {1, 0}}));
    ObjectId onOpen = append(db, polylineOn("Open", {{0, 0}, {1, 0}}));
    LayerRecord locked;
    db.findLayer("Locked", locked);
    locked.locked = true;
    db.updateLayer(locked);
    ASSERT_EQ(db.readEntity(onLocked, e), eOk);
    EXPECT_EQ(db.writeEntity(e), eOnLockedLayer);
    EXPECT_EQ(db.erase(onLocked), eOnLockedLayer);
    ASSERT_EQ(db.readEntity(onOpen, e), eOk);
    e.common.layer = "Locked";
    EXPECT_EQ(db.writeEntity(e), eOnLockedLayer);
}

TEST(DbXdata, SectionsReplaceAndRemoveByApplication)
{
    HostDatabase db;
    Entity e = polylineOn("0", {{0, 0}, {1, 0}});
    setXData(e.common, {ResultItem::ofText(1001, "APP_A"), ResultItem::ofText(1000, "one")});
    ObjectId id;
    EXPECT_EQ(db.appendToModelSpace(e, id), eNotApplicable);  // not registered
    db.registerApplication("APP_A");
    db.registerApplication("APP_B");
    EXPECT_TRUE(db.isApplicationRegistered("app_a"));
    setXData(e.common, {ResultItem::ofText(1001, "APP_B"), ResultItem::ofInt(1070, 7)});
    setXData(e.common, {ResultItem::ofText(1001, "APP_A"), ResultItem::ofText(1000, "two"), ResultItem::ofText(1000, "three")});
    ASSERT_EQ(db.appendToModelSpace(e, id), eOk);

    Entity back;
    db.readEntity(id, back);
    ResultBuffer a = xdataOf(back.common, "APP_A");
    ASSERT_EQ(a.size(), 3u);
    EXPECT_EQ(a[1].text, "two");
    EXPECT_EQ(xdataOf(back.common, "APP_B").size(), 2u);
    setXData(back.common, {ResultItem::ofText(1001, "APP_B")});
    EXPECT_TRUE(xdataOf(back.common, "APP_B").empty());
    EXPECT_EQ(xdataApplications(back.common), std::vector<std::string>{"APP_A"});
}

TEST(DbDictionary, XrecordUnderTakenKeyReplacesTheOldOne)
{
    HostDatabase db;
    ObjectId nod = db.namedObjectsDictionary();
    ObjectId ours;
    ASSERT_EQ(db.addDictionary(nod, "VORN_STABILITY_DICTIONARY", ours), eOk);
    ObjectId first, second;
    ASSERT_EQ(db.addXrecord(ours, "VornBaseGrid", {ResultItem::ofText(1, "10")}, first), eOk);
    ASSERT_EQ(db.addXrecord(ours, "vornbasegrid", {ResultItem::ofText(1, "20"), ResultItem::ofText(1, "30")}, second), eOk);
    EXPECT_TRUE(db.isErased(first));
    ASSERT_EQ(db.dictionaryEntries(ours).size(), 1u);
    ObjectId found;
    ASSERT_EQ(db.dictionaryGetAt(ours, "VORNBASEGRID", found), eOk);
    EXPECT_EQ(found, second);
    ResultBuffer data;
    ASSERT_EQ(db.readXrecord(found, data), eOk);
    ASSERT_EQ(data.size(), 2u);
    EXPECT_EQ(data[1].text, "30");
    EXPECT_EQ(db.dictionaryGetAt(ours, "Other", found), eKeyNotFound);
    EXPECT_EQ(db.readXrecord(ours, data), eNotThatKindOfClass);
    EXPECT_EQ(db.addXrecord(second, "x", {}, found), eNotThatKindOfClass);

    ASSERT_EQ(db.erase(ours), eOk);
    EXPECT_TRUE(db.isErased(second));
    EXPECT_TRUE(db.dictionaryEntries(nod).empty());
}

TEST(DbGroups, MembersStayLiveEntitiesOnlyMlineStyleNamesUnique)
{
    HostDatabase db;
    ObjectId a = append(db, polylineOn("0", {{0, 0}, {1, 0}}));
    ObjectId b = append(db, polylineOn("0", {{0, 1}, {1, 1}}));
    Group g;
    g.name = "VORN_Legend";
    g.members = {a, ObjectId{}, b, ObjectId{999999}};
    ObjectId id;
    ASSERT_EQ(db.addGroup(g, id), eOk);
    EXPECT_EQ(db.addGroup(g, id), eDuplicateKey);
    Group back;
    ASSERT_TRUE(db.findGroup("vorn_legend", back));
    EXPECT_EQ(back.members, (std::vector<ObjectId>{a, b}));
    db.erase(a);
    db.findGroup("VORN_Legend", back);
    EXPECT_EQ(back.members, std::vector<ObjectId>{b});
    // The standard mline style exists; style names are unique.
    MlineStyle style;
    ASSERT_TRUE(db.findMlineStyle("Standard", style));
    EXPECT_EQ(style.elements.size(), 2u);
    style.name = "MineGrid_Pillar";
    ASSERT_EQ(db.addMlineStyle(style, id), eOk);
    EXPECT_EQ(db.addMlineStyle(style, id), eDuplicateKey);
    EXPECT_EQ(db.mlineStyles().size(), 2u);
}

}  // namespace
}  // namespace vorn::host
