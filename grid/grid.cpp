#include "grid/grid.h"

#include <climits>
#include <cmath>
#include <new>
#include <stdexcept>

#include "base/report.h"
#include "base/textnum.h"

using vorn::Point2;
using vorn::Point3;
using vorn::Vector3;

namespace {
constexpr double kMinCellWidth = 0.0001;

// The part of v orthogonal to n: v - (v . n) n / (n . n).
Vector3 orthogonalPart(const Vector3& v, const Vector3& n) { return v - n * (v.dot(n) / n.dot(n)); }

// Index along one axis: -1 before the lattice, -2 at or beyond `count`.
int axisIndex(const Vector3& part, const Vector3& step, int count)
{
    if (!(part.dot(step) > 0)) return -1;
    double steps = part.length() / step.length();
    if (!(steps < static_cast<double>(count))) return -2;
    return static_cast<int>(steps);
}
}  // namespace

bool myGrid::canSetup(int xCount, int yCount, double yWidth)
{
    // The node loops run to the count itself, so it must stay below INT_MAX.
    return xCount > 0 && yCount > 0 && xCount < INT_MAX && yCount < INT_MAX && !(yWidth < kMinCellWidth);
}

bool myGrid::setup(int xCount, int yCount, double xWidth, double yWidth, double rotationDegrees)
{
    if (!canSetup(xCount, yCount, yWidth)) return false;
    try {
        storage_.assign((static_cast<size_t>(xCount) + 1) * (static_cast<size_t>(yCount) + 1), fillValue);
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    xNum = xCount;
    yNum = yCount;
    xCellW = xWidth;
    yCellW = yWidth;
    rotAngle = rotationDegrees * kGridPi / 180.0;
    xStep = {std::cos(rotAngle) * xCellW, std::sin(rotAngle) * xCellW, 0.0};
    yStep = {-std::sin(rotAngle) * yCellW, std::cos(rotAngle) * yCellW, 0.0};
    allocate();
    return true;
}

void myGrid::allocate()
{
    values.resize(static_cast<size_t>(xNum + 1));
    for (int i = 0; i <= xNum; ++i) values[i] = storage_.data() + static_cast<size_t>(i) * static_cast<size_t>(yNum + 1);
}

bool myGrid::isDefined() const
{
    return !(kMinCellWidth >= xCellW) && !(kMinCellWidth >= yCellW) && xNum >= 2 && yNum >= 2;
}

bool myGrid::copyGeometry(const myGrid& source, bool withValues)
{
    if (!source.isDefined()) return false;
    std::vector<double> sourceValues;
    if (this == &source) sourceValues = storage_;
    const int sourceRows = source.yNum + 1;
    Point2 corner;
    source.getNodeXY(0, 0, corner);
    setOrigin(corner);
    if (!setup(source.xNum, source.yNum, source.xCellW, source.yCellW, source.rotAngle)) return false;
    for (int i = 0; i <= xNum; ++i) {
        for (int j = 0; j <= yNum; ++j) {
            double value = fillValue;
            if (withValues) {
                value = sourceValues.empty() ? source.getValue(i, j)
                                             : sourceValues[static_cast<size_t>(i) * sourceRows + j];
            }
            values[i][j] = value;
        }
    }
    return true;
}

bool myGrid::getDimension(int& xCount, int& yCount, double& rotation, double& xWidth, double& yWidth) const
{
    if (!isDefined()) return false;
    xCount = xNum;
    yCount = yNum;
    rotation = rotAngle;
    xWidth = xCellW;
    yWidth = yCellW;
    return true;
}

std::string myGrid::describe(bool printOnCommandLine) const
{
    std::string text;
    double min = 0.0;
    double max = 0.0;
    if (!getMinMax(min, max)) {
        text = "\nGrid not defined!";
    } else {
        if (!title.empty()) text = vorn::formatString("%s\r\n", title.c_str());
        text += vorn::formatString("Grid Orign: %f,  %f,  %f", origin.x, origin.y, origin.z);
        text += vorn::formatString("\r\nGrid Resolution in X: %d, in Y: %d", xNum, yNum);
        text += vorn::formatString("\r\nCell width in X: %f, in Y: %f", xCellW, yCellW);
        if (max > min) text += vorn::formatString("\r\nValue Max: %f, Min: %f\n", max, min);
    }
    if (printOnCommandLine) acutPrintf("\n%s", text.c_str());
    return text;
}

bool myGrid::getValueChecked(int i, int j, double& value) const
{
    if (!inNodeRange(i, j)) return false;
    value = values[i][j];
    return true;
}

bool myGrid::getValueText(int i, int j, std::string& text) const
{
    if (!inNodeRange(i, j)) return false;
    double value = values[i][j];
    if (value < NULL_VALUE) {
        text.assign(1, 'N');
    } else {
        text.clear();
        vorn::appendFixed6(text, value);
    }
    return true;
}

bool myGrid::setValue(int i, int j, double value)
{
    if (!inNodeRange(i, j)) return false;
    values[i][j] = value;
    return true;
}

bool myGrid::setValueText(int i, int j, const std::string& text) { return setValue(i, j, _wtof(text)); }

void myGrid::setAll(double value)
{
    if (!isDefined()) return;
    for (int i = 0; i < xNum; ++i) {
        for (int j = 0; j < yNum; ++j) values[i][j] = value;
    }
}

void myGrid::forEachNode(double (*op)(double, double), double operand)
{
    if (!isDefined()) return;
    for (double& v : storage_) v = op(v, operand);
}

void myGrid::addGrid(const myGrid& other)
{
    if (!isDefined() || !other.isDefined()) return;
    for (int i = 0; i <= xNum; ++i) {
        for (int j = 0; j <= yNum; ++j) values[i][j] += other.getValue(i, j);
    }
}

void myGrid::addValue(double value)
{
    forEachNode([](double v, double a) { return v + a; }, value);
}

void myGrid::multiplyValue(double value)
{
    forEachNode([](double v, double a) { return v * a; }, value);
}

void myGrid::rescale(double from, double to)
{
    double min = 0.0;
    double max = 0.0;
    if (!getMinMax(min, max)) return;
    double range = max - min;
    if (range <= 1e-10) return;
    double lo = from < to ? from : to;
    double hi = from < to ? to : from;
    if (hi - lo <= 1e-10) return;
    double s = (hi - lo) / range;
    for (double& v : storage_) v = (v - min) * s + lo;
}

bool myGrid::getNodeXY(int i, int j, Point2& p) const
{
    p.x = origin.x + i * xStep.x + j * yStep.x;
    p.y = origin.y + i * xStep.y + j * yStep.y;
    return true;
}

bool myGrid::getNodeXYZ(int i, int j, Point3& p) const
{
    Point2 plan;
    getNodeXY(i, j, plan);
    p = {plan.x, plan.y, getValue(i, j)};
    return true;
}

bool myGrid::getCellCentre(int i, int j, Point3& p) const
{
    if (!inNodeRange(i, j)) return false;
    double u = i + 0.5;
    double w = j + 0.5;
    p = {origin.x + u * xStep.x + w * yStep.x, origin.y + u * xStep.y + w * yStep.y, values[i][j]};
    return true;
}

bool myGrid::getCellPolygon(int i, int j, std::vector<Point2>& corners) const
{
    if (!inCellRange(i, j)) return false;
    corners.resize(4);
    getNodeXY(i, j, corners[0]);
    getNodeXY(i + 1, j, corners[1]);
    getNodeXY(i + 1, j + 1, corners[2]);
    getNodeXY(i, j + 1, corners[3]);
    return true;
}

bool myGrid::getCellCorners3d(int i, int j, std::vector<Point3>& corners) const
{
    if (!inCellRange(i, j)) return false;
    corners.resize(4);
    getNodeXYZ(i, j, corners[0]);
    getNodeXYZ(i + 1, j, corners[1]);
    getNodeXYZ(i + 1, j + 1, corners[2]);
    getNodeXYZ(i, j + 1, corners[3]);
    return true;
}

void myGrid::getOutline(std::vector<Point2>& corners) const
{
    corners.resize(4);
    getNodeXY(0, 0, corners[0]);
    getNodeXY(xNum, 0, corners[1]);
    getNodeXY(xNum, yNum, corners[2]);
    getNodeXY(0, yNum, corners[3]);
}

bool myGrid::getOutlineChecked(std::vector<Point2>& corners) const
{
    if (!isDefined()) return false;
    getOutline(corners);
    return true;
}

bool myGrid::getCellOfPoint(const Point2& p, int& i, int& j) const
{
    Vector3 v{p.x - origin.x, p.y - origin.y, 0.0};
    i = axisIndex(orthogonalPart(v, yStep), xStep, xNum);
    j = axisIndex(orthogonalPart(v, xStep), yStep, yNum);
    return true;
}

void myGrid::getCellOfPointClamped(const Point2& p, int& i, int& j) const
{
    getCellOfPoint(p, i, j);
    if (i == -1) i = 0;
    if (i == -2) i = xNum - 1;
    if (j == -1) j = 0;
    if (j == -2) j = yNum - 1;
}

double myGrid::getAverage() const
{
    if (!isDefined()) return 0.0;
    double sum = 0.0;
    for (int i = 0; i < xNum; ++i) {
        const double* row = values[i];
        for (int j = 0; j < yNum; ++j) sum += row[j];
    }
    return sum / (static_cast<double>(xNum) * yNum);
}

bool myGrid::getMinMax(double& min, double& max) const
{
    if (!isDefined()) return false;
    min = max = values[0][0];
    for (int i = 0; i < xNum; ++i) {
        const double* row = values[i];
        for (int j = 0; j < yNum; ++j) {
            if (row[j] < min) min = row[j];
            if (row[j] > max) max = row[j];
        }
    }
    return true;
}

double myGrid::getCorrelation(const myGrid& other) const
{
    if (!isDefined() || !other.isDefined() || xNum != other.xNum || yNum != other.yNum) return 0.0;
    double n = 0.0, meanA = 0.0, meanB = 0.0, saa = 0.0, sbb = 0.0, sab = 0.0;
    std::string textA, textB;
    for (int i = 0; i < xNum; ++i) {
        for (int j = 0; j < yNum; ++j) {
            getValueText(i, j, textA);
            other.getValueText(i, j, textB);
            if (vorn::iequals(textA, "N") || vorn::iequals(textB, "N")) continue;
            double a = _wtof(textA);
            double b = _wtof(textB);
            n += 1.0;
            if (i == 0 && j == 0) {
                meanA = a;
                meanB = b;
                continue;
            }
            double da = a - meanA;
            double db = b - meanB;
            double f = (n - 1.0) / n;
            saa += da * da * f;
            sbb += db * db * f;
            sab += da * db * f;
            meanA += da / n;
            meanB += db / n;
        }
    }
    return (sab / n) / (std::sqrt(saa / n) * std::sqrt(sbb / n));
}

bool myGrid::getMinCell(int k, int& i, int& j) const
{
    if (k < 0 || k >= getMinCellCount()) return false;
    i = static_cast<int>(minCells[k].x);
    j = static_cast<int>(minCells[k].y);
    return true;
}

bool myGrid::getMaxCell(int k, int& i, int& j) const
{
    if (k < 0 || k >= getMaxCellCount()) return false;
    i = static_cast<int>(maxCells[k].x);
    j = static_cast<int>(maxCells[k].y);
    return true;
}

void myGrid::setPlotOptions(int type, int mode, const std::string& layer, bool preview, bool group)
{
    plotType = type;
    colorMode = mode;
    layerName = layer;
    previewOnly = preview;
    makeGroup = group;
}
