// The photo compare pane: the example photo as it is and after the current script, rendered on
// a worker thread so that typing never waits for a preview.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMenu;
class QTimer;
class PictureBox;
class WorkerQueue;
class uCaptionBar;

class uPreview : public QWidget {
    Q_OBJECT
public:
    explicit uPreview(QWidget* parent = nullptr);
    ~uPreview() override;

    void LoadInitSettings();
    void SetOwner(QWidget* owner) { m_owner = owner; }
    // Makes the file the example photo; a missing one becomes the built-in example (and so does
    // the caller's variable).
    void SetPreviewImage(QString& path);
    // Renders the preview of a script in command-line form ("none": dynamic preview is off).
    // The rendering runs on the worker; a newer call supersedes an older one, which is stopped
    // at its next statement. Returns "" at once; PreviewShown brings the engine's text.
    QString DoPreview(const QString& commandLine);
    void SetPaneCaption();

    // Asks for a photo in `folder`; "" when cancelled. A file dialog unless replaced (tests).
    std::function<QString(const QString& folder)> chooseFile;

    // What the pane shows, for its host and tests.
    const QString& examplePhoto() const { return m_photo; }
    bool isCollapsed() const;
    bool previewPhotoShown() const;
    QStringList printedText() const;
    QImage previewImage() const;
    QImage originalImage() const;
    QMenu* popupMenu() const { return m_menu; }

Q_SIGNALS:
    void MaximizeRequest();
    // A preview (or the error text that replaces it) is on screen.
    void PreviewShown(const QString& errorText);
    // The example photo is on screen.
    void ExampleShown();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Frame;
    void nameAndLabel();
    void connectEvents();
    void buildMenu();
    void layoutPane();
    void printInstead(const QStringList& lines);
    void showFrame(quint64 request, const Frame& frame);
    void toolsFor(bool original);
    void selectPreviewImage();
    void makeDefault();
    void restoreBuiltIn();

    QWidget* m_owner = nullptr;
    uCaptionBar* m_cap;     // uCap
    QLabel* m_info;         // lblInfo
    uCaptionBar* m_normal;  // uNormal
    PictureBox* m_pNormal;  // pNormal with ixO and pNormalTools
    uCaptionBar* m_preview; // uPreview
    PictureBox* m_pPreview; // pPreview with ixP and pPreviewTools
    QTimer* m_hide;         // tHide
    QMenu* m_menu;          // mnuPopup
    QAction* m_makeDefault; // mnuMakeDefault
    QAction* m_restore;     // mnuRestore
    QString m_photo;        // the example photo
    QString m_lastLine;     // the last command line asked for, shown again on expanding
    bool m_wasCollapsed = true;
    quint64 m_request = 0; // the newest preview asked for; older results are dropped
    std::unique_ptr<WorkerQueue> m_worker;
};
