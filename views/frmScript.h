// The main window: the two views, the menu bar, the automation preferences and the placement.
#pragma once

#include <QMainWindow>
#include <array>
#include <memory>

class QAction;
class QLockFile;
class QMenu;
class QStackedWidget;
class srcCommandLine;
class srcScripting;

class frmScript : public QMainWindow {
    Q_OBJECT
public:
    explicit frmScript(QWidget* parent = nullptr);
    ~frmScript() override;

    // Makes the view named `name` (any case) the current one and shows its menus.
    void ShowTool(const QString& name);
    // Shows the menus of the current view, hides those of the others.
    void DoMenus();
    // The command line as a script in the scripting view, which becomes current.
    void ConvertToScript(const QString& commandLine);
    // The command line in the command-line view, which becomes current.
    Q_INVOKABLE void ConverterToCommandLine(const QString& commandLine);
    // Sets the preference check marks and asks every view to re-read the preferences.
    void LoadInitSettings();

    const QString& CurrentTool() const { return m_currentTool; }
    srcScripting* scriptingView() const { return m_scripting; }
    srcCommandLine* commandLineView() const { return m_commandLine; }
    // Another instance was running when this window was made: it kept the default placement.
    bool isSecondInstance() const { return !m_instanceLock; }

    static QString caption();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    QMenu* addMenu(QMenu* parent, const char* name, const QString& caption);
    QAction* addAction(QMenu* menu, const char* name, const QString& caption);
    void preferenceClicked(int index);
    void turnOffAutomation();
    void restorePlacement();
    void savePlacement();

    QString m_currentTool;
    QStackedWidget* m_views;
    srcScripting* m_scripting;
    srcCommandLine* m_commandLine;
    std::array<QAction*, 4> m_pref{};
    std::unique_ptr<QLockFile> m_instanceLock;
};
