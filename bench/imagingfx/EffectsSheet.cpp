// effects-sheet: renders every effect member on the example photo into one labelled PNG.
// Usage: effects-sheet [photo] [output.png] [tile width, default 300]
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <vips/vips8>

#include "EffectSamples.h"
#include "imaging/fx/Capture.h"
#include "imaging/fx/FxError.h"

using vips::VImage;

namespace {

int kTileWidth = 300;
constexpr int kColumns = 6;
constexpr int kGap = 8;

VImage label(const std::string& text, int width) {
    VImage t = VImage::text(text.c_str(),
                            VImage::option()->set("font", "DejaVu Sans 11")->set("width", width));
    VImage board = VImage::black(width, 24) + 255;
    VImage ink = (255 - t).cast(VIPS_FORMAT_UCHAR);
    board = board.insert(ink, 2, 4).cast(VIPS_FORMAT_UCHAR);
    return VImage::bandjoin({board, board, board});
}

VImage tileFor(const std::string& caption, const VImage& picture, int height) {
    VImage pic = picture.bands() == 1 ? VImage::bandjoin({picture, picture, picture}) : picture;
    pic = pic.extract_band(0, VImage::option()->set("n", 3)).cast(VIPS_FORMAT_UCHAR);
    pic = pic.embed(0, 0, kTileWidth, height, VImage::option()->set("extend", VIPS_EXTEND_WHITE));
    return pic.join(label(caption, kTileWidth), VIPS_DIRECTION_VERTICAL);
}

VImage errorTile(const std::string& caption, const std::string& message, int height) {
    VImage t = VImage::text(
        message.c_str(),
        VImage::option()->set("font", "DejaVu Sans 10")->set("width", kTileWidth - 10));
    VImage grey =
        (VImage::black(kTileWidth, height) + 230).insert(255 - t, 5, 5).cast(VIPS_FORMAT_UCHAR);
    return tileFor(caption, VImage::bandjoin({grey, grey, grey}), height);
}

} // namespace

int main(int argc, char** argv) {
    if (VIPS_INIT(argv[0])) return 1;
    std::string photo = argc > 1 ? argv[1] : "data/example.jpg";
    std::string output = argc > 2 ? argv[2] : "effects-sheet.png";
    if (argc > 3) kTileWidth = std::max(100, std::atoi(argv[3]));
    try {
        VImage original = VImage::thumbnail(photo.c_str(), kTileWidth).copy_memory();
        // Merge's clipboard: a second photo at half the tile size when the samples are beside
        // the photo, else the photo mirrored.
        std::filesystem::path second =
            std::filesystem::path(photo).parent_path() / "samples" / "umang.jpg";
        VImage clipboard = std::filesystem::exists(second)
                               ? VImage::thumbnail(second.c_str(), kTileWidth / 2).copy_memory()
                               : original.flip(VIPS_DIRECTION_HORIZONTAL).copy_memory();
        int h = original.height();
        std::vector<VImage> tiles{tileFor("original", original, h)};
        for (const EffectSample& s : effectSamples(clipboard)) {
            try {
                tiles.push_back(tileFor(s.label, s.run(original).copy_memory(), h));
            } catch (const std::exception& e) {
                std::fprintf(stderr, "effects-sheet: %s: %s\n", s.name.c_str(), e.what());
                tiles.push_back(errorTile(s.label, e.what(), h));
            }
        }
        try {
            tiles.push_back(tileFor("CaptureWindow 0 (screen)",
                                    fx::CaptureWindow(0).thumbnail_image(kTileWidth), h));
        } catch (const fx::FxError& e) {
            tiles.push_back(errorTile("CaptureWindow 0", e.what(), h));
        }
        VImage sheet = VImage::arrayjoin(tiles, VImage::option()
                                                    ->set("across", kColumns)
                                                    ->set("shim", kGap)
                                                    ->set("background", std::vector<double>{255}));
        sheet.write_to_file(output.c_str());
        std::printf("%s: %zu tiles\n", output.c_str(), tiles.size());
    } catch (const vips::VError& e) {
        std::fprintf(stderr, "effects-sheet: %s\n", e.what());
        return 1;
    }
    return 0;
}
