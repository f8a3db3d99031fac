// Loading and saving for the imaging control: format detection, size limit, EXIF orientation,
// shrink-on-load, and the atomic save with every format's options.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include <vips/vips8>

#include "imaging/ImagingControl.h"

namespace imaging {

// Images above this many pixels are refused before any pixel is decoded or computed: one
// operation's memory stays bounded.
constexpr int64_t kMaxPixels = 250'000'000;
// Fails with ImageTooLarge, naming the operation and the size, when width x height is above it.
void checkPixelLimit(std::string_view operation, int64_t width, int64_t height);

struct LoadResult {
    vips::VImage image;
    SourceInfo source;
    int32_t bitsPerPixel = 24;
};

// The native path of a file to read (found without regard to case when it does not exist as
// written) and of a file to write (its name exactly as written).
std::filesystem::path diskPath(std::string_view scriptPath);
std::filesystem::path savePath(std::string_view scriptPath);

// Blocks every libvips loader but those of the format table, so that no file reaches the others
// (SVG and PDF renderers, matrix, raw and scientific formats, libvips' own), whatever its name.
void blockOtherLoaders();

// Loads a page (zero-based) of a file, upright. Pixels are decoded lazily.
LoadResult loadImage(const std::string& scriptPath, int32_t page);
int32_t countPages(const std::string& scriptPath);

// For an untouched JPEG of fullWidth x fullHeight (upright) about to be resized to width x
// height: opens the file again, decoded at the largest DCT scale that keeps it at least that
// large, upright. A photo that needs no turning is opened for one top-to-bottom read
// (sequential), so it can stream into the resize and the encoder; a turned one is decoded whole
// at the reduced scale. An empty image when reopening gains nothing.
struct Reopened {
    vips::VImage image;
    int shrink = 1;
    bool sequential = false;
};
Reopened reopenForResize(const SourceInfo& source, int32_t fullWidth, int32_t fullHeight,
                         int32_t width, int32_t height);

int32_t bitsPerPixelOf(const vips::VImage& image);

struct SaveOptions {
    int32_t lumFactor = 10, chromFactor = 10, subSampling = 0;
    bool progressive = false, jpgGrayscale = false, pngInterlaced = false;
    int32_t tifCompression = 1, gifType = 0, ppmType = 0, pgmType = 0, pbmType = 0;
    bool gifInterlaced = false, gifTransparent = false, multiPage = false;
    int32_t gifTColor = 0;
    int32_t bitsPerPixel = 24;
    bool greyPalette = false;
    bool keepMetadata = true;
};

int32_t jpegQuality(const SaveOptions& options);

// The format a save to scriptPath writes (fileType 0: by its extension); fails for names that tell
// none and formats that cannot be written.
const FormatDef& saveFormat(const std::string& scriptPath, int32_t fileType);
// Whether the save adds a page to the existing file instead of replacing it (SaveMultiPage).
bool appendsPages(const FormatDef& format, const SaveOptions& options, bool targetExists);

// Writes the image to a temporary file in the target's folder, flushes it and puts it in the
// target's place, writing through a symbolic link and keeping the replaced file's owner, group,
// mode and hard links; on any failure before that the target is left as it was.
// sourceName names the loaded file in the error when its pixels turn out to be damaged while
// being written (decoding is lazy).
void saveImage(const vips::VImage& image, const std::string& scriptPath, int32_t fileType,
               const SaveOptions& options, const std::string& sourceName = {});

// The same save in three steps, so that the slow middle one can run on another thread: begin
// checks the target and makes the temporary file (fast; its failures are the caller's at
// once), write encodes into it, finish puts it in place; abandon removes it instead.
struct PendingSave;
std::shared_ptr<PendingSave> beginSave(const std::string& scriptPath, int32_t fileType,
                                       const SaveOptions& options);
void writeSave(PendingSave& save, const vips::VImage& image, const std::string& sourceName);
// How a save names a damaged photo it was writing from: "SOURCE, found while writing TARGET".
std::string damageFoundWhileWriting(const std::string& source, const std::string& target);
void finishSave(PendingSave& save);
// The file a pending save will replace or create.
const std::filesystem::path& fileOf(const PendingSave& save);
void abandonSave(PendingSave& save);

// A libvips message on one line, each of its lines once (libvips repeats some).
std::string oneLine(std::string_view message);

// Maps a libvips failure to the control's error, keeping the library's message.
[[noreturn]] void failFromVips(ErrorCode code, const std::string& context, const vips::VError& e);

} // namespace imaging
