// Process entry: hands the command line to the start-up procedure.
#include "engine/mVTSE_Main.h"

int main(int argc, char** argv) {
    return mVTSE_Main::Main(argc, argv);
}
