#include "drawing/entity_types.h"

#include <algorithm>

#include "base/textnum.h"

namespace vorn {

void Extents3d::addPoint(const Point3d& p)
{
    minPoint = {std::min(minPoint.x, p.x), std::min(minPoint.y, p.y), std::min(minPoint.z, p.z)};
    maxPoint = {std::max(maxPoint.x, p.x), std::max(maxPoint.y, p.y), std::max(maxPoint.z, p.z)};
}

void Extents3d::addExtents(const Extents3d& e)
{
    if (e.isEmpty()) return;
    addPoint(e.minPoint);
    addPoint(e.maxPoint);
}

ResultItem ResultItem::ofText(int code, std::string value)
{
    ResultItem item;
    item.restype = code;
    item.text = std::move(value);
    return item;
}

ResultItem ResultItem::ofReal(int code, double value)
{
    ResultItem item;
    item.restype = code;
    item.real = value;
    return item;
}

ResultItem ResultItem::ofInt(int code, std::int64_t value)
{
    ResultItem item;
    item.restype = code;
    item.integer = value;
    return item;
}

ResultItem ResultItem::ofPoint(int code, const Point3d& value)
{
    ResultItem item;
    item.restype = code;
    item.point = value;
    return item;
}

ValueKind valueKindOfCode(int code)
{
    switch (code) {
    case RTREAL: return ValueKind::Real;
    case RTPOINT:
    case RT3DPOINT: return ValueKind::Point;
    case RTSHORT:
    case RTLONG:
    case RTPICKS: return ValueKind::Integer;
    case RTSTR: return ValueKind::Text;
    default: break;
    }
    if (code >= 1010 && code <= 1013) return ValueKind::Point;
    if (code >= 1014 && code <= 1059) return ValueKind::Real;
    if (code >= 1060 && code <= 1071) return ValueKind::Integer;
    if (code >= 1000 && code <= 1009) return ValueKind::Text;
    if (code >= 10 && code <= 18) return ValueKind::Point;
    if ((code >= 38 && code <= 59) || (code >= 140 && code <= 149) || (code >= 460 && code <= 469)) return ValueKind::Real;
    if ((code >= 60 && code <= 99) || (code >= 160 && code <= 179) || (code >= 270 && code <= 299) || (code >= 370 && code <= 389) ||
        (code >= 400 && code <= 409) || (code >= 420 && code <= 429) || (code >= 440 && code <= 459))
        return ValueKind::Integer;
    if ((code >= 330 && code <= 369) || (code >= 390 && code <= 399)) return ValueKind::EntityName;
    if (code >= 110 && code <= 112) return ValueKind::Point;
    return ValueKind::Text;
}

namespace {
struct KindNames {
    const char* dxf;
    const char* cls;
};

constexpr KindNames kKindNames[] = {
    {"LWPOLYLINE", "AcDbPolyline"}, {"POLYLINE", "AcDb2dPolyline"}, {"POLYLINE", "AcDb3dPolyline"}, {"LINE", "AcDbLine"},
    {"POINT", "AcDbPoint"},         {"ARC", "AcDbArc"},            {"CIRCLE", "AcDbCircle"},        {"TEXT", "AcDbText"},
    {"HATCH", "AcDbHatch"},         {"REGION", "AcDbRegion"},      {"3DFACE", "AcDbFace"},          {"SOLID", "AcDbSolid"},
    {"SPLINE", "AcDbSpline"},       {"MLINE", "AcDbMline"},
};

// Index of the section headed by a 1001 entry of `application`, or the size.
std::size_t findSection(const ResultBuffer& data, const std::string& application)
{
    for (std::size_t i = 0; i < data.size(); ++i)
        if (data[i].restype == 1001 && iequals(data[i].text, application)) return i;
    return data.size();
}

std::size_t sectionEnd(const ResultBuffer& data, std::size_t head)
{
    std::size_t end = head + 1;
    while (end < data.size() && data[end].restype != 1001) ++end;
    return end;
}
}  // namespace

const char* dxfTypeName(EntityKind kind) { return kKindNames[static_cast<int>(kind)].dxf; }
const char* className(EntityKind kind) { return kKindNames[static_cast<int>(kind)].cls; }

bool isCurve(EntityKind kind)
{
    switch (kind) {
    case EntityKind::LwPolyline:
    case EntityKind::Polyline2d:
    case EntityKind::Polyline3d:
    case EntityKind::Line:
    case EntityKind::Arc:
    case EntityKind::Circle:
    case EntityKind::Spline: return true;
    default: return false;
    }
}

ResultBuffer xdataOf(const EntityCommon& common, const std::string& application)
{
    std::size_t head = findSection(common.xdata, application);
    if (head == common.xdata.size()) return {};
    return ResultBuffer(common.xdata.begin() + static_cast<long>(head), common.xdata.begin() + static_cast<long>(sectionEnd(common.xdata, head)));
}

void setXData(EntityCommon& common, const ResultBuffer& data)
{
    std::size_t i = 0;
    while (i < data.size()) {
        if (data[i].restype != 1001) {
            ++i;
            continue;
        }
        std::size_t end = sectionEnd(data, i);
        std::size_t head = findSection(common.xdata, data[i].text);
        if (head < common.xdata.size())
            common.xdata.erase(common.xdata.begin() + static_cast<long>(head), common.xdata.begin() + static_cast<long>(sectionEnd(common.xdata, head)));
        if (end > i + 1) common.xdata.insert(common.xdata.end(), data.begin() + static_cast<long>(i), data.begin() + static_cast<long>(end));
        i = end;
    }
}

std::vector<std::string> xdataApplications(const EntityCommon& common)
{
    std::vector<std::string> names;
    for (const ResultItem& item : common.xdata)
        if (item.restype == 1001) names.push_back(item.text);
    return names;
}

}  // namespace vorn
