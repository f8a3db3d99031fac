// Loading: format detection, the size limit, page selection, EXIF orientation, shrink-on-load.
#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>
#include <fstream>
#include <vector>

#include "imaging/io/FileReplace.h"
#include "imaging/io/Formats.h"
#include "imaging/io/ImageIo.h"
#include "imaging/io/TiffPages.h"
#include "platform/NativePath.h"

namespace imaging {

namespace fs = std::filesystem;

std::filesystem::path diskPath(std::string_view scriptPath) {
    return NativePath::toNative(scriptPath);
}

std::filesystem::path savePath(std::string_view scriptPath) {
    return NativePath::toNativeForWrite(scriptPath);
}

void checkPixelLimit(std::string_view operation, int64_t width, int64_t height) {
    if (width * height <= kMaxPixels) return;
    std::string what = operation.empty() ? std::string("the result") : std::string(operation);
    fail(ErrorCode::ImageTooLarge, what + " would make " + std::to_string(width) + " x " +
                                       std::to_string(height) +
                                       " pixels; the limit is 250 megapixels");
}

std::string oneLine(std::string_view message) {
    std::vector<std::string_view> seen;
    std::string text;
    while (!message.empty()) {
        size_t cut = std::min(message.find('\n'), message.size());
        std::string_view line = message.substr(0, cut);
        message.remove_prefix(std::min(cut + 1, message.size()));
        while (!line.empty() && line.back() == ' ')
            line.remove_suffix(1);
        // A line about a save's temporary file tells nothing the error does not (it names the
        // target); and libvips keeps one error text for all threads, so with saves running side
        // by side it may be another save's line.
        if (line.find(kTempPrefix) != line.npos) continue;
        if (line.empty() || std::find(seen.begin(), seen.end(), line) != seen.end()) continue;
        seen.push_back(line);
        text += (text.empty() ? "" : " ") + std::string(line);
    }
    return text;
}

void failFromVips(ErrorCode code, const std::string& context, const vips::VError& e) {
    std::string message = oneLine(e.what());
    vips_error_clear();
    fail(code, context + " (" + message + ")");
}

namespace {

std::string extensionOf(const fs::path& p) {
    std::string ext = p.extension().string();
    return ext.empty() ? ext : ext.substr(1);
}

using Head = std::array<unsigned char, 18>;

Head headBytes(const fs::path& p) {
    Head head{};
    std::ifstream in(p, std::ios::binary);
    in.read(reinterpret_cast<char*>(head.data()), head.size());
    return head;
}

// A JPEG whose entropy data ends without the end-of-image marker was cut short.
bool jpegHasEnd(const fs::path& p, int64_t size) {
    std::ifstream in(p, std::ios::binary);
    int64_t tail = std::min<int64_t>(size, 4096);
    in.seekg(size - tail);
    std::string buf(static_cast<size_t>(tail), '\0');
    in.read(buf.data(), tail);
    return buf.find("\xFF\xD9") != std::string::npos;
}

// Targa has no signature: its header is checked field by field instead.
bool looksLikeTga(const Head& h) {
    int mapType = h[1], type = h[2], mapBits = h[7], depth = h[16];
    bool mapped = type == 1 || type == 9;
    bool typeKnown = mapped || type == 2 || type == 3 || type == 10 || type == 11;
    bool mapKnown =
        mapType == 0 ||
        (mapType == 1 && (mapBits == 15 || mapBits == 16 || mapBits == 24 || mapBits == 32));
    bool depthKnown = depth == 8 || depth == 15 || depth == 16 || depth == 24 || depth == 32;
    bool sized = (h[12] | h[13]) != 0 && (h[14] | h[15]) != 0;
    return typeKnown && mapKnown && (!mapped || mapType == 1) && depthKnown && sized &&
           (h[17] & 0xC0) == 0;
}

// ImageMagick decodes far more than the formats of the table by content (SVG, PDF through
// ghostscript, PostScript, MVG, text), so it is handed only a file whose signature or header is
// one of those formats (or that is named .tga), always with that format's coder named, so that
// no other coder can read it.
const FormatDef* sniffMagick(const fs::path& p, const FormatDef* byExtension) {
    Head h = headBytes(p);
    auto is = [&h](std::initializer_list<unsigned char> sig) {
        return std::equal(sig.begin(), sig.end(), h.begin());
    };
    if (is({'B', 'M'}))
        return formatByCode(byExtension && byExtension->code == format::Rle ? format::Rle
                                                                            : format::Bmp);
    if (is({0xB1, 0x68, 0xDE, 0x3A})) return formatByCode(format::Dcx);
    if (is({0x0A}) && h[1] <= 5) return formatByCode(format::Pcx);
    if (is({0, 0, 1, 0})) return formatByCode(format::Ico);
    if (is({0xD7, 0xCD, 0xC6, 0x9A}) || is({1, 0, 9, 0}) || is({2, 0, 9, 0}))
        return formatByCode(format::Wmf);
    if (is({0xFF, 'W', 'P', 'C'})) return formatByCode(format::Wpg);
    if (looksLikeTga(h) || (byExtension && byExtension->code == format::Tga))
        return formatByCode(format::Tga);
    return nullptr;
}

// The ImageMagick file name that reads p with the coder of the format and no other.
std::string magickName(const FormatDef& f, const fs::path& p) {
    std::string_view coder = f.code == format::Rle ? "BMP" : f.saver.empty() ? f.name : f.saver;
    return std::string(coder) + ":" + p.string();
}

// The libvips loader families (class names after "VipsForeignLoad") that read the formats of the
// table; ImageMagick's serves several, told apart by sniffMagick.
struct LoaderFamily {
    std::string_view name;
    int32_t format;
};
constexpr LoaderFamily kLoaders[] = {
    {"Jpeg", format::Jpeg}, {"Png", format::Png},   {"Nsgif", format::Gif},
    {"Tiff", format::Tiff}, {"Webp", format::WebP}, {"Heif", format::Heic},
    {"Jxl", format::Jxl},   {"Ppm", format::Ppm},   {"Magick", 0},
};
constexpr std::string_view kLoaderPrefix = "VipsForeignLoad";

// The format of the table a native libvips loader reads; nullptr for ImageMagick's and for the
// loaders not used here.
const FormatDef* formatOfLoader(std::string_view loader, const fs::path& p) {
    if (!loader.starts_with(kLoaderPrefix)) return nullptr;
    loader.remove_prefix(kLoaderPrefix.size());
    auto family = std::find_if(std::begin(kLoaders), std::end(kLoaders),
                               [&](const LoaderFamily& f) { return loader.starts_with(f.name); });
    if (family == std::end(kLoaders) || family->format == 0) return nullptr;
    if (family->format == format::Ppm) {
        char kind = static_cast<char>(headBytes(p)[1]);
        if (kind == '1' || kind == '4') return formatByCode(format::Pbm);
        if (kind == '2' || kind == '5') return formatByCode(format::Pgm);
    }
    return formatByCode(family->format);
}

// What a loader not used here reads, for the error: "svgload" becomes "SVG".
std::string loaderKind(const char* loader) {
    const char* nickname = vips_nickname_find(g_type_from_name(loader));
    std::string kind = nickname ? nickname : loader;
    if (kind.ends_with("load")) kind.resize(kind.size() - 4);
    for (char& c : kind)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return kind;
}

int32_t orientationOf(const vips::VImage& image) {
    if (image.get_typeof(VIPS_META_ORIENTATION) == 0) return 1;
    return std::clamp(image.get_int(VIPS_META_ORIENTATION), 1, 8);
}

} // namespace

void blockOtherLoaders() {
    vips_operation_block_set(std::string(kLoaderPrefix).c_str(), TRUE);
    for (const LoaderFamily& family : kLoaders)
        vips_operation_block_set((std::string(kLoaderPrefix) + std::string(family.name)).c_str(),
                                 FALSE);
}

int32_t bitsPerPixelOf(const vips::VImage& image) {
    if (image.get_typeof("palette-bit-depth") != 0) return image.get_int("palette-bit-depth");
    int bits = 8;
    switch (image.format()) {
    case VIPS_FORMAT_USHORT:
    case VIPS_FORMAT_SHORT:
        bits = 16;
        break;
    case VIPS_FORMAT_FLOAT:
    case VIPS_FORMAT_INT:
    case VIPS_FORMAT_UINT:
        bits = 32;
        break;
    case VIPS_FORMAT_DOUBLE:
        bits = 64;
        break;
    default:
        break;
    }
    if (image.get_typeof("bits-per-sample") != 0 && image.bands() == 1)
        return image.get_int("bits-per-sample");
    return bits * image.bands();
}

namespace {

// The format of a file and whether ImageMagick reads it.
struct Detected {
    const FormatDef* format;
    bool viaMagick;
};

// Tells the format by the file's content, through libvips' loaders and, for the formats of the
// table that ImageMagick reads, their signatures. Only the formats of the table pass: libvips
// recognises more (SVG, PDF, matrix and raw files, ...), whose loaders are blocked at start-up.
Detected detect(const fs::path& native, const std::string& scriptPath) {
    const FormatDef* byExtension = formatByExtension(extensionOf(native));
    const char* loader = vips_foreign_find_load(native.c_str());
    if (!loader) vips_error_clear();
    bool magick = loader && std::string_view(loader).starts_with("VipsForeignLoadMagick");
    if (loader && !magick) {
        if (const FormatDef* f = formatOfLoader(loader, native)) return {f, false};
    } else if (const FormatDef* f = sniffMagick(native, byExtension)) {
        return {f, true};
    }
    if (byExtension && !byExtension->canLoad)
        fail(ErrorCode::FormatNotReadable, std::string(byExtension->name) + ": " + scriptPath);
    if (loader && !magick)
        fail(ErrorCode::UnknownFormat, scriptPath + " (its content is " + loaderKind(loader) + ")");
    fail(ErrorCode::UnknownFormat, scriptPath);
}

// Opens a page for its header; pixels stay undecoded. libjpeg reports damaged entropy data
// (extraneous bytes before a marker, bad Huffman codes, data ending early) only as warnings and
// decodes grey in its place: such a photo is refused rather than saved with the damage.
vips::VImage openPage(const fs::path& native, const Detected& found, int32_t page) {
    bool jpeg = found.format->code == format::Jpeg;
    auto* options = vips::VImage::option()->set("fail_on", jpeg ? VIPS_FAIL_ON_WARNING
                                                                : VIPS_FAIL_ON_TRUNCATED);
    if (found.viaMagick)
        return vips::VImage::magickload(magickName(*found.format, native).c_str(),
                                        options->set("page", page));
    int32_t code = found.format->code;
    if (code == format::Tiff || code == format::Gif || code == format::WebP || code == format::Heic)
        options->set("page", page);
    return vips::VImage::new_from_file(native.c_str(), options);
}

// Reads the header of the page and fills in what it tells.
void readHeader(LoadResult& r, const fs::path& native, const std::string& scriptPath,
                const Detected& found, int32_t page) {
    vips::VImage image = openPage(native, found, page);
    if (int64_t(image.width()) * image.height() > kMaxPixels)
        fail(ErrorCode::ImageTooLarge, scriptPath + " is " + std::to_string(image.width()) + " x " +
                                           std::to_string(image.height()) +
                                           " pixels; the limit is 250 megapixels");
    r.source.pages = image.get_typeof(VIPS_META_N_PAGES) ? image.get_int(VIPS_META_N_PAGES) : 1;
    // ImageMagick hands back the first page for one past the end; the other loaders refuse it.
    if (page >= r.source.pages)
        fail(ErrorCode::PageNotFound, scriptPath + " page " + std::to_string(page + 1) +
                                          " (the file has " + std::to_string(r.source.pages) +
                                          (r.source.pages == 1 ? " page)" : " pages)"));
    if (r.source.format->code == format::Heic && image.get_typeof("heif-compression") &&
        image.get_string("heif-compression") == std::string("av1"))
        r.source.format = formatByCode(format::Avif);
    bool bilevel = r.source.format->code == format::Pbm;
    r.bitsPerPixel = bilevel ? 1 : bitsPerPixelOf(image);
    // libvips reads black-and-white and palette TIFF pages as 8-bit grey or RGB.
    if (r.source.format->code == format::Tiff)
        if (int32_t stored = tiffPageBits(native, page)) r.bitsPerPixel = stored;
    r.source.orientation = orientationOf(image);
    r.image = r.source.orientation > 1 ? image.autorot() : image;
}

} // namespace

LoadResult loadImage(const std::string& scriptPath, int32_t page) {
    fs::path native = diskPath(scriptPath);
    std::error_code ec;
    if (!fs::is_regular_file(native, ec)) fail(ErrorCode::FileNotFound, scriptPath);
    int64_t size = static_cast<int64_t>(fs::file_size(native, ec));
    if (size == 0) fail(ErrorCode::DamagedImage, scriptPath + " is empty");
    Detected found = detect(native, scriptPath);
    LoadResult r;
    r.source.format = found.format;
    if (r.source.format->code == format::Jpeg && !jpegHasEnd(native, size))
        fail(ErrorCode::DamagedImage, scriptPath + " ends before the end of the JPEG data");
    try {
        readHeader(r, native, scriptPath, found, page);
    } catch (const vips::VError& e) {
        std::string text = e.what();
        if (text.find("page") != text.npos && page > 0)
            failFromVips(ErrorCode::PageNotFound, scriptPath + " page " + std::to_string(page + 1),
                         e);
        // libjpeg-turbo here decodes no lossless (process 3) JPEG, whatever its extension.
        const FormatDef* byExtension = formatByExtension(extensionOf(native));
        bool lossless = text.find("Unsupported JPEG process") != text.npos ||
                        (byExtension && byExtension->code == format::LosslessJpeg);
        if (lossless) failFromVips(ErrorCode::FormatNotReadable, "lossless JPEG: " + scriptPath, e);
        failFromVips(ErrorCode::DamagedImage, scriptPath, e);
    }
    r.source.nativePath = native.string();
    r.source.fileSize = size;
    r.source.page = page;
    r.source.untouched = true;
    return r;
}

int32_t countPages(const std::string& scriptPath) {
    fs::path native = diskPath(scriptPath);
    std::error_code ec;
    if (!fs::is_regular_file(native, ec)) fail(ErrorCode::FileNotFound, scriptPath);
    Detected found = detect(native, scriptPath);
    try {
        vips::VImage image = openPage(native, found, 0);
        return image.get_typeof(VIPS_META_N_PAGES) ? image.get_int(VIPS_META_N_PAGES) : 1;
    } catch (const vips::VError& e) {
        failFromVips(ErrorCode::DamagedImage, scriptPath, e);
    }
}

Reopened reopenForResize(const SourceInfo& source, int32_t fullWidth, int32_t fullHeight,
                         int32_t width, int32_t height) {
    if (!source.untouched || !source.format || source.format->code != format::Jpeg) return {};
    // The DCT scale works on the stored orientation; compare against the upright size.
    int shrink = 1;
    for (int s : {8, 4, 2}) {
        if ((fullWidth + s - 1) / s >= width && (fullHeight + s - 1) / s >= height) {
            shrink = s;
            break;
        }
    }
    bool sequential = source.orientation == 1;
    if (shrink == 1 && !sequential) return {};
    auto access = sequential ? VIPS_ACCESS_SEQUENTIAL : VIPS_ACCESS_RANDOM;
    vips::VImage image = vips::VImage::jpegload(source.nativePath.c_str(),
                                                vips::VImage::option()
                                                    ->set("shrink", shrink)
                                                    ->set("access", access)
                                                    ->set("fail_on", VIPS_FAIL_ON_WARNING));
    return {sequential ? image : image.autorot(), shrink, sequential};
}

} // namespace imaging
