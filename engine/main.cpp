// Process entry: hands the command line to the start-up procedure.
#include "engine/mVTSE_Main.h"

#include <malloc.h>

int main(int argc, char** argv) {
    // One malloc arena: libvips' worker threads otherwise each grow their own pools.
    mallopt(M_ARENA_MAX, 1);
    return mVTSE_Main::Main(argc, argv);
}
