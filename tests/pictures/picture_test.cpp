// Plan and grid pictures read back as PNG and checked at known pixels: a
// pillar, a hatch and its hole, a rotated text, the lines of a multi-line,
// layers off, grid cells in their group colours, "N" cells and rotation.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <cairo.h>
#include <unistd.h>

#include "grid/grid.h"
#include "pictures/grid_render.h"
#include "pictures/plan_render.h"

namespace fs = std::filesystem;
using namespace vorn;

namespace {

struct Pixel {
    int r, g, b;
    bool operator==(const Pixel&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Pixel& p) { return out << p.r << "," << p.g << "," << p.b; }

constexpr Pixel kWhite{255, 255, 255}, kRed{255, 0, 0}, kGreen{0, 255, 0}, kBlack{0, 0, 0};

class Png {
public:
    explicit Png(const std::string& path) : surface_(cairo_image_surface_create_from_png(path.c_str())) {}
    ~Png() { cairo_surface_destroy(surface_); }
    bool ok() const { return cairo_surface_status(surface_) == CAIRO_STATUS_SUCCESS; }
    int width() const { return cairo_image_surface_get_width(surface_); }
    int height() const { return cairo_image_surface_get_height(surface_); }
    Pixel at(int x, int y) const
    {
        const unsigned char* row = cairo_image_surface_get_data(surface_) + y * cairo_image_surface_get_stride(surface_);
        std::uint32_t p = reinterpret_cast<const std::uint32_t*>(row)[x];
        return {static_cast<int>(p >> 16 & 255), static_cast<int>(p >> 8 & 255), static_cast<int>(p & 255)};
    }
    // Pixels in the box that are not white.
    int inked(int x0, int y0, int x1, int y1) const
    {
        int count = 0;
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x) count += !(at(x, y) == kWhite);
        return count;
    }

private:
    cairo_surface_t* surface_;
};

class Pictures : public ::testing::Test {
protected:
    void SetUp() override
    {
        dir = fs::temp_directory_path() / ("vorn_pictures_" + std::to_string(::getpid()));
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string path(const std::string& name) const { return (dir / name).string(); }
    std::string head(const std::string& name, size_t n)
    {
        std::string text(n, '\0');
        std::ifstream(dir / name, std::ios::binary).read(text.data(), static_cast<std::streamsize>(n));
        return text;
    }
    fs::path dir;
};

Entity on(const std::string& layer, int color, EntityShape shape)
{
    Entity entity{{}, std::move(shape)};
    entity.common.layer = layer;
    entity.common.colorIndex = color;
    return entity;
}

HatchLoop square(double x, double y, double size)
{
    HatchLoop loop;
    loop.points = {{x, y}, {x + size, y}, {x + size, y + size}, {x, y + size}};
    loop.bulges.assign(4, 0.0);
    return loop;
}

// World 0..100 on a 540 pixel picture: 5 pixels a unit, 20 pixels margin,
// so world (x, y) is pixel (20 + 5x, 520 - 5y).
PlanContent samplePlan()
{
    PlanContent plan;
    plan.layers = {{{}, "PILLARS", 1}, {{}, "MAP", 3}, {{}, "HIDDEN", 5, "Continuous", true}, {{}, "0", 7}};
    Solid pillar;  // corners in the crosswise order of a solid
    pillar.corners[0] = {10, 10, 0};
    pillar.corners[1] = {30, 10, 0};
    pillar.corners[2] = {10, 30, 0};
    pillar.corners[3] = {30, 30, 0};
    plan.entities.push_back(on("PILLARS", kColorByLayer, pillar));
    Hatch hatch;
    hatch.loops = {square(50, 50, 40), square(60, 60, 20)};
    plan.entities.push_back(on("MAP", 3, hatch));
    Solid hidden;
    for (int k = 0; k < 4; ++k) hidden.corners[k] = {50.0 + 20 * (k % 2), 10.0 + 20 * (k / 2), 0};
    plan.entities.push_back(on("HIDDEN", 1, hidden));
    Text text;
    text.position = {10, 60, 0};
    text.height = 4;
    text.rotation = M_PI / 2;
    text.text = "MMMMMM";
    plan.entities.push_back(on("0", 7, text));
    Mline mline;  // style unknown: elements at +0.5 and -0.5 of the scale
    mline.scale = 10;
    mline.justification = 1;
    mline.vertices = {{10, 80, 0}, {40, 80, 0}};
    plan.entities.push_back(on("0", 7, mline));
    // Top justification: the elements at 0 and -10, turning a right angle
    // at (90, 40) down to (90, 0).
    mline.justification = 0;
    mline.vertices = {{70, 40, 0}, {90, 40, 0}, {90, 0, 0}};
    plan.entities.push_back(on("0", 7, mline));
    return plan;
}

PlanPictureOptions wholeWindow()
{
    PlanPictureOptions options;
    options.window = {0, 0, 100, 100, true};
    options.width = 540;
    return options;
}

}  // namespace

TEST_F(Pictures, PlanShowsEntitiesInTheirColoursAtTheirPlaces)
{
    std::string error;
    ASSERT_TRUE(vorn::renderPlan(samplePlan(), wholeWindow(), path("plan.png"), error)) << error;
    Png png(path("plan.png"));
    ASSERT_TRUE(png.ok());
    EXPECT_EQ(png.width(), 540);
    EXPECT_EQ(png.height(), 540);
    struct Probe {
        const char* what;
        int x, y;
        Pixel expected;
    };
    const Probe probes[] = {
        {"pillar by layer", 120, 420, kRed},     {"pillar left edge", 75, 420, kRed},
        {"hatch", 295, 245, kGreen},            {"hatch hole", 370, 170, kWhite},
        {"layer off", 320, 420, kWhite},        {"mline axis", 145, 120, kWhite},
    };
    for (const Probe& probe : probes) EXPECT_EQ(png.at(probe.x, probe.y), probe.expected) << probe.what;
    // The multi-line's elements 5 units either side of its axis (pixel row 120).
    EXPECT_GT(png.inked(140, 94, 150, 96), 0);
    EXPECT_GT(png.inked(140, 144, 150, 146), 0);
    EXPECT_EQ(png.inked(140, 100, 150, 140), 0);
    // The turned one: outer element through the vertices, the inner one 10
    // inside, meeting at the mitred corner (80, 30) = pixel (420, 370).
    EXPECT_GT(png.inked(395, 318, 405, 322), 0);
    EXPECT_GT(png.inked(395, 368, 405, 372), 0);
    EXPECT_GT(png.inked(418, 395, 422, 405), 0);
    EXPECT_GT(png.inked(468, 395, 472, 405), 0);
    EXPECT_EQ(png.inked(425, 325, 465, 365), 0);
    EXPECT_EQ(png.inked(375, 375, 415, 415), 0) << "no element beyond the inner corner";
    // Text at world (10, 60) = pixel (70, 220), turned a quarter: it runs up
    // with its glyphs to the left of the insertion point.
    EXPECT_GT(png.inked(50, 120, 69, 215), 200);
    EXPECT_EQ(png.inked(75, 200, 170, 225), 0);
}

TEST_F(Pictures, PlanLayersWindowBackgroundAndFormats)
{
    PlanPictureOptions options = wholeWindow();
    options.layers = {"map"};
    options.blackBackground = true;
    std::string error;
    ASSERT_TRUE(vorn::renderPlan(samplePlan(), options, path("map.png"), error)) << error;
    Png png(path("map.png"));
    ASSERT_TRUE(png.ok());
    EXPECT_EQ(png.at(120, 420), kBlack) << "pillar layer not chosen";
    EXPECT_EQ(png.at(295, 245), kGreen);
    EXPECT_EQ(png.at(370, 170), kBlack) << "hole shows the background";

    // A window of the hatch alone fills the picture with it.
    options = wholeWindow();
    options.window = {50, 50, 90, 90, true};
    ASSERT_TRUE(vorn::renderPlan(samplePlan(), options, path("window.png"), error)) << error;
    Png zoomed(path("window.png"));
    EXPECT_EQ(zoomed.at(40, 40), kGreen);
    EXPECT_EQ(zoomed.at(270, 270), kWhite);

    ASSERT_TRUE(vorn::renderPlan(samplePlan(), wholeWindow(), path("plan.svg"), error)) << error;
    EXPECT_EQ(head("plan.svg", 5), "<?xml");
    ASSERT_TRUE(vorn::renderPlan(samplePlan(), wholeWindow(), path("plan.pdf"), error)) << error;
    EXPECT_EQ(head("plan.pdf", 5), "%PDF-");
    EXPECT_FALSE(vorn::renderPlan(samplePlan(), wholeWindow(), path("plan.bmp"), error));
    EXPECT_EQ(error, "the output must end in .png, .svg or .pdf");
    EXPECT_FALSE(vorn::renderPlan(samplePlan(), wholeWindow(), path("none/plan.png"), error));
    EXPECT_FALSE(fs::exists(dir / "plan.bmp"));
    EXPECT_FALSE(fs::exists(dir / "none"));
}

namespace {

// 4 x 2 cells of 10, values 5 (red group) left and 15 (green group) right,
// the cell of node (3, 1) "N".
myGrid sampleGrid(double rotationDegrees)
{
    myGrid grid;
    grid.setup(4, 2, 10, 10, rotationDegrees);
    grid.setOrigin(0, 0, 0);
    for (int i = 0; i <= 4; ++i)
        for (int j = 0; j <= 2; ++j) grid.setValue(i, j, i < 2 ? 5.0 : 15.0);
    grid.setValue(3, 1, NULL_VALUE);
    return grid;
}

}  // namespace

TEST_F(Pictures, GridCellsInTheirGroupColoursWithNLeftOut)
{
    std::ofstream(path("colors.txt")) << "# break,colour\n0,1\n10,3\n20,5\n";
    vorn::GridPictureOptions options;
    options.colors = vorn::GridPictureOptions::Colors::File;
    options.colorFile = path("colors.txt");
    options.width = 440;  // 10 pixels a unit
    struct Case {
        const char* name;
        double rotation;
        Pixel red, green, missing;  // probes of cells (0,0), (3,0), (3,1)
        int points[6];
    };
    const Case cases[] = {
        {"plain.png", 0.0, kRed, kGreen, kWhite, {70, 170, 370, 170, 370, 70}},
        // Turned a quarter: world x -20..0, y 0..40, 240 pixels wide.
        {"turned.png", 90.0, kRed, kGreen, kWhite, {170, 370, 170, 70, 70, 70}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        myGrid grid = sampleGrid(c.rotation);
        options.width = c.rotation == 0.0 ? 440 : 240;
        std::string error;
        ASSERT_TRUE(vorn::renderGrid(grid, options, path(c.name), error)) << error;
        Png png(path(c.name));
        ASSERT_TRUE(png.ok());
        EXPECT_EQ(png.at(c.points[0], c.points[1]), c.red);
        EXPECT_EQ(png.at(c.points[2], c.points[3]), c.green);
        EXPECT_EQ(png.at(c.points[4], c.points[5]), c.missing);
    }
}

TEST_F(Pictures, GridLegendContoursAndPlanOver)
{
    std::ofstream(path("colors.txt")) << "0,1\n10,3\n20,5\n";
    vorn::GridPictureOptions options;
    options.colors = vorn::GridPictureOptions::Colors::File;
    options.colorFile = path("colors.txt");
    options.width = 440 + 220;
    options.legend = true;
    options.contourInterval = 10;
    PlanContent plan;
    Solid pillar;
    for (int k = 0; k < 4; ++k) pillar.corners[k] = {2.0 + 4 * (k % 2), 2.0 + 4 * (k / 2), 0};
    plan.entities.push_back(on("0", 5, pillar));
    options.plan = &plan;
    myGrid grid = sampleGrid(0.0);
    std::string error;
    ASSERT_TRUE(vorn::renderGrid(grid, options, path("grid.png"), error)) << error;
    Png png(path("grid.png"));
    ASSERT_TRUE(png.ok());
    EXPECT_EQ(png.width(), 660);
    EXPECT_EQ(png.at(70, 170), (Pixel{0, 0, 255})) << "pillar over the cells";
    EXPECT_EQ(png.at(120, 120), kRed);
    EXPECT_EQ(png.at(454, 48), kGreen) << "highest group first in the legend";
    EXPECT_EQ(png.at(454, 70), kRed);
    // The contour of 10 runs between the cells of 5 and 15 (pixel column 220)
    // and darkens both sides of their border.
    EXPECT_NE(png.at(219, 120), kRed);
    EXPECT_NE(png.at(220, 120), kGreen);
    EXPECT_EQ(png.at(218, 120), kRed);

    options.colorFile = path("missing.txt");
    EXPECT_FALSE(vorn::renderGrid(grid, options, path("bad.png"), error));
    EXPECT_FALSE(fs::exists(dir / "bad.png"));
}
