// The command-line view: type a line of switches, run it, or turn it into a script.
#pragma once

#include <QWidget>
#include <functional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class uCaptionBar;
class frmScript;

class srcCommandLine : public QWidget {
    Q_OBJECT
public:
    // How Run hands the line to the engine; the engine's RunCommandLine unless a test says else.
    using Runner = std::function<QString(const QString& commandLine, bool previewMode)>;

    explicit srcCommandLine(QWidget* parent = nullptr);

    void LoadInitSettings() {}
    void SetOwner(frmScript* owner) { m_owner = owner; }
    void SetCommandLine(const QString& text);
    QString commandLine() const;
    void setRunner(Runner runner) { m_runner = std::move(runner); }

    // The buttons' actions, also for the menu and for tests.
    void Run();
    void Convert();

    static const QString& exampleLine();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    frmScript* m_owner = nullptr;
    Runner m_runner;
    uCaptionBar* m_caption;
    QPlainTextEdit* m_text; // txtCmd
    QLineEdit* m_example;   // Text2
};
