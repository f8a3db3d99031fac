// Pixels and shrunken copies through the imaging control.
#include "effects/PhotoPixels.h"

#include "imaging/ImagingControl.h"

#include <algorithm>
#include <cmath>

namespace PhotoPixels {

namespace {

// Loads the photo and shrinks it into maxSide (the imaging control decodes a JPEG at a reduced
// scale for that).
void loadFitted(imaging::ImagingControl& control, const std::string& path, int maxSide) {
    control.setFileName(path);
    const int w = control.width(), h = control.height();
    const double scale = std::min({1.0, double(maxSide) / w, double(maxSide) / h});
    if (scale < 1.0)
        control.resizeTo(std::max(1, int(std::lround(w * scale))),
                         std::max(1, int(std::lround(h * scale))), true);
}

vips::VImage asRgb8(vips::VImage image) {
    if (image.interpretation() != VIPS_INTERPRETATION_sRGB)
        image = image.colourspace(VIPS_INTERPRETATION_sRGB);
    if (image.bands() == 4)
        image = image.flatten(
            vips::VImage::option()->set("background", std::vector<double>{255, 255, 255}));
    if (image.format() != VIPS_FORMAT_UCHAR) image = image.cast(VIPS_FORMAT_UCHAR);
    if (image.bands() > 3) image = image.extract_band(0, vips::VImage::option()->set("n", 3));
    return image;
}

} // namespace

Pixels load(const std::string& path, int maxSide, bool countColors) {
    Pixels out;
    try {
        imaging::ImagingControl control;
        loadFitted(control, path, maxSide);
        if (countColors) out.uniqueColors = control.uniqueColors();
        const vips::VImage rgb = asRgb8(control.image());
        size_t size = 0;
        void* data = rgb.write_to_memory(&size);
        out.width = rgb.width();
        out.height = rgb.height();
        out.rgb.assign(static_cast<uint8_t*>(data), static_cast<uint8_t*>(data) + size);
        g_free(data);
    } catch (const std::exception& e) {
        out = Pixels{};
        out.error = e.what();
    }
    return out;
}

bool largerThan(const std::string& path, int maxSide) {
    try {
        imaging::ImagingControl control;
        control.setFileName(path);
        return control.width() > maxSide || control.height() > maxSide;
    } catch (const std::exception&) {
        return false;
    }
}

bool writeShrunkCopy(const std::string& source, const std::string& target, int maxSide,
                     std::string* error) {
    try {
        imaging::ImagingControl control;
        loadFitted(control, source, maxSide);
        control.setProperty("SaveFileName", target);
        control.saveFile();
        return true;
    } catch (const std::exception& e) {
        if (error) *error = e.what();
        return false;
    }
}

} // namespace PhotoPixels
