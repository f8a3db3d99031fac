// The script editor control: caption, toolbar, the script box with its completion list and
// menu, and the four timers. It forwards every event to ScriptEditorCore, which holds the
// logic, and shows what the logic decides.
#pragma once

#include "editor/EditorState.h"

#include <QWidget>
#include <functional>
#include <memory>

class QCheckBox;
class QListWidget;
class QMenu;
class QPushButton;
class ScriptEditorCore;
class ScriptTextBox;
class RichTextSurface;
class uCaptionBar;
class uReference;

class uScriptingWindow : public QWidget {
    Q_OBJECT
public:
    explicit uScriptingWindow(QWidget* parent = nullptr);
    ~uScriptingWindow() override;

    // The main window: parent of the file dialogs, receiver of ConverterToCommandLine (by name).
    void SetOwner(QWidget* owner) { m_owner = owner; }
    void LoadInitSettings();
    void RequestPreview(bool force);
    QString GetCommandLine(const QString& file = {});
    void LoadScriptFile(const QString& file);
    void AppendLine(const QString& text);
    void LoadCommandLine(const QString& commandLine);
    // The pane that dynamic help scrolls (ReferencePane).
    void setReferencePane(uReference* pane);

    QString scriptText() const;
    ScriptEditorCore& core() { return *m_core; }
    ScriptTextBox* box() const { return m_box; }

    // Asks for a file to open (save false) or to write (save true) in `folder`; "" when
    // cancelled. Standard file dialogs unless replaced (tests).
    std::function<QString(bool save, const QString& folder)> chooseFile;

Q_SIGNALS:
    // A command line (or "none") whose effect the preview is to show.
    void PreviewRequest(const QString& commandLine);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    class Timers;

    void buildToolbar();
    void buildMenu();
    void buildCommandMenu();
    void loadScript();
    void saveScript();
    void toCommandLineView();
    void showList();
    void placeList();
    QString defaultChooser(bool save, const QString& folder);

    QWidget* m_owner = nullptr;
    uCaptionBar* m_caption;           // uCap
    QWidget* m_toolbar;               // pToolbar
    QPushButton* m_load;              // cmdLoadScript
    QPushButton* m_save;              // cmdSaveScript
    QCheckBox* m_auto;                // chkAuto
    ScriptTextBox* m_box;             // rtfScript
    QListWidget* m_list;              // lstProperties
    QMenu* m_menu;                    // mnuPopup
    QMenu* m_commandMenu;             // mnuAdd
    std::unique_ptr<Timers> m_timers; // tColorize, tFind, tHelp, tDoPreview
    std::unique_ptr<RichTextSurface> m_surface;
    std::unique_ptr<ScriptEditorCore> m_core;
};
