// Peak memory and time of a long chain of cheap operations on one photo, then a save: memory must
// not grow with the number of operations.
// Usage: imaging_chain_bench [-n OPERATIONS] PHOTO OUTFILE
#include <malloc.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "imaging/ImagingControl.h"

namespace {

long peakRssKb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

// Cheap operations of several kinds (tone, geometry, area-free filters), cycled through.
void runOne(imaging::ImagingControl& control, int k) {
    using imaging::Arg;
    switch (k % 5) {
    case 0:
        control.invoke("Brightness", std::vector<Arg>{int32_t(2)});
        break;
    case 1:
        control.invoke("Brightness", std::vector<Arg>{int32_t(-2)});
        break;
    case 2:
        control.invoke("Negate");
        break;
    case 3:
        control.invoke("Flip");
        break;
    default:
        control.invoke("Mirror");
        break;
    }
}

} // namespace

int main(int argc, char** argv) {
    int operations = 1000, first = 1;
    if (argc > 2 && std::strcmp(argv[1], "-n") == 0) {
        operations = std::atoi(argv[2]);
        first = 3;
    }
    if (argc - first != 2) {
        std::fprintf(stderr, "usage: %s [-n OPERATIONS] PHOTO OUTFILE\n", argv[0]);
        return 2;
    }
    mallopt(M_ARENA_MAX, 1); // as the product's main() does
    imaging::ImagingControl control;
    control.setProperty("UndoEnabled", true); // as the fx object's Init sets it
    auto start = std::chrono::steady_clock::now();
    try {
        control.setFileName(argv[first]);
        for (int k = 0; k < operations; ++k)
            runOne(control, k);
        control.setProperty("SaveFileName", std::string(argv[first + 1]));
        control.saveFile();
    } catch (const imaging::ImagingError& e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%d x %d  operations %d  seconds %.2f  peak RSS %.1f MiB\n", control.width(),
                control.height(), operations, s, peakRssKb() / 1024.0);
    return 0;
}
