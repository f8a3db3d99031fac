// The imaging control: a current image with its file, save settings, drawing state, processing
// area, undo and clipboard, on libvips. Members are named after the fx members they serve.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <vips/vips8>

#include "imaging/ImagingError.h"
#include "imaging/Operation.h"
#include "imaging/io/RunClaims.h"
#include "imaging/io/SaveQueue.h"

namespace imaging {

struct PropertyDef;
struct FormatDef;
struct SaveOptions;

// Where the current image came from, kept while it is untouched so that a first resize down can
// decode a JPEG at a reduced scale instead of at full size.
struct SourceInfo {
    std::string nativePath;
    const FormatDef* format = nullptr;
    int64_t fileSize = 0;
    int32_t pages = 0;
    int32_t page = 0;        // zero-based page that was loaded
    int32_t orientation = 1; // EXIF orientation of the file (already applied to the image)
    bool untouched = false;  // no operation has changed the image since it was loaded
};

class ImagingControl {
public:
    ImagingControl();
    ~ImagingControl();
    ImagingControl(const ImagingControl&) = delete;
    ImagingControl& operator=(const ImagingControl&) = delete;

    // Calls an operation of the control by name (case-insensitive). An unknown name raises
    // ActionNotSupported naming the operation. Arguments are checked against the operation's
    // declaration (count, type, range) and defaults are filled in.
    void invoke(std::string_view operation, std::span<const Arg> args = {});

    // Sees every operation call by name with its arguments as given, before they are checked
    // (tracing, and tests of the argument order callers use).
    using InvokeObserver = std::function<void(std::string_view, std::span<const Arg>)>;
    void setInvokeObserver(InvokeObserver observer) { m_observer = std::move(observer); }

    // Properties by name (case-insensitive), as declared in the property table.
    Arg property(std::string_view name);
    void setProperty(std::string_view name, const Arg& value);

    // Files. Assigning the file name loads it (PageNbr selects the page). The file name reads
    // back in the "\" form, as written, or, when the file was found only by matching its name
    // without regard to case, as the file actually read, so that saving under it replaces that
    // file.
    void setFileName(const std::string& name);
    const std::string& fileName() const { return m_fileName; }
    // Writes the image to SaveFileName. Refused: a file that is another photo of the run or was
    // written by the run for another photo (see RunClaims), and saving over a file of several
    // pages, which would keep only the loaded one.
    void saveFile();
    // How a run saves: how many saves may run beside the script at once (1: each save is done
    // before SaveFile returns), and whether a photo whose target exists and is newer than the
    // photo is skipped (an interrupted or repeated run then does only what is left).
    struct RunOptions {
        int savesInFlight = 1;
        bool skipNewer = false;
    };
    // Starts a run over these photos ("\" form): forgets the previous run's claims and claims
    // each photo for itself. Without it, files written still stay with the photo they were
    // written for, for the life of the control.
    void beginRun(const std::vector<std::string>& sources, const RunOptions& options);
    void beginRun(const std::vector<std::string>& sources) { beginRun(sources, RunOptions{}); }
    void setSavesInFlight(int inFlight);
    // The ticket of the save SaveFile just handed to the background, once (a failure of that save
    // is reported later as a DeferredSaveFailure carrying it).
    std::optional<uint64_t> takeSaveTicket();
    // Waits for the background saves; throws the first failure not yet reported.
    void finishRun();
    // Saves skipped by the run because their target was newer than the photo.
    int skippedSaves() const { return m_skippedSaves; }
    int32_t numPages(const std::string& fileName);

    // The current image. setImage records the undo snapshot and marks the image changed.
    // width() and height() read 0 without an image.
    bool hasImage() const { return m_hasImage; }
    const vips::VImage& image() const;
    int32_t width() const { return m_hasImage ? m_image.width() : 0; }
    int32_t height() const { return m_hasImage ? m_image.height() : 0; }
    // Whether the image is still a one-pass pipeline from its file (see resizeTo).
    bool isStreamed() const { return m_streamed; }
    void setImage(vips::VImage image);
    // Replaces the image by a resized one; uses shrink-on-load when the image is an untouched JPEG.
    void resizeTo(int32_t width, int32_t height, bool smooth);

    // Applies an image-to-image function to the image, or to the processing area when it is on
    // and the function is area-aware. Operations with a RunFn use it after their own work.
    void applyWith(ApplyFn fn, const OpArgs& args, bool wholeImage = false);

    // Clipboard and undo (the control's own; one level of undo).
    void copyToClipboard();
    void pasteFromClipboard();
    void undo();
    const vips::VImage* clipboardImage() const { return m_hasClipboard ? &m_clipboard : nullptr; }

    // Colour separation: prepare the planes of a kind, then make one of them the image.
    void separate(int32_t kind);
    void selectSeparatedPlane(int32_t plane);

    // Logical bits per pixel of the current image (ColorDepth lowers it; savers honour it).
    int32_t bitsPerPixel() const { return m_bitsPerPixel; }
    void setBitsPerPixel(int32_t bits, bool greyPalette);
    bool greyPalette() const { return m_greyPalette; }
    int32_t uniqueColors();

    DrawState& drawState() { return m_draw; }
    AreaState& area() { return m_area; }
    const SourceInfo& source() const { return m_source; }
    int32_t lastError() const { return m_lastError; }
    void setLastError(int32_t code) { m_lastError = code; }
    void recordAdjust(int32_t type, int32_t a, int32_t b, int32_t c, bool rgb);

    // Stored property values (save options, printer settings, ...) by declared name.
    Arg stored(std::string_view name) const;
    int32_t storedInt(std::string_view name) const;
    bool storedBool(std::string_view name) const;
    void store(const PropertyDef& def, const Arg& value);

    // Read-backs of the last colour adjustment.
    struct AdjustState {
        int32_t red = 0, green = 0, blue = 0, rgbType = 0, hue = 0, sat = 0, lum = 0;
    } adjust;

private:
    template <class F> void guarded(std::string_view what, F&& body, bool clearsError = true);
    void failIfJpegDamage(std::string_view message);
    void runOperation(const OperationDef& def, std::span<const Arg> args);
    // context names the photo in a DamagedImage error (the photo's own name when empty).
    void materialise(const std::string& context = {}) const;
    void keepPipelineShallow();
    void restreamIfConsumed() const;
    const vips::VImage& imageForSave();
    SaveOptions saveOptions() const;
    void prepareInPlace(const std::string& target, bool appending);
    void saveCurrent();
    void saveHere(const std::string& target, const SaveOptions& o);
    void saveInBackground(const std::string& target, const SaveOptions& o);
    void throwSaveFailure();

    std::string m_fileName;
    // A resize of an untouched JPEG leaves m_image as a pipeline that decodes the file
    // sequentially (at a reduced scale when that is enough) and resizes it (m_streamed): a save
    // then decodes, resizes and encodes in one pass, decoding and encoding overlapping on two
    // cores. Such a pipeline can be read only once, top to bottom. Whatever else needs the
    // pixels gets them through image(), which first keeps the small result in memory; once a
    // save has read the pipeline (m_consumed), m_restream builds it again from the file.
    mutable vips::VImage m_image;
    // Operations m_image holds as lazy stages above its last copy in memory (or its file).
    static constexpr int32_t kPipelineDepth = 8;
    mutable int32_t m_depth = 0;
    int32_t m_undoDepth = 0;
    mutable bool m_streamed = false;
    mutable bool m_consumed = false;
    std::function<vips::VImage()> m_restream;
    bool m_hasImage = false;
    SourceInfo m_source;
    std::vector<vips::VImage> m_undo;
    vips::VImage m_clipboard;
    bool m_hasClipboard = false;
    std::vector<vips::VImage> m_planes;
    int32_t m_bitsPerPixel = 0;
    bool m_greyPalette = false;
    int32_t m_lastError = 0;
    DrawState m_draw;
    AreaState m_area;
    std::map<std::string, Arg, std::less<>> m_stored; // keyed by declared name
    InvokeObserver m_observer;
    RunClaims m_claims;
    SaveQueue m_saves;
    std::optional<uint64_t> m_lastTicket;
    bool m_skipNewer = false;
    int m_skippedSaves = 0;
    std::string_view m_running; // the member being run, for errors raised deep inside it
};

// Starts libvips once per process (thread-safe); the control calls it itself.
void ensureVipsStarted();

} // namespace imaging
