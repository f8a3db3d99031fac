// TIFF pages at the byte level: a page's stored depth, and pages appended by relinking the chain
// of image file directories (IFDs). Only classic TIFF (32-bit offsets) is handled.
#include "imaging/io/TiffPages.h"

#include <fstream>
#include <set>

namespace imaging {

namespace fs = std::filesystem;

namespace {

constexpr uint16_t kLong = 4, kIfd = 13;

// Values in the file's byte order ("II" little-endian, "MM" big-endian).
struct Bytes {
    bool big = false;
    uint32_t get(const char* p, int size) const {
        uint32_t v = 0;
        for (int k = 0; k < size; ++k) {
            auto byte = static_cast<unsigned char>(p[big ? k : size - 1 - k]);
            v = v << 8 | byte;
        }
        return v;
    }
    void put32(char* p, uint32_t v) const {
        for (int k = 0; k < 4; ++k)
            p[big ? 3 - k : k] = static_cast<char>(v >> (8 * k) & 0xFF);
    }
};

// The byte order of a classic TIFF header; false for anything else (BigTIFF among them).
bool classicHeader(const char* h, Bytes& order) {
    if (h[0] != h[1] || (h[0] != 'I' && h[0] != 'M')) return false;
    order.big = h[0] == 'M';
    return order.get(h + 2, 2) == 42;
}

int typeSize(uint32_t type) {
    static const int sizes[] = {0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < 14 ? sizes[type] : 0;
}

// Tags whose values are offsets of data (strips, tiles, JPEG tables) or of further IFDs (sub-
// images, EXIF, GPS, interoperability).
bool holdsDataOffsets(uint32_t tag) {
    return tag == 273 || tag == 288 || tag == 324 || (tag >= 513 && tag <= 521 && tag != 514);
}
bool holdsIfdOffsets(uint32_t tag) {
    return tag == 330 || tag == 34665 || tag == 34853 || tag == 40965;
}

// Moves every offset of a TIFF held in memory by `by`, as it will sit that far into a file.
class Relocator {
public:
    Relocator(std::string& tiff, Bytes order, uint32_t by) : m_b(tiff), m_order(order), m_by(by) {}

    // The IFD at `at` and the ones chained after it.
    bool chain(uint32_t at) {
        while (at != 0) {
            if (!m_seen.insert(at).second || uint64_t(at) + 2 > m_b.size()) return false;
            uint32_t count = get(at, 2);
            uint64_t link = uint64_t(at) + 2 + 12 * uint64_t(count);
            if (link + 4 > m_b.size()) return false;
            for (uint32_t k = 0; k < count; ++k)
                if (!entry(at + 2 + 12 * k)) return false;
            at = get(uint32_t(link), 4);
            if (at != 0) put(uint32_t(link), at + m_by);
        }
        return true;
    }

private:
    bool entry(uint32_t at) {
        uint32_t tag = get(at, 2), type = get(at + 2, 2), count = get(at + 4, 4);
        uint64_t bytes = uint64_t(typeSize(type)) * count;
        if (bytes == 0 && count != 0) return false; // a type this code does not know
        uint32_t data = at + 8;
        if (bytes > 4) {
            data = get(at + 8, 4);
            if (data + bytes > m_b.size()) return false;
            put(at + 8, data + m_by);
        }
        bool ifds = holdsIfdOffsets(tag);
        if (!ifds && !holdsDataOffsets(tag)) return true;
        if (type != kLong && type != kIfd) return false; // 16-bit offsets could not move
        for (uint32_t k = 0; k < count; ++k) {
            uint32_t value = get(data + 4 * k, 4);
            if (ifds && !chain(value)) return false;
            put(data + 4 * k, value + m_by);
        }
        return true;
    }

    uint32_t get(uint32_t at, int size) const { return m_order.get(m_b.data() + at, size); }
    void put(uint32_t at, uint32_t v) { m_order.put32(m_b.data() + at, v); }

    std::string& m_b;
    Bytes m_order;
    uint32_t m_by;
    std::set<uint32_t> m_seen;
};

// Random reads of a file.
class Reader {
public:
    explicit Reader(const fs::path& file) : m_in(file, std::ios::binary) {}
    bool read(uint64_t at, char* out, size_t size) {
        m_in.clear();
        m_in.seekg(std::streamoff(at));
        m_in.read(out, std::streamsize(size));
        return bool(m_in);
    }

private:
    std::ifstream m_in;
};

// Finds the IFD of a page (zero-based; -1: where the chain ends). Sets ifd to the page's IFD and
// link to the position of the offset that leads past it.
bool walk(Reader& in, const Bytes& order, int32_t page, uint32_t& ifd, uint32_t& link) {
    char buf[4];
    link = 4;
    if (!in.read(link, buf, 4)) return false;
    ifd = order.get(buf, 4);
    std::set<uint32_t> seen;
    for (int32_t k = 0; ifd != 0; ++k) {
        if (!seen.insert(ifd).second || !in.read(ifd, buf, 2)) return false;
        uint32_t next = ifd + 2 + 12 * order.get(buf, 2);
        if (k == page) return true;
        link = next;
        if (!in.read(link, buf, 4)) return false;
        ifd = order.get(buf, 4);
    }
    return page < 0;
}

} // namespace

int32_t tiffPageBits(const fs::path& file, int32_t page) {
    Reader in(file);
    char h[8];
    Bytes order;
    uint32_t ifd = 0, link = 0;
    if (!in.read(0, h, 8) || !classicHeader(h, order) || !walk(in, order, page, ifd, link))
        return 0;
    uint32_t bits = 1, samples = 1;
    char count[2], e[12];
    if (!in.read(ifd, count, 2)) return 0;
    for (uint32_t k = 0; k < order.get(count, 2); ++k) {
        if (!in.read(ifd + 2 + 12 * k, e, 12)) return 0;
        uint32_t tag = order.get(e, 2), n = order.get(e + 4, 4);
        // BitsPerSample holds one SHORT per sample: inline for up to two, else at an offset.
        char value[2];
        if (tag == 258 && n > 2 && in.read(order.get(e + 8, 4), value, 2))
            bits = order.get(value, 2);
        else if (tag == 258)
            bits = order.get(e + 8, 2);
        if (tag == 277) samples = order.get(e + 8, 2);
    }
    return int32_t(bits * samples);
}

bool appendTiffPages(const fs::path& file, std::string pages) {
    char h[8];
    Bytes order, theirs;
    uint32_t last = 0, link = 0;
    {
        Reader in(file);
        if (!in.read(0, h, 8) || !classicHeader(h, order) || !walk(in, order, -1, last, link))
            return false;
    }
    if (pages.size() < 8 || !classicHeader(pages.data(), theirs) || theirs.big != order.big)
        return false;
    std::error_code ec;
    uint64_t size = fs::file_size(file, ec);
    uint64_t base = (size + 7) / 8 * 8; // IFDs start on a word boundary
    if (ec || base + pages.size() > UINT32_MAX) return false;
    uint32_t first = order.get(pages.data() + 4, 4);
    if (!Relocator(pages, order, uint32_t(base)).chain(first)) return false;
    char to[4];
    order.put32(to, uint32_t(base) + first);
    std::fstream out(file, std::ios::binary | std::ios::in | std::ios::out);
    out.seekp(std::streamoff(size));
    out.write(std::string(base - size, '\0').data(), std::streamsize(base - size));
    out.write(pages.data(), std::streamsize(pages.size()));
    out.seekp(link);
    out.write(to, 4);
    out.flush();
    return bool(out);
}

} // namespace imaging
