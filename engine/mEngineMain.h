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

// The file dialogs' filter for photos (description|pattern pairs), the image types first.
inline const QString& imageDialogFilter() {
    static const QString filter = QStringLiteral(
        "All Supported Image Types|*.bmp;*.dib;*.gif;*.jpg;*.jpeg;*.tif;*.tiff;*.wmf;*.ico;*.dcx;"
        "*.jif;*.ljp;*.pbm;*.pcx;*.pgm;*.pic;*.png;*.ppm;*.rle;*.tga;*.wpg|Microsft Windows Bitmap "
        "(*.bmp)|*.bmp|Microsoft Windows Device Independent Bitmap (*.dib)|*.dib|CompuServe "
        "Graphics Interchange Format (*.gif)|*.gif|File Interchange Format (*.jpg)|*.jpg|JPEG File "
        "Interchange Format (*.jpeg)|*.jpeg|Tag Image File Format (*.tif)|*.tif|Tag Image File "
        "Format (*.tiff)|*.tiff|Windows Metafile (*.wmf)|*.wmf|Microsoft Windows Icon "
        "(*.ico)|*.ico|PC Paintbrush Multiple Page File Format (*.dcx)|*.dcx|JPEG File Interchange "
        "Format (*.jif)|*.jif|Lossless JPEG (*.ljp)|*.ljp|Portable Bitmap (*.pbm)|*.pbm|PC "
        "Paintbrush File Format (*.pcx)|*.pcx|Portable Graymap (*.pgm)|*.pgm|Pegasus Enhanced PIC "
        "(*.pic)|*.pic|Portable Network Graphics (*.png)|*.png|Portable Pixmap (*.ppm)|*.ppm|"
        "Run-Length Encoded Bitmap (*.rle)|*.rle|Truevision Targa (*.tga)|*.tga|Word Perfect "
        "Graphic Bitmap (*.wpg)|*.wpg");
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

// The photos named by "/files:", "/folder:" and "/folderall:", explicit files first, then the
// folders' files. Entries are kept as a list from the folder walk to the script, so no name is
// ever split or joined into another path.
struct FileList {
    QStringList files;      // existing photos in processing order, in the "\" form
    bool hasSource = false; // a "/files:" switch, or a folder that gave files
    int skipped = 0;        // photos of the folders left out for names that cannot be written
};

// Reports of the command-line run: `problem` is told of every named source that cannot be used
// (a missing photo, folder or stored file, a folder without photos); `note` of what is worth
// knowing but changes nothing (a link to a folder left out, an empty stored file waited for).
struct Reports {
    std::function<void(const QString&)> problem;
    std::function<void(const QString&)> note;
};

// Folder walks stay inside the folder: links to folders are followed only with followLinks.
// A name holding "\" cannot be written in the "\" form; it is told to `note` and left out.
// "/filelist:FILE" adds one photo per line of FILE ("-": standard input), after the "/files:"
// photos; its paths may use "/" or "\".
FileList collectFiles(const QString& line, const Reports& reports, bool followLinks = false);

// One ProcessEffects call per photo, each path an escaped string expression.
QString mainCodeFor(const QStringList& files);

// A script expression for any text: a string literal with its quotes doubled; CR and LF, which
// cannot stand inside a literal, are joined in as vbCr and vbLf.
QString scriptStringExpression(const QString& text);

// The body of ProcessEffects from the line's "/fx.", "/progress." and "/cmd:" items.
QString buildEffectsBody(const QString& line);

// --- the command-line run, up to the point where a script would run ---

struct RunOptions {
    // Folder holding "Data\template.txt", in the "\" form; empty means the program's folder.
    QString programFolder;
    // No window can be shown: a batch then writes files whether or not it ends with "/exit".
    // A batch that writes files refuses to start when a source it names cannot be used.
    bool headless = false;
    // Tests only: asked before each wait for an empty "/loadcmdscript:" or "/loadvt3script:"
    // file; returning false stops waiting. Without it, the run waits until the file holds text.
    std::function<bool()> expansionGuard;
    // Told of what a run that may go on leaves out (a missing folder, photo, template or stored
    // command line), so the command-line tool can say so on stderr.
    std::function<void(const QString&)> warn;
};

struct RunPlan {
    enum class Next {
        Nothing,    // a lone "/exit": start nothing
        Run,        // run `script`, then end the process (exitAfterRun) or open the main window
        OpenWindow, // open the main window; `script` is set when it was built but not run
        Refuse,     // the line cannot be carried out; `problems` says why, nothing was touched
    };
    Next next = Next::Nothing;
    QString line;   // the command line after expansion and the automatic additions
    QString script; // the finished script text
    bool exitAfterRun = false;
    QStringList files; // the photos of the ProcessEffects calls, in order
    int fileCount = 0; // ProcessEffects calls generated, for the progress display
    // Photos of the named folders that were left out (names that cannot be expressed).
    int skippedFiles = 0;
    // Saves that may run beside the script ("/parallel:", when the script allows it), and
    // whether saves whose target is newer than the photo are skipped ("/skipnewer").
    int savesInFlight = 1;
    bool skipNewer = false;
    // Named sources that cannot be used; in a refused plan, each reason to refuse.
    QStringList problems;
    // Interactive start: the text for the command-line view; empty keeps the scripting view.
    QString commandViewText;
};

// Whether a script's saves may run in the background while it goes on with the next photo. The
// script itself always runs one statement after another; only the encoding and writing of a
// saved photo overlap what follows. That cannot change what the script does or the files it
// leaves unless the script could see a failure late or show something between a save and its
// failure: so not with On Error, message or input boxes, objects of its own making, or code it
// runs from text (Execute, ExecuteGlobal, Eval).
bool backgroundSavesAllowed(const QString& script);

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
