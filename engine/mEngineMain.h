// The engine's command-line run and the conversions between command lines and scripts.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace mEngineMain {

// The image types found by folder expansion and accepted by the photo pane.
inline const QString& imageFilter() {
    static const QString filter = QStringLiteral(
        "*.bmp;*.dib;*.gif;*.jpg;*.jpeg;*.tif;*.tiff;*.wmf;*.ico;*.dcx;*.jif;*.ljp;*.pbm;*.pcx;"
        "*.pgm;*.pic;*.png;*.ppm;*.rle;*.tga;*.wpg");
    return filter;
}

// The template's placeholders; each is a script comment when left in place.
inline const QString kMainCodePlaceholder = QStringLiteral("'{MainCode}'");
inline const QString kEffectsPlaceholder = QStringLiteral("'{EffectsScript}'");

// --- text conversions ---

// The editor's conversion: every "/fx.", "/progress." and "/func." item starts a script line.
// The "/files:" switch is taken out of the line; its value goes to *files when given.
QString CommandLineToScript(const QString& commandLine, QString* files = nullptr);

// Script lines to the one-line form: each kept line becomes an item introduced by " /"; lines
// starting with "//" or "\\" are comments of the command-line form and are dropped.
QString ScriptToCommandLine(const QString& scriptText);

// The loose extension test of the photo pane: the lower-cased extension occurs in the image
// filter text after its first character (so "pg" passes and "" does not).
bool IsSupportedImageFile(const QString& path);

// --- pieces of the command-line run ---

// The value of a switch: the text after its first occurrence (found without regard to case) up
// to the next "/" or the end. *present tells whether the switch occurs at all.
QString switchValue(const QString& line, const QString& switchName, bool* present = nullptr);

// The ProcessEffects calls for the files named by "/folder:", "/folderall:" and "/files:".
// *hasSource is false when the line has neither a folder file nor a "/files:" switch, in which
// case the main-code placeholder is to stay as it is.
// Entries naming no existing folder or file are left out; `warn`, when set, is told of each.
QString buildMainCode(const QString& line, bool* hasSource,
                      const std::function<void(const QString&)>& warn = {});

// The body of ProcessEffects from the line's "/fx.", "/progress." and "/cmd:" items.
QString buildEffectsBody(const QString& line);

// --- the command-line run, up to the point where a script would run ---

struct RunOptions {
    // Folder holding "Data\template.txt", in the "\" form; empty means the program's folder.
    QString programFolder;
    // Tests only: asked before each pass of the "/loadcmdscript:" and "/loadvt3script:"
    // expansion loops; returning false stops the loop. Without it, an existing empty file makes
    // the loop go on for ever, which is the defined behaviour of those switches.
    std::function<bool()> expansionGuard;
    // Told of what the run leaves out silently (a missing folder, photo, template or stored
    // command line), so the command-line tool can say so on stderr.
    std::function<void(const QString&)> warn;
};

struct RunPlan {
    enum class Next {
        Nothing,    // a lone "/exit": start nothing
        Run,        // run `script`, then end the process (exitAfterRun) or open the main window
        OpenWindow, // open the main window; `script` is set when it was built but not run
    };
    Next next = Next::Nothing;
    QString line;   // the command line after expansion and the automatic additions
    QString script; // the finished script text
    bool exitAfterRun = false;
    int fileCount = 0; // ProcessEffects calls generated, for the progress display
    // Interactive start: the text for the command-line view; empty keeps the scripting view.
    QString commandViewText;
};

// Expands the line, chooses the mode, fills the template and asks the "Possible Error" question
// through the current Messages object. Runs nothing.
RunPlan prepareRun(const QString& commandLine, const RunOptions& options = {});

// --- the script host's reports ---

// A script error as the script engine reports it; line counts from 1 within the whole script.
struct ScriptFailure {
    int number = 0;
    QString description;
    int line = 0;
};

// The shown part of a failing script: the five lines before and after the failing one, each as
// "Line 007:  text" (tabs removed, trimmed), the failing one followed by its error, CR LF after
// every line. *errorLineText receives the failing line's text alone.
QString scriptErrorExcerpt(const QString& scriptText, const ScriptFailure& failure,
                           QString* errorLineText = nullptr);

// What a preview run returns instead of showing a box.
QString previewErrorText(const ScriptFailure& failure, const QString& errorLineText);

// The "Script Runtime Error" box of a real run; hostDescription is the error as the caller of
// the script engine sees it, which normally repeats the engine's description.
QString runtimeErrorText(const ScriptFailure& failure, const QString& hostDescription,
                         const QString& excerpt);
inline const QString kRuntimeErrorTitle = QStringLiteral("Script Runtime Error");

// Shown when no script engine can be created.
QString noScriptEngineText();

} // namespace mEngineMain
