// Photos as pixels for the workbench's displays, and shrunken copies for previews. Both go
// through the imaging control, so every format it reads is shown, upright, as a script sees it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace PhotoPixels {

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> rgb; // 8-bit RGB rows without padding; empty when the photo failed
    int32_t uniqueColors = 0; // of these pixels, when asked for
    std::string error;        // why the photo could not be read
};

// The photo ("\" or native form) fitted into maxSide x maxSide, never enlarged.
Pixels load(const std::string& path, int maxSide, bool countColors);

// Whether the photo is larger than maxSide on either side (false when it cannot be read).
bool largerThan(const std::string& path, int maxSide);

// Writes the photo fitted into maxSide to target ("\" form; the format follows its extension).
bool writeShrunkCopy(const std::string& source, const std::string& target, int maxSide,
                     std::string* error);

} // namespace PhotoPixels
