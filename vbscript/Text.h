// UTF-8 <-> UTF-16 conversion and the case folding used for VBScript names.
#pragma once

#include <string>
#include <string_view>

namespace vbs {

using String = std::u16string;

// Bytes from the system (file names, messages, arguments): each byte that is not part of valid
// UTF-8 becomes the lone surrogate U+DC00 + byte, so toUtf8 gives the same bytes back and a file
// whose name is not UTF-8 can still be named by a script.
String fromUtf8(std::string_view text);
// The inverse of fromUtf8: lone U+DC80..U+DCFF become their byte; other unpaired surrogates
// become U+FFFD.
std::string toUtf8(std::u16string_view text);
// Text files: invalid UTF-8 bytes are taken as Windows-1252 characters, the encoding older
// scripts and data files were written in, so no input is rejected.
String fromUtf8OrCp1252(std::string_view text);

// Simple (one code unit to one code unit) lower-casing, enough for identifiers and
// for LCase/UCase outside the rare multi-unit mappings.
char16_t foldChar(char16_t c);
char16_t upperChar(char16_t c);
String foldCase(std::u16string_view text);
String upperCase(std::u16string_view text);
bool equalsNoCase(std::u16string_view a, std::u16string_view b);

// ASCII-only helper for literals in C++ code: u"..." is usually nicer, this is for std::string.
String fromAscii(std::string_view text);

} // namespace vbs
