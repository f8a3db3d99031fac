// The fx member table: all 152 dispatch entries in their fixed order.
#include "effects/FxHandlers.h"
#include "effects/FxMember.h"

namespace fx {

namespace {

constexpr auto G = MemberKind::Get;
constexpr auto L = MemberKind::Let;
constexpr auto M = MemberKind::Method;

// A read/write property takes two entries under one name: its read side, then its write side.
#define RW(name, t, desc)                                                                          \
    {u"" name, G, "", t[0], "", desc}, {                                                           \
        u"" name, L, t, '-', "value", desc                                                         \
    }
#define RO(name, t, desc)                                                                          \
    { u"" name, G, "", t[0], "", desc }
#define OP(name, args, names, desc)                                                                \
    { u"" name, M, args, '-', names, desc }

// clang-format off
constexpr MemberDef kMembers[] = {
    {u"Init", M, "o", '-', "control", "hands the imaging control to the object (done by the script host)", init},
    {u"Colorize", M, "l", '-', "color", "tints the image: greys it, then adds the colour &HBBGGRR", colorize},
    {u"ResizePercent", M, "i", '-', "percent", "shrinks to a percentage of the size, keeping proportions; never enlarges", resizePercent},
    {u"ResizeAspect", M, "llb", '-', "maxWidth, maxHeight, allowEnlarge", "fits the image into a box, keeping proportions", resizeAspect},
    RW("PrinterTop", "l", "printer page top"),
    RW("PrinterWidth", "l", "printer page width"),
    RW("PageNbr", "i", "page to load from a multi-page file (1 = first)"),
    RW("BackColor", "l", "background colour &HBBGGRR (Rotate fills the corners with it)"),
    RW("SavePNGInterlaced", "b", "write interlaced PNG"),
    RW("SavePPMType", "i", "PPM encoding: 0 raw, 1 ASCII"),
    RW("SaveTIFCompression", "i", "TIFF compression: 0 none, 1 LZW, 2 deflate, 3 PackBits, 4 JPEG, 5 ZSTD, 6 WebP, 7 G4"),
    RW("PrinterhDC", "l", "printer device handle"),
    RW("PrinterHeight", "l", "printer page height"),
    RW("PrinterLeft", "l", "printer page left"),
    RW("SaveJPGProgressive", "b", "write progressive JPEG"),
    RW("SaveJPGSubSampling", "i", "JPEG chroma subsampling: 0 = 4:2:0, 1 = 4:4:4"),
    RW("SaveLJPCompMethod", "i", "lossless JPEG method (stored; lossless JPEG cannot be written)"),
    RW("SaveLJPCompType", "i", "lossless JPEG type (stored)"),
    RW("SaveLJPPrediction", "i", "lossless JPEG predictor (stored)"),
    RW("SaveMultiPage", "b", "append a page to an existing TIFF, GIF or DCX file"),
    RW("SaveGIFType", "i", "GIF palette: 0 dithered, 1 not dithered"),
    RW("SaveJPGGrayscale", "b", "write greyscale JPEG"),
    RW("SaveJPGLumFactor", "i", "JPEG luminance factor, 0 = best quality"),
    RW("SaveJPGChromFactor", "i", "JPEG chrominance factor, 0 = best quality"),
    RW("SaveFileName", "s", "the file SaveFile writes"),
    {u"SaveFileNameAddPrefix", M, "s", '-', "prefix", "puts a prefix before the name part of SaveFileName", saveFileNameAddPrefix},
    {u"SaveFileNameExtension", M, "s", '-', "extension", "replaces the extension of SaveFileName", saveFileNameExtension},
    RW("SaveGIFInterlaced", "b", "write interlaced GIF"),
    RW("SaveGIFTColor", "l", "transparent GIF colour &HBBGGRR"),
    RW("SaveGIFTransparent", "b", "make SaveGIFTColor transparent in GIF files"),
    {u"Font", M, "slbbbb", '-', "name, size, italic, bold, underline, strikethrough", "sets the font of DrawText", font},
    {u"PICPassword", L, "s", '-', "value", "password for Pegasus PIC files (stored)"},
    OP("SaveFile", "", "", "writes the image to SaveFileName in the format SaveFileType"),
    OP("Copy", "", "", "copies the image to the clipboard"),
    OP("Paste", "", "", "replaces the image by the clipboard's image"),
    OP("Undo", "", "", "undoes the last change"),
    {u"MsgDisplay", M, "s", '-', "text", "shows a message box titled Info", msgDisplay},
    {u"filename", G, "", 's', "", "the loaded file"},
    {u"filename", L, "s", '-', "value", "loads the file and sets SaveFileName to it", filenameLet},
    RW("SaveFileType", "i", "output format code; 0 = by the extension of SaveFileName"),
    OP("AutoContrast", "", "", "stretches the contrast to the full range"),
    OP("Blur", "", "", "blurs the image"),
    OP("Diffuse", "", "", "scatters the pixels"),
    OP("Dilate", "", "", "grows light areas"),
    OP("Emboss", "", "", "embossed relief"),
    OP("Equalize", "", "", "equalizes the histogram"),
    OP("Erode", "", "", "grows dark areas"),
    OP("Flip", "", "", "turns the image upside down"),
    OP("Median", "", "", "median filter (removes speckles)"),
    OP("Mirror", "", "", "mirrors left to right"),
    OP("Negate", "", "", "negative image"),
    OP("Outline", "", "", "outlines the edges"),
    OP("Brightness", "i", "amount", "lightens or darkens"),
    OP("Blend", "i", "amount", "blends the image"),
    OP("Buttonize", "iii", "bevel, style, intensity", "raised button edges"),
    OP("AdjustHSL", "iii", "hue, saturation, luminance", "shifts hue, saturation and lightness"),
    OP("DrawText", "iisv", "x, y, text, color", "draws text in the current font"),
    OP("AdjustRGB", "iiii", "type, red, green, blue", "changes red, green and blue"),
    OP("ColorDepth", "iii", "bits, palette, dither", "reduces to 1, 4, 8, 16 or 24 bits per pixel"),
    OP("Crop", "iiii", "x, y, width, height", "keeps a rectangle"),
    OP("AutoCrop", "fvv", "tolerance, color, margin", "removes a uniform border"),
    {u"Matrix", M, "iiiiiiiiiii", '-', "a, b, m1, m2, m3, m4, m5, m6, m7, m8, m9", "3 x 3 convolution", matrix},
    OP("Mosaic", "i", "size", "mosaic of blocks"),
    OP("Posterize", "i", "levels", "reduces the tone levels"),
    OP("ReplaceColors", "ccc", "from, to, tolerance", "replaces a colour"),
    OP("Sharpen", "i", "amount", "sharpens"),
    OP("Rotate", "i", "angle", "rotates by any angle clockwise"),
    OP("Soften", "i", "amount", "softens"),
    OP("Solarize", "i", "threshold", "solarizes"),
    OP("Resample", "ii", "width, height", "resizes by nearest neighbour"),
    OP("Resize", "ii", "width, height", "resizes smoothly"),
    OP("Swirl", "i", "angle", "swirls around the centre"),
    OP("Twist", "ii", "size, mode", "twists blocks"),
    OP("CropBorder", "fi", "amount, units", "removes a border from every side"),
    OP("Tile", "ii", "columns, rows", "repeats the image"),
    OP("MBlur", "iii", "angle, distance, mode", "motion blur"),
    OP("Ripple", "iii", "amplitude, wavelength, direction", "ripples"),
    OP("DrawCircle", "iiivv", "x, y, radius, color, fill", "draws a circle"),
    OP("DrawCurve", "iiiiiiiiv", "x1, y1, x2, y2, x3, y3, x4, y4, color", "draws a Bezier curve"),
    OP("DrawPolygon", "iiiivvvvvvvvv", "x1, y1, x2, y2, ...", "draws a polygon"),
    OP("DrawPie", "iiiiiiv", "left, top, right, bottom, start, end, color", "draws a pie"),
    OP("DrawLine", "iiiivvv", "x1, y1, x2, y2, color, style, width", "draws a line"),
    OP("DrawRoundRect", "iiiiiiv", "left, top, right, bottom, cornerWidth, cornerHeight, color", "draws a rounded rectangle"),
    OP("DrawArc", "iiiiiiv", "left, top, right, bottom, start, end, color", "draws an arc"),
    OP("Area", "bvvvv", "enabled, x, y, width, height", "sets the processing area"),
    OP("Merge", "bvvvvvv", "enabled, ...", "merges the clipboard into the image"),
    OP("PWarp", "iiiiiiii", "x1, y1, x2, y2, x3, y3, x4, y4", "warps onto four corners"),
    OP("CaptureWindow", "l", "hWnd", "captures a window"),
    {u"DrawMode", L, "i", '-', "value", "drawing raster operation"},
    {u"DrawFillColor", L, "c", '-', "value", "fill colour of shapes"},
    {u"DrawFillStyle", L, "i", '-', "value", "fill style of shapes"},
    OP("Gamma", "i", "gamma", "gamma correction"),
    {u"DrawStyle", L, "i", '-', "value", "line style"},
    {u"DrawWidth", L, "l", '-', "value", "line width"},
    OP("Noise", "ii", "amount, kind", "adds noise"),
    OP("Parabolic", "i", "amount", "parabolic tone curve"),
    OP("Perspective", "ii", "amount, direction", "perspective distortion"),
    OP("PICResize", "ii", "width, height", "resizes smoothly (used by ResizeAspect)"),
    OP("Pinch", "i", "amount", "pinches towards the centre"),
    {u"Picture", G, "", 'o', "", "the image as a picture object", picture},
    RO("UniqueColors", "l", "number of distinct colours"),
    {u"NumPages", G, "s", 'l', "fileName", "number of pages of a file", numPages},
    RO("IBPP", "i", "bits per pixel"),
    RO("IFileSize", "l", "size of the loaded file in bytes"),
    RO("IFormat", "i", "format code of the loaded file"),
    RO("IHeight", "i", "image height"),
    RO("ImagError", "l", "code of the last failure"),
    RO("ImagHeight", "i", "image height"),
    RO("ImagWidth", "i", "image width"),
    RO("IPAdjustBlue", "i", "blue of the last AdjustRGB"),
    RO("IPAdjustGreen", "i", "green of the last AdjustRGB"),
    RO("IPAdjustRed", "i", "red of the last AdjustRGB"),
    RO("IPAdjustHue", "i", "hue of the last AdjustHSL"),
    RO("IPAdjustLum", "i", "luminance of the last AdjustHSL"),
    RO("IPAdjustSat", "i", "saturation of the last AdjustHSL"),
    RO("IPAdjustType", "i", "type of the last AdjustRGB"),
    RO("IPArea", "b", "whether the processing area is on"),
    RO("IPAreaHeight", "l", "processing area height"),
    RO("IPAreaWidth", "l", "processing area width"),
    RO("IPAreaX", "l", "processing area left"),
    RO("IPAreaY", "l", "processing area top"),
    RO("hWnd", "l", "window handle (0: no window)"),
    RW("SavePBMType", "i", "PBM encoding: 0 raw, 1 ASCII"),
    RW("SavePGMType", "i", "PGM encoding: 0 raw, 1 ASCII"),
    {u"ColorSeparation", M, "i", '-', "mode", "replaces the image by one separation plane (0-12)", colorSeparation},
};
// clang-format on

#undef RW
#undef RO
#undef OP

} // namespace

std::span<const MemberDef> memberTable() {
    return kMembers;
}

} // namespace fx
