// Scripting.FileSystemObject and the objects it hands out (File, Folder, their collections,
// TextStream). Script-visible paths use the "\" form; the disk is reached through NativePath.
#pragma once

#include "vbscript/Object.h"
#include "vbscript/Value.h"

#include <filesystem>
#include <string>

namespace vbs::lib {

Ref<Dispatch> createFileSystemObject();

namespace fs = std::filesystem;

// Script path ("\" or "/" separators, "~\" home, any case) to the native path.
fs::path nativeOf(const String& scriptPath);
// Native path to the absolute "\" form scripts see.
String scriptPathOf(const fs::path& native);

// Raises the VBScript error for a failed file operation (53, 58, 70, 75, 76).
[[noreturn]] void raiseFileError(const std::error_code& ec, ErrorCode fallback);

// CopyFile/MoveFile of one file: a destination ending in a separator or naming a folder (or any
// destination when several files go) receives the file under its own name. Returns the target.
fs::path copyOneFile(const fs::path& file, const String& destination, bool intoFolder,
                     bool overwrite);
fs::path moveOneFile(const fs::path& file, const String& destination, bool intoFolder);

Ref<Dispatch> makeFile(const fs::path& native);
Ref<Dispatch> makeFolder(const fs::path& native);

// TextStream over a file: mode 1 reading, 2 writing (truncates), 8 appending.
enum class IoMode { Reading = 1, Writing = 2, Appending = 8 };
Ref<Dispatch> openTextStream(const fs::path& native, IoMode mode);

// The file's times as local OLE dates.
double modifiedDate(const fs::path& native);
double createdDate(const fs::path& native);

} // namespace vbs::lib
