// The imaging control: dispatch of operations and properties, the current image, undo, clipboard.
#include "imaging/ImagingControl.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <mutex>
#include <utility>

#include "imaging/Property.h"
#include "imaging/io/Formats.h"
#include "imaging/io/ImageIo.h"
#include "imaging/ops/ImageHelpers.h"
#include "platform/NativePath.h"

namespace imaging {

using vips::VImage;

void ensureVipsStarted() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (VIPS_INIT("vantorel")) fail(ErrorCode::ProcessingFailed, "libvips failed to start");
        // Files are re-read after being overwritten in place; a cached decode would be stale.
        vips_cache_set_max(0);
        blockOtherLoaders();
        // Failures reach the caller as errors with libvips' message; its warnings would only be
        // noise on a batch's stderr.
        g_log_set_handler(
            "VIPS", G_LOG_LEVEL_WARNING,
            [](const gchar*, GLogLevelFlags, const gchar*, gpointer) {}, nullptr);
    });
}

ImagingControl::ImagingControl() {
    ensureVipsStarted();
    for (const PropertyDef* p : allProperties())
        if (!p->get || !p->set) m_stored[std::string(p->name)] = defaultValue(*p);
}

ImagingControl::~ImagingControl() = default;

// Runs one member: clears the last error, and turns every failure into ImagingError with the
// library's message kept, recording its code for ImagError.
template <class F> void ImagingControl::guarded(std::string_view what, F&& body, bool clearsError) {
    throwSaveFailure();
    if (clearsError) m_lastError = 0;
    // Members nest (setting FileName loads): the outer one is the running one again afterwards.
    struct Running {
        std::string_view& slot;
        std::string_view outer;
        ~Running() { slot = outer; }
    } running{m_running, std::exchange(m_running, what)};
    try {
        body();
    } catch (const DeferredSaveFailure&) {
        throw;
    } catch (const ImagingError& e) {
        // A save still running in the background came first: if it fails, that is the error.
        if (m_saves.busy()) {
            m_saves.drain();
            throwSaveFailure();
        }
        if (e.code() == ErrorCode::ProcessingFailed) failIfJpegDamage(e.detail());
        m_lastError = e.number();
        throw;
    } catch (const vips::VError& e) {
        failIfJpegDamage(e.what());
        std::string message = e.what();
        vips_error_clear();
        while (!message.empty() && message.back() == '\n')
            message.pop_back();
        m_lastError = static_cast<int32_t>(ErrorCode::ProcessingFailed);
        fail(ErrorCode::ProcessingFailed, std::string(what) + " (" + message + ")");
    } catch (const std::bad_alloc&) {
        m_lastError = static_cast<int32_t>(ErrorCode::ProcessingFailed);
        fail(ErrorCode::ProcessingFailed, std::string(what) + " (out of memory)");
    } catch (const std::exception& e) {
        // Anything else a handler lets through still leaves as the control's own error.
        m_lastError = static_cast<int32_t>(ErrorCode::ProcessingFailed);
        fail(ErrorCode::ProcessingFailed, std::string(what) + " (" + e.what() + ")");
    }
}

// Pixels are decoded lazily, so damage libjpeg finds can surface in any member, also through the
// effects' own errors: it is reported as damage of the loaded photo.
void ImagingControl::failIfJpegDamage(std::string_view message) {
    size_t at = message.find("VipsJpeg:");
    if (at == message.npos || m_fileName.empty()) return;
    m_lastError = static_cast<int32_t>(ErrorCode::DamagedImage);
    vips_error_clear();
    fail(ErrorCode::DamagedImage, m_fileName + " (" + oneLine(message.substr(at)) + ")");
}

void ImagingControl::invoke(std::string_view operation, std::span<const Arg> args) {
    if (m_observer) m_observer(operation, args);
    const OperationDef* def = findOperation(operation);
    if (!def) {
        m_lastError = static_cast<int32_t>(ErrorCode::ActionNotSupported);
        fail(ErrorCode::ActionNotSupported, "'" + std::string(operation) + "'");
    }
    guarded(def->name, [&] { runOperation(*def, args); });
}

void ImagingControl::runOperation(const OperationDef& def, std::span<const Arg> args) {
    OpArgs checked(def.name, def.params, args);
    if (def.run) {
        def.run(*this, checked);
        return;
    }
    applyWith(def.apply, checked, def.flags & OpWholeImage);
}

void ImagingControl::applyWith(ApplyFn fn, const OpArgs& args, bool wholeImage) {
    const VImage& in = image();
    OpContext ctx{m_draw, m_area, storedInt("BackColor")};
    if (!m_area.enabled || wholeImage) {
        setImage(fn(in, args, ctx));
        return;
    }
    int x = std::clamp(m_area.x, 0, in.width()), y = std::clamp(m_area.y, 0, in.height());
    int w = std::clamp(m_area.width, 0, in.width() - x),
        h = std::clamp(m_area.height, 0, in.height() - y);
    if (w == 0 || h == 0) return;
    VImage part = fn(in.crop(x, y, w, h), args, ctx);
    VImage base = in;
    // The effect may have changed the pixel layout (a colour on grey, alpha added): the area
    // goes back into an image of the richer layout.
    if (part.bands() != base.bands() || part.format() != base.format()) matchLayouts(base, part);
    setImage(base.insert(part, x, y));
}

const VImage& ImagingControl::image() const {
    if (!m_hasImage) fail(ErrorCode::NoImage, "load a file first");
    if (m_streamed) materialise();
    return m_image;
}

// A streamed pipeline that a save has read is built again from the file before its next read.
void ImagingControl::restreamIfConsumed() const {
    if (!m_consumed) return;
    try {
        m_image = m_restream();
    } catch (const vips::VError& e) {
        failFromVips(ErrorCode::DamagedImage, m_fileName, e);
    }
    m_consumed = false;
}

// Runs a streamed pipeline once into memory; from then on the image is an ordinary one. Only the
// decoder can fail here, so a failure names the file.
void ImagingControl::materialise(const std::string& context) const {
    restreamIfConsumed();
    try {
        m_consumed = true;
        m_image = m_image.copy_memory();
    } catch (const vips::VError& e) {
        failFromVips(ErrorCode::DamagedImage, context.empty() ? m_fileName : context, e);
    }
    m_streamed = false;
    m_consumed = false;
    m_depth = 0;
}

// The image a save reads: a streamed pipeline is read by the save itself.
const VImage& ImagingControl::imageForSave() {
    if (!m_streamed) return image();
    restreamIfConsumed();
    m_consumed = true;
    return m_image;
}

void ImagingControl::setImage(VImage image) {
    // libvips computes nothing until the pixels are read: refused here, an oversized result has
    // cost no memory yet.
    checkPixelLimit(m_running, image.width(), image.height());
    if (m_hasImage && storedBool("UndoEnabled")) {
        m_undo.assign(1, this->image());
        m_undoDepth = m_depth;
    }
    m_image = std::move(image);
    m_streamed = false;
    m_consumed = false;
    m_hasImage = true;
    m_source.untouched = false;
    m_bitsPerPixel = bitsPerPixelOf(m_image);
    m_greyPalette = false;
    keepPipelineShallow();
}

// Every operation adds stages to the lazy pipeline, and each stage holds buffers of its own
// while the pixels are computed (a megabyte or more for a photo): after a few operations the
// image is computed into memory, so memory stays flat however long the chain. The undo snapshot
// then holds the chain down to the previous copy, and lets it go at the next operation. A
// script's usual handful of operations stays one pipeline, computed by the save.
void ImagingControl::keepPipelineShallow() {
    if (++m_depth < kPipelineDepth) return;
    m_depth = 0;
    // A very large image goes to a temporary file instead (deleted when no longer used), as
    // libvips' own loaders do.
    constexpr size_t kMemoryCopyLimit = size_t(256) << 20;
    if (VIPS_IMAGE_SIZEOF_IMAGE(m_image.get_image()) <= kMemoryCopyLimit) {
        m_image = m_image.copy_memory();
        return;
    }
    VImage file = VImage::new_temp_file("%s.v");
    m_image.write(file);
    m_image = file;
}

void ImagingControl::setBitsPerPixel(int32_t bits, bool greyPalette) {
    m_bitsPerPixel = bits;
    m_greyPalette = greyPalette;
}

namespace {

namespace fs = std::filesystem;

// The name a loaded photo goes by, in the "\" form every path of scripts takes: as written,
// unless the file was found only by matching its name without regard to case (a save takes
// names exactly); then the file actually read.
std::string nameOfFileRead(const std::string& written, const std::string& native) {
    std::error_code ec;
    if (fs::equivalent(savePath(written), native, ec)) return NativePath::toBackslash(written);
    return NativePath::toBackslash(native);
}

VImage resizeExactly(const VImage& in, int32_t width, int32_t height, VipsKernel kernel) {
    double hs = double(width) / in.width(), vs = double(height) / in.height();
    VImage out = in.resize(hs, VImage::option()->set("vscale", vs)->set("kernel", kernel));
    if (out.width() != width || out.height() != height)
        out = out.embed(0, 0, width, height, VImage::option()->set("extend", VIPS_EXTEND_COPY));
    return out;
}

} // namespace

void ImagingControl::resizeTo(int32_t width, int32_t height, bool smooth) {
    const VImage& in = image();
    checkPixelLimit(m_running, width, height);
    auto kernel = smooth ? VIPS_KERNEL_LANCZOS3 : VIPS_KERNEL_NEAREST;
    Reopened reopened;
    if (smooth && width <= in.width() && height <= in.height())
        reopened = reopenForResize(m_source, in.width(), in.height(), width, height);
    if (reopened.image.is_null()) {
        setImage(resizeExactly(in, width, height, kernel));
        return;
    }
    VImage out = resizeExactly(reopened.image, width, height, kernel);
    if (!reopened.sequential) {
        // Decoded whole at the reduced scale for the turning: keep only the small result.
        setImage(out.copy_memory());
        return;
    }
    // Taken before setImage replaces the image and marks the source touched.
    SourceInfo source = m_source;
    int32_t fullWidth = in.width(), fullHeight = in.height();
    setImage(out);
    m_streamed = true;
    m_restream = [source, fullWidth, fullHeight, width, height, kernel] {
        return resizeExactly(reopenForResize(source, fullWidth, fullHeight, width, height).image,
                             width, height, kernel);
    };
}

void ImagingControl::copyToClipboard() {
    const VImage& in = image();
    if (m_area.enabled && m_area.width > 0 && m_area.height > 0) {
        int x = std::clamp(m_area.x, 0, in.width() - 1),
            y = std::clamp(m_area.y, 0, in.height() - 1);
        m_clipboard = in.crop(x, y, std::min(m_area.width, in.width() - x),
                              std::min(m_area.height, in.height() - y));
    } else {
        m_clipboard = in;
    }
    m_hasClipboard = true;
}

void ImagingControl::pasteFromClipboard() {
    if (!m_hasClipboard) fail(ErrorCode::NothingToPaste, "copy an image first");
    setImage(m_clipboard);
}

// With nothing kept (no change since the load or the last undo, or UndoEnabled off) undo does
// nothing, as editors do.
void ImagingControl::undo() {
    if (m_undo.empty()) return;
    VImage previous = m_undo.back();
    m_undo.clear();
    m_image = previous;
    m_depth = m_undoDepth;
    m_streamed = false;
    m_consumed = false;
    m_bitsPerPixel = bitsPerPixelOf(m_image);
}

void ImagingControl::recordAdjust(int32_t type, int32_t a, int32_t b, int32_t c, bool rgb) {
    if (rgb) {
        adjust.rgbType = type;
        adjust.red = a, adjust.green = b, adjust.blue = c;
    } else {
        adjust.hue = a, adjust.sat = b, adjust.lum = c;
    }
}

void ImagingControl::setFileName(const std::string& name) {
    guarded("FileName", [&] {
        int32_t page = std::max(storedInt("PageNbr"), 1) - 1;
        // A name taken from a command line may carry the blank before the next switch.
        std::string path = name;
        std::error_code ec;
        std::string trimmed = name.substr(0, name.find_last_not_of(' ') + 1);
        if (trimmed != name && !std::filesystem::exists(diskPath(name), ec) &&
            std::filesystem::exists(diskPath(trimmed), ec))
            path = trimmed;
        // The file may be one a save of this run is still writing.
        m_saves.waitFor(diskPath(path));
        m_undo.clear();
        m_planes.clear();
        m_streamed = false;
        m_consumed = false;
        m_restream = nullptr;
        LoadResult loaded;
        try {
            loaded = loadImage(path, page);
        } catch (...) {
            // A photo that failed to load leaves no image behind: a script going on past the
            // error must not save the previous photo under a name meant for this one.
            m_image = VImage();
            m_hasImage = false;
            m_fileName.clear();
            m_source = SourceInfo();
            throw;
        }
        m_fileName = nameOfFileRead(path, loaded.source.nativePath);
        m_image = loaded.image;
        m_depth = 0;
        m_hasImage = true;
        m_source = loaded.source;
        m_bitsPerPixel = loaded.bitsPerPixel;
        m_greyPalette = false;
    });
}

void ImagingControl::saveFile() {
    guarded("SaveFile", [&] { saveCurrent(); });
}

void ImagingControl::finishRun() {
    m_saves.drain();
    if (auto failure = m_saves.takeFailure()) throw *failure;
}

int32_t ImagingControl::numPages(const std::string& fileName) {
    int32_t pages = 0;
    guarded("NumPages", [&] {
        m_saves.waitFor(diskPath(fileName));
        pages = countPages(fileName);
    });
    return pages;
}

Arg ImagingControl::stored(std::string_view name) const {
    auto it = m_stored.find(name);
    if (it == m_stored.end()) {
        for (const auto& [key, value] : m_stored)
            if (equalsIgnoreCase(key, name)) return value;
        fail(ErrorCode::UnknownProperty, std::string(name));
    }
    return it->second;
}

int32_t ImagingControl::storedInt(std::string_view name) const {
    Arg v = stored(name);
    if (auto* i = std::get_if<int32_t>(&v)) return *i;
    if (auto* b = std::get_if<bool>(&v)) return *b ? -1 : 0;
    if (auto* d = std::get_if<double>(&v)) return static_cast<int32_t>(*d);
    return 0;
}

bool ImagingControl::storedBool(std::string_view name) const {
    return storedInt(name) != 0;
}

void ImagingControl::store(const PropertyDef& def, const Arg& value) {
    m_stored[std::string(def.name)] = value;
}

Arg ImagingControl::property(std::string_view name) {
    const PropertyDef* def = findProperty(name);
    if (!def) fail(ErrorCode::UnknownProperty, std::string(name));
    if (def->access == Access::Write)
        fail(ErrorCode::ReadOnlyProperty, std::string(def->name) + " can only be set");
    Arg result;
    // Reading a property leaves ImagError as the last member that acted set it.
    guarded(
        def->name, [&] { result = def->get ? def->get(*this) : stored(def->name); }, false);
    return result;
}

void ImagingControl::setProperty(std::string_view name, const Arg& value) {
    const PropertyDef* def = findProperty(name);
    if (!def) fail(ErrorCode::UnknownProperty, std::string(name));
    if (def->access == Access::Read) fail(ErrorCode::ReadOnlyProperty, std::string(def->name));
    guarded(def->name, [&] {
        Arg checked = checkedValue(def->name, def->name, def->type, def->min, def->max, value);
        if (def->set)
            def->set(*this, checked);
        else
            store(*def, checked);
    });
}

} // namespace imaging
