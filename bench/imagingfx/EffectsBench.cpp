// effects-bench: milliseconds per effect member on a 12-megapixel photo (4000x3000), the result
// computed in full (copied to memory) as the control does before saving.
// Usage: effects-bench [photo] [runs]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <vips/vips8>

#include "EffectSamples.h"
#include "imaging/fx/FxError.h"

using vips::VImage;

int main(int argc, char** argv) {
    if (VIPS_INIT(argv[0])) return 1;
    std::string photo = argc > 1 ? argv[1] : "bench/photos/Painting-Colors_by__herobrine7gamer.jpg";
    int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 3;
    vips_cache_set_max(0);
    try {
        VImage source = VImage::new_from_file(photo.c_str());
        VImage photo12 = source
                             .resize(4000.0 / source.width(),
                                     VImage::option()->set("vscale", 3000.0 / source.height()))
                             .copy_memory();
        VImage clipboard = photo12.flip(VIPS_DIRECTION_VERTICAL).copy_memory();
        std::printf("%-14s %10s   (4000x3000, best of %d)\n", "member", "ms", runs);
        for (const EffectSample& s : effectSamples(clipboard)) {
            double best = 1e30;
            for (int r = 0; r < runs; ++r) {
                auto t0 = std::chrono::steady_clock::now();
                VImage out = s.run(photo12).copy_memory();
                double ms =
                    std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0)
                        .count();
                best = std::min(best, ms);
            }
            std::printf("%-14s %10.1f   %s\n", s.name.c_str(), best, s.label.c_str());
            std::fflush(stdout);
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "effects-bench: %s\n", e.what());
        return 1;
    }
    return 0;
}
