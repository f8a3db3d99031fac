// Start-up: from the process's arguments to the engine's command-line run.
#pragma once

#include <QString>

namespace mVTSE_Main {

// The process's command line: the arguments joined with single blanks, line ends as CR LF.
QString commandLineFromArguments(int argc, char** argv);

// True when a window can be shown (an X11 or Wayland display, or Qt's offscreen platform).
bool hasDisplay();

// The start-up procedure; returns the process's exit status.
int Main(int argc, char** argv);

} // namespace mVTSE_Main
