// Process entry: memory pools and signals first, then the start-up procedure.
#include "engine/mVTSE_Main.h"
#include "platform/Interrupt.h"

#include <malloc.h>

int main(int argc, char** argv) {
    // Before anything allocates: one malloc arena, since libvips' worker threads otherwise each
    // grow their own pools (a batch's peak memory drops by about 40 per cent).
    mallopt(M_ARENA_MAX, 1);
    // Ctrl+C ends a batch at once, removing the temporary files of unfinished saves.
    Interrupt::installHandlers();
    return mVTSE_Main::Main(argc, argv);
}
