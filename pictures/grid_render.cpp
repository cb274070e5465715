#include "pictures/grid_render.h"

#include <cmath>
#include <fstream>
#include <vector>

#include "base/textnum.h"
#include "grid/colorschema.h"
#include "grid/grid.h"

namespace vorn {

namespace {

constexpr int kLegendWidth = 220;

struct Frame {
    double c, s, dx, dy, ox, oy;
    Point2d at(double i, double j) const
    {
        return {ox + i * dx * c - j * dy * s, oy + i * dx * s + j * dy * c};
    }
};

Frame frameOf(const myGrid& grid)
{
    return {std::cos(grid.getRotation()), std::sin(grid.getRotation()), grid.getXCellW(), grid.getYCellW(),
            grid.getOrigin().x, grid.getOrigin().y};
}

Window gridWindow(const myGrid& grid)
{
    Frame f = frameOf(grid);
    Window window;
    for (Point2d corner : {f.at(0, 0), f.at(grid.getXNum(), 0), f.at(grid.getXNum(), grid.getYNum()), f.at(0, grid.getYNum())})
        window.add(corner.x, corner.y);
    return window;
}

std::uint32_t argbOf(const Rgb& color)
{
    auto channel = [](double v) { return static_cast<std::uint32_t>(std::lround(v * 255.0)); };
    return 0xff000000u | channel(color.r) << 16 | channel(color.g) << 8 | channel(color.b);
}

// The cells as an image, one pixel a cell, the top row (highest j) first.
cairo_surface_t* cellImage(myGrid& grid, bool black)
{
    const int nx = grid.getXNum(), ny = grid.getYNum();
    cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, nx, ny);
    if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) return image;
    cairo_surface_flush(image);
    unsigned char* data = cairo_image_surface_get_data(image);
    const int stride = cairo_image_surface_get_stride(image);
    const int groups = grid.getGroupCount();
    std::vector<std::uint32_t> palette;
    for (int g = 0; g < groups; ++g) palette.push_back(argbOf(colorOfIndex(grid.getGroupColor(g), black)));
    for (int j = 0; j < ny; ++j) {
        auto* row = reinterpret_cast<std::uint32_t*>(data + static_cast<size_t>(ny - 1 - j) * stride);
        for (int i = 0; i < nx; ++i) {
            double value = grid.getValue(i, j);
            int group = grid.getValueGroup(value);
            row[i] = value > NULL_VALUE && group >= 0 && group < groups ? palette[static_cast<size_t>(group)] : 0u;
        }
    }
    cairo_surface_mark_dirty(image);
    return image;
}

void paintCells(const Picture& p, myGrid& grid)
{
    cairo_surface_t* image = cellImage(grid, p.blackBackground());
    cairo_t* cr = p.cr();
    cairo_save(cr);
    cairo_translate(cr, p.deviceX(grid.getOrigin().x), p.deviceY(grid.getOrigin().y));
    cairo_scale(cr, p.scale(), -p.scale());
    cairo_rotate(cr, grid.getRotation());
    cairo_scale(cr, grid.getXCellW(), grid.getYCellW());
    cairo_translate(cr, 0, grid.getYNum());
    cairo_scale(cr, 1, -1);
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_rectangle(cr, 0, 0, grid.getXNum(), grid.getYNum());
    cairo_fill(cr);
    cairo_restore(cr);
    cairo_surface_destroy(image);
}

// Contour lines at multiples of the interval through the cell centres, by
// marching squares; squares with an "N" corner are left out.
void drawContours(const Picture& p, const myGrid& grid, double interval)
{
    Frame f = frameOf(grid);
    cairo_t* cr = p.cr();
    p.setColor(7);
    cairo_set_line_width(cr, 0.8);
    cairo_new_path(cr);
    auto point = [&](int i, int j) { return f.at(i + 0.5, j + 0.5); };
    for (int i = 0; i + 1 < grid.getXNum(); ++i) {
        for (int j = 0; j + 1 < grid.getYNum(); ++j) {
            const double v[4] = {grid.getValue(i, j), grid.getValue(i + 1, j), grid.getValue(i + 1, j + 1), grid.getValue(i, j + 1)};
            const Point2d q[4] = {point(i, j), point(i + 1, j), point(i + 1, j + 1), point(i, j + 1)};
            if (!(v[0] > NULL_VALUE && v[1] > NULL_VALUE && v[2] > NULL_VALUE && v[3] > NULL_VALUE)) continue;
            const double low = std::min({v[0], v[1], v[2], v[3]}), high = std::max({v[0], v[1], v[2], v[3]});
            for (double level = std::ceil(low / interval) * interval; level < high; level += interval) {
                std::vector<Point2d> crossings;
                for (int e = 0; e < 4; ++e) {
                    const double a = v[e], b = v[(e + 1) % 4];
                    if ((a < level) == (b < level)) continue;
                    const double t = (level - a) / (b - a);
                    crossings.push_back({q[e].x + t * (q[(e + 1) % 4].x - q[e].x), q[e].y + t * (q[(e + 1) % 4].y - q[e].y)});
                }
                for (size_t k = 0; k + 1 < crossings.size(); k += 2) {
                    cairo_move_to(cr, p.deviceX(crossings[k].x), p.deviceY(crossings[k].y));
                    cairo_line_to(cr, p.deviceX(crossings[k + 1].x), p.deviceY(crossings[k + 1].y));
                }
            }
        }
    }
    cairo_stroke(cr);
    cairo_set_line_width(cr, 1.0);
}

// The colour groups from the highest down, each with its value range.
void drawLegend(const Picture& p, myGrid& grid)
{
    cairo_t* cr = p.cr();
    const double x = p.sideX() + 10;
    double y = 30;
    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
    cairo_set_font_size(cr, 13.0);
    p.setColor(7);
    cairo_move_to(cr, x, y);
    cairo_show_text(cr, grid.getTitle().empty() ? "Legend" : grid.getTitle().c_str());
    cairo_select_font_face(cr, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, 11.0);
    for (int g = grid.getGroupCount() - 1; g >= 0; --g) {
        y += 22;
        p.setColor(grid.getGroupColor(g));
        cairo_rectangle(cr, x, y - 12, 28, 16);
        cairo_fill_preserve(cr);
        p.setColor(7);
        cairo_stroke(cr);
        cairo_move_to(cr, x + 36, y);
        cairo_show_text(cr, formatString("%g - %g", grid.getGroupBreak(g), grid.getGroupBreak(g + 1)).c_str());
    }
}

bool readColorFile(const std::string& path, ColorTable& table, std::string& error)
{
    std::ifstream in(path);
    if (!in) {
        error = "the colour file cannot be read: " + path;
        return false;
    }
    std::string line;
    while (std::getline(in, line)) {
        size_t comma = line.find(',');
        if (line.empty() || line[0] == '#' || comma == std::string::npos) continue;
        table.push_back({_wtof(line.substr(0, comma)), static_cast<double>(_wtoi(line.substr(comma + 1)))});
    }
    for (size_t k = 1; k < table.size(); ++k)
        if (!(table[k].x > table[k - 1].x)) {
            error = "the breaks of the colour file must rise: " + path;
            return false;
        }
    if (table.size() < 2) {
        error = "the colour file needs at least two \"break,colour\" lines: " + path;
        return false;
    }
    return true;
}

}  // namespace

bool applyColors(myGrid& grid, const GridPictureOptions& options, std::string& error)
{
    if (options.colors == GridPictureOptions::Colors::File) {
        ColorTable table;
        if (!readColorFile(options.colorFile, table, error)) return false;
        grid.setColorTable(table);
        return true;
    }
    grid.buildDefaultColors();
    if (options.colors == GridPictureOptions::Colors::BlackWhite) {
        ColorTable table = grid.getColorTable();
        for (size_t k = 0; k < table.size(); ++k) table[k].y = kGreyColors[k % 5];
        grid.setColorTable(table);
    }
    return true;
}

bool renderGrid(myGrid& grid, const GridPictureOptions& options, const std::string& path, std::string& error)
{
    PictureFormat format = pictureFormatOfName(path);
    if (format == PictureFormat::None) {
        error = "the output must end in .png, .svg or .pdf";
        return false;
    }
    if (grid.getXNum() < 1 || grid.getYNum() < 1) {
        error = "the grid is not defined";
        return false;
    }
    if (!applyColors(grid, options, error)) return false;
    Picture picture(path, format, gridWindow(grid), options.width, options.legend ? kLegendWidth : 0, false);
    if (!picture.ok()) {
        error = "the picture could not be made";
        return false;
    }
    paintCells(picture, grid);
    if (options.contourInterval > 0) drawContours(picture, grid, options.contourInterval);
    if (options.plan) drawEntities(picture, *options.plan, {});
    if (options.legend) drawLegend(picture, grid);
    picture.drawScaleBarAndNorth();
    return picture.finish(error);
}

}  // namespace vorn
