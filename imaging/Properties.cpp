// The property table of the imaging control: files, save options, drawing and device state,
// and the information read-backs.
#include <limits>

#include "imaging/ImagingControl.h"
#include "imaging/Property.h"
#include "imaging/io/Formats.h"

namespace imaging {

namespace {

using T = ParamType;
constexpr double kLongMax = std::numeric_limits<int32_t>::max();
constexpr double kLongMin = std::numeric_limits<int32_t>::min();
constexpr double kColorMax = 0xFFFFFF;

int32_t asInt(const Arg& a) {
    if (auto* i = std::get_if<int32_t>(&a)) return *i;
    if (auto* b = std::get_if<bool>(&a)) return *b ? -1 : 0;
    return 0;
}
bool asBool(const Arg& a) {
    return asInt(a) != 0;
}
const std::string& asString(const Arg& a) {
    static const std::string empty;
    auto* s = std::get_if<std::string>(&a);
    return s ? *s : empty;
}

// clang-format off
const PropertyDef kFile[] = {
    {"FileName", T::String, Access::ReadWrite, 0, 0, 0, "the loaded file; assigning a name loads that file (page PageNbr)",
     [](ImagingControl& c) -> Arg { return c.fileName(); },
     [](ImagingControl& c, const Arg& v) { c.setFileName(asString(v)); }},
    {"SaveFileName", T::String, Access::ReadWrite, 0, 0, 0, "the file SaveFile writes"},
    {"SaveFileType", T::Int, Access::ReadWrite, 0, format::LosslessJpeg, 0, "format code of SaveFile; 0 = by the extension of SaveFileName (see the format table)"},
    {"PageNbr", T::Int, Access::ReadWrite, 0, 32767, 0, "page loaded from a multi-page file, 1 = first (0 is taken as 1)"},
    {"PICPassword", T::String, Access::ReadWrite, 0, 0, 0, "password of Pegasus PIC files; stored only, the format is not supported"},
};

const PropertyDef kSave[] = {
    {"SaveJPGLumFactor", T::Int, Access::ReadWrite, 0, 99, 10, "JPEG luminance factor: 0 = best quality; quality = 100 - (2 x luminance + chrominance) / 3"},
    {"SaveJPGChromFactor", T::Int, Access::ReadWrite, 0, 99, 10, "JPEG chrominance factor: 0 = best quality (weighs half the luminance factor)"},
    {"SaveJPGProgressive", T::Bool, Access::ReadWrite, 0, 0, 0, "write progressive JPEG"},
    {"SaveJPGSubSampling", T::Int, Access::ReadWrite, 0, 1, 0, "JPEG chroma subsampling: 0 = 4:2:0, 1 = 4:4:4 (none)"},
    {"SaveJPGGrayscale", T::Bool, Access::ReadWrite, 0, 0, 0, "write a greyscale JPEG"},
    {"SavePNGInterlaced", T::Bool, Access::ReadWrite, 0, 0, 0, "write an interlaced (Adam7) PNG"},
    {"SaveTIFCompression", T::Int, Access::ReadWrite, 0, 7, 1, "TIFF compression: 0 none, 1 LZW, 2 deflate, 3 PackBits, 4 JPEG, 5 ZSTD, 6 WebP, 7 CCITT G4 (black and white)"},
    {"SaveGIFType", T::Int, Access::ReadWrite, 0, 1, 0, "GIF palette: 0 = adaptive with dithering, 1 = adaptive without dithering"},
    {"SaveGIFInterlaced", T::Bool, Access::ReadWrite, 0, 0, 0, "write an interlaced GIF"},
    {"SaveGIFTransparent", T::Bool, Access::ReadWrite, 0, 0, 0, "make SaveGIFTColor transparent in GIF files"},
    {"SaveGIFTColor", T::Color, Access::ReadWrite, 0, kColorMax, 0, "the transparent GIF colour (&HBBGGRR)"},
    {"SavePPMType", T::Int, Access::ReadWrite, 0, 1, 0, "PPM encoding: 0 = raw (binary), 1 = ASCII"},
    {"SavePGMType", T::Int, Access::ReadWrite, 0, 1, 0, "PGM encoding: 0 = raw (binary), 1 = ASCII"},
    {"SavePBMType", T::Int, Access::ReadWrite, 0, 1, 0, "PBM encoding: 0 = raw (binary), 1 = ASCII"},
    {"SaveMultiPage", T::Bool, Access::ReadWrite, 0, 0, 0, "append the image as a new page when the TIFF, GIF or DCX file exists"},
    {"SaveLJPCompMethod", T::Int, Access::ReadWrite, 0, 1, 0, "lossless JPEG method; stored only, lossless JPEG cannot be written"},
    {"SaveLJPCompType", T::Int, Access::ReadWrite, 0, 2, 0, "lossless JPEG type; stored only"},
    {"SaveLJPPrediction", T::Int, Access::ReadWrite, 1, 7, 1, "lossless JPEG predictor 1 to 7; stored only"},
    {"KeepMetadata", T::Bool, Access::ReadWrite, 0, 0, -1, "carry EXIF, ICC profile and XMP into formats that hold them"},
};

#define DRAW_INT(field) [](ImagingControl& c) -> Arg { return c.drawState().field; }, \
    [](ImagingControl& c, const Arg& v) { c.drawState().field = asInt(v); }
#define FONT_BOOL(field) [](ImagingControl& c) -> Arg { return c.drawState().font.field; }, \
    [](ImagingControl& c, const Arg& v) { c.drawState().font.field = asBool(v); }

const PropertyDef kState[] = {
    {"BackColor", T::Color, Access::ReadWrite, 0, kColorMax, 0, "fill colour of uncovered areas (Rotate, canvas growth), &HBBGGRR"},
    {"DrawMode", T::Int, Access::ReadWrite, 1, 16, 13, "raster operation of drawing; 13 = copy pen", DRAW_INT(drawMode)},
    {"DrawFillColor", T::Color, Access::ReadWrite, 0, kColorMax, 0, "fill colour of drawn shapes", DRAW_INT(drawFillColor)},
    {"DrawFillStyle", T::Int, Access::ReadWrite, 0, 7, 1, "fill style: 0 solid, 1 transparent, 2-7 hatches", DRAW_INT(drawFillStyle)},
    {"DrawStyle", T::Int, Access::ReadWrite, 0, 6, 0, "line style: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 invisible, 6 inside solid", DRAW_INT(drawStyle)},
    {"DrawWidth", T::Long, Access::ReadWrite, 1, 32767, 1, "line width in pixels", DRAW_INT(drawWidth)},
    {"FontName", T::String, Access::ReadWrite, 0, 0, 0, "font family of DrawText",
     [](ImagingControl& c) -> Arg { return c.drawState().font.name; },
     [](ImagingControl& c, const Arg& v) { c.drawState().font.name = asString(v); }},
    {"FontSize", T::Long, Access::ReadWrite, 1, 1000, 12, "font size in points", DRAW_INT(font.size)},
    {"FontItalic", T::Bool, Access::ReadWrite, 0, 0, 0, "italic text", FONT_BOOL(italic)},
    {"FontBold", T::Bool, Access::ReadWrite, 0, 0, 0, "bold text", FONT_BOOL(bold)},
    {"FontUnderline", T::Bool, Access::ReadWrite, 0, 0, 0, "underlined text", FONT_BOOL(underline)},
    {"FontStrikethrough", T::Bool, Access::ReadWrite, 0, 0, 0, "struck-through text", FONT_BOOL(strikethrough)},
    {"PrinterTop", T::Long, Access::ReadWrite, kLongMin, kLongMax, 0, "printer page top; stored"},
    {"PrinterLeft", T::Long, Access::ReadWrite, kLongMin, kLongMax, 0, "printer page left; stored"},
    {"PrinterWidth", T::Long, Access::ReadWrite, kLongMin, kLongMax, 0, "printer page width; stored"},
    {"PrinterHeight", T::Long, Access::ReadWrite, kLongMin, kLongMax, 0, "printer page height; stored"},
    {"PrinterhDC", T::Long, Access::ReadWrite, kLongMin, kLongMax, 0, "printer device handle; stored"},
    {"PictureSync", T::Bool, Access::ReadWrite, 0, 0, 0, "keep the picture read-back in step with the image"},
    {"UndoEnabled", T::Bool, Access::ReadWrite, 0, 0, 0, "keep the image before each change for Undo"},
};
#undef DRAW_INT
#undef FONT_BOOL

#define AREA(field) [](ImagingControl& c) -> Arg { return c.area().field; }
#define ADJUST(field) [](ImagingControl& c) -> Arg { return c.adjust.field; }
// Without an image the size reads 0, as scripts test before they divide by it.
#define IMG(expr) [](ImagingControl& c) -> Arg { return c.expr; }

const PropertyDef kInfo[] = {
    {"ImagWidth", T::Long, Access::Read, 0, 0, 0, "width of the image in pixels", IMG(width())},
    {"ImagHeight", T::Long, Access::Read, 0, 0, 0, "height of the image in pixels", IMG(height())},
    {"IWidth", T::Long, Access::Read, 0, 0, 0, "width of the image in pixels", IMG(width())},
    {"IHeight", T::Long, Access::Read, 0, 0, 0, "height of the image in pixels", IMG(height())},
    {"IBPP", T::Int, Access::Read, 0, 0, 0, "bits per pixel: 1, 4, 8, 16, 24, 32 (with alpha), 48 or 64",
     [](ImagingControl& c) -> Arg { return c.hasImage() ? c.bitsPerPixel() : 0; }},
    {"IFileSize", T::Long, Access::Read, 0, 0, 0, "size of the loaded file in bytes",
     [](ImagingControl& c) -> Arg { return int32_t(std::min<int64_t>(c.source().fileSize, kLongMax)); }},
    {"IFormat", T::Int, Access::Read, 0, 0, 0, "format code of the loaded file (the SaveFileType codes); 0 = other",
     [](ImagingControl& c) -> Arg { return c.source().format ? c.source().format->code : 0; }},
    {"NumPagesLoaded", T::Long, Access::Read, 0, 0, 0, "pages of the loaded file",
     [](ImagingControl& c) -> Arg { return c.source().pages; }},
    {"UniqueColors", T::Long, Access::Read, 0, 0, 0, "number of distinct colours in the image",
     [](ImagingControl& c) -> Arg { return c.hasImage() ? c.uniqueColors() : 0; }},
    {"ImagError", T::Long, Access::Read, 0, 0, 0, "code of the last failure, 0 after a member that succeeded",
     [](ImagingControl& c) -> Arg { return c.lastError(); }},
    {"IPAdjustRed", T::Int, Access::Read, 0, 0, 0, "red of the last AdjustRGB", ADJUST(red)},
    {"IPAdjustGreen", T::Int, Access::Read, 0, 0, 0, "green of the last AdjustRGB", ADJUST(green)},
    {"IPAdjustBlue", T::Int, Access::Read, 0, 0, 0, "blue of the last AdjustRGB", ADJUST(blue)},
    {"IPAdjustType", T::Int, Access::Read, 0, 0, 0, "type of the last AdjustRGB", ADJUST(rgbType)},
    {"IPAdjustHue", T::Int, Access::Read, 0, 0, 0, "hue of the last AdjustHSL", ADJUST(hue)},
    {"IPAdjustSat", T::Int, Access::Read, 0, 0, 0, "saturation of the last AdjustHSL", ADJUST(sat)},
    {"IPAdjustLum", T::Int, Access::Read, 0, 0, 0, "luminance of the last AdjustHSL", ADJUST(lum)},
    {"IPArea", T::Bool, Access::Read, 0, 0, 0, "whether the processing area is on", AREA(enabled)},
    {"IPAreaX", T::Long, Access::Read, 0, 0, 0, "left of the processing area", AREA(x)},
    {"IPAreaY", T::Long, Access::Read, 0, 0, 0, "top of the processing area", AREA(y)},
    {"IPAreaWidth", T::Long, Access::Read, 0, 0, 0, "width of the processing area", AREA(width)},
    {"IPAreaHeight", T::Long, Access::Read, 0, 0, 0, "height of the processing area", AREA(height)},
    {"hWnd", T::Long, Access::Read, 0, 0, 0, "window handle; 0, the control has no window",
     [](ImagingControl&) -> Arg { return int32_t(0); }},
};
#undef AREA
#undef ADJUST
#undef IMG
// clang-format on

std::vector<const PropertyDef*> buildTable() {
    std::vector<const PropertyDef*> all;
    for (auto family :
         {fileProperties(), saveOptionProperties(), stateProperties(), infoProperties()})
        for (const auto& p : family)
            all.push_back(&p);
    return all;
}

} // namespace

std::span<const PropertyDef> fileProperties() {
    return kFile;
}
std::span<const PropertyDef> saveOptionProperties() {
    return kSave;
}
std::span<const PropertyDef> stateProperties() {
    return kState;
}
std::span<const PropertyDef> infoProperties() {
    return kInfo;
}

std::span<const PropertyDef* const> allProperties() {
    static const std::vector<const PropertyDef*> table = buildTable();
    return table;
}

const PropertyDef* findProperty(std::string_view name) {
    for (const PropertyDef* p : allProperties())
        if (equalsIgnoreCase(p->name, name)) return p;
    return nullptr;
}

Arg defaultValue(const PropertyDef& def) {
    switch (def.type) {
    case ParamType::String:
        return std::string();
    case ParamType::Bool:
        return def.def != 0;
    case ParamType::Single:
    case ParamType::Double:
        return def.def;
    default:
        return static_cast<int32_t>(def.def);
    }
}

} // namespace imaging
