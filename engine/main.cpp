// Process entry: hands the joined command line to the engine.
#include <cstdio>

int main(int argc, char** argv) {
    (void)argv;
    if (argc <= 1) {
        std::fprintf(stdout, "Vantorel 3 Caldrith %s\n", "3.0.0");
        return 0;
    }
    std::fprintf(stderr, "vantorel: not yet: the batch engine is being built\n");
    return 2;
}
