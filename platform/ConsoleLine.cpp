// The transient status line on stderr.
#include "platform/ConsoleLine.h"

#include "platform/Interrupt.h"
#include "platform/TextCodec.h"

#include <cstdio>
#include <unistd.h>

namespace ConsoleLine {

namespace {
bool g_open = false;
} // namespace

bool isTerminal() {
    static const bool terminal = isatty(STDERR_FILENO);
    return terminal;
}

void show(const QString& text) {
    if (!isTerminal()) return;
    // "\r" and erase-to-end-of-line redraw the line in place.
    std::fprintf(stderr, "\r%s\x1b[K", TextCodec::forDisplay(text).constData());
    std::fflush(stderr);
    g_open = true;
    Interrupt::setStatusLineOpen(true);
}

void finish() {
    if (!g_open) return;
    std::fputs("\n", stderr);
    std::fflush(stderr);
    g_open = false;
    Interrupt::setStatusLineOpen(false);
}

} // namespace ConsoleLine
