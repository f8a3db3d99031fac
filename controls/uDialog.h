// A strip with a paragraph of explanatory text on a painted background.
#pragma once

#include <QWidget>

class QLabel;

class uDialog : public QWidget {
    Q_OBJECT
public:
    explicit uDialog(QWidget* parent = nullptr);

    QString Text() const;
    void setText(const QString& text);
    void LoadInitSettings() {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLabel* m_label; // lblDialog
};
