// TextStream: reading UTF-8 (Windows-1252 where bytes are not UTF-8, UTF-16 with a BOM) and
// writing UTF-8 with CR LF line ends.
#include "FileObjects.h"
#include "LibSupport.h"

#include <fstream>
#include <iterator>

namespace vbs::lib {

namespace {

String decodeText(const std::string& bytes) {
    if (bytes.size() >= 2 && uint8_t(bytes[0]) == 0xFF && uint8_t(bytes[1]) == 0xFE) {
        String out;
        for (size_t i = 2; i + 1 < bytes.size(); i += 2)
            out += char16_t(uint8_t(bytes[i]) | (uint8_t(bytes[i + 1]) << 8));
        return out;
    }
    const bool bom = bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0;
    return fromUtf8OrCp1252(std::string_view(bytes).substr(bom ? 3 : 0));
}

class TextStream : public TableDispatch<TextStream> {
public:
    TextStream(const fs::path& native, IoMode mode) : m_mode(mode) {
        if (mode == IoMode::Reading) {
            std::ifstream in(native, std::ios::binary);
            if (!in) raise(ErrorCode::FileNotFound);
            m_text = decodeText(std::string(std::istreambuf_iterator<char>(in), {}));
        } else {
            const auto flags =
                std::ios::binary | (mode == IoMode::Appending ? std::ios::app : std::ios::trunc);
            m_out.open(native, flags);
            if (!m_out) raise(ErrorCode::PermissionDenied);
        }
    }

    String typeName() const override { return u"TextStream"; }
    static std::span<const Member<TextStream>> members() {
        static const Member<TextStream> table[] = {
            {u"ReadLine", 0, 0, &TextStream::readLine, nullptr},
            {u"ReadAll", 0, 0, &TextStream::readAll, nullptr},
            {u"Read", 1, 1, &TextStream::read, nullptr},
            {u"SkipLine", 0, 0, &TextStream::skipLine, nullptr},
            {u"AtEndOfStream", 0, 0, &TextStream::atEndOfStream, nullptr},
            {u"AtEndOfLine", 0, 0, &TextStream::atEndOfLine, nullptr},
            {u"Line", 0, 0, &TextStream::line, nullptr},
            {u"Write", 1, 1, &TextStream::write, nullptr},
            {u"WriteLine", 0, 1, &TextStream::writeLine, nullptr},
            {u"WriteBlankLines", 1, 1, &TextStream::writeBlankLines, nullptr},
            {u"Close", 0, 0, &TextStream::close, nullptr},
        };
        return table;
    }

    Value readLine(Args) {
        requireReading();
        if (m_pos >= m_text.size()) raise(ErrorCode::InputPastEndOfFile);
        size_t end = m_pos;
        while (end < m_text.size() && m_text[end] != u'\n' && m_text[end] != u'\r')
            ++end;
        String lineText = m_text.substr(m_pos, end - m_pos);
        m_pos = end;
        skipLineEnd();
        return Value(std::move(lineText));
    }

    Value readAll(Args) {
        requireReading();
        if (m_pos >= m_text.size()) raise(ErrorCode::InputPastEndOfFile);
        String rest = m_text.substr(m_pos);
        for (char16_t c : rest)
            m_line += c == u'\n';
        m_pos = m_text.size();
        return Value(std::move(rest));
    }

    Value read(Args a) {
        requireReading();
        const int32_t n = a[0]->toLong();
        if (n < 0) invalidCall();
        if (m_pos >= m_text.size()) raise(ErrorCode::InputPastEndOfFile);
        String part = m_text.substr(m_pos, size_t(n));
        for (char16_t c : part)
            m_line += c == u'\n';
        m_pos += part.size();
        return Value(std::move(part));
    }

    Value skipLine(Args) {
        readLine({});
        return Value();
    }

    Value atEndOfStream(Args) {
        requireReading();
        return Value(m_pos >= m_text.size());
    }

    Value atEndOfLine(Args) {
        requireReading();
        return Value(m_pos >= m_text.size() || m_text[m_pos] == u'\r' || m_text[m_pos] == u'\n');
    }

    Value line(Args) { return Value(int32_t(m_line)); }

    Value write(Args a) {
        put(a[0]->toString());
        return Value();
    }

    Value writeLine(Args a) {
        put((given(a, 0) ? a[0]->toString() : String()) + u"\r\n");
        return Value();
    }

    Value writeBlankLines(Args a) {
        const int32_t n = a[0]->toLong();
        if (n < 0) invalidCall();
        String lines;
        for (int32_t i = 0; i < n; ++i)
            lines += u"\r\n";
        put(lines);
        return Value();
    }

    Value close(Args) {
        if (m_out.is_open()) m_out.close();
        m_closed = true;
        return Value();
    }

private:
    void requireReading() const {
        if (m_closed || m_mode != IoMode::Reading) raise(ErrorCode::BadFileMode);
    }

    void put(const String& text) {
        if (m_closed || m_mode == IoMode::Reading) raise(ErrorCode::BadFileMode);
        for (char16_t c : text)
            m_line += c == u'\n';
        m_out << toUtf8(text);
        if (!m_out) raise(ErrorCode::DeviceIoError);
    }

    void skipLineEnd() {
        if (m_pos < m_text.size() && m_text[m_pos] == u'\r') ++m_pos;
        if (m_pos < m_text.size() && m_text[m_pos] == u'\n') ++m_pos;
        ++m_line;
    }

    IoMode m_mode;
    String m_text;
    size_t m_pos = 0;
    long m_line = 1;
    bool m_closed = false;
    std::ofstream m_out;
};

} // namespace

Ref<Dispatch> openTextStream(const fs::path& native, IoMode mode) {
    return makeRef<TextStream>(native, mode);
}

} // namespace vbs::lib
