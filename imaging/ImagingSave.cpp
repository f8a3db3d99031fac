// Saving the current image: the checks of a save, and the background saves that let the
// encode of one photo overlap the work on the next.
#include <filesystem>
#include <sys/stat.h>
#include <utility>

#include "imaging/ImagingControl.h"
#include "imaging/io/ImageIo.h"

namespace imaging {

namespace fs = std::filesystem;
using vips::VImage;

namespace {

// The target exists and was written after the photo was (to the nanosecond the file system keeps).
bool newerThan(const fs::path& target, const std::string& photo) {
    struct stat t {
    }, p{};
    if (photo.empty() || ::stat(target.c_str(), &t) != 0 || ::stat(photo.c_str(), &p) != 0)
        return false;
    if (t.st_mtim.tv_sec != p.st_mtim.tv_sec) return t.st_mtim.tv_sec > p.st_mtim.tv_sec;
    return t.st_mtim.tv_nsec > p.st_mtim.tv_nsec;
}

} // namespace

SaveOptions ImagingControl::saveOptions() const {
    SaveOptions o;
    o.lumFactor = storedInt("SaveJPGLumFactor");
    o.chromFactor = storedInt("SaveJPGChromFactor");
    o.subSampling = storedInt("SaveJPGSubSampling");
    o.progressive = storedBool("SaveJPGProgressive");
    o.jpgGrayscale = storedBool("SaveJPGGrayscale");
    o.pngInterlaced = storedBool("SavePNGInterlaced");
    o.tifCompression = storedInt("SaveTIFCompression");
    o.gifType = storedInt("SaveGIFType");
    o.gifInterlaced = storedBool("SaveGIFInterlaced");
    o.gifTransparent = storedBool("SaveGIFTransparent");
    o.gifTColor = storedInt("SaveGIFTColor");
    o.ppmType = storedInt("SavePPMType");
    o.pgmType = storedInt("SavePGMType");
    o.pbmType = storedInt("SavePBMType");
    o.multiPage = storedBool("SaveMultiPage");
    o.keepMetadata = storedBool("KeepMetadata");
    o.bitsPerPixel = m_bitsPerPixel;
    o.greyPalette = m_greyPalette;
    return o;
}

// Saving over the photo being read. A file of several pages would keep only the loaded one, so
// that is refused unless the save adds a page. Otherwise the photo is decoded fully first, so
// that nothing reads the file again after it has been replaced.
void ImagingControl::prepareInPlace(const std::string& target, bool appending) {
    if (m_source.pages > 1 && !appending)
        fail(ErrorCode::CannotWrite, "saving over " + target + " would keep only page " +
                                         std::to_string(m_source.page + 1) + " of its " +
                                         std::to_string(m_source.pages) +
                                         " pages; save under another name");
    const VImage& whole = image();
    try {
        m_image = whole.copy_memory();
        m_depth = 0;
    } catch (const vips::VError& e) {
        failFromVips(ErrorCode::DamagedImage, m_fileName, e);
    }
}

void ImagingControl::setSavesInFlight(int inFlight) {
    m_saves.reset();
    m_saves.setLimit(inFlight);
}

void ImagingControl::beginRun(const std::vector<std::string>& sources, const RunOptions& options) {
    m_claims.begin(sources);
    m_saves.reset();
    m_saves.setLimit(options.savesInFlight);
    m_skipNewer = options.skipNewer;
    m_skippedSaves = 0;
}

std::optional<uint64_t> ImagingControl::takeSaveTicket() {
    return std::exchange(m_lastTicket, std::nullopt);
}

void ImagingControl::throwSaveFailure() {
    if (auto failure = m_saves.takeFailure()) {
        m_lastError = failure->number();
        throw *failure;
    }
}

void ImagingControl::saveCurrent() {
    if (!m_hasImage) fail(ErrorCode::NoImage, "load a file first");
    std::string target = std::get<std::string>(stored("SaveFileName"));
    SaveOptions o = saveOptions();
    fs::path native = savePath(target);
    // What is there decides how the save goes (a page added, a file replaced): an earlier save of
    // this run still writing it must be done first.
    m_saves.waitFor(native);
    std::error_code ec;
    bool appending = !target.empty() && appendsPages(saveFormat(target, storedInt("SaveFileType")),
                                                     o, fs::exists(native, ec));
    m_claims.check(native, target, m_source.nativePath, appending);
    if (m_skipNewer && newerThan(native, m_source.nativePath)) {
        ++m_skippedSaves;
        return;
    }
    // A page is added to what the earlier saves wrote: they must be in place first.
    if (appending) m_saves.drain();
    if (!m_source.nativePath.empty() && fs::equivalent(m_source.nativePath, native, ec))
        prepareInPlace(target, appending);
    if (m_saves.limit() > 1 && !appending)
        saveInBackground(target, o);
    else
        saveHere(target, o);
    m_claims.claim(native, m_source.nativePath, m_fileName);
}

void ImagingControl::saveHere(const std::string& target, const SaveOptions& o) {
    bool streamed = m_streamed;
    try {
        saveImage(imageForSave(), target, storedInt("SaveFileType"), o, m_fileName);
    } catch (const ImagingError& e) {
        // A streamed save fails alike for a damaged photo and for the target; decoding the
        // photo alone tells which, and damage is reported as when the save names it itself
        // (libvips keeps one error text for all threads, so the save's own text may have lost
        // the decoder's words).
        if (streamed && e.code() != ErrorCode::DamagedImage)
            materialise(damageFoundWhileWriting(m_fileName, target));
        throw;
    }
}

// The checks and the temporary file are made here, so that their failures come at this
// statement; the encoding and the write run on a worker. The image handed over is a pipeline
// that nothing else reads: a streamed one is marked read, an in-memory one is shared read-only.
void ImagingControl::saveInBackground(const std::string& target, const SaveOptions& o) {
    std::shared_ptr<PendingSave> pending = beginSave(target, storedInt("SaveFileType"), o);
    const bool streamed = m_streamed;
    VImage image = imageForSave();
    std::string fileName = m_fileName;
    std::function<VImage()> restream = m_restream;
    SaveQueue::Job job;
    job.file = fileOf(*pending);
    job.write = [pending, image, fileName, target, streamed, restream] {
        try {
            writeSave(*pending, image, fileName);
        } catch (const ImagingError& e) {
            if (!streamed || e.code() == ErrorCode::DamagedImage || !restream) throw;
            // As saveHere: the photo decoded alone tells whether it is the one at fault.
            try {
                (void)restream().copy_memory();
            } catch (const vips::VError& decode) {
                failFromVips(ErrorCode::DamagedImage, damageFoundWhileWriting(fileName, target),
                             decode);
            }
            throw;
        }
    };
    job.commit = [pending] { finishSave(*pending); };
    job.drop = [pending] { abandonSave(*pending); };
    m_lastTicket = m_saves.submit(std::move(job));
}

} // namespace imaging
