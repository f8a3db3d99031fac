// Converts photos to 1600-pixel JPEGs through the imaging control and reports time and peak RSS.
// Usage: imaging_convert_bench [--no-arena-limit] OUTDIR PHOTO...
#include <malloc.h>
#include <sys/resource.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <vector>

#include "imaging/ImagingControl.h"

namespace {

long peakRssKb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Fits into box x box keeping proportions, never enlarging (as a batch script does).
void fitInto(imaging::ImagingControl& control, int box) {
    int w = std::get<int32_t>(control.property("ImagWidth"));
    int h = std::get<int32_t>(control.property("ImagHeight"));
    double r = std::min(1.0, std::min(double(box) / w, double(box) / h));
    std::vector<imaging::Arg> size{int32_t(std::lround(w * r)), int32_t(std::lround(h * r))};
    control.invoke("PICResize", size);
}

} // namespace

int main(int argc, char** argv) {
    int first = 1;
    bool limitArenas = true;
    if (argc > 1 && std::strcmp(argv[1], "--no-arena-limit") == 0) {
        limitArenas = false;
        ++first;
    }
    if (argc - first < 2) {
        std::fprintf(stderr, "usage: %s [--no-arena-limit] OUTDIR PHOTO...\n", argv[0]);
        return 2;
    }
    // The product does this first thing in main(); glibc's per-thread pools otherwise hold on to
    // memory libvips' worker threads freed.
    if (limitArenas) mallopt(M_ARENA_MAX, 1);
    std::filesystem::path out = argv[first];
    imaging::ImagingControl control;
    control.setProperty("UndoEnabled", true);             // as the fx object's Init sets it
    control.setProperty("SaveJPGLumFactor", int32_t(15)); // quality 85
    control.setProperty("SaveJPGChromFactor", int32_t(15));
    auto start = std::chrono::steady_clock::now();
    int count = 0;
    for (int k = first + 1; k < argc; ++k) {
        try {
            control.setFileName(argv[k]);
            fitInto(control, 1600);
            control.setProperty("SaveFileName",
                                (out / std::filesystem::path(argv[k]).filename()).string());
            control.saveFile();
            ++count;
        } catch (const imaging::ImagingError& e) {
            std::fprintf(stderr, "%s: %s\n", argv[k], e.what());
            return 1;
        }
    }
    double ms =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    std::printf("photos %d  ms/photo %.1f  peak RSS %.1f MiB  arena limit %s\n", count, ms / count,
                peakRssKb() / 1024.0, limitArenas ? "on" : "off");
    return 0;
}
