// The progress window on screen: a small Qt window drawing the state of frmConvProgress.
#pragma once

#include "engine/frmConvProgress.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

// Caption, the "Now Converting:" label (Label1), a bar of photos done and the rate. Shown
// modeless when the script shows the progress; DoXEvents lets Qt handle pending events once.
class frmConvProgressWindow : public QWidget, public ProgressBackend {
public:
    explicit frmConvProgressWindow(QWidget* parent = nullptr);
    void render(const ProgressState& state) override;
    void processEvents() override;
    void setCancelHandler(std::function<void()> handler) override;

    QLabel* label1() const { return m_label1; }
    QProgressBar* bar() const { return m_bar; }
    QPushButton* cancelButton() const { return m_cancel; }
    QLabel* rate() const { return m_rate; }

private:
    QLabel* m_label1;
    QProgressBar* m_bar;
    QLabel* m_rate;
    QPushButton* m_cancel;
    std::function<void()> m_onCancel;
};
