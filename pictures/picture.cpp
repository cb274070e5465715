#include "pictures/picture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include "base/textnum.h"
#include "drawing/ui_port.h"

namespace vorn {

namespace {
constexpr int kMaxPixels = 20000;
}

PictureFormat pictureFormatOfName(const std::string& path)
{
    std::string extension = toLower(std::filesystem::path(path).extension().string());
    if (extension == ".png") return PictureFormat::Png;
    if (extension == ".svg") return PictureFormat::Svg;
    if (extension == ".pdf") return PictureFormat::Pdf;
    return PictureFormat::None;
}

Rgb colorOfIndex(int index, bool blackBackground)
{
    if (index < 1 || index > 255 || index == 7) return blackBackground ? Rgb{1, 1, 1} : Rgb{0, 0, 0};
    unsigned long packed = acedGetRGB(index);
    return {static_cast<double>(packed & 0xff) / 255.0, static_cast<double>((packed >> 8) & 0xff) / 255.0,
            static_cast<double>((packed >> 16) & 0xff) / 255.0};
}

void Window::add(double x, double y)
{
    if (!any) {
        minX = maxX = x;
        minY = maxY = y;
        any = true;
        return;
    }
    minX = std::min(minX, x);
    maxX = std::max(maxX, x);
    minY = std::min(minY, y);
    maxY = std::max(maxY, y);
}

Picture::Picture(const std::string& path, PictureFormat format, const Window& window, int width, int sideWidth,
                 bool blackBackground)
    : path_(path), format_(format), window_(window), black_(blackBackground), sideWidth_(sideWidth)
{
    if (window_.empty()) {
        // A single point or line still gets a page: widen it to a square.
        double size = std::max({window_.maxX - window_.minX, window_.maxY - window_.minY, 1.0});
        double cx = (window_.minX + window_.maxX) / 2, cy = (window_.minY + window_.maxY) / 2;
        window_ = {cx - size / 2, cy - size / 2, cx + size / 2, cy + size / 2, true};
    }
    width_ = std::clamp(width, 2 * static_cast<int>(margin_) + sideWidth + 10, kMaxPixels);
    const double drawWidth = width_ - 2 * margin_ - sideWidth_;
    scale_ = drawWidth / (window_.maxX - window_.minX);
    height_ = std::clamp(static_cast<int>(std::ceil((window_.maxY - window_.minY) * scale_ + 2 * margin_)), 200, kMaxPixels);
    switch (format_) {
    case PictureFormat::Png: surface_ = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width_, height_); break;
    case PictureFormat::Svg: surface_ = cairo_svg_surface_create(path_.c_str(), width_, height_); break;
    case PictureFormat::Pdf: surface_ = cairo_pdf_surface_create(path_.c_str(), width_, height_); break;
    default: return;
    }
    if (cairo_surface_status(surface_) != CAIRO_STATUS_SUCCESS) return;
    context_ = cairo_create(surface_);
    setColor(black_ ? Rgb{0, 0, 0} : Rgb{1, 1, 1});
    cairo_paint(context_);
    cairo_set_line_width(context_, 1.0);
    cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
}

Picture::~Picture()
{
    if (context_) cairo_destroy(context_);
    if (surface_) cairo_surface_destroy(surface_);
}

void Picture::setColor(int index) const { setColor(colorOfIndex(index, black_)); }

void Picture::setColor(const Rgb& color) const { cairo_set_source_rgb(context_, color.r, color.g, color.b); }

void Picture::drawScaleBarAndNorth() const
{
    // The longest length of 1, 2 or 5 times a power of ten under a fifth of
    // the drawing's width.
    const double limit = (width_ - 2 * margin_ - sideWidth_) / 5.0 / scale_;
    double length = std::pow(10.0, std::floor(std::log10(limit)));
    for (double factor : {5.0, 2.0})
        if (length * factor <= limit) {
            length *= factor;
            break;
        }
    const double x0 = margin_ + 10, y0 = height_ - margin_ - 6, pixels = length * scale_;
    setColor(7);
    cairo_set_line_width(context_, 2.0);
    cairo_move_to(context_, x0, y0);
    cairo_line_to(context_, x0 + pixels, y0);
    cairo_move_to(context_, x0, y0 - 5);
    cairo_line_to(context_, x0, y0 + 3);
    cairo_move_to(context_, x0 + pixels, y0 - 5);
    cairo_line_to(context_, x0 + pixels, y0 + 3);
    cairo_stroke(context_);
    cairo_select_font_face(context_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context_, 11.0);
    cairo_move_to(context_, x0, y0 - 8);
    cairo_show_text(context_, formatString("%g", length).c_str());
    // North arrow above the bar.
    const double nx = x0 + 8, ny = y0 - 24;
    cairo_move_to(context_, nx, ny - 22);
    cairo_line_to(context_, nx - 6, ny);
    cairo_line_to(context_, nx + 6, ny);
    cairo_close_path(context_);
    cairo_fill(context_);
    cairo_move_to(context_, nx - 4, ny - 26);
    cairo_show_text(context_, "N");
    cairo_set_line_width(context_, 1.0);
}

bool Picture::finish(std::string& error)
{
    if (!context_) {
        error = "the picture could not be made";
        return false;
    }
    cairo_destroy(context_);
    context_ = nullptr;
    cairo_surface_flush(surface_);
    cairo_status_t status = CAIRO_STATUS_SUCCESS;
    if (format_ == PictureFormat::Png) {
        // Written beside the target and renamed, so a failure leaves no half file.
        std::string temporary = path_ + ".part";
        status = cairo_surface_write_to_png(surface_, temporary.c_str());
        if (status == CAIRO_STATUS_SUCCESS && std::rename(temporary.c_str(), path_.c_str()) != 0) status = CAIRO_STATUS_WRITE_ERROR;
        if (status != CAIRO_STATUS_SUCCESS) std::remove(temporary.c_str());
    } else {
        cairo_surface_finish(surface_);
        status = cairo_surface_status(surface_);
    }
    cairo_surface_destroy(surface_);
    surface_ = nullptr;
    if (status != CAIRO_STATUS_SUCCESS) error = cairo_status_to_string(status);
    return status == CAIRO_STATUS_SUCCESS;
}

}  // namespace vorn
