// Text conventions: how files become text and text becomes files or script engine input.
#pragma once

#include <QByteArray>
#include <QString>
#include <string>
#include <string_view>

namespace TextCodec {

// Bytes read from a text file: UTF-8 (a leading byte-order mark dropped); when the bytes are not
// valid UTF-8 they are taken as Windows-1252, the encoding older scripts and command files were
// written in; UTF-16 with a byte-order mark is read as well. Line ends are normalised to CR LF (a
// lone LF or a lone CR counts as one line end).
QString decode(const QByteArray& bytes);

// Text to be written to a file: UTF-8 without byte-order mark, line ends normalised to CR LF.
QByteArray encode(const QString& text);

// Every CR LF, lone LF and lone CR becomes CR LF.
QString toCrLf(const QString& text);

// Windows-1252 to Unicode; the five undefined bytes map to the C1 control of the same value.
QString fromWindows1252(const QByteArray& bytes);

// The script engine works on UTF-16 code units; these are the crossings at its boundary.
inline std::u16string toScriptText(const QString& text) {
    return text.toStdU16String();
}
inline QString fromScriptText(std::u16string_view text) {
    return QString::fromUtf16(text.data(), qsizetype(text.size()));
}

// File names are bytes; Linux allows any byte but "/" and NUL, UTF-8 or not. A byte that is not
// part of valid UTF-8 becomes the lone surrogate U+DC00 + byte (as the script engine does), so a
// name goes to text and back to the same bytes and a photo with such a name can be processed.
QString fromNativeName(std::string_view bytes);
std::string toNativeName(const QString& text);

// Text for a terminal or log: UTF-8, with the bytes of a name that were not UTF-8 shown as
// "\xNN" instead of being sent raw.
QByteArray forDisplay(const QString& text);

} // namespace TextCodec
