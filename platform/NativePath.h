// Maps the system's "\" path form to native paths and back; no Qt, used by every layer.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace NativePath {

// Turns a path written with "\" (or "/") separators into a native path. A leading "~\" is the
// user's home folder. When the path does not exist as written, each component is matched without
// regard to case (scripts written for case-insensitive file systems rely on it); components that
// still cannot be found are kept as written, so the result can name a file about to be created.
std::filesystem::path toNative(std::string_view path);

// The "\" form of a native path, as scripts and command lines see it.
std::string toBackslash(const std::filesystem::path& path);

} // namespace NativePath

namespace NativePath {

// The native path of a file about to be written. Folders are found as toNative finds them (an
// existing folder is only looked up), but the file name is kept exactly as written, so that a
// save never replaces an unrelated file whose name differs only in case.
std::filesystem::path toNativeForWrite(std::string_view path);

} // namespace NativePath
