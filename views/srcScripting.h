// The scripting view: step 1, the script editor beside the tool pane (reference and preview);
// step 2, the photo selection pane in the editor's place and the run. A splitter bar divides the
// left part from the tool pane; its feedback goes to the status line.
#pragma once

#include "views/ScriptingWorkflow.h"

#include <QWidget>
#include <functional>
#include <memory>

class QPushButton;
class uCaptionBar;
class uDialog;
class uPreview;
class uReference;
class uScriptingWindow;
class frmScript;
class paneTools;
class panePhotoSelect;

class srcScripting : public QWidget {
    Q_OBJECT
public:
    // How a line is run: the engine's RunCommandLine for the real run, a run on private objects
    // writing only `output` for the test run; tests replace them.
    using Runner = std::function<QString(const QString& line)>;
    using TestRunner = std::function<QString(const QString& line, const QString& output)>;

    explicit srcScripting(QWidget* parent = nullptr);
    ~srcScripting() override;

    void LoadInitSettings();
    // The script converted from a command line replaces the one being edited.
    void LoadCommandLine(const QString& commandLine);
    void SetOwner(frmScript* owner);
    QString RunScriptingEngine(const QStringList& files);

    QString scriptText() const;
    uScriptingWindow* editor() const { return m_editor; }
    uReference* reference() const;
    uPreview* preview() const;
    paneTools* tools() const { return m_tools; }
    panePhotoSelect* photos() const { return m_photos; }
    ScriptingWorkflow& workflow() { return *m_workflow; }
    void setRunner(Runner runner) { m_runner = std::move(runner); }
    void setTestRunner(TestRunner runner) { m_testRunner = std::move(runner); }
    // The editor's width as stored (pSplit.Tag), in twips.
    int splitTwips() const { return m_splitTag; }
    QString statusText() const;

    static const QString& description();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void nameAndLabel();
    void buildLayout();
    void buildWorkflow();
    void stepChanged();
    void layoutContent();

    frmScript* m_owner = nullptr;
    uCaptionBar* m_caption;     // uCap
    uDialog* m_dialog;          // uDialog
    QWidget* m_content;         // the area the splitter divides
    uScriptingWindow* m_editor; // uScriptingWindow
    panePhotoSelect* m_photos;  // panePhotoSelect
    QWidget* m_bar;             // pSplit
    QWidget* m_indicator;       // pHSplit
    paneTools* m_tools;         // paneTools
    QPushButton* m_back;        // cmdConfig
    QPushButton* m_next;        // cmdSelectPhotos
    uCaptionBar* m_status;      // uStatus
    int m_splitTag;
    int m_dragLeft = 0;
    Runner m_runner;
    TestRunner m_testRunner;
    std::unique_ptr<ScriptingWorkflow> m_workflow;
};
