// Which photo of a run each file belongs to, so that no save writes over another photo of the run
// or over what the run already wrote for another photo.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace imaging {

class RunClaims {
public:
    // Forgets every claim and claims each source (in the "\" form) for itself.
    void begin(const std::vector<std::string>& sources);

    // Refuses (CannotWrite) a save to target (native, exact) for the photo read from photoFile
    // (native; empty when the image was not loaded from a file) when the target is another photo
    // of the run, or was written by this run for another photo. Appending a page (SaveMultiPage)
    // to a file written for another photo is what that option is for, so it passes; a file that
    // is itself another photo of the run never does. A target that is the photo's own file passes.
    void check(const std::filesystem::path& target, const std::string& targetName,
               const std::string& photoFile, bool appending) const;

    // Records that target was written for the photo read from photoFile (named photoName).
    void claim(const std::filesystem::path& target, const std::string& photoFile,
               const std::string& photoName);

private:
    struct Claim {
        std::string photo;     // key of the photo the file belongs to or was written for
        std::string photoName; // that photo as the run names it
        bool source = false;   // the file is itself a photo of the run
    };
    std::map<std::string, Claim> m_claims; // by canonical native path, links resolved
};

} // namespace imaging
