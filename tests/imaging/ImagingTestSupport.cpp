// Test helpers shared by the imaging and effects tests.
#include "ImagingTestSupport.h"

#include <algorithm>
#include <fstream>

#include "imaging/ImagingControl.h"
#include <random>
#include <sstream>

namespace testsupport {

namespace fs = std::filesystem;
using vips::VImage;

// Tests call libvips directly (to make and inspect photos) before any control exists.
const bool vipsStarted = (imaging::ensureVipsStarted(), true);

TempDir::TempDir() {
    std::random_device rd;
    m_path = fs::temp_directory_path() / ("vantorel-test-" + std::to_string(rd()));
    fs::create_directories(m_path);
}

TempDir::~TempDir() {
    std::error_code ec;
    for (auto& e : fs::recursive_directory_iterator(m_path, ec))
        fs::permissions(e.path(), fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(m_path, ec);
}

std::vector<std::string> TempDir::entries() const {
    std::vector<std::string> names;
    for (auto& e : fs::directory_iterator(m_path))
        names.push_back(e.path().filename().string());
    return names;
}

VImage gradient(int width, int height) {
    VImage xy = VImage::xyz(width, height);
    VImage x = xy[0] * (255.0 / std::max(width - 1, 1));
    VImage y = xy[1] * (255.0 / std::max(height - 1, 1));
    VImage b = (x + y) / 2;
    return x.bandjoin(y)
        .bandjoin(255 - b)
        .cast(VIPS_FORMAT_UCHAR)
        .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_sRGB));
}

void writeJpeg(const std::string& path, int width, int height, int orientation) {
    VImage img = gradient(width, height).copy();
    img.set(VIPS_META_ORIENTATION, orientation);
    img.jpegsave(path.c_str(), VImage::option()->set("Q", 90));
}

std::string sourceDir() {
    return VANTOREL_SOURCE_DIR;
}
std::string samplePhoto() {
    return sourceDir() + "/data/samples/umang.jpg";
}

std::string backslashed(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream out(path, std::ios::binary);
    out << bytes;
}

namespace {
int u8(const std::string& b, size_t k) {
    return k < b.size() ? static_cast<unsigned char>(b[k]) : 0;
}
int be16(const std::string& b, size_t k) {
    return u8(b, k) << 8 | u8(b, k + 1);
}
int le16(const std::string& b, size_t k) {
    return u8(b, k) | u8(b, k + 1) << 8;
}
uint32_t le32(const std::string& b, size_t k) {
    return uint32_t(le16(b, k)) | uint32_t(le16(b, k + 2)) << 16;
}

// Offset of the first start-of-frame segment of a JPEG, or 0.
size_t jpegFrame(const std::string& b, int* marker) {
    size_t k = 2;
    while (k + 4 < b.size() && u8(b, k) == 0xFF) {
        int m = u8(b, k + 1);
        if (m >= 0xC0 && m <= 0xC3) {
            *marker = m;
            return k;
        }
        k += 2 + be16(b, k + 2);
    }
    return 0;
}

uint32_t crc32(const std::string& data) {
    uint32_t crc = 0xFFFFFFFF;
    for (unsigned char c : data) {
        crc ^= c;
        for (int k = 0; k < 8; ++k)
            crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    return ~crc;
}

std::string be32(uint32_t v) {
    return {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
}

std::string chunk(const std::string& type, const std::string& data) {
    return be32(uint32_t(data.size())) + type + data + be32(crc32(type + data));
}
} // namespace

bool jpegIsProgressive(const std::string& b) {
    int m = 0;
    return jpegFrame(b, &m) && m == 0xC2;
}

int jpegComponents(const std::string& b) {
    int m = 0;
    size_t k = jpegFrame(b, &m);
    return k ? u8(b, k + 9) : 0;
}

int jpegLumaSampling(const std::string& b) {
    int m = 0;
    size_t k = jpegFrame(b, &m);
    return k ? u8(b, k + 11) : 0;
}

int tiffCompressionTag(const std::string& b) {
    if (b.size() < 8 || b[0] != 'I') return -1; // libvips writes little-endian
    uint32_t ifd = le32(b, 4);
    int count = le16(b, ifd);
    for (int e = 0; e < count; ++e) {
        size_t at = ifd + 2 + 12 * e;
        if (le16(b, at) == 259) return le16(b, at + 8);
    }
    return -1;
}

bool pngInterlaced(const std::string& b) {
    return u8(b, 28) == 1;
}

bool gifInterlaced(const std::string& b) {
    size_t k = 13;
    if (u8(b, 10) & 0x80) k += 3u << ((u8(b, 10) & 7) + 1);
    while (k < b.size()) {
        if (u8(b, k) == 0x2C) return (u8(b, k + 9) & 0x40) != 0;
        if (u8(b, k) != 0x21) return false;
        k += 2;
        while (k < b.size() && u8(b, k) != 0)
            k += u8(b, k) + 1;
        ++k;
    }
    return false;
}

std::string pngHeaderOnly(uint32_t width, uint32_t height) {
    std::string ihdr = be32(width) + be32(height) + std::string("\x08\x02\x00\x00\x00", 5);
    return std::string("\x89PNG\r\n\x1a\n", 8) + chunk("IHDR", ihdr) +
           chunk("IDAT", std::string("\x78\x9c\x03\x00\x00\x00\x00\x01", 8)) + chunk("IEND", "");
}

std::string rle8Bitmap() {
    auto le16s = [](int v) { return std::string{char(v & 0xFF), char((v >> 8) & 0xFF)}; };
    auto le32s = [&](uint32_t v) { return le16s(int(v & 0xFFFF)) + le16s(int(v >> 16)); };
    // Rows bottom-up: 6 pixels of index 1 (blue), end of line, 6 of index 0 (red), end of bitmap.
    std::string pixels("\x06\x01\x00\x00\x06\x00\x00\x01", 8);
    std::string palette("\x00\x00\xFF\x00\xFF\x00\x00\x00", 8); // BGRA: red, blue
    std::string info = le32s(40) + le32s(6) + le32s(2) + le16s(1) + le16s(8) + le32s(1) +
                       le32s(uint32_t(pixels.size())) + le32s(2835) + le32s(2835) + le32s(2) +
                       le32s(2);
    uint32_t offset = 14 + uint32_t(info.size() + palette.size());
    return "BM" + le32s(offset + uint32_t(pixels.size())) + le32s(0) + le32s(offset) + info +
           palette + pixels;
}

std::string wmfFile() {
    auto le16s = [](int v) { return std::string{char(v & 0xFF), char((v >> 8) & 0xFF)}; };
    auto le32s = [&](uint32_t v) { return le16s(int(v & 0xFFFF)) + le16s(int(v >> 16)); };
    std::vector<int> placeable{0xCDD7, 0x9AC6, 0, 0, 0, 100, 50, 100, 0, 0};
    int checksum = 0;
    std::string out;
    for (int w : placeable) {
        checksum ^= w;
        out += le16s(w);
    }
    out += le16s(checksum);
    std::string records = le32s(5) + le16s(0x020B) + le16s(0) + le16s(0) +    // window origin
                          le32s(5) + le16s(0x020C) + le16s(50) + le16s(100) + // window extent
                          le32s(7) + le16s(0x041B) + le16s(40) + le16s(90) + le16s(10) +
                          le16s(10) +          // rectangle
                          le32s(3) + le16s(0); // end
    out += le16s(1) + le16s(9) + le16s(0x0300) + le32s(uint32_t(18 + records.size()) / 2) +
           le16s(0) + le32s(7) + le16s(0);
    return out + records;
}

bool haveSaver(const char* operation) {
    imaging::ensureVipsStarted();
    return vips_type_find("VipsOperation", operation) != 0;
}

} // namespace testsupport
