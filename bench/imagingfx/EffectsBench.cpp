// effects-bench: milliseconds per effect member on a 12-megapixel photo (4000x3000), the result
// computed in full (copied to memory) as the control does before saving. Wall time is what a
// user waits; CPU time (all threads) is the work done, and stays comparable on a busy machine.
// Usage: effects-bench [photo] [runs]
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
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
        std::printf("%-14s %9s %9s   (4000x3000, best of %d)\n", "member", "wall ms", "cpu ms",
                    runs);
        for (const EffectSample& s : effectSamples(clipboard)) {
            double best = 1e30, bestCpu = 1e30;
            for (int r = 0; r < runs; ++r) {
                auto t0 = std::chrono::steady_clock::now();
                std::clock_t c0 = std::clock();
                VImage out = s.run(photo12).copy_memory();
                std::chrono::duration<double, std::milli> wall =
                    std::chrono::steady_clock::now() - t0;
                best = std::min(best, wall.count());
                bestCpu = std::min(bestCpu, 1000.0 * double(std::clock() - c0) / CLOCKS_PER_SEC);
            }
            std::printf("%-14s %9.1f %9.1f   %s\n", s.name.c_str(), best, bestCpu, s.label.c_str());
            std::fflush(stdout);
        }
    } catch (const std::exception& e) {
        std::fprintf(stderr, "effects-bench: %s\n", e.what());
        return 1;
    }
    return 0;
}
