// The scripting view: caption, description, the script editor beside the reference pane, and the
// status line that shows the last preview request. (The tool pane with the preview and the photo
// pane come with their own parts.)
#pragma once

#include <QWidget>

class QSplitter;
class uCaptionBar;
class uDialog;
class uReference;
class uScriptingWindow;
class frmScript;

class srcScripting : public QWidget {
    Q_OBJECT
public:
    explicit srcScripting(QWidget* parent = nullptr);

    void LoadInitSettings();
    void SetOwner(frmScript* owner);
    // The script converted from a command line replaces the one being edited.
    void LoadCommandLine(const QString& commandLine);
    QString scriptText() const;

    uScriptingWindow* editor() const { return m_editor; }
    uReference* reference() const { return m_reference; }

    static const QString& description();

private:
    frmScript* m_owner = nullptr;
    uCaptionBar* m_caption;
    uDialog* m_dialog;
    QSplitter* m_split;
    uScriptingWindow* m_editor;
    uReference* m_reference;
    uCaptionBar* m_status;
};
