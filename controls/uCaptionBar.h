// The title strip at the top of every pane: a caption, a status text, and double-clicks.
#pragma once

#include <QLabel>
#include <QWidget>

#include <functional>

class uCaptionBar : public QWidget {
    Q_OBJECT
public:
    explicit uCaptionBar(QWidget* parent = nullptr);

    QString Caption() const;
    void setCaption(const QString& caption);
    QString Status() const;
    void setStatus(const QString& status);
    void LoadInitSettings() {}

    QSize sizeHint() const override;

Q_SIGNALS:
    // Once per double-click anywhere on the strip (caption, status or background).
    void CaptionDblClick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QLabel* m_caption; // lblCap
    QLabel* m_status;  // lblStat
};

// A pane's hint line under the caption: double-clicks on it count as the caption bar's.
class InfoLabel : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void()> doubleClicked;

protected:
    void mouseDoubleClickEvent(QMouseEvent*) override {
        if (doubleClicked) doubleClicked();
    }
};
