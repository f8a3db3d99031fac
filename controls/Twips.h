// Layout sizes are given in twips (1/1440 inch); this is the one place they become pixels.
#pragma once

namespace Twips {

// At 96 dpi a device-independent pixel is 15 twips; Qt scales such pixels for high-DPI screens.
constexpr int kPerPixel = 15;

constexpr int toPixels(int twips) {
    return (twips + kPerPixel / 2) / kPerPixel;
}
constexpr int fromPixels(int pixels) {
    return pixels * kPerPixel;
}

} // namespace Twips
