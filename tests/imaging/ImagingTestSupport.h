// Test helpers shared by the imaging and effects tests: temporary folders, generated photos,
// the committed sample photos, and readers of file-format details.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include <vips/vips8>

#include "imaging/ImagingError.h"

namespace testsupport {

// A fresh folder removed with its contents at the end of the test.
class TempDir {
public:
    TempDir();
    ~TempDir();
    std::filesystem::path path(const std::string& name) const { return m_path / name; }
    std::string str(const std::string& name) const { return (m_path / name).string(); }
    const std::filesystem::path& root() const { return m_path; }
    std::vector<std::string> entries() const;

private:
    std::filesystem::path m_path;
};

// A colourful gradient of the given size with many distinct colours.
vips::VImage gradient(int width, int height);
// Writes a JPEG whose pixels are stored width x height with the given EXIF orientation.
void writeJpeg(const std::string& path, int width, int height, int orientation = 1);

// A real photo from data/samples (umang.jpg, 1024 x 576).
std::string samplePhoto();
std::string sourceDir();

// A native path in the "\\" form scripts use.
std::string backslashed(std::string path);

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

// Format details read straight from the bytes.
bool jpegIsProgressive(const std::string& bytes);
int jpegComponents(const std::string& bytes);
int jpegLumaSampling(const std::string& bytes); // 0x22 for 4:2:0, 0x11 for 4:4:4
int tiffCompressionTag(const std::string& bytes);
bool pngInterlaced(const std::string& bytes);
bool gifInterlaced(const std::string& bytes);
// A PNG header claiming width x height, with no pixel data.
std::string pngHeaderOnly(uint32_t width, uint32_t height);

bool haveSaver(const char* operation);

// The code and message of the ImagingError a call raises; ErrorCode::None when it raises none.
template <class F> std::pair<imaging::ErrorCode, std::string> imagingErrorOf(F&& call) {
    try {
        call();
    } catch (const imaging::ImagingError& e) {
        return {e.code(), e.what()};
    }
    return {imaging::ErrorCode::None, {}};
}

// A run-length encoded (RLE8) bitmap of 6 x 2 pixels: a red top row over a blue bottom row.
std::string rle8Bitmap();
// A Windows metafile (placeable, 1 x 0.5 inch) drawing one rectangle.
std::string wmfFile();

} // namespace testsupport
