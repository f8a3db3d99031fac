// Loading: format detection, the size limit, page selection, EXIF orientation, shrink-on-load.
#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>

#include "imaging/io/Formats.h"
#include "imaging/io/ImageIo.h"
#include "platform/NativePath.h"

namespace imaging {

namespace fs = std::filesystem;

std::filesystem::path diskPath(std::string_view scriptPath) {
    return NativePath::toNative(scriptPath);
}

void failFromVips(ErrorCode code, const std::string& context, const vips::VError& e) {
    std::string message = e.what();
    while (!message.empty() && (message.back() == '\n' || message.back() == ' '))
        message.pop_back();
    std::replace(message.begin(), message.end(), '\n', ' ');
    vips_error_clear();
    fail(code, context + " (" + message + ")");
}

namespace {

std::string extensionOf(const fs::path& p) {
    std::string ext = p.extension().string();
    return ext.empty() ? ext : ext.substr(1);
}

std::array<unsigned char, 16> headBytes(const fs::path& p) {
    std::array<unsigned char, 16> head{};
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

// ImageMagick decodes these; tell which one by the file's signature.
const FormatDef* sniffMagick(const fs::path& p, const FormatDef* byExtension) {
    auto h = headBytes(p);
    auto is = [&h](std::initializer_list<unsigned char> sig) {
        return std::equal(sig.begin(), sig.end(), h.begin());
    };
    if (is({'B', 'M'}))
        return formatByCode(byExtension && byExtension->code == format::Rle ? format::Rle
                                                                            : format::Bmp);
    if (is({0xB1, 0x68, 0xDE, 0x3A})) return formatByCode(format::Dcx);
    if (is({0x0A}) && h[1] <= 5) return formatByCode(format::Pcx);
    if (is({0, 0, 1, 0})) return formatByCode(format::Ico);
    if (is({0xD7, 0xCD, 0xC6, 0x9A}) || is({1, 0, 9, 0})) return formatByCode(format::Wmf);
    if (is({0xFF, 'W', 'P', 'C'})) return formatByCode(format::Wpg);
    return byExtension && byExtension->codec == Codec::Magick ? byExtension : nullptr;
}

const FormatDef* formatOfLoader(std::string_view loader, const fs::path& p,
                                const FormatDef* byExtension) {
    auto has = [&loader](std::string_view part) { return loader.find(part) != loader.npos; };
    if (has("Jpeg")) return formatByCode(format::Jpeg);
    if (has("Png")) return formatByCode(format::Png);
    if (has("Gif") || has("gif")) return formatByCode(format::Gif);
    if (has("Tiff")) return formatByCode(format::Tiff);
    if (has("Webp")) return formatByCode(format::WebP);
    if (has("Heif")) return formatByCode(format::Heic);
    if (has("Jxl")) return formatByCode(format::Jxl);
    if (has("Ppm")) {
        char kind = static_cast<char>(headBytes(p)[1]);
        if (kind == '1' || kind == '4') return formatByCode(format::Pbm);
        if (kind == '2' || kind == '5') return formatByCode(format::Pgm);
        return formatByCode(format::Ppm);
    }
    if (has("Magick")) return sniffMagick(p, byExtension);
    return nullptr;
}

int32_t orientationOf(const vips::VImage& image) {
    if (image.get_typeof(VIPS_META_ORIENTATION) == 0) return 1;
    return std::clamp(image.get_int(VIPS_META_ORIENTATION), 1, 8);
}

vips::VImage openPage(const fs::path& native, const FormatDef* fmt, int32_t page) {
    auto* options = vips::VImage::option()->set("fail_on", VIPS_FAIL_ON_TRUNCATED);
    bool paged =
        fmt && (fmt->code == format::Tiff || fmt->code == format::Gif ||
                fmt->code == format::WebP || fmt->code == format::Heic ||
                fmt->code == format::Avif || fmt->code == format::Dcx || fmt->code == format::Ico);
    if (paged) options->set("page", page);
    return vips::VImage::new_from_file(native.c_str(), options);
}

} // namespace

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

// Which loader reads the file: by content, or through ImageMagick by the extension for formats it
// does not recognise by content (metafiles). Fails for unknown and unreadable formats.
struct Detected {
    const char* loader;
    bool viaMagick;
    const FormatDef* byExtension;
};

Detected detect(const fs::path& native, const std::string& scriptPath) {
    const FormatDef* byExtension = formatByExtension(extensionOf(native));
    bool unreadable = byExtension && !byExtension->canLoad;
    const char* loader = vips_foreign_find_load(native.c_str());
    bool viaMagick = !loader && byExtension && !unreadable && byExtension->codec == Codec::Magick;
    if (viaMagick) loader = "VipsForeignLoadMagickFile";
    if (!loader) vips_error_clear();
    // ImageMagick guesses at anything; a format nothing here reads must not be guessed into.
    if (unreadable &&
        (!loader || std::string_view(loader).find("Magick") != std::string_view::npos))
        fail(ErrorCode::FormatNotReadable, std::string(byExtension->name) + ": " + scriptPath);
    if (!loader) fail(ErrorCode::UnknownFormat, scriptPath);
    return {loader, viaMagick, byExtension};
}

// Reads the header of the page and fills in what it tells; pixels stay undecoded.
void readHeader(LoadResult& r, const fs::path& native, const std::string& scriptPath,
                const Detected& found, int32_t page) {
    vips::VImage image =
        found.viaMagick
            ? vips::VImage::magickload(native.c_str(), vips::VImage::option()->set("page", page))
            : openPage(native, r.source.format, page);
    if (int64_t(image.width()) * image.height() > kMaxPixels)
        fail(ErrorCode::ImageTooLarge, scriptPath + " is " + std::to_string(image.width()) + " x " +
                                           std::to_string(image.height()) +
                                           " pixels; the limit is 250 megapixels");
    r.source.pages = image.get_typeof(VIPS_META_N_PAGES) ? image.get_int(VIPS_META_N_PAGES) : 1;
    if (r.source.format && r.source.format->code == format::Heic &&
        image.get_typeof("heif-compression") &&
        image.get_string("heif-compression") == std::string("av1"))
        r.source.format = formatByCode(format::Avif);
    bool bilevel = r.source.format && r.source.format->code == format::Pbm;
    r.bitsPerPixel = bilevel ? 1 : bitsPerPixelOf(image);
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
    r.source.format = formatOfLoader(found.loader, native, found.byExtension);
    if (r.source.format && r.source.format->code == format::Jpeg && !jpegHasEnd(native, size))
        fail(ErrorCode::DamagedImage, scriptPath + " ends before the end of the JPEG data");
    try {
        readHeader(r, native, scriptPath, found, page);
    } catch (const vips::VError& e) {
        std::string text = e.what();
        if (text.find("page") != text.npos && page > 0)
            failFromVips(ErrorCode::PageNotFound, scriptPath + " page " + std::to_string(page + 1),
                         e);
        // libjpeg-turbo here decodes no lossless (process 3) JPEG, whatever its extension.
        bool lossless = text.find("Unsupported JPEG process") != text.npos ||
                        (found.byExtension && found.byExtension->code == format::LosslessJpeg);
        if (lossless)
            failFromVips(ErrorCode::FormatNotReadable, "lossless JPEG: " + scriptPath, e);
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
    try {
        vips::VImage image = vips::VImage::new_from_file(native.c_str());
        return image.get_typeof(VIPS_META_N_PAGES) ? image.get_int(VIPS_META_N_PAGES) : 1;
    } catch (const vips::VError& e) {
        failFromVips(ErrorCode::UnknownFormat, scriptPath, e);
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
                                                    ->set("fail_on", VIPS_FAIL_ON_TRUNCATED));
    return {sequential ? image : image.autorot(), shrink, sequential};
}

} // namespace imaging
