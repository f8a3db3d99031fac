// Where a save's bytes go and how the new file takes the old one's place without changing what it
// is: a symbolic link stays a link, the owner, group, mode and other hard links stay.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace imaging {

struct SaveTarget {
    std::filesystem::path file; // the file replaced or created: the target, or where its link leads
    bool exists = false;
    struct stat st {}; // of file, when it exists
    std::filesystem::path folder() const;
};

// Resolves a save to native (the exact path asked for) and refuses what may not be written there:
// a missing folder, a link that leads to no file, a file the user could not write.
SaveTarget resolveSaveTarget(const std::filesystem::path& native, const std::string& scriptPath);

// The name prefix of a save's temporary files.
inline constexpr std::string_view kTempPrefix = ".vantorel-save-";

// A new, empty temporary file in the target's folder, registered for removal on an interrupt.
std::filesystem::path makeTemp(const SaveTarget& target);
void removeTemp(const std::filesystem::path& temp);

// Flushes the complete temporary file to disk.
void syncFile(const std::filesystem::path& temp);

// Puts the complete, flushed temporary file in place of the target's file. It disposes of the
// temporary file on every path: renamed into place, removed, or, when a rewrite in place failed
// half-way, kept and named in the error (it then holds the only complete copy).
void replaceFile(const std::filesystem::path& temp, const SaveTarget& target,
                 const std::string& scriptPath);

} // namespace imaging
