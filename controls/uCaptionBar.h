// The title strip at the top of every pane: a caption, a status text, and double-clicks.
#pragma once

#include <QWidget>

class QLabel;

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
