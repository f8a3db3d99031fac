// The script editor's logic without a window: its state, the operations its host calls, the
// colouring pass, the preview trigger, dynamic help, and its key, mouse and timer events, which
// the window (uScriptingWindow) only forwards.
#pragma once

#include "editor/AutoComplete.h"
#include "editor/EditorState.h"
#include "editor/ScriptColorizer.h"

#include <functional>

class ScriptEditorCore : public EditSurface::Listener {
public:
    ScriptEditorCore(EditSurface& box, TimerPort& timers);

    // Start: reads the command list and error patterns from dataFolder, makes a new script.
    void start(const QString& dataFolder);
    void setCommandList(const QStringList& commands, const QStringList& errorPatterns);

    // --- operations of the host ---
    // Re-applies the preferences: every character plain again, then a full pass.
    void LoadInitSettings();
    void RequestPreview(bool force);
    // The script as a command line; an existing `file` is loaded first.
    QString GetCommandLine(const QString& file);
    void LoadScriptFile(const QString& file);
    void AppendLine(const QString& text);
    void LoadCommandLine(const QString& commandLine);
    void NewScript();
    // full: recolour everything (every caller asks for it); onlyIfChanged: skip the pass when
    // the text did not change since the last one. lineHint is not used.
    void Colorize(bool full, const QString& lineHint, bool onlyIfChanged);

    // --- commands of the toolbar and menu ---
    void insertCommand(const QString& command);
    void autoCompleteToggled();
    // The folder the file dialogs open, and remembering the one a file was chosen in.
    static QString scriptDirectory();
    // A chosen file: an existing one is loaded and its folder remembered.
    void loadChosenFile(const QString& file);
    // Writes the script; false when the file could not be written.
    bool saveToFile(const QString& file);
    // "/files:nofiles " + the command line, for the command-line view.
    QString commandLineForView();

    // --- events of the box ---
    bool keyDown(int key); // true: the key is used up
    void keyPress();       // a character was typed
    void keyUp(int key);
    void click();
    void mouseDown();
    void focusLost();
    void mouseUp(); // any button but the right one, which opens the menu
    void listDoubleClicked(int index);
    void tick(EditorTimer timer);

    // Raised with a command line (or "none") for the preview.
    std::function<void(QString&)> PreviewRequest;
    // The reference pane's ShowTopic; unset until the host connects a pane.
    std::function<void(const QString&)> ReferencePane;

    EditorState& state() { return m_state; }
    const LookMap& looks() const { return m_looks; }

    void textEdited(int pos, int removed, int added) override;

private:
    void requestPreview(bool force, const QString& text);
    void TrackCaretLine();
    void dynamicHelpTick();
    void dormantColourTick();

    EditSurface& m_box;
    TimerPort& m_timers;
    EditorState m_state;
    LookMap m_looks;
    ScriptColorizer m_colorizer;
    AutoComplete m_complete;
};
