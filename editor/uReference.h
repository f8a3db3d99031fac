// The reference pane: the reference document (data/index.html) in a browser that dynamic help
// scrolls to the member under the editor's caret, with an Index button and its own switch for
// dynamic help.
#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;
class QTextBrowser;
class uCaptionBar;

class uReference : public QWidget {
    Q_OBJECT
public:
    explicit uReference(QWidget* parent = nullptr);

    void LoadInitSettings();
    // Scrolls the document to the first occurrence of `word` (any case), the entry near the top.
    void ShowTopic(const QString& word);
    // Loads the reference document anew (the Index button).
    void ShowIndex();

    QTextBrowser* browser() const { return m_reference; }

Q_SIGNALS:
    void MaximizeRequest();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void helpToggled();

    uCaptionBar* m_caption;    // uCap
    QTextBrowser* m_reference; // rtfReference
    QPushButton* m_index;      // cmdIndex
    QCheckBox* m_help;         // chkHelp
    QLabel* m_info;            // lblInfo
};
