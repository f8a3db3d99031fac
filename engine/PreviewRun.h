// Runs of a command line beside the workbench: the preview pane's and the scripting view's test
// run, each on a script engine and an imaging control of its own.
#pragma once

#include <QString>
#include <atomic>

namespace mEngineMain {

struct PreviewRunOptions {
    // Folder holding "Data\template.txt", in the "\" form; empty means the program's folder.
    QString programFolder;
    // The one file the run writes under the name it asks for ("\" form). Every other save is
    // written to a throw-away file beside it, so a script that saves under its photo's own name
    // (fx.SaveFile spelled in capitals escapes the textual neutralising) never touches a photo.
    QString output;
    // Set from another thread to stop the run at its next statement; may be null.
    const std::atomic<bool>* cancel = nullptr;
};

struct PreviewRunResult {
    QString errorText;      // "" when the run succeeded (or ran nothing)
    bool cancelled = false; // stopped through options.cancel; errorText is then meaningless
};

// Does what RunCommandLine does in preview mode (errors come back as text, in the same words),
// without touching anything the batch path shares: no progress window, no boxes (the script's
// MsgBox and fx.MsgDisplay take their safe answers), the process-wide script host untouched. So
// it may run on any thread, also while a batch runs.
PreviewRunResult runPreviewLine(const QString& line, const PreviewRunOptions& options);

} // namespace mEngineMain
