#include "drawing/drawing_helpers.h"

#include <algorithm>

#include "drawing/database_port.h"
#include "drawing/entity_geometry.h"
#include "drawing/platform.h"
#include "drawing/tempgraphics.h"
#include "base/textnum.h"

using vorn::ObjectId;

namespace {
vorn::DatabasePort& database() { return *vorn::platform().database; }
}  // namespace

void eraseIds(const std::vector<ObjectId>& ids, bool flush)
{
    for (ObjectId id : ids) database().erase(id);
    if (flush) flushGraphics();
}

int splitFields(const std::string& line, std::vector<std::string>& fieldsOut, char separator)
{
    size_t first = line.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return 0;
    std::string text = line.substr(first, line.find_last_not_of(" \t\r\n") - first + 1);
    for (size_t at = text.find("  "); at != std::string::npos; at = text.find("  ")) text.erase(at, 1);
    fieldsOut.clear();
    size_t start = 0;
    for (size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, start)) {
        fieldsOut.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    fieldsOut.push_back(text.substr(start));
    return static_cast<int>(fieldsOut.size());
}

std::string joinSelectedItems(const std::vector<std::string>& rows, const std::vector<bool>& selected, const std::string& separator)
{
    std::string joined;
    bool any = false;
    for (size_t i = 0; i < rows.size() && i < selected.size(); ++i) {
        if (!selected[i]) continue;
        if (any) joined += separator;
        joined += rows[i];
        any = true;
    }
    return joined;
}

bool getEntityColorLayer(ObjectId id, int& colorOut, std::string& layerOut)
{
    vorn::Entity entity;
    if (database().readEntity(id, entity) != vorn::eOk) return false;
    colorOut = entity.common.colorIndex;
    layerOut = entity.common.layer;
    return true;
}

bool setEntityColorLayer(ObjectId id, int color, const std::string& layer)
{
    vorn::Entity entity;
    if (database().readEntity(id, entity) != vorn::eOk) return false;
    entity.common.colorIndex = color;
    if (!layer.empty()) entity.common.layer = layer;
    return database().writeEntity(entity) == vorn::eOk;
}

bool getEntityBounds(ObjectId id, vorn::Point2d& lowerOut, vorn::Point2d& upperOut)
{
    std::vector<vorn::Point2d> vertices;
    if (getEntityVertices2d(id, vertices) < 1) return false;
    lowerOut = upperOut = vertices.front();
    for (const vorn::Point2d& p : vertices) {
        lowerOut = {std::min(lowerOut.x, p.x), std::min(lowerOut.y, p.y)};
        upperOut = {std::max(upperOut.x, p.x), std::max(upperOut.y, p.y)};
    }
    return true;
}

const char* unitName(int code, int system)
{
    if (system == 1) {
        if (code == 2) return "ft.";
        return code == 3 || code == 4 ? "m" : "in.";
    }
    if (code == 3) return "Pa";
    return code == 4 ? "MPa" : "psi";
}

namespace {

enum ValueType { kReal = 5001, kPoint = 5002, kShort = 5003, kString = 5005, kEntityName = 5006, kPoint3d = 5009, kLong = 5010 };

struct CodeRange {
    int first;
    int last;
    int type;
};

// The value type of a DXF group code; other codes are taken as the type.
int typeOfCode(int code)
{
    static const CodeRange ranges[] = {
        {0, 9, kString},       {10, 37, kPoint},     {38, 59, kReal},        {60, 79, kShort},    {80, 99, kLong},
        {100, 105, kString},   {106, 147, kReal},    {148, 289, kShort},     {290, 329, kString}, {330, 369, kEntityName},
        {370, 998, kPoint},    {999, 1009, kString}, {1010, 1059, kReal},    {1060, 1070, kShort}, {1071, 1071, kLong},
    };
    if (code < 0) return code;
    for (const CodeRange& range : ranges) {
        if (code >= range.first && code <= range.last) return range.type;
    }
    return code;
}

std::string textOf(const vorn::ResultItem& item)
{
    switch (typeOfCode(item.restype)) {
    case kReal: return vorn::formatString("%0.3f", item.real);
    case kShort: return vorn::formatString("%d", static_cast<int>(item.integer));
    case kLong: return vorn::formatString("%dl", static_cast<int>(item.integer));
    case kString: return item.text;
    case kPoint:
    case kPoint3d: return vorn::formatString("%0.3f, %0.3f, %0.3f", item.point.x, item.point.y, item.point.z);
    case kEntityName: return vorn::formatString("<Entity name: %8lx>", static_cast<unsigned long>(item.integer));
    default: return {};
    }
}

}  // namespace

int resbufToStrings(std::vector<std::string>& stringsOut, const vorn::ResultBuffer& chain)
{
    stringsOut.clear();
    for (const vorn::ResultItem& item : chain) stringsOut.push_back(textOf(item));
    return static_cast<int>(stringsOut.size());
}
