// Saving: choose the format, prepare the pixels for it, write a temporary file beside the target,
// flush it and put it in the target's place (FileReplace).
#include <algorithm>
#include <cmath>
#include <utility>

#include "imaging/io/FileReplace.h"
#include "imaging/io/Formats.h"
#include "imaging/io/ImageIo.h"
#include "imaging/io/TiffPages.h"
#include "imaging/ops/PixelLayout.h"

namespace imaging {

namespace fs = std::filesystem;
using vips::VImage;

int32_t jpegQuality(const SaveOptions& o) {
    // The luminance factor weighs twice the chrominance one: libjpeg scales both tables by one
    // quality, and luminance is what the eye sees.
    double factor = (2.0 * o.lumFactor + o.chromFactor) / 3.0;
    return std::clamp(static_cast<int32_t>(std::lround(100.0 - factor)), 1, 100);
}

namespace {

// Transparent pixels become white.
VImage flattenAlpha(const VImage& in) {
    double white = in.format() == VIPS_FORMAT_USHORT ? 65535 : 255;
    return in.has_alpha()
               ? in.flatten(VImage::option()->set("background", std::vector<double>{white}))
               : in;
}

VImage toSrgb8(const VImage& in) {
    VImage out = in;
    if (out.interpretation() != VIPS_INTERPRETATION_sRGB &&
        out.interpretation() != VIPS_INTERPRETATION_B_W)
        out = out.colourspace(VIPS_INTERPRETATION_sRGB);
    if (out.format() != VIPS_FORMAT_UCHAR) out = out.cast(VIPS_FORMAT_UCHAR);
    return out;
}

// The image at its own depth for a format that holds 16 bits a channel: 16-bit images stay so,
// float ones stay float where floatKept (TIFF) and become 16 bits otherwise; 8-bit images and
// the other formats become 8-bit sRGB or grey.
VImage atOwnDepth(const VImage& in, bool floatKept) {
    if (in.format() == VIPS_FORMAT_FLOAT && floatKept) return in;
    if (in.format() == VIPS_FORMAT_USHORT || in.format() == VIPS_FORMAT_FLOAT)
        return workingLayout(in);
    return toSrgb8(in);
}

VImage toGrey(const VImage& in, bool deepKept = false) {
    VImage out = flattenAlpha(deepKept ? atOwnDepth(in, false) : toSrgb8(in));
    if (out.bands() >= 3)
        out = out.colourspace(out.format() == VIPS_FORMAT_USHORT ? VIPS_INTERPRETATION_GREY16
                                                                 : VIPS_INTERPRETATION_B_W);
    return out;
}

// One bit a pixel: grey thresholded at the middle.
VImage toBilevel(const VImage& in) {
    return (toGrey(in) >= 128).ifthenelse(255, 0).cast(VIPS_FORMAT_UCHAR);
}

// TIFF is written black and white with G4 compression and for 1-bit images.
bool bilevelTiff(const SaveOptions& o) {
    return o.tifCompression == 7 || o.bitsPerPixel == 1;
}

VImage toRgb(const VImage& in, bool deepKept = false) {
    return greyToColour(flattenAlpha(deepKept ? atOwnDepth(in, false) : toSrgb8(in)));
}

// GIF transparency: pixels of the chosen colour become transparent.
VImage withTransparentColor(const VImage& in, int32_t color) {
    VImage rgb = toRgb(in);
    Rgb c = unpackColor(color);
    VImage match = (rgb == std::vector<double>{c.r, c.g, c.b}).bandand();
    return rgb.bandjoin(match.ifthenelse(0, 255).cast(VIPS_FORMAT_UCHAR));
}

// The pixels as the format stores them. Depth is kept where the format holds it: 16 bits in
// PNG, PPM, PGM and TIFF (but JPEG and WebP compression), float in TIFF.
VImage prepare(const VImage& in, const FormatDef& f, const SaveOptions& o) {
    switch (f.code) {
    case format::Jpeg:
        return o.jpgGrayscale ? toGrey(in) : flattenAlpha(toSrgb8(in));
    case format::Ppm:
        return toRgb(in, true);
    case format::Pgm:
        return toGrey(in, true);
    case format::Pbm:
        return toBilevel(in);
    case format::Gif:
        return o.gifTransparent ? withTransparentColor(in, o.gifTColor) : toSrgb8(in);
    case format::Ico:
        if (in.width() > 256 || in.height() > 256)
            fail(ErrorCode::FormatNotWritable,
                 "ICO images are at most 256 x 256 pixels; this one is " +
                     std::to_string(in.width()) + " x " + std::to_string(in.height()));
        return toSrgb8(in);
    case format::Tiff: {
        if (bilevelTiff(o)) return toBilevel(in);
        if (o.greyPalette) return toGrey(in);
        bool deepKept = o.tifCompression != 4 && o.tifCompression != 6; // not JPEG or WebP
        return deepKept ? atOwnDepth(in, true) : toSrgb8(in);
    }
    case format::Png:
        return o.greyPalette ? toGrey(in) : atOwnDepth(in, false);
    default:
        return o.greyPalette ? toGrey(in) : toSrgb8(in);
    }
}

constexpr VipsForeignTiffCompression kTiffCompression[] = {
    VIPS_FOREIGN_TIFF_COMPRESSION_NONE,    VIPS_FOREIGN_TIFF_COMPRESSION_LZW,
    VIPS_FOREIGN_TIFF_COMPRESSION_DEFLATE, VIPS_FOREIGN_TIFF_COMPRESSION_PACKBITS,
    VIPS_FOREIGN_TIFF_COMPRESSION_JPEG,    VIPS_FOREIGN_TIFF_COMPRESSION_ZSTD,
    VIPS_FOREIGN_TIFF_COMPRESSION_WEBP,    VIPS_FOREIGN_TIFF_COMPRESSION_CCITTFAX4,
};

vips::VOption* withTiffOptions(vips::VOption* opt, const SaveOptions& o) {
    opt->set("compression", kTiffCompression[o.tifCompression])->set("Q", jpegQuality(o));
    return bilevelTiff(o) ? opt->set("bitdepth", 1) : opt;
}

void write(const VImage& image, const FormatDef& f, const SaveOptions& o, const char* path,
           int pageHeight) {
    auto* opt = VImage::option()->set("strip", !o.keepMetadata);
    if (pageHeight > 0) opt->set("page_height", pageHeight);
    int q = jpegQuality(o);
    // Below 8 bits a palette is the only way to store the reduced depth that reads back as such;
    // 8 bits of colour are a palette too. 8 bits of grey stay grey.
    bool palette =
        o.bitsPerPixel < 8 || (o.bitsPerPixel == 8 && !o.greyPalette && !isGreyLayout(image));
    switch (f.code) {
    case format::Jpeg:
        image.jpegsave(path,
                       opt->set("Q", q)
                           ->set("interlace", o.progressive)
                           ->set("optimize_coding", true)
                           ->set("subsample_mode", o.subSampling == 1 ? VIPS_FOREIGN_SUBSAMPLE_OFF
                                                                      : VIPS_FOREIGN_SUBSAMPLE_ON));
        return;
    case format::Png:
        opt->set("interlace", o.pngInterlaced);
        if (o.bitsPerPixel <= 8) opt->set("palette", palette)->set("bitdepth", o.bitsPerPixel);
        image.pngsave(path, opt);
        return;
    case format::Tiff:
        image.tiffsave(path, withTiffOptions(opt, o));
        return;
    case format::Gif:
        opt->set("dither", o.gifType == 0 ? 1.0 : 0.0)->set("interlace", o.gifInterlaced);
        if (o.bitsPerPixel < 8) opt->set("bitdepth", o.bitsPerPixel);
        image.gifsave(path, opt);
        return;
    case format::Ppm:
    case format::Pgm:
    case format::Pbm: {
        int32_t type = f.code == format::Ppm   ? o.ppmType
                       : f.code == format::Pgm ? o.pgmType
                                               : o.pbmType;
        opt->set("format", std::string(f.saver).c_str())->set("ascii", type == 1);
        if (f.code == format::Pbm) opt->set("bitdepth", 1);
        image.ppmsave(path, opt);
        return;
    }
    case format::WebP:
        image.webpsave(path, opt->set("Q", q));
        return;
    case format::Avif:
        image.heifsave(path, opt->set("Q", q)
                                 ->set("compression", VIPS_FOREIGN_HEIF_COMPRESSION_AV1)
                                 ->set("bitdepth", 8));
        return;
    default:
        opt->set("format", std::string(f.saver).c_str());
        if (o.bitsPerPixel <= 8) opt->set("bitdepth", o.bitsPerPixel);
        image.magicksave(path, opt);
        return;
    }
}

const FormatDef& chooseFormat(const fs::path& native, const std::string& scriptPath, int32_t type) {
    const FormatDef* f = nullptr;
    if (type == format::ByExtension) {
        std::string ext = native.extension().string();
        f = formatByExtension(ext.empty() ? ext : ext.substr(1));
        if (!f)
            fail(ErrorCode::UnknownFormat,
                 "cannot tell the format from the name " + scriptPath + "; set SaveFileType");
    } else {
        f = formatByCode(type);
        if (!f) fail(ErrorCode::ArgumentOutOfRange, "SaveFileType = " + std::to_string(type));
    }
    if (!f->canSave) fail(ErrorCode::FormatNotWritable, std::string(f->name) + ": " + scriptPath);
    return *f;
}

// The pages already in the file, read by the loader of the format the save writes.
VImage pagesOf(const fs::path& file, const FormatDef& f) {
    auto* all = VImage::option()->set("n", -1);
    if (f.code == format::Tiff) return VImage::tiffload(file.c_str(), all);
    if (f.code == format::Gif) return VImage::gifload(file.c_str(), all);
    return VImage::magickload((std::string(f.saver) + ":" + file.string()).c_str(), all);
}

// A page joins a TIFF file as it is written, whatever the size, depth and compression of the
// pages there: the file is copied to temp and the new page's bytes are linked in after its pages,
// which are neither decoded nor written again. False when the file cannot take it that way.
bool appendTiffPage(const VImage& page, const SaveOptions& o, const fs::path& file,
                    const fs::path& temp, const std::string& scriptPath) {
    VipsBlob* blob =
        page.tiffsave_buffer(withTiffOptions(VImage::option()->set("strip", !o.keepMetadata), o));
    size_t size = 0;
    const auto* bytes = static_cast<const char*>(vips_blob_get(blob, &size));
    std::string encoded(bytes, size);
    vips_area_unref(VIPS_AREA(blob));
    std::error_code ec;
    fs::copy_file(file, temp, fs::copy_options::overwrite_existing, ec);
    if (ec) fail(ErrorCode::CannotWrite, scriptPath + " (" + ec.message() + ")");
    return appendTiffPages(temp, std::move(encoded));
}

// Appending a page by libvips: the existing pages and the new one, of one size, become one tall
// image with page-height.
VImage appendPage(const fs::path& file, const FormatDef& f, const VImage& page, int& pageHeight) {
    VImage old = pagesOf(file, f);
    int oldPage =
        old.get_typeof(VIPS_META_PAGE_HEIGHT) ? old.get_int(VIPS_META_PAGE_HEIGHT) : old.height();
    if (old.width() != page.width() || oldPage != page.height())
        fail(ErrorCode::CannotWrite, "a new page must have the size of the pages in " +
                                         file.string() + " (" + std::to_string(old.width()) +
                                         " x " + std::to_string(oldPage) + ")");
    VImage base = toSrgb8(old);
    VImage add = toSrgb8(page);
    if (base.bands() != add.bands()) {
        base = toRgb(base);
        add = toRgb(add);
    }
    pageHeight = oldPage;
    return base.join(add, VIPS_DIRECTION_VERTICAL);
}

} // namespace

// libvips reports a decoder failure during a save in the loader's words.
std::string damageFoundWhileWriting(const std::string& source, const std::string& target) {
    return source + ", found while writing " + target;
}

bool isDecodeFailure(const std::string& message) {
    for (const char* hint :
         {"read error", "load", "Premature", "truncated", "Corrupt", "corrupt", "out of order"})
        if (message.find(hint) != std::string::npos) return true;
    return false;
}

const FormatDef& saveFormat(const std::string& scriptPath, int32_t fileType) {
    return chooseFormat(savePath(scriptPath), scriptPath, fileType);
}

bool appendsPages(const FormatDef& f, const SaveOptions& o, bool targetExists) {
    bool paged = f.code == format::Tiff || f.code == format::Gif || f.code == format::Dcx;
    return o.multiPage && paged && targetExists;
}

struct PendingSave {
    std::string scriptPath;
    const FormatDef* format = nullptr;
    SaveOptions options;
    SaveTarget target;
    fs::path temp;
    bool open = true; // the temporary file is still ours to place or remove
};

std::shared_ptr<PendingSave> beginSave(const std::string& scriptPath, int32_t fileType,
                                       const SaveOptions& o) {
    if (scriptPath.empty()) fail(ErrorCode::CannotWrite, "no save file name is set");
    auto save = std::make_shared<PendingSave>();
    save->scriptPath = scriptPath;
    save->options = o;
    fs::path native = savePath(scriptPath);
    save->format = &chooseFormat(native, scriptPath, fileType);
    save->target = resolveSaveTarget(native, scriptPath);
    save->temp = makeTemp(save->target);
    return save;
}

void writeSave(PendingSave& save, const VImage& image, const std::string& sourceName) {
    const FormatDef& f = *save.format;
    const SaveOptions& o = save.options;
    try {
        VImage ready = prepare(image, f, o);
        bool appending = appendsPages(f, o, save.target.exists);
        if (!appending || f.code != format::Tiff ||
            !appendTiffPage(ready, o, save.target.file, save.temp, save.scriptPath)) {
            int pageHeight = 0;
            if (appending) ready = appendPage(save.target.file, f, ready, pageHeight);
            write(ready, f, o, save.temp.c_str(), pageHeight);
        }
        syncFile(save.temp);
    } catch (const vips::VError& e) {
        abandonSave(save);
        if (!sourceName.empty() && isDecodeFailure(e.what()))
            failFromVips(ErrorCode::DamagedImage,
                         damageFoundWhileWriting(sourceName, save.scriptPath), e);
        failFromVips(ErrorCode::CannotWrite, save.scriptPath, e);
    } catch (...) {
        abandonSave(save);
        throw;
    }
}

void finishSave(PendingSave& save) {
    save.open = false;
    replaceFile(save.temp, save.target, save.scriptPath);
}

const fs::path& fileOf(const PendingSave& save) {
    return save.target.file;
}

void abandonSave(PendingSave& save) {
    if (!std::exchange(save.open, false)) return;
    removeTemp(save.temp);
}

void saveImage(const VImage& image, const std::string& scriptPath, int32_t fileType,
               const SaveOptions& o, const std::string& sourceName) {
    std::shared_ptr<PendingSave> save = beginSave(scriptPath, fileType, o);
    writeSave(*save, image, sourceName);
    finishSave(*save);
}

} // namespace imaging
