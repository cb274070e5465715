// Pictures of plans and grids through Cairo: a page of PNG, SVG or PDF
// chosen by the output's extension, with the world window fitted into it
// (north up, equal scale on both axes), and the drawing aids that every
// picture shares: CAD colours, a scale bar and a north arrow.
#pragma once

#include <memory>
#include <string>

#include <cairo.h>

namespace vorn {

enum class PictureFormat { None, Png, Svg, Pdf };

// By the extension: .png, .svg, .pdf; None else.
PictureFormat pictureFormatOfName(const std::string& path);

struct Rgb {
    double r = 0.0, g = 0.0, b = 0.0;
};

// The colour of a CAD colour index; colour 7 (and an index out of range)
// is black on a white background and white on a black one.
Rgb colorOfIndex(int index, bool blackBackground);

// A world window: the part of the plan a picture shows.
struct Window {
    double minX = 0.0, minY = 0.0, maxX = 0.0, maxY = 0.0;
    bool any = false;  // a point was added
    bool empty() const { return !(maxX > minX) || !(maxY > minY); }
    void add(double x, double y);
};

// A picture being drawn: the surface, its context and the fit of the world
// window into the drawing area (the picture less `margin` pixels around and
// `sideWidth` pixels of side panel on the right).
class Picture {
public:
    // Sizes the page from `width` and the window's aspect. Check `ok()`.
    Picture(const std::string& path, PictureFormat format, const Window& window, int width, int sideWidth,
            bool blackBackground);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    bool ok() const { return context_ != nullptr; }
    cairo_t* cr() const { return context_; }
    bool blackBackground() const { return black_; }
    int width() const { return width_; }
    int height() const { return height_; }
    // Pixels per world unit.
    double scale() const { return scale_; }
    double deviceX(double x) const { return margin_ + (x - window_.minX) * scale_; }
    double deviceY(double y) const { return margin_ + (window_.maxY - y) * scale_; }
    // The x where the side panel starts.
    double sideX() const { return width_ - sideWidth_; }

    void setColor(int index) const;
    void setColor(const Rgb& color) const;
    // The scale bar (a round length) and the north arrow, bottom left.
    void drawScaleBarAndNorth() const;
    // Finishes the file (PNG is written here). False with the cause.
    bool finish(std::string& error);

private:
    std::string path_;
    PictureFormat format_;
    Window window_;
    bool black_;
    int width_ = 0;
    int height_ = 0;
    int sideWidth_ = 0;
    double margin_ = 20.0;
    double scale_ = 1.0;
    cairo_surface_t* surface_ = nullptr;
    cairo_t* context_ = nullptr;
};

}  // namespace vorn
