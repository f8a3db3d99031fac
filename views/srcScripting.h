// The scripting view. For now it holds the description strip and a plain script text; the
// editor with colouring, completion and help, the tool pane and the photo pane come later.
#pragma once

#include <QWidget>

class QPlainTextEdit;
class uCaptionBar;
class uDialog;
class frmScript;

class srcScripting : public QWidget {
    Q_OBJECT
public:
    explicit srcScripting(QWidget* parent = nullptr);

    void LoadInitSettings() {}
    void SetOwner(frmScript* owner) { m_owner = owner; }
    // The script converted from a command line replaces the one being edited.
    void LoadCommandLine(const QString& commandLine);
    QString scriptText() const;

    static const QString& description();

private:
    frmScript* m_owner = nullptr;
    uCaptionBar* m_caption;
    uDialog* m_dialog;
    QPlainTextEdit* m_editor;
    uCaptionBar* m_status;
};
