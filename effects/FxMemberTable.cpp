// The fx member table: all 152 dispatch entries in their fixed order.
#include "effects/FxHandlers.h"
#include "effects/FxMember.h"
#include "imaging/Operation.h"
#include "vbscript/Text.h"

namespace fx {

namespace {

constexpr auto G = MemberKind::Get;
constexpr auto L = MemberKind::Let;
constexpr auto M = MemberKind::Method;

// clang-format off
// A read/write property takes two entries under one name: its read side, then its write side.
#define RW(name, t, desc) {u"" name, G, "", t[0], "", desc}, {u"" name, L, t, '-', "value", desc}
#define RO(name, t, desc) {u"" name, G, "", t[0], "", desc}
// A plain method: the control's operation of the same name; its argument names, ranges and
// defaults are the operation's (see argumentNames).
#define OP(name, args, desc) {u"" name, M, args, '-', "", desc}
// clang-format on

// clang-format off
constexpr MemberDef kMembers[] = {
    {u"Init", M, "o", '-', "control", "hands the imaging control to the object (done by the script host)", init},
    {u"Colorize", M, "l", '-', "color", "tints the image: greys it, then adds the colour &HBBGGRR", colorize, "&H0080FF"},
    {u"ResizePercent", M, "i", '-', "percent", "shrinks to a percentage of the size, keeping proportions; never enlarges", resizePercent, "50"},
    {u"ResizeAspect", M, "llb", '-', "maxWidth, maxHeight, allowEnlarge", "fits the image into a box, keeping proportions", resizeAspect, "1600, 1600, False"},
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
    {u"SaveFileNameAddPrefix", M, "s", '-', "prefix", "puts a prefix before the name part of SaveFileName", saveFileNameAddPrefix, "\"small_\""},
    {u"SaveFileNameExtension", M, "s", '-', "extension", "replaces the extension of SaveFileName", saveFileNameExtension, "\"png\""},
    RW("SaveGIFInterlaced", "b", "write interlaced GIF"),
    RW("SaveGIFTColor", "l", "transparent GIF colour &HBBGGRR"),
    RW("SaveGIFTransparent", "b", "make SaveGIFTColor transparent in GIF files"),
    {u"Font", M, "slbbbb", '-', "name, size, italic, bold, underline, strikethrough", "sets the font of DrawText", font, "\"DejaVu Sans\", 24, False, True, False, False"},
    {u"PICPassword", L, "s", '-', "value", "password for Pegasus PIC files (stored)"},
    OP("SaveFile", "", "writes the image to SaveFileName in the format SaveFileType"),
    OP("Copy", "", "copies the image to the clipboard"),
    OP("Paste", "", "replaces the image by the clipboard's image"),
    OP("Undo", "", "undoes the last change"),
    {u"MsgDisplay", M, "s", '-', "text", "shows a message box titled Info", msgDisplay, "\"Converted\""},
    {u"filename", G, "", 's', "", "the loaded file"},
    {u"filename", L, "s", '-', "value", "loads the file and sets SaveFileName to it", filenameLet, "\"\\photos\\a.jpg\""},
    RW("SaveFileType", "i", "output format code; 0 = by the extension of SaveFileName"),
    OP("AutoContrast", "", "stretches the contrast to the full range"),
    OP("Blur", "", "blurs the image"),
    OP("Diffuse", "", "scatters the pixels"),
    OP("Dilate", "", "grows light areas"),
    OP("Emboss", "", "embossed relief"),
    OP("Equalize", "", "equalizes the histogram"),
    OP("Erode", "", "grows dark areas"),
    OP("Flip", "", "turns the image upside down"),
    OP("Median", "", "median filter (removes speckles)"),
    OP("Mirror", "", "mirrors left to right"),
    OP("Negate", "", "negative image"),
    OP("Outline", "", "outlines the edges"),
    OP("Brightness", "i", "lightens or darkens"),
    OP("Blend", "i", "blends the image"),
    OP("Buttonize", "iii", "raised button edges"),
    OP("AdjustHSL", "iii", "shifts hue, saturation and lightness"),
    OP("DrawText", "llsv", "draws text in the current font"),
    OP("AdjustRGB", "iiii", "changes red, green and blue"),
    OP("ColorDepth", "iii", "reduces to 1, 4, 8, 16 or 24 bits per pixel"),
    OP("Crop", "llll", "keeps a rectangle"),
    OP("AutoCrop", "fvv", "removes a uniform border"),
    {u"Matrix", M, "iiiiiiiiiii", '-', "a, b, m1, m2, m3, m4, m5, m6, m7, m8, m9", "3 x 3 convolution", matrix, "0, 1, 0, -1, 0, -1, 5, -1, 0, -1, 0"},
    OP("Mosaic", "i", "mosaic of blocks"),
    OP("Posterize", "i", "reduces the tone levels"),
    OP("ReplaceColors", "ccc", "replaces a colour"),
    OP("Sharpen", "i", "sharpens"),
    OP("Rotate", "i", "rotates by any angle clockwise"),
    OP("Soften", "i", "softens"),
    OP("Solarize", "i", "solarizes"),
    OP("Resample", "ll", "resizes by nearest neighbour"),
    OP("Resize", "ll", "resizes smoothly"),
    OP("Swirl", "i", "swirls around the centre"),
    OP("Twist", "ii", "twists blocks"),
    OP("CropBorder", "fi", "removes a border from every side"),
    OP("Tile", "ii", "repeats the image"),
    OP("MBlur", "iii", "motion blur"),
    OP("Ripple", "iii", "ripples"),
    OP("DrawCircle", "llivv", "draws a circle"),
    OP("DrawCurve", "llllllllv", "draws a Bezier curve"),
    OP("DrawPolygon", "llllvvvvvvvvv", "draws a polygon"),
    OP("DrawPie", "llllllv", "draws a pie"),
    OP("DrawLine", "llllvvv", "draws a line"),
    OP("DrawRoundRect", "lllliiv", "draws a rounded rectangle"),
    OP("DrawArc", "llllllv", "draws an arc"),
    OP("Area", "bvvvv", "sets the processing area"),
    OP("Merge", "bvvvvvv", "merges the clipboard into the image"),
    OP("PWarp", "llllllll", "warps onto four corners"),
    OP("CaptureWindow", "l", "captures a window"),
    {u"DrawMode", L, "i", '-', "value", "drawing raster operation"},
    {u"DrawFillColor", L, "c", '-', "value", "fill colour of shapes"},
    {u"DrawFillStyle", L, "i", '-', "value", "fill style of shapes"},
    OP("Gamma", "i", "gamma correction"),
    {u"DrawStyle", L, "i", '-', "value", "line style"},
    {u"DrawWidth", L, "l", '-', "value", "line width"},
    OP("Noise", "ii", "adds noise"),
    OP("Parabolic", "i", "parabolic tone curve"),
    OP("Perspective", "ii", "perspective distortion"),
    OP("PICResize", "ll", "resizes smoothly (used by ResizeAspect)"),
    OP("Pinch", "i", "pinches towards the centre"),
    {u"Picture", G, "", 'o', "", "the image as a picture object", picture},
    RO("UniqueColors", "l", "number of distinct colours"),
    {u"NumPages", G, "s", 'l', "fileName", "number of pages of a file", numPages, "\"\\photos\\scan.tif\""},
    RO("IBPP", "i", "bits per pixel"),
    RO("IFileSize", "l", "size of the loaded file in bytes"),
    RO("IFormat", "i", "format code of the loaded file"),
    RO("IHeight", "l", "image height"),
    RO("ImagError", "l", "code of the last failure"),
    RO("ImagHeight", "l", "image height"),
    RO("ImagWidth", "l", "image width"),
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
    {u"ColorSeparation", M, "i", '-', "mode", "replaces the image by one separation plane (0-12)", colorSeparation, "1"},
};
// clang-format on

#undef RW
#undef RO
#undef OP

} // namespace

std::span<const MemberDef> memberTable() {
    return kMembers;
}

std::string argumentNames(const MemberDef& def) {
    if (!def.argNames.empty() || def.kind != MemberKind::Method) return std::string(def.argNames);
    const imaging::OperationDef* op = imaging::findOperation(vbs::toUtf8(def.name));
    std::string names;
    for (size_t k = 0; op && k < op->params.size(); ++k) {
        std::string name(op->params[k].name);
        if (k) names += ", ";
        names += op->params[k].def ? "[" + name + "]" : name;
    }
    return names;
}

std::string_view description(const MemberDef& def) {
    if (def.kind == MemberKind::Method && !def.handler)
        if (const imaging::OperationDef* op = imaging::findOperation(vbs::toUtf8(def.name)))
            return op->description;
    return def.description;
}

} // namespace fx
