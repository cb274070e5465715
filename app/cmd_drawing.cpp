// `vornmark drawing info FILE.dxf` and `vornmark drawing copy IN.dxf OUT.dxf`:
// what a drawing holds, and the load/save round trip a user can check.
#include <cstdio>
#include <map>
#include <string>

#include "app/commands.h"
#include "host/dxf_codec.h"

namespace vorn::app {

namespace {

// Kind names as the listing shows them; the two heavy polyline kinds apart.
const char* kindLabel(EntityKind kind)
{
    switch (kind) {
    case EntityKind::Polyline2d: return "POLYLINE (2D)";
    case EntityKind::Polyline3d: return "POLYLINE (3D)";
    default: return dxfTypeName(kind);
    }
}

bool loadOrReport(const std::string& path, host::HostDatabase& db, host::DxfLoadResult& result)
{
    result = host::loadDxf(path, db);
    if (!result.ok) std::fprintf(stderr, "vornmark: cannot load %s: %s\n", path.c_str(), result.error.c_str());
    return result.ok;
}

void printLayers(const host::HostDatabase& db)
{
    std::vector<LayerRecord> layers = db.layers();
    std::printf("Layers (%zu):\n", layers.size());
    for (const LayerRecord& layer : layers) {
        std::printf("  %-32s colour %3d  %-3s  %-6s  %-8s%s\n", layer.name.c_str(), layer.color, layer.off ? "off" : "on",
                    layer.frozen ? "frozen" : "thawed", layer.locked ? "locked" : "unlocked", layer.name == db.currentLayer() ? "  current" : "");
    }
}

void printEntities(const host::HostDatabase& db)
{
    std::map<std::string, int> byKind;
    std::map<std::string, std::map<std::string, int>> byLayer;
    std::vector<ObjectId> ids = db.modelSpace();
    for (ObjectId id : ids) {
        Entity e;
        if (db.readEntity(id, e) != eOk) continue;
        ++byKind[kindLabel(e.kind())];
        ++byLayer[e.common.layer][kindLabel(e.kind())];
    }
    std::printf("Entities (%zu):\n", ids.size());
    for (const auto& [kind, count] : byKind) std::printf("  %-16s %d\n", kind.c_str(), count);
    std::printf("Entities by layer:\n");
    for (const auto& [layer, kinds] : byLayer) {
        std::printf("  %s:", layer.c_str());
        for (const auto& [kind, count] : kinds) std::printf(" %s %d", kind.c_str(), count);
        std::printf("\n");
    }
}

void printDictionary(const host::HostDatabase& db, ObjectId dictionary, int depth)
{
    for (const auto& [key, id] : db.dictionaryEntries(dictionary)) {
        ResultBuffer data;
        if (db.kindOf(id) == ObjectKind::Dictionary) {
            std::printf("%*s%s (dictionary)\n", depth * 2, "", key.c_str());
            printDictionary(db, id, depth + 1);
        } else if (db.readXrecord(id, data) == eOk) {
            std::printf("%*s%s (xrecord, %zu values)\n", depth * 2, "", key.c_str(), data.size());
        }
    }
}

void printNamedObjects(const host::HostDatabase& db)
{
    std::printf("Dictionaries:\n");
    printDictionary(db, db.namedObjectsDictionary(), 1);
    std::vector<Group> groups = db.groups();
    std::printf("Groups (%zu):\n", groups.size());
    for (const Group& g : groups) std::printf("  %s: %zu members%s\n", g.name.c_str(), g.members.size(), g.selectable ? "" : ", not selectable");
    std::printf("Mline styles:");
    for (const MlineStyle& s : db.mlineStyles()) std::printf(" %s", s.name.c_str());
    std::printf("\nRegistered applications:");
    for (const std::string& app : db.registeredApplications()) std::printf(" %s", app.c_str());
    std::printf("\n");
}

void printSkipped(const host::DxfLoadResult& result)
{
    for (const auto& [type, count] : result.skipped) std::printf("Not read: %s %d\n", type.c_str(), count);
}

int drawingInfo(const std::string& path)
{
    host::HostDatabase db;
    host::DxfLoadResult result;
    if (!loadOrReport(path, db, result)) return kExitFailure;
    std::printf("Drawing %s\n", path.c_str());
    printLayers(db);
    printEntities(db);
    printNamedObjects(db);
    printSkipped(result);
    return kExitOk;
}

int drawingCopy(const std::string& input, const std::string& output)
{
    host::HostDatabase db;
    host::DxfLoadResult result;
    if (!loadOrReport(input, db, result)) return kExitFailure;
    std::string error;
    if (!host::saveDxf(output, db, error)) {
        std::fprintf(stderr, "vornmark: %s\n", error.c_str());
        return kExitFailure;
    }
    printSkipped(result);
    std::printf("Copied %zu entities from %s to %s\n", db.entityCount(), input.c_str(), output.c_str());
    return kExitOk;
}

CommandGroup group{40, [](CLI::App& parser, Action& action) {
    auto* drawing = parser.add_subcommand("drawing", "Look into DXF drawings");
    drawing->require_subcommand(1);

    auto* info = drawing->add_subcommand("info", "Layers, entity counts, dictionaries and groups of a drawing");
    static std::string infoPath;
    info->add_option("FILE", infoPath, "DXF drawing")->required();
    info->callback([&action] { action = [] { return drawingInfo(infoPath); }; });

    auto* copy = drawing->add_subcommand("copy", "Load a drawing and save it again");
    static std::string input, output;
    copy->add_option("IN", input, "DXF drawing to read")->required();
    copy->add_option("OUT", output, "DXF drawing to write")->required();
    copy->callback([&action] { action = [] { return drawingCopy(input, output); }; });
}};

}  // namespace

}  // namespace vorn::app
