// The scripting workflow's steps, questions and texts.
#include "views/ScriptingWorkflow.h"

#include "effects/PreviewPaneLogic.h"
#include "platform/Messages.h"
#include "platform/ScratchFolder.h"
#include "platform/mFile.h"

#include <cmath>

QString ScriptingWorkflow::nextCaption() const {
    return m_step == Step::Script ? QStringLiteral("Next: Select Photos to Process >>")
                                  : QStringLiteral("Run: Process Photos. >>");
}

QString ScriptingWorkflow::backCaption() {
    return QStringLiteral("<< Previous: Confige Photo Script");
}

bool ScriptingWorkflow::hasSaveCommand(const QString& commandLine) {
    return (commandLine + u' ').contains(QStringLiteral("/fx.savefile "), Qt::CaseInsensitive);
}

QString ScriptingWorkflow::saveErrorText() {
    return QStringLiteral(
        "It appears that the script file you are processing does not have\r\n"
        "the fx.savefile command. Without this command no effects or results will be saved.\r\n"
        "Would you like to have ' fx.savefile ' automatically inserted before proceeding?");
}

QString ScriptingWorkflow::testRunLine(const QString& commandLine, const QString& example,
                                       const QString& output) {
    QString line = QStringLiteral("/files:") + example + u' ' +
                   PreviewPaneLogic::neutraliseSaves(commandLine) +
                   QStringLiteral(" /fx.savefilename = \"") + output +
                   QStringLiteral("\" /fx.savefile");
    line.replace(QStringLiteral("/fx.msgdisplay "), QStringLiteral("/msghide..."));
    return line;
}

QString ScriptingWorkflow::cannotProcessText(const QString& errorText) {
    return errorText + QStringLiteral("\r\n\r\nCannot Process Script: The where unhandled errors. "
                                      "Please correct the script before proceeding.");
}

QString ScriptingWorkflow::confirmText(int count) {
    return QStringLiteral("You are about to process '%1' photos.\r\n"
                          "\r\n"
                          "The effects done by this process are undoable and all changes to\r\n"
                          "'saved' photos are irrevocable.\r\n"
                          "\r\n"
                          "Note: If you do not want the script to effect the existing photos\r\n"
                          "directly, be sure you've modified fx.savefilename.\r\n"
                          "The fastest way of modifying the savefilename is by entering the\r\n"
                          "below line in your script:\r\n"
                          "FX.SaveFileNameAddPrefix \"new_\"\r\n"
                          "This will cause each file processed to be named: "
                          "new_{origialfilename} in\r\n"
                          "its corresponding folder.\r\n"
                          "\r\n"
                          "Do you wish to continue and run the script as is?")
        .arg(count);
}

QString ScriptingWorkflow::finishedText() {
    return QStringLiteral("Script Process Complete...\r\n\r\n"
                          "You may select additional files to process or exit the program.");
}

QString ScriptingWorkflow::abortedText() {
    return QStringLiteral(
        "Process Aborted... You may modify your script by selecting the previous button.");
}

QString ScriptingWorkflow::testExample() {
    return PreviewPaneLogic::builtInExample();
}

QString ScriptingWorkflow::testOutput() {
    return ScratchFolder::path() + mFile::GetPathPart(testExample(), 2) +
           QStringLiteral("_output.jpg");
}

void ScriptingWorkflow::next() {
    if (m_step == Step::Script)
        leaveScriptStep();
    else
        runPhotos();
}

void ScriptingWorkflow::back() {
    m_step = Step::Script;
    if (m_ports.stepChanged) m_ports.stepChanged();
}

// The save check asks, but never stops the step: the test run follows whatever the answer.
void ScriptingWorkflow::leaveScriptStep() {
    if (!hasSaveCommand(m_ports.commandLine()) &&
        messages().question(QStringLiteral("Save Error"), saveErrorText()) == MsgAnswer::Yes)
        m_ports.appendLine(QStringLiteral("fx.savefile"));
    const QString output = testOutput();
    const QString error =
        m_ports.testRun(testRunLine(m_ports.commandLine(), testExample(), output), output);
    if (!error.isEmpty()) {
        messages().inform(QString(), cannotProcessText(error), MsgIcon::Critical);
        return;
    }
    m_step = Step::Photos;
    if (m_ports.stepChanged) m_ports.stepChanged();
}

void ScriptingWorkflow::runPhotos() {
    const QStringList files = m_ports.files();
    const int count = int(files.size()) - 1; // the upper bound: element 0 is empty
    if (count <= 0) {
        messages().inform(QString(), QStringLiteral("No files where added..."), MsgIcon::Critical);
        return;
    }
    if (messages().question(QStringLiteral("Are you sure?"), confirmText(count)) !=
        MsgAnswer::Yes) {
        messages().inform(QString(), abortedText(), MsgIcon::Information);
        return;
    }
    RunScriptingEngine(files);
    messages().inform(QStringLiteral("Finished."), finishedText(), MsgIcon::Information);
    m_ports.clearFiles();
}

QString ScriptingWorkflow::RunScriptingEngine(const QStringList& files) {
    return m_ports.run(QStringLiteral("/files:") + files.join(u';') + m_ports.commandLine() + u' ');
}

namespace ScriptingSplit {

int dragPosition(int splitLeft, double x, int viewWidth) {
    int position = int(splitLeft + x);
    if (position < kMargin) position = kMargin;
    if (position > viewWidth - kMargin) position = viewWidth - kMargin;
    return position;
}

// Rounded as the language the texts come from rounds: halves to the even neighbour.
QString dragStatus(int position, int viewWidth, int twipsPerPixel) {
    const auto round = [](double v) { return qint64(std::nearbyint(v)); };
    return QStringLiteral("Setting Scripting Window to %1% (%2px) Left, %3px Right.")
        .arg(round(double(position) / viewWidth * 100))
        .arg(round(double(position) / twipsPerPixel))
        .arg(round(double(viewWidth - position) / twipsPerPixel));
}

} // namespace ScriptingSplit
