// The scripting view's two steps without a window: write the script (step 1), pick the photos
// and run (step 2); the save-command check, the test run, the questions and the run itself. The
// view connects it to the editor, the photo pane and the engine through Ports.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class ScriptingWorkflow {
public:
    struct Ports {
        // The editor's command-line form of the script, and appending a line to the script.
        std::function<QString()> commandLine;
        std::function<void(const QString&)> appendLine;
        // A run in preview mode that may write only `output`; returns the error text.
        std::function<QString(const QString& line, const QString& output)> testRun;
        // The real run (the engine's RunCommandLine, not in preview mode).
        std::function<QString(const QString& line)> run;
        // The photo pane: its array (element 0 empty) and its Clear button.
        std::function<QStringList()> files;
        std::function<void()> clearFiles;
        // The view shows the new step (buttons, panes, layout).
        std::function<void()> stepChanged;
    };

    enum class Step { Script, Photos };

    explicit ScriptingWorkflow(Ports ports) : m_ports(std::move(ports)) {}

    Step step() const { return m_step; }
    QString nextCaption() const; // cmdSelectPhotos
    static QString backCaption();

    // cmdSelectPhotos: from step 1 the check and the test run, in step 2 the run.
    void next();
    // cmdConfig: back to the script; the photos stay.
    void back();
    // Runs the script over the files (element 0 empty) and returns the engine's text.
    QString RunScriptingEngine(const QStringList& files);

    // --- the texts and lines, for the view and the tests ---
    static bool hasSaveCommand(const QString& commandLine);
    static QString saveErrorText();
    // The test run's line on the example photo, writing `output`.
    static QString testRunLine(const QString& commandLine, const QString& example,
                               const QString& output);
    static QString cannotProcessText(const QString& errorText);
    static QString confirmText(int count);
    static QString finishedText();
    static QString abortedText();
    // Where the test run reads and writes: the built-in example, and its output beside the
    // other scratch files.
    static QString testExample();
    static QString testOutput();

private:
    void leaveScriptStep();
    void runPhotos();

    Ports m_ports;
    Step m_step = Step::Script;
};

// The splitter between the editor and the tool pane, in twips.
namespace ScriptingSplit {
// Where nothing was stored.
constexpr int kDefault = 6600;
constexpr int kMargin = 4000;
// The bar dragged by x from its left edge: at least the margin, then at most the view's width
// less the margin (that limit wins on a narrow view).
int dragPosition(int splitLeft, double x, int viewWidth);
// "Setting Scripting Window to 45% (400px) Left, 500px Right."
QString dragStatus(int position, int viewWidth, int twipsPerPixel);
} // namespace ScriptingSplit
