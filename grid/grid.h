// The value grid: a rotated regular lattice laid over the mine plan with one
// double per lattice node. Every factor, result and index of the system is a
// myGrid, and stages hand grids to each other through .grd and .top files.
//
// A grid has (xNum+1) x (yNum+1) nodes and xNum x yNum cells; cell (i, j)
// has node (i, j) as its lower-left corner. Most of the system treats
// values[i][j] for i < xNum, j < yNum as the value of a cell; the extra row
// and column exist for node-based readings. Which operation touches which
// range is part of its contract and is noted at each member.
#pragma once

#include <string>
#include <vector>

#include "grid/gridgeom.h"

namespace vorn {
struct ObjectId;
}

constexpr double NULL_VALUE = -1e20;

// The mark that the writer puts at the end of every .grd file.
constexpr const char* kGridApplicationMark = "VORN Stability Application";

class myGrid {
public:
    myGrid() = default;
    virtual ~myGrid() = default;
    myGrid(const myGrid&) = delete;
    myGrid& operator=(const myGrid&) = delete;
    myGrid(myGrid&&) = default;
    myGrid& operator=(myGrid&&) = default;

    // --- Definition and properties -------------------------------------
    // Makes the lattice with every node at fillValue; false (nothing
    // changed) for a count of 0 (or below) or a Y width below 0.0001.
    bool setup(int xNum, int yNum, double xCellW, double yCellW, double rotationDegrees);
    // Widths above 0.0001 and at least 2 cells along each axis.
    bool isDefined() const;
    // Lattice (and values, or fillValue) of `source`; the source's radians go
    // where setup expects degrees, so copies are near-unrotated.
    bool copyGeometry(const myGrid& source, bool withValues);
    void setOrigin(const vorn::Point2& p) { origin = {p.x, p.y, 0.0}; }
    void setOrigin(double x, double y, double z) { origin = {x, y, z}; }
    void setFillValue(double value) { fillValue = value; }
    void setTitle(const std::string& text) { title = text; }
    const std::string& getTitle() const { return title; }
    bool getDimension(int& xCount, int& yCount, double& rotation, double& xWidth, double& yWidth) const;
    int getXNum() const { return xNum; }
    int getYNum() const { return yNum; }
    double getXCellW() const { return xCellW; }
    double getYCellW() const { return yCellW; }
    double getRotation() const { return rotAngle; }
    const vorn::Point3& getOrigin() const { return origin; }
    // The grid's report; printed with "\n%s" when asked.
    std::string describe(bool printOnCommandLine) const;

    // --- Values: nodes 0..xNum, 0..yNum unless said otherwise ------------
    double getValue(int i, int j) const
    {
        return inNodeRange(i, j) ? values[i][j] : 0.0;
    }
    bool getValueChecked(int i, int j, double& value) const;
    // "N" below NULL_VALUE, else "%f".
    bool getValueText(int i, int j, std::string& text) const;
    bool setValue(int i, int j, double value);
    bool setValueText(int i, int j, const std::string& text);
    // Cells only; the last row and column of nodes keep their values.
    void setAll(double value);

    // --- Arithmetic over all nodes -----------------------------------------
    void addGrid(const myGrid& other);
    void addValue(double value);
    void multiplyValue(double value);
    // Maps the cells' value range onto [min(from,to), max(from,to)].
    void rescale(double from, double to);

    // --- Placement ----------------------------------------------------------
    bool getNodeXY(int i, int j, vorn::Point2& p) const;
    bool getNodeXYZ(int i, int j, vorn::Point3& p) const;
    // Centre of cell (i, j) for i <= xNum, j <= yNum, z = the value.
    bool getCellCentre(int i, int j, vorn::Point3& p) const;
    // Corners (i,j), (i+1,j), (i+1,j+1), (i,j+1) of a cell i < xNum, j < yNum.
    bool getCellPolygon(int i, int j, std::vector<vorn::Point2>& corners) const;
    bool getCellCorners3d(int i, int j, std::vector<vorn::Point3>& corners) const;
    void getOutline(std::vector<vorn::Point2>& corners) const;
    bool getOutlineChecked(std::vector<vorn::Point2>& corners) const;
    // Cell of a point by orthogonal projection: -1 before the lattice on an
    // axis, -2 beyond it. Always true.
    bool getCellOfPoint(const vorn::Point2& p, int& i, int& j) const;
    // As getCellOfPoint, with outside points mapped to the nearest edge cell.
    void getCellOfPointClamped(const vorn::Point2& p, int& i, int& j) const;

    // --- Measures over the cells -------------------------------------------
    double getAverage() const;
    bool getMinMax(double& min, double& max) const;
    // Pearson correlation through the "%f" text of the values.
    double getCorrelation(const myGrid& other) const;
    int getStatCount() const { return statCount; }
    double getStatMean() const { return statMean; }
    double getStatStdDev() const { return statStdDev; }
    double getStatMin() const { return statMin; }
    double getStatMax() const { return statMax; }
    int getMinCellCount() const { return static_cast<int>(minCells.size()); }
    int getMaxCellCount() const { return static_cast<int>(maxCells.size()); }
    bool getMinCell(int k, int& i, int& j) const;
    bool getMaxCell(int k, int& i, int& j) const;

    // Statistics of the cells inside the inclusion polygons and outside the
    // exclusion polygons (closed polylines by id); a cell counts when the
    // polygons cover at least `percent` of it.
    void computeStatistics(const std::vector<vorn::ObjectId>& inclusions, const std::vector<vorn::ObjectId>& exclusions,
                           double percent);

    // --- Colour table: colorBreaks holds (value break, colour index) -------
    // Groups, one less than the entries; builds the default table if empty.
    int getGroupCount();
    int getGroupColor(int g);
    // The colour and the group of the value's group; every value falls in
    // one (below the first break: group 0; above the last: the last).
    int getValueColor(double value);
    // -1 for an empty table (none is built).
    int getValueGroup(double value) const;
    double getGroupBreak(int k) const;
    // The table of ten groups over floor(min) to ceil(max) of the cells.
    void buildDefaultColors();
    // The colour schema panel on the table; the result is taken on OK.
    void editColors();
    const std::vector<vorn::Point2>& getColorTable() const { return colorBreaks; }
    void setColorTable(const std::vector<vorn::Point2>& table) { colorBreaks = table; }

    // --- Plots ----------------------------------------------------------------
    void setPlotOptions(int type, int mode, const std::string& layer, bool preview, bool group);
    // Draws the grid as the kind of plotType, coloured by the table.
    void plot();
    // The quick lattice (1), coloured cells (2) or seam codes (3, any other).
    void plotCodes(int mode);
    // Whether the grid's outline overlaps the current view.
    bool isInView() const;

    // --- Files ------------------------------------------------------------
    // loadValues 1 reads values too; any other value only the lattice.
    bool readGrd(const std::string& path, int loadValues = 1);
    bool writeGrd(const std::string& path) const;
    bool readTop(const std::string& path, int loadValues = 1);
    bool writeTop(const std::string& path) const;

    // Fields, in the order of the system's grid record.
    int xNum = 0;
    int yNum = 0;
    double xCellW = 0.0;
    double yCellW = 0.0;
    double rotAngle = 0.0;
    vorn::Point3 origin;
    vorn::Vector3 xStep;
    vorn::Vector3 yStep;
    // values[i] is row i (along X) of yNum+1 doubles, all rows in one block.
    std::vector<double*> values;
    double fillValue = 0.0;
    int colorMode = 0;
    bool makeGroup = false;
    int plotType = 5;
    std::string layerName;
    bool previewOnly = true;
    std::string title;
    int statCount = 0;
    double statMean = 0.0;
    double statStdDev = 0.0;
    double statMin = 0.0;
    std::vector<vorn::Point2> minCells;
    double statMax = 0.0;
    std::vector<vorn::Point2> maxCells;
    std::vector<vorn::Point2> colorBreaks;

private:
    bool inNodeRange(int i, int j) const { return i >= 0 && i <= xNum && j >= 0 && j <= yNum && !values.empty(); }
    bool inCellRange(int i, int j) const { return i >= 0 && i < xNum && j >= 0 && j < yNum && !values.empty(); }
    void allocate();
    void forEachNode(double (*op)(double, double), double operand);

    std::vector<double> storage_;
};
