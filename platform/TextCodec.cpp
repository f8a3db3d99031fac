// Decoding and encoding of text files: UTF-8 with a Windows-1252 fallback, CR LF line ends.
#include "TextCodec.h"

#include <QStringDecoder>

namespace TextCodec {

namespace {

// Windows-1252 assigns printable characters to most of 0x80-0x9F; the rest is ISO 8859-1.
constexpr char16_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QString fromWindows1252(const QByteArray& bytes) {
    QString out;
    out.reserve(bytes.size());
    for (char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        out.append(QChar(b >= 0x80 && b < 0xA0 ? kHighControls[b - 0x80] : char16_t(b)));
    }
    return out;
}

QString toCrLf(const QString& text) {
    QString out;
    out.reserve(text.size() + text.size() / 32);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'\r') {
            if (i + 1 < text.size() && text.at(i + 1) == u'\n') ++i;
            out.append(u"\r\n");
        } else if (c == u'\n') {
            out.append(u"\r\n");
        } else {
            out.append(c);
        }
    }
    return out;
}

QString decode(const QByteArray& bytes) {
    // Editors on the original platform save "Unicode" text as UTF-16 with a byte-order mark.
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        QStringDecoder utf16(bytes.startsWith("\xFF\xFE") ? QStringDecoder::Utf16LE
                                                          : QStringDecoder::Utf16BE);
        return toCrLf(utf16.decode(bytes.mid(2)));
    }
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (utf8.hasError()) text = fromWindows1252(bytes);
    return toCrLf(text);
}

QByteArray encode(const QString& text) {
    return toCrLf(text).toUtf8();
}

} // namespace TextCodec
