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

namespace {

// Length of the UTF-8 sequence a lead byte starts; 0 for a byte that cannot start one.
qsizetype sequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if ((lead & 0xE0) == 0xC0) return 2;
    if ((lead & 0xF0) == 0xE0) return 3;
    if ((lead & 0xF8) == 0xF0) return 4;
    return 0;
}

bool isEscapedByte(const QString& text, qsizetype i) {
    const char16_t c = text.at(i).unicode();
    return c >= 0xDC80 && c < 0xDD00 && (i == 0 || !text.at(i - 1).isHighSurrogate());
}

// The text with every escaped byte handed to `escaped` and every other run to `plain`.
template <class Plain, class Escaped>
void splitEscapes(const QString& text, Plain plain, Escaped escaped) {
    qsizetype start = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!isEscapedByte(text, i)) continue;
        plain(QStringView(text).mid(start, i - start));
        escaped(static_cast<unsigned char>(text.at(i).unicode() - 0xDC00));
        start = i + 1;
    }
    plain(QStringView(text).mid(start));
}

} // namespace

QString fromNativeName(std::string_view bytes) {
    const QString whole = QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
    if (!whole.contains(QChar::ReplacementCharacter)) return whole;
    // Rare: some bytes are not UTF-8 (or the name holds U+FFFD itself); go sequence by sequence.
    QString out;
    for (size_t i = 0; i < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        const qsizetype n = sequenceLength(lead);
        if (n > 0 && i + size_t(n) <= bytes.size()) {
            const QByteArray piece(bytes.data() + i, n);
            const QString decoded = QString::fromUtf8(piece);
            if (decoded.toUtf8() == piece) {
                out += decoded;
                i += size_t(n);
                continue;
            }
        }
        out += QChar(char16_t(0xDC00 + lead));
        ++i;
    }
    return out;
}

std::string toNativeName(const QString& text) {
    std::string out;
    splitEscapes(
        text, [&](QStringView run) { out += run.toUtf8().toStdString(); },
        [&](unsigned char byte) { out += char(byte); });
    return out;
}

QByteArray forDisplay(const QString& text) {
    QByteArray out;
    splitEscapes(
        text, [&](QStringView run) { out += run.toUtf8(); },
        [&](unsigned char byte) {
            out += QByteArray("\\x") + QByteArray::number(byte, 16).toUpper();
        });
    return out;
}

} // namespace TextCodec
