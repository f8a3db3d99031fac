// The photo selection pane's widgets; the list's rules are PhotoList's.
#include "views/panePhotoSelect.h"

#include "controls/FileDialogs.h"
#include "controls/PictureBox.h"
#include "controls/Twips.h"
#include "controls/uCaptionBar.h"
#include "engine/mEngineMain.h"
#include "platform/NativePath.h"
#include "platform/mFile.h"
#include "platform/mWindowsAPI.h"
#include "views/ThumbnailCache.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const QString kSection = QStringLiteral("Settings");
const QString kFolderKey = QStringLiteral("AddFilesDirectory");
constexpr int kIconSide = 40;
constexpr int kPreviewSide = 480;

QPushButton* button(QWidget* parent, const char* name, const QString& caption) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QLatin1String(name));
    return b;
}

// A thumbnail centred on a square, so that rows line up whatever the photo's shape; an empty
// square while the thumbnail is being made keeps the rows' height.
QIcon iconFor(const QImage& thumbnail) {
    QPixmap square(kIconSide, kIconSide);
    square.fill(Qt::transparent);
    if (!thumbnail.isNull()) {
        const QImage fitted =
            thumbnail.scaled(kIconSide, kIconSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPainter painter(&square);
        painter.drawImage((kIconSide - fitted.width()) / 2, (kIconSide - fitted.height()) / 2,
                          fitted);
    }
    return QIcon(square);
}

// The filter label opens its menu on a click.
class ClickLabel : public QLabel {
public:
    using QLabel::QLabel;
    std::function<void()> clicked;

protected:
    void mouseReleaseEvent(QMouseEvent*) override {
        if (clicked) clicked();
    }
};

} // namespace

panePhotoSelect::panePhotoSelect(QWidget* parent)
    : QWidget(parent), m_cap(new uCaptionBar(this)), m_show(new QListWidget(this)),
      m_stat(new QLabel(this)), m_extPanel(new QWidget(this)), m_ext(new QListWidget(m_extPanel)),
      m_addMenu(new QMenu(this)), m_filter(new QMenu(this)), m_removeMenu(nullptr),
      m_keepMenu(nullptr), m_capPreview(new uCaptionBar(this)), m_capImage(new uCaptionBar(this)),
      m_preview(new PictureBox(this)), m_tip(new QTimer(this)),
      m_thumbnails(new ThumbnailCache(this)) {
    nameAndSetUp();
    auto* buttons = new QWidget(this);
    buildButtons(buttons);
    buildFilterMenu();
    buildExtensionPanel();
    buildLayout(buttons);
    connectEvents();
    UpdateList();
}

void panePhotoSelect::nameAndSetUp() {
    setObjectName(QStringLiteral("panePhotoSelect"));
    m_cap->setCaption(QStringLiteral("Select Files..."));
    m_show->setObjectName(QStringLiteral("lstShowFiles"));
    m_show->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_show->setIconSize(QSize(kIconSide, kIconSide));
    m_show->setUniformItemSizes(true);
    m_show->setMouseTracking(true);
    m_show->installEventFilter(this);
    m_show->viewport()->installEventFilter(this);
    m_show->setAcceptDrops(true); // files and folders from the desktop's file manager
    m_show->viewport()->setAcceptDrops(true);
    m_stat->setObjectName(QStringLiteral("lStat"));
    m_capPreview->setObjectName(QStringLiteral("uCapPreview"));
    m_capPreview->setCaption(QStringLiteral("File Preview"));
    m_capImage->setObjectName(QStringLiteral("uCapImage"));
    m_capImage->setCaption(QStringLiteral("Photo Preview"));
    m_preview->setObjectName(QStringLiteral("pImagePreview"));
    m_preview->imageView()->setObjectName(QStringLiteral("ixPreview"));
    m_tip->setObjectName(QStringLiteral("tTip"));
    m_tip->setInterval(300);
    m_tip->setSingleShot(true);
    connect(m_tip, &QTimer::timeout, this, &panePhotoSelect::tipTick);
}

void panePhotoSelect::buildExtensionPanel() {
    m_extPanel->setObjectName(QStringLiteral("pExt"));
    m_ext->setObjectName(QStringLiteral("lstExt"));
    m_ext->setSelectionMode(QAbstractItemView::MultiSelection);
    QPushButton* done = button(m_extPanel, "cmdFilterDone", QStringLiteral("Done"));
    done->setToolTip(QStringLiteral("Click to filter-out all un-selected extensions."));
    connect(done, &QPushButton::clicked, this, &panePhotoSelect::applyExtensionPanel);
    auto* extLayout = new QVBoxLayout(m_extPanel);
    extLayout->setContentsMargins(0, 0, 0, 0);
    extLayout->addWidget(new QLabel(QStringLiteral("Extensions to keep:"), m_extPanel));
    extLayout->addWidget(m_ext, 1);
    extLayout->addWidget(done);
    m_extPanel->hide();
}

// One column, as the pane takes the editor's narrow place: buttons, the list, its status and
// filter, and the photo under the pointer (or the extension panel) below.
void panePhotoSelect::buildLayout(QWidget* buttons) {
    auto* statusRow = new QHBoxLayout;
    statusRow->addWidget(m_stat, 1);
    statusRow->addWidget(m_filterLabel);
    auto* body = new QVBoxLayout;
    body->setContentsMargins(4, 4, 4, 4);
    body->addWidget(buttons);
    body->addWidget(m_show, 3);
    body->addLayout(statusRow);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_cap);
    layout->addLayout(body, 3);
    layout->addWidget(m_capPreview);
    layout->addWidget(m_capImage);
    layout->addWidget(m_preview, 2);
    layout->addWidget(m_extPanel, 2);
}

void panePhotoSelect::connectEvents() {
    connect(m_show, &QListWidget::currentRowChanged, this, &panePhotoSelect::showPreview);
    connect(m_show->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &panePhotoSelect::requestIcons);
    connect(m_thumbnails, &ThumbnailCache::ready, this,
            [this](const QString& path, int side, const QImage& image) {
                if (side == kIconSide) {
                    for (int i = 0; i < m_list.count() && i < m_show->count(); ++i)
                        if (m_list.files()[i] == path) m_show->item(i)->setIcon(iconFor(image));
                } else if (m_show->currentRow() >= 0 && m_show->currentRow() < m_list.count() &&
                           m_list.files()[m_show->currentRow()] == path) {
                    m_preview->setImage(image);
                }
            });
    chooseFiles = [this](const QString& folder) {
        return FileDialogs::openFiles(m_owner ? m_owner : this, QStringLiteral("Add Files"), folder,
                                      mEngineMain::imageDialogFilter(), true);
    };
    chooseFolder = [this](const QString& folder) {
        return FileDialogs::chooseFolder(m_owner ? m_owner : this,
                                         QStringLiteral("Select Folder to Add"), folder);
    };
}

void panePhotoSelect::buildButtons(QWidget* row) {
    QPushButton* files = button(row, "cmdAddFiles", QStringLiteral("Add &Files"));
    QPushButton* folder = button(row, "cmdAddDirectory", QStringLiteral("Add &Folder"));
    QPushButton* remove = button(row, "cmdRemove", QStringLiteral("&Remove Selected Files"));
    QPushButton* clear = button(row, "cmdClear", QStringLiteral("Clear List"));
    auto* filter = new ClickLabel(QStringLiteral("Filter Options >>"), this);
    filter->setObjectName(QStringLiteral("lblExtension"));
    filter->setCursor(Qt::PointingHandCursor);
    filter->clicked = [this] { popupFilter(); };
    m_filterLabel = filter;
    m_addMenu->setObjectName(QStringLiteral("mnuPAdd"));
    QAction* byFolder = m_addMenu->addAction(QStringLiteral("Add by Folder"));
    byFolder->setObjectName(QStringLiteral("mnuAddByFolder"));
    QAction* withSub = m_addMenu->addAction(QStringLiteral("Add by Folder w/ Subfolders"));
    withSub->setObjectName(QStringLiteral("mnuAddByFolderS"));
    connect(files, &QPushButton::clicked, this, &panePhotoSelect::addFiles);
    connect(folder, &QPushButton::clicked, this,
            [this, folder] { m_addMenu->popup(folder->mapToGlobal(QPoint(0, folder->height()))); });
    connect(byFolder, &QAction::triggered, this, [this] { addFolder(false); });
    connect(withSub, &QAction::triggered, this, [this] { addFolder(true); });
    connect(remove, &QPushButton::clicked, this, [this] {
        removeSelected();
        UpdateList();
    });
    connect(clear, &QPushButton::clicked, this, &panePhotoSelect::ClearList);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget* w : std::initializer_list<QWidget*>{files, folder, remove, clear})
        layout->addWidget(w);
    layout->addStretch(1);
}

void panePhotoSelect::buildFilterMenu() {
    m_filter->setObjectName(QStringLiteral("popupFilter"));
    QAction* custom = m_filter->addAction(QStringLiteral("Select File Extensions to Use..."));
    custom->setObjectName(QStringLiteral("mnufilterCustom"));
    connect(custom, &QAction::triggered, this, [this] {
        m_preview->hide();
        m_capImage->hide();
        m_extPanel->show();
    });
    m_filter->addSeparator()->setObjectName(QStringLiteral("mnuBarfilter"));
    m_removeMenu = m_filter->addMenu(QStringLiteral("Remove Files With The"));
    m_removeMenu->setObjectName(QStringLiteral("mnuFileType"));
    m_keepMenu = m_filter->addMenu(QStringLiteral("Keep Only Files With The"));
    m_keepMenu->setObjectName(QStringLiteral("mnufilterKeep"));
}

// One item per extension in each submenu, rebuilt before the menu opens.
void panePhotoSelect::popupFilter() {
    for (QMenu* menu : {m_removeMenu, m_keepMenu}) {
        menu->clear();
        const bool keep = menu == m_keepMenu;
        for (const QString& extension : m_list.extensions()) {
            QAction* item = menu->addAction(PhotoList::extensionCaption(extension));
            item->setObjectName(keep ? QStringLiteral("mnuFileTypeArrB")
                                     : QStringLiteral("mnuFileTypeArr"));
            item->setData(extension);
            connect(item, &QAction::triggered, this,
                    [this, extension, keep] { filterByMenu(extension, keep); });
        }
    }
    m_filter->popup(QCursor::pos());
}

void panePhotoSelect::filterByMenu(const QString& extension, bool keep) {
    if (keep)
        m_list.keepOnlyExtension(extension);
    else
        m_list.removeWithExtension(extension);
    UpdateList();
}

void panePhotoSelect::applyExtensionPanel() {
    m_extPanel->hide();
    m_capImage->show();
    m_preview->show();
    QStringList selected;
    for (QListWidgetItem* item : m_ext->selectedItems())
        selected.append(item->text());
    m_list.keepOnlyExtensions(selected);
    UpdateList();
}

void panePhotoSelect::rememberFolder(const QString& folder) {
    mWindowsAPI::SaveSettingValue(kSection, kFolderKey, folder);
}

void panePhotoSelect::addFiles() {
    const QStringList chosen = chooseFiles(mWindowsAPI::GetSettingValue(kSection, kFolderKey));
    if (chosen.isEmpty()) return;
    QString first = chosen.first();
    while (first.contains(QStringLiteral("\\\\")))
        first.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    if (mFile::FileExists(first)) rememberFolder(mFile::GetPathPart(first, 1));
    m_list.addDialogResult(chosen.join(u';'));
    FixList();
    UpdateList();
}

void panePhotoSelect::addFolder(bool subfolders) {
    const QString folder = chooseFolder(mWindowsAPI::GetSettingValue(kSection, kFolderKey));
    if (folder.isEmpty() || !mFile::FolderExists(folder)) return;
    rememberFolder(folder);
    m_list.addFolder(folder, subfolders);
    FixList();
    UpdateList();
}

void panePhotoSelect::addDropped(const QStringList& paths) {
    m_list.addDropped(paths);
    FixList();
    UpdateList();
}

void panePhotoSelect::removeSelected() {
    QList<int> rows;
    for (const QModelIndex& index : m_show->selectionModel()->selectedRows())
        rows.append(index.row());
    m_list.removeAt(rows);
}

void panePhotoSelect::ClearList() {
    m_list.ClearList();
    UpdateList();
}

void panePhotoSelect::UpdateList() {
    m_stat->setText(m_list.statusText());
    m_ext->clear();
    m_ext->addItems(m_list.extensions());
    m_ext->selectAll();
    const int current = m_show->currentRow();
    const int room =
        m_show->viewport()->width() - m_show->iconSize().width() - 8 - Twips::toPixels(200);
    const QFontMetrics metrics(m_show->font());
    m_show->setUpdatesEnabled(false); // no flicker while the list is filled
    m_show->clear();
    for (const QString& file : m_list.files()) {
        auto* item = new QListWidgetItem(PhotoList::displayText(
            file, [&](const QString& text) { return metrics.horizontalAdvance(text) <= room; }));
        item->setIcon(iconFor(m_thumbnails->cached(file, kIconSide)));
        m_show->addItem(item);
    }
    m_show->setUpdatesEnabled(true);
    if (current >= 0 && current < m_show->count()) m_show->setCurrentRow(current);
    showPreview();
    requestIcons();
}

// Icons are made for the rows in sight only; scrolling asks for the new ones.
void panePhotoSelect::requestIcons() {
    if (m_show->count() == 0) return;
    const int first = std::max(0, m_show->indexAt(QPoint(1, 1)).row());
    const QModelIndex lastIndex = m_show->indexAt(QPoint(1, m_show->viewport()->height() - 2));
    const int last =
        lastIndex.isValid() ? lastIndex.row() : std::min(m_show->count() - 1, first + 30);
    m_thumbnails->request(ThumbnailCache::Icons, m_list.files().mid(first, last - first + 1),
                          kIconSide);
}

void panePhotoSelect::showPreview() {
    const int row = m_show->currentRow();
    const QString file = row >= 0 && row < m_list.count() ? m_list.files()[row] : QString();
    if (file.isEmpty() || !mFile::FileExists(file)) {
        if (m_list.count() > 0) return; // the photo shown stays until another is chosen
        m_capImage->setCaption(QStringLiteral("Photo Preview"));
        m_preview->setImage(QImage());
        return;
    }
    m_capImage->setCaption(PhotoList::previewCaption(mFile::GetPathPart(file, 2)));
    m_preview->setImage(m_thumbnails->cached(file, kPreviewSide));
    m_thumbnails->request(ThumbnailCache::Preview, {file}, kPreviewSide);
}

void panePhotoSelect::tipTick() {
    const int index = m_tipIndex;
    QString tip;
    if (index >= 0 && index < m_list.count()) {
        const QString& path = m_list.files()[index];
        if (QFontMetrics(m_show->font()).horizontalAdvance(path) >
            m_show->width() - Twips::toPixels(200))
            tip = path;
    }
    m_show->setToolTip(tip);
}

void panePhotoSelect::Refresh() {
    updateGeometry();
    UpdateList();
}

void panePhotoSelect::LoadInitSettings() {
    for (uCaptionBar* bar : {m_cap, m_capPreview, m_capImage})
        bar->LoadInitSettings();
}

QString panePhotoSelect::status() const {
    return m_stat->text();
}

QString panePhotoSelect::previewCaption() const {
    return m_capImage->Caption();
}

bool panePhotoSelect::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_show && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & Qt::ControlModifier && key->key() == Qt::Key_A) {
            m_show->selectAll();
            return true;
        }
        if (key->modifiers() & Qt::ControlModifier && key->key() == Qt::Key_O) {
            addFiles();
            return true;
        }
    }
    if (watched == m_show && event->type() == QEvent::KeyRelease &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        removeSelected();
        UpdateList();
        return true;
    }
    if (watched != m_show->viewport()) return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::MouseMove:
        m_tipIndex = m_show->indexAt(static_cast<QMouseEvent*>(event)->position().toPoint()).row();
        if (m_tipIndex < 0) m_tipIndex = m_show->count(); // beyond the list
        m_tip->start();
        break;
    case QEvent::Resize:
        QTimer::singleShot(0, this, &panePhotoSelect::requestIcons);
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto* drag = static_cast<QDropEvent*>(event);
        if (drag->mimeData()->hasUrls()) drag->acceptProposedAction();
        return true;
    }
    case QEvent::Drop: {
        auto* drop = static_cast<QDropEvent*>(event);
        QStringList paths;
        for (const QUrl& url : drop->mimeData()->urls())
            if (url.isLocalFile())
                paths.append(QString::fromStdString(
                    NativePath::toBackslash(url.toLocalFile().toStdString())));
        drop->acceptProposedAction();
        addDropped(paths);
        return true;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
