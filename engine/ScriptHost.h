// The script host: runs a finished script with `fx` and `progress`, and the whole command-line run.
#pragma once

#include "engine/frmConvProgress.h"
#include "engine/mEngineMain.h"
#include "vbscript/Object.h"

#include <functional>
#include <memory>
#include <optional>

namespace mEngineMain {

// What the host needs of a script control. The product's one is the VBScript engine; tests use
// a fake to drive the host's error paths.
class ScriptEngine {
public:
    virtual ~ScriptEngine() = default;
    virtual bool setLanguage(const QString& language) = 0;
    virtual void addObject(const QString& name, vbs::Ref<vbs::Dispatch> object) = 0;
    virtual bool addCode(const QString& code) = 0;
    // Runs a procedure without arguments; *result receives its value as text.
    virtual bool run(const QString& procedure, QString* result) = 0;
    // The last failure (number, description, line from 1 within the added code).
    virtual ScriptFailure error() const = 0;
};

// The parts of a run that come from elsewhere: the script engine, the effects object bound to
// the progress window's imaging control, and what ending the process and opening the main
// window mean in this process.
// The end of a run as the effects object sees it: a save that failed in the background, and the
// saves skipped because their target was newer than the photo.
struct EffectsOutcome {
    std::optional<ScriptFailure> failure;
    int skippedSaves = 0;
};

struct ScriptHostServices {
    std::function<std::unique_ptr<ScriptEngine>()> createEngine; // null result: no engine
    std::function<vbs::Ref<vbs::Dispatch>(frmConvProgress&)> createEffects;
    // Set by createEffects for the run it serves; the host calls it once the script has ended.
    std::function<EffectsOutcome()> finishEffects;
    std::function<void(int status)> exitProcess;
    std::function<void(const QString& commandViewText)> showMainWindow;
};
ScriptHostServices& scriptHostServices();

// The progress window, loaded (without being shown) on first use; it stays loaded.
frmConvProgress& loadProgressWindow();

// Refused: the line named a source that cannot be used (or can never run), so nothing ran.
// Cancelled: the user stopped the batch between two photos.
enum class ScriptStatus { NotRun, Succeeded, Failed, NoEngine, Refused, Cancelled };

// How a command-line run went, for the process's exit status.
struct RunOutcome {
    QString result; // what RunCommandLine returns
    ScriptStatus status = ScriptStatus::NotRun;
    QStringList problems; // why the line was refused, or what the run left out
    int skippedFiles = 0; // photos of the named folders that could not be named
    int skippedSaves = 0; // saves left out because their target was newer (/skipnewer)
};

// The process's exit status after a run: 0 success (or nothing run), 1 script error, 2 the line
// could not be carried out (no engine, refused), 130 cancelled (as an interrupt).
int exitStatus(ScriptStatus status);

// Runs one finished script: "" after success and after a failure shown in a box; in preview
// mode the error text. *status tells how it went.
QString RunScript(const QString& scriptText, bool previewMode, ScriptStatus* status = nullptr,
                  int* skippedSaves = nullptr);

// The engine's single entry: expands and runs the line, then ends the process ("/exit") or
// opens the main window, through scriptHostServices(). A line that cannot be carried out (a
// stored line that includes itself, say) is explained in a box, or returned in preview mode.
QString RunCommandLine(const QString& commandLine, bool previewMode);
RunOutcome runCommandLine(const QString& commandLine, bool previewMode,
                          const RunOptions& options = {});

} // namespace mEngineMain
