// The format table of the imaging control.
#include "imaging/io/Formats.h"

#include <algorithm>

#include "imaging/Operation.h"

namespace imaging {

namespace {
// clang-format off
constexpr FormatDef kFormats[] = {
    {format::Bmp,  "BMP",  "bmp;dib",  true, true,  Codec::Magick, "BMP",  "Windows bitmap"},
    {format::Gif,  "GIF",  "gif",      true, true,  Codec::Native, "gifsave", "palette of up to 256 colours; interlace and one transparent colour"},
    {format::Jpeg, "JPEG", "jpg;jpeg;jif;jpe;jfif", true, true, Codec::Native, "jpegsave", "quality, progressive, 4:2:0 or 4:4:4, greyscale; keeps EXIF, ICC and XMP"},
    {format::Tiff, "TIFF", "tif;tiff", true, true,  Codec::Native, "tiffsave", "compression kinds, multi-page; keeps ICC and XMP (libvips writes no EXIF into TIFF)"},
    {format::Png,  "PNG",  "png",      true, true,  Codec::Native, "pngsave", "interlace, palette after ColorDepth; keeps EXIF, ICC and XMP"},
    {format::Ppm,  "PPM",  "ppm;pnm",  true, true,  Codec::Native, "ppm", "raw or ASCII"},
    {format::Pgm,  "PGM",  "pgm",      true, true,  Codec::Native, "pgm", "greyscale, raw or ASCII"},
    {format::Pbm,  "PBM",  "pbm",      true, true,  Codec::Native, "pbm", "black and white, raw or ASCII"},
    {format::Pcx,  "PCX",  "pcx",      true, true,  Codec::Magick, "PCX",  ""},
    {format::Dcx,  "DCX",  "dcx",      true, true,  Codec::Magick, "DCX",  "multi-page PCX"},
    {format::Tga,  "TGA",  "tga",      true, true,  Codec::Magick, "TGA",  "Targa"},
    {format::Ico,  "ICO",  "ico",      true, true,  Codec::Magick, "ICO",  "icons of at most 256 x 256 pixels"},
    {format::WebP, "WebP", "webp",     true, true,  Codec::Native, "webpsave", "quality from the JPEG factors; keeps EXIF, ICC and XMP"},
    {format::Avif, "AVIF", "avif",     true, true,  Codec::Native, "heifsave", "AV1 in HEIF; quality from the JPEG factors"},
    {format::Wmf,  "WMF",  "wmf",      true, false, Codec::Magick, "",     "Windows metafile, read only"},
    {format::Wpg,  "WPG",  "wpg",      true, false, Codec::Magick, "",     "WordPerfect graphics, read only"},
    {format::Rle,  "RLE",  "rle",      true, false, Codec::Magick, "",     "run-length encoded bitmap, read only"},
    {format::Heic, "HEIC", "heic;heif", true, false, Codec::Native, "",    "read only"},
    {format::Jxl,  "JPEG XL", "jxl",   true, false, Codec::Native, "",     "read only"},
    {format::Pic,  "Pegasus PIC", "pic", false, false, Codec::None, "",    "not supported: no maintained library reads or writes it"},
    {format::LosslessJpeg, "lossless JPEG", "ljp", false, false, Codec::None, "", "not supported: no maintained library here reads or writes it"},
};
// clang-format on
} // namespace

std::span<const FormatDef> allFormats() {
    return kFormats;
}

const FormatDef* formatByCode(int32_t code) {
    for (const auto& f : kFormats)
        if (f.code == code) return &f;
    return nullptr;
}

const FormatDef* formatByExtension(std::string_view extension) {
    if (extension.empty()) return nullptr;
    for (const auto& f : kFormats) {
        std::string_view list = f.extensions;
        while (!list.empty()) {
            size_t cut = std::min(list.find(';'), list.size());
            if (equalsIgnoreCase(list.substr(0, cut), extension)) return &f;
            list.remove_prefix(std::min(cut + 1, list.size()));
        }
    }
    return nullptr;
}

int32_t maxFormatCode() {
    int32_t m = 0;
    for (const auto& f : kFormats)
        m = std::max(m, f.code);
    return m;
}

} // namespace imaging
