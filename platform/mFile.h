// File utilities: existence tests, path pieces, reading text, listing image files, sizes, opening.
#pragma once

#include <QString>
#include <QStringList>
#include <filesystem>
#include <stdexcept>

// Paths here are in the "\" form (either separator is accepted; a leading "~\" is the home
// folder). Path pieces are computed on the text; whatever touches the disk goes through toDisk().
namespace mFile {

// The path with a trailing "\" ensured ("" becomes "\").
QString AddBackslash(const QString& path);

// True when the folder or file exists; never an error.
bool FolderExists(const QString& path);
bool FileExists(const QString& path);

// The whole text of a file (UTF-8 or Windows-1252, CR LF line ends); "" when it cannot be read.
QString ReadFile(const QString& path);

// Part 1: the folder part, up to and including the last "\"; part 2: the file-name part after it.
// A path without a separator has an empty folder part. Any other part number shows the 0026
// error box and returns "".
QString GetPathPart(const QString& path, int part);

// The text after the last "." of the file name, scanning from the end; the scan stops at ":", "\"
// or "/", so a path without an extension yields "".
QString GetExtension(const QString& path);

// How a folder walk treats links and names, and what it left out.
struct Enumeration {
    // Links to folders are left out (and listed in folderLinks) unless followed; a folder
    // reached twice is listed once either way, so link cycles end.
    bool followLinks = false;
    QStringList folderLinks; // links to folders that were not followed
    // Entries whose name holds "\", which the "\" form cannot express, as "name" in folder.
    QStringList unnameable;
};

// Full paths of the normal files in folder matching the ";"-separated patterns: grouped by
// pattern (a file matching two patterns is listed twice), then, with includeSubfolders, each
// subfolder depth-first after the folder's own files. A link to a file counts as that file;
// other special files (pipes, devices, sockets) are left out.
QStringList EnumerateFiles(const QString& folder, const QString& patterns, bool includeSubfolders,
                           Enumeration* walk = nullptr);

// The file's size in Bytes (level 0), KB, MB, GB or TB (levels 1-4); 0 for a missing file.
// grouped formats with thousands separators, no decimals for Bytes and KB, two for larger units.
QString FormatFileSize(const QString& path, int unitLevel, bool grouped);

// A failure of ShellOpen: the shell's result code, its message and where it came from.
class ShellError : public std::runtime_error {
public:
    ShellError(int code, const QString& description);
    int code;
    QString description;
    QString source; // the application's name + ".GShell"
};

// Opens a document with the desktop's default application (xdg-open), or starts it as a program
// when its name contains ".EXE" (in any case). Throws ShellError when that fails.
void ShellOpen(const QString& document, const QString& parameters = {},
               const QString& workingFolder = {});

// The message for a shell result code from 0 to 32.
QString shellErrorMessage(int code);

// --- helpers of this module used elsewhere ---

// The native path for a "\"-form path. When the path does not exist as written it is matched
// without regard to case, and then with trailing blanks and dots of its components dropped, as
// the file system the scripts were written for ignores them ("a.jpg " names "a.jpg", and a file
// created as "b.jpg " is named "b.jpg").
std::filesystem::path toDisk(const QString& path);

// Windows-style wildcard match ("*", "?"), without regard to case; "*.*" matches every name.
bool matchesPattern(const QString& name, const QString& pattern);

// Writes text as UTF-8 with CR LF line ends, through a temporary file renamed over the target,
// so a failed write leaves the old file as it was.
bool writeTextFile(const QString& path, const QString& text);

// The program folder, holding data and scripts: the executable's own folder in a build tree,
// <prefix>\share\vantorel once installed. In the "\" form, without a trailing "\".
QString programFolder();

} // namespace mFile
