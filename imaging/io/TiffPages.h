// The pages of TIFF files at the level of their bytes, for what libvips does not offer: the depth
// a page is stored at, and adding a page of any size to a file without decoding the pages
// already in it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace imaging {

// The bits per pixel a page (zero-based) of a TIFF file is stored at: BitsPerSample times
// SamplesPerPixel, so 1 for black and white, 4 or 8 for a palette, 48 for 16-bit RGB. 0 when the
// file cannot tell (not a classic TIFF, no such page).
int32_t tiffPageBits(const std::filesystem::path& file, int32_t page);

// Appends the pages of a whole TIFF held in memory (as libvips writes one) after the pages of
// the TIFF file `file`, linking them into its chain of pages. Pages may differ in size, depth and
// compression. False when the two cannot be joined this way (a BigTIFF, byte orders that
// differ, offsets held in 16 bits, a result beyond 4 GB; `file` is then as it was) or the file
// could not be written.
bool appendTiffPages(const std::filesystem::path& file, std::string pages);

} // namespace imaging
