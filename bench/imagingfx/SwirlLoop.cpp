// effects-swirl-loop: Swirl as a hand-written C++ loop against the libvips pipeline of
// fx::Swirl, on the same 12-megapixel image in one process, to check the choice of pipelines.
// Usage: effects-swirl-loop [photo]
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include <vips/vips8>

#include "imaging/fx/Distortions.h"

using vips::VImage;

namespace {

// Whole image in memory, 8-bit RGB, bilinear, edge pixels repeated: the same result as Swirl.
std::vector<unsigned char> swirlLoop(const unsigned char* px, int w, int h, double degrees) {
    std::vector<unsigned char> out(size_t(w) * h * 3);
    double angle = degrees * std::numbers::pi / 180, cx = (w - 1) / 2.0, cy = (h - 1) / 2.0;
    double limit = std::min(w, h) / 2.0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            double dx = x - cx, dy = y - cy, r = std::sqrt(dx * dx + dy * dy), sx = x, sy = y;
            if (r < limit) {
                double fade = 1 - r / limit, t = fade * fade * angle;
                sx = cx + dx * std::cos(t) - dy * std::sin(t);
                sy = cy + dx * std::sin(t) + dy * std::cos(t);
            }
            sx = std::clamp(sx, 0.0, w - 1.0);
            sy = std::clamp(sy, 0.0, h - 1.0);
            int ix = std::min(int(sx), w - 2), iy = std::min(int(sy), h - 2);
            double fx = sx - ix, fy = sy - iy;
            const unsigned char* p = px + (size_t(iy) * w + ix) * 3;
            unsigned char* o = &out[(size_t(y) * w + x) * 3];
            for (int b = 0; b < 3; ++b) {
                double top = p[b] * (1 - fx) + p[b + 3] * fx;
                double bottom = p[b + w * 3] * (1 - fx) + p[b + w * 3 + 3] * fx;
                o[b] = static_cast<unsigned char>(top * (1 - fy) + bottom * fy + 0.5);
            }
        }
    return out;
}

void report(const char* what, const std::function<void()>& run) {
    double wall = 1e30, cpu = 1e30;
    for (int r = 0; r < 3; ++r) {
        auto t0 = std::chrono::steady_clock::now();
        std::clock_t c0 = std::clock();
        run();
        std::chrono::duration<double, std::milli> ms = std::chrono::steady_clock::now() - t0;
        wall = std::min(wall, ms.count());
        cpu = std::min(cpu, 1000.0 * double(std::clock() - c0) / CLOCKS_PER_SEC);
    }
    std::printf("%-34s wall %7.1f ms   cpu %7.1f ms\n", what, wall, cpu);
}

} // namespace

int main(int argc, char** argv) {
    if (VIPS_INIT(argv[0])) return 1;
    vips_cache_set_max(0);
    std::string photo = argc > 1 ? argv[1] : "bench/photos/Painting-Colors_by__herobrine7gamer.jpg";
    try {
        VImage source = VImage::new_from_file(photo.c_str());
        VImage in = source
                        .resize(4000.0 / source.width(),
                                VImage::option()->set("vscale", 3000.0 / source.height()))
                        .copy_memory();
        size_t size = 0;
        std::unique_ptr<void, void (*)(void*)> pixels(in.write_to_memory(&size), g_free);
        report("C++ loop (one thread, in memory)", [&] {
            swirlLoop(static_cast<unsigned char*>(pixels.get()), in.width(), in.height(), 180);
        });
        report("fx::Swirl (libvips pipeline)", [&] { fx::Swirl(in, 180).copy_memory(); });
    } catch (const std::exception& e) {
        std::fprintf(stderr, "effects-swirl-loop: %s\n", e.what());
        return 1;
    }
    return 0;
}
