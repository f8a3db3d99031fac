// Start-up: from the process's arguments to the engine's command-line run.
#pragma once

#include <QString>

namespace mVTSE_Main {

// The process's command line: the arguments joined with single blanks, line ends as CR LF.
QString commandLineFromArguments(int argc, char** argv);

// The start-up procedure; returns the process's exit status.
int Main(int argc, char** argv);

} // namespace mVTSE_Main
