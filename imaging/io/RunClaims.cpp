// The claims of a run on its photos and on the files it wrote.
#include "imaging/io/RunClaims.h"

#include "imaging/ImagingError.h"
#include "platform/NativePath.h"

namespace imaging {

namespace fs = std::filesystem;

namespace {

// One key per file however it is reached: symbolic links and "." or ".." resolved, also for a
// file that does not exist yet.
std::string keyOf(const fs::path& native) {
    if (native.empty()) return {};
    std::error_code ec;
    fs::path canonical = fs::weakly_canonical(native, ec);
    return ec ? fs::absolute(native, ec).lexically_normal().string() : canonical.string();
}

} // namespace

void RunClaims::begin(const std::vector<std::string>& sources) {
    m_claims.clear();
    for (const std::string& source : sources) {
        std::string key = keyOf(NativePath::toNative(source));
        m_claims[key] = Claim{key, source, true};
    }
}

void RunClaims::check(const fs::path& target, const std::string& targetName,
                      const std::string& photoFile, bool appending) const {
    std::string key = keyOf(target);
    std::string photo = keyOf(photoFile);
    auto it = m_claims.find(key);
    if (it == m_claims.end() || it->second.photo == photo || key == photo) return;
    const Claim& claim = it->second;
    // The file is a photo of the run: named as a source, or read and saved over by the run.
    if (claim.source || claim.photo == key) {
        bool same = claim.photoName == targetName;
        fail(ErrorCode::CannotWrite, targetName + " is " + (same ? "" : claim.photoName + ", ") +
                                         "another photo of this run");
    }
    if (appending) return;
    std::string owner = claim.photoName.empty() ? "an image not read from a file" : claim.photoName;
    fail(ErrorCode::CannotWrite, targetName + " was already written by this run for " + owner);
}

void RunClaims::claim(const fs::path& target, const std::string& photoFile,
                      const std::string& photoName) {
    std::string key = keyOf(target);
    std::string photo = keyOf(photoFile);
    auto it = m_claims.find(key);
    // A photo of the run stays its own.
    if (it != m_claims.end() && (it->second.source || it->second.photo == key)) return;
    m_claims[key] = Claim{photo, photoName, false};
}

} // namespace imaging
