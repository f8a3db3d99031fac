// The script editor's operations and events.
#include "editor/ScriptEditorCore.h"

#include "editor/ScriptFiles.h"
#include "engine/mEngineMain.h"
#include "platform/Messages.h"
#include "platform/mFile.h"
#include "platform/mWindowsAPI.h"

#include <QCoreApplication>

namespace {

const QString kSettings = QStringLiteral("Settings");
const QString kScriptDirectory = QStringLiteral("ScriptDirectory");

const mWindowsAPI::Preferences& prefs() {
    return mWindowsAPI::preferences();
}

} // namespace

ScriptEditorCore::ScriptEditorCore(EditSurface& box, TimerPort& timers)
    : m_box(box), m_timers(timers),
      m_complete(m_state, box, timers, [this] { Colorize(true, QStringLiteral("-1"), true); }) {
    m_box.setListener(this);
    m_looks.reset(int(m_box.text().size()));
}

void ScriptEditorCore::start(const QString& dataFolder) {
    QStringList commands, patterns;
    ScriptFiles::loadCommandList(dataFolder, commands, patterns);
    setCommandList(commands, patterns);
    NewScript();
}

void ScriptEditorCore::setCommandList(const QStringList& commands, const QStringList& patterns) {
    m_state.Commands = commands;
    m_state.ErrorPatterns = patterns;
    m_colorizer.setCommands(commands);
    m_colorizer.setErrorPatterns(patterns);
}

void ScriptEditorCore::LoadInitSettings() {
    m_looks.reset(m_looks.size());
    m_box.showLooks(m_looks, 0, m_looks.size());
    Colorize(true, QStringLiteral("-1"), false);
}

void ScriptEditorCore::RequestPreview(bool force) {
    requestPreview(force, m_box.text());
}

// The box's text is read once per pass; the preview's conversion takes it from there.
void ScriptEditorCore::requestPreview(bool force, const QString& text) {
    QString commandLine;
    if (!force && !prefs().SetDynamicPreview) {
        commandLine = QStringLiteral("none");
        if (PreviewRequest) PreviewRequest(commandLine);
        return;
    }
    commandLine = mEngineMain::ScriptToCommandLine(ScriptFiles::toCrLf(text));
    if (commandLine == m_state.LastCommandLine && !force) return;
    m_state.LastCommandLine = commandLine;
    // Automatic previews never pop up the script's messages.
    if (!force)
        commandLine.replace(QStringLiteral("/fx.msgdisplay "), QStringLiteral("/msghide..."));
    if (PreviewRequest) PreviewRequest(commandLine);
}

QString ScriptEditorCore::GetCommandLine(const QString& file) {
    if (!file.isEmpty() && mFile::FileExists(file)) LoadScriptFile(file);
    return mEngineMain::ScriptToCommandLine(ScriptFiles::toCrLf(m_box.text()));
}

void ScriptEditorCore::LoadScriptFile(const QString& file) {
    if (mFile::FileExists(file)) m_box.setText(ScriptFiles::readScript(file));
    Colorize(true, QStringLiteral("-1"), false);
}

void ScriptEditorCore::AppendLine(const QString& text) {
    m_box.setText(m_box.text() + u'\n' + text);
    Colorize(true, QStringLiteral("-1"), false);
}

void ScriptEditorCore::LoadCommandLine(const QString& commandLine) {
    NewScript();
    const QString script = mEngineMain::CommandLineToScript(commandLine);
    m_box.setText(m_box.text() + ScriptFiles::fromCrLf(script));
    Colorize(true, QStringLiteral("-1"), false);
}

void ScriptEditorCore::NewScript() {
    const QString version = ScriptFiles::headerVersion(QCoreApplication::applicationVersion());
    const QString header =
        ScriptFiles::newScriptHeader(applicationTitle(), version, QDateTime::currentDateTime());
    m_box.setText(ScriptFiles::fromCrLf(header));
    m_box.setSelStart(int(m_box.text().size()));
    Colorize(true, QStringLiteral("-1"), false);
}

void ScriptEditorCore::Colorize(bool full, const QString&, bool onlyIfChanged) {
    if (!prefs().SetColorize || (onlyIfChanged && !m_state.TextChanged)) return;
    const QString text = m_box.text();
    requestPreview(false, text);
    if (full) {
        const auto [from, to] = m_looks.assign(m_colorizer.colour(text));
        if (from < to) m_box.showLooks(m_looks, from, to);
    }
    m_state.TextChanged = false;
}

void ScriptEditorCore::insertCommand(const QString& command) {
    const bool emptyLine = m_box.caretLineText().trimmed().isEmpty();
    m_box.replaceSelection((emptyLine ? QString() : QStringLiteral("\n")) + command + u' ');
    Colorize(true, QStringLiteral("-1"), false);
}

void ScriptEditorCore::autoCompleteToggled() {
    if (!mWindowsAPI::isLoadingSettings()) {
        mWindowsAPI::preferences().SetAutoComplete = !prefs().SetAutoComplete;
        mWindowsAPI::SaveSettings();
    }
    m_state.list.visible = false;
    Colorize(true, QStringLiteral("-1"), false);
}

QString ScriptEditorCore::scriptDirectory() {
    return mWindowsAPI::GetSettingValue(kSettings, kScriptDirectory,
                                        mFile::AddBackslash(mFile::programFolder()) +
                                            QStringLiteral("scripts"));
}

void ScriptEditorCore::loadChosenFile(const QString& file) {
    if (file.isEmpty() || !mFile::FileExists(file)) return;
    mWindowsAPI::SaveSettingValue(kSettings, kScriptDirectory, mFile::GetPathPart(file, 1));
    LoadScriptFile(file);
}

bool ScriptEditorCore::saveToFile(const QString& file) {
    mWindowsAPI::SaveSettingValue(kSettings, kScriptDirectory, mFile::GetPathPart(file, 1));
    return ScriptFiles::writeScript(file, m_box.text());
}

QString ScriptEditorCore::commandLineForView() {
    return QStringLiteral("/files:nofiles ") + GetCommandLine(QString());
}

bool ScriptEditorCore::keyDown(int key) {
    // New text is plain black, except inside a comment.
    if (m_looks.atCaret(m_box.selStart(), m_box.selLength()).ink != Ink::Comment)
        m_looks.setInsertionLook(Look{});
    else
        m_looks.setInsertionLook(std::nullopt);
    return m_complete.keyDown(key);
}

void ScriptEditorCore::keyPress() {
    m_timers.setEnabled(EditorTimer::DoPreview, false);
    m_timers.setEnabled(EditorTimer::DoPreview, true);
}

void ScriptEditorCore::keyUp(int key) {
    m_complete.keyUp(key);
}

void ScriptEditorCore::click() {
    m_state.list.visible = false;
    TrackCaretLine();
}

void ScriptEditorCore::mouseDown() {
    m_complete.dropSuggestion();
}

void ScriptEditorCore::focusLost() {
    m_complete.dropSuggestion();
}

void ScriptEditorCore::mouseUp() {
    Colorize(true, QStringLiteral("-1"), true);
}

void ScriptEditorCore::listDoubleClicked(int index) {
    m_complete.listDoubleClicked(index);
}

void ScriptEditorCore::textEdited(int pos, int removed, int added) {
    m_looks.edit(pos, removed, added);
    m_state.TextChanged = true;
    TrackCaretLine();
}

void ScriptEditorCore::TrackCaretLine() {
    m_state.findTag = m_box.caretLineText();
    if (m_state.findTag.size() > 2) m_timers.setEnabled(EditorTimer::Find, true);
}

void ScriptEditorCore::tick(EditorTimer timer) {
    switch (timer) {
    case EditorTimer::Find:
        dynamicHelpTick();
        break;
    case EditorTimer::Help:
        m_complete.FillHelpList();
        break;
    case EditorTimer::DoPreview:
        RequestPreview(false);
        m_timers.setEnabled(EditorTimer::DoPreview, false);
        break;
    case EditorTimer::Colorize:
        dormantColourTick();
        break;
    }
}

// The first word of an fx line is looked up in the reference, once per word.
void ScriptEditorCore::dynamicHelpTick() {
    const QString& line = m_state.findTag;
    if (line.size() >= 5) {
        const QString word = line.section(u' ', 0, 0);
        if (word != m_state.LastHelpWord) {
            m_state.LastHelpWord = word;
            if (word.contains(QStringLiteral("fx."), Qt::CaseInsensitive) && word.size() > 4 &&
                ReferencePane)
                ReferencePane(word);
        }
    }
    m_timers.setEnabled(EditorTimer::Find, false);
}

// tColorize is never started; its handler shows a typed word (its tag, ending at the caret)
// in blue over the length of each command it begins.
void ScriptEditorCore::dormantColourTick() {
    const QString& word = m_state.colorizeTag;
    if (word.size() < 6) return;
    const int caret = m_box.selStart();
    const int from = caret - int(word.size());
    for (const QString& command : m_state.Commands) {
        if (!command.startsWith(word, Qt::CaseInsensitive) || from < 0) continue;
        std::vector<Look> looks = m_looks.looks();
        const int to = std::min(from + int(command.size()), int(looks.size()));
        for (int i = from; i < to; ++i)
            looks[size_t(i)].ink = Ink::Typed;
        m_looks.assign(std::move(looks));
        m_box.showLooks(m_looks, from, to);
        m_box.setSelStart(caret);
    }
}
