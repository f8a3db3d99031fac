// The photo selection pane: the list of photos a run goes over, added by file, folder or
// folder with subfolders (or dropped from the file manager), pruned by extension, previewed.
#pragma once

#include "views/PhotoList.h"

#include <QWidget>
#include <functional>

class QLabel;
class QListWidget;
class QMenu;
class QPushButton;
class QTimer;
class PictureBox;
class ThumbnailCache;
class uCaptionBar;

class panePhotoSelect : public QWidget {
    Q_OBJECT
public:
    explicit panePhotoSelect(QWidget* parent = nullptr);

    void removeSelected();
    void Refresh();
    QStringList GetAllFilesArray() const { return m_list.GetAllFilesArray(); }
    void FixList() { m_list.FixList(); }
    static int findInListBox(const QStringList& list, const QString& text) {
        return PhotoList::findInListBox(list, text);
    }
    void UpdateList();
    void ClearList();
    void SetOwner(QWidget* owner) { m_owner = owner; }
    void LoadInitSettings();

    // The add operations and the filters, as the buttons and menus run them.
    void addFiles();
    void addFolder(bool subfolders);
    void addDropped(const QStringList& paths);
    void filterByMenu(const QString& extension, bool keep);
    void applyExtensionPanel();

    // Dialogs, replaced in tests: files chosen in `folder` (none when cancelled), a folder.
    std::function<QStringList(const QString& folder)> chooseFiles;
    std::function<QString(const QString& folder)> chooseFolder;

    const PhotoList& list() const { return m_list; }
    QListWidget* shownList() const { return m_show; }
    QListWidget* extensionList() const { return m_ext; }
    QMenu* filterMenu() const { return m_filter; }
    QString status() const;
    QString previewCaption() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void nameAndSetUp();
    void buildButtons(QWidget* row);
    void buildExtensionPanel();
    void buildLayout(QWidget* buttons);
    void connectEvents();
    void buildFilterMenu();
    void popupFilter();
    void showPreview();
    void requestIcons();
    void tipTick();
    void rememberFolder(const QString& folder);

    QWidget* m_owner = nullptr;
    PhotoList m_list;                // lstFiles
    uCaptionBar* m_cap;              // uCap
    QListWidget* m_show;             // lstShowFiles
    QLabel* m_stat;                  // lStat
    QLabel* m_filterLabel = nullptr; // lblExtension
    QWidget* m_extPanel;             // pExt
    QListWidget* m_ext;              // lstExt
    QMenu* m_addMenu;                // mnuPAdd
    QMenu* m_filter;                 // popupFilter
    QMenu* m_removeMenu;             // mnuFileType
    QMenu* m_keepMenu;               // mnufilterKeep
    uCaptionBar* m_capPreview;       // uCapPreview
    uCaptionBar* m_capImage;         // uCapImage
    PictureBox* m_preview;           // pImagePreview with ixPreview
    QTimer* m_tip;                   // tTip; its tag is the hovered index
    int m_tipIndex = -1;
    ThumbnailCache* m_thumbnails;
};
