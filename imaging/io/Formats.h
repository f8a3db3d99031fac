// The file formats of the imaging control: one table of codes (SaveFileType and IFormat share
// them), extensions, what can be read and written, and through which libvips path.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace imaging {

enum class Codec {
    Native, // libvips' own loader and saver
    Magick, // libvips' ImageMagick bridge
    None,   // no maintained library here reads or writes it
};

struct FormatDef {
    int32_t code;
    std::string_view name;
    std::string_view extensions; // ";"-separated, lower case, first is the usual one
    bool canLoad;
    bool canSave;
    Codec codec;
    std::string_view saver; // libvips saver operation, or the ImageMagick format name
    std::string_view note;
};

namespace format {
constexpr int32_t ByExtension = 0;
constexpr int32_t Bmp = 1, Gif = 2, Jpeg = 3, Tiff = 4, Png = 5, Ppm = 6, Pgm = 7, Pbm = 8, Pcx = 9,
                  Dcx = 10, Tga = 11, Ico = 12, WebP = 13, Avif = 14, Wmf = 15, Wpg = 16, Rle = 17,
                  Heic = 18, Jxl = 19, Pic = 20, LosslessJpeg = 21;
} // namespace format

std::span<const FormatDef> allFormats();
const FormatDef* formatByCode(int32_t code);
const FormatDef* formatByExtension(std::string_view extension); // without the dot, any case
int32_t maxFormatCode();

} // namespace imaging
