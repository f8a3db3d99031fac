// The preview pane's widgets; the rules are PreviewPaneLogic's, the rendering PreviewRender's.
#include "effects/uPreview.h"

#include "controls/FileDialogs.h"
#include "controls/PictureBox.h"
#include "controls/Twips.h"
#include "controls/uCaptionBar.h"
#include "effects/PreviewPaneLogic.h"
#include "effects/PreviewRender.h"
#include "engine/mEngineMain.h"
#include "platform/WorkerQueue.h"
#include "platform/mFile.h"
#include "platform/mWindowsAPI.h"

#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

namespace {

const QString kSection = QStringLiteral("Settings");
enum Channel { ExampleChannel, PreviewChannel };

} // namespace

struct uPreview::Frame {
    QString errorText;
    QImage image;
    QString info;
};

uPreview::uPreview(QWidget* parent)
    : QWidget(parent), m_cap(new uCaptionBar(this)), m_info(new InfoLabel(this)),
      m_normal(new uCaptionBar(this)), m_pNormal(new PictureBox(this)),
      m_preview(new uCaptionBar(this)), m_pPreview(new PictureBox(this)), m_hide(new QTimer(this)),
      m_menu(new QMenu(this)), m_worker(std::make_unique<WorkerQueue>()) {
    nameAndLabel();
    connectEvents();
    buildMenu();
    SetPaneCaption();
    QString photo = mWindowsAPI::GetSettingValue(kSection, PreviewPaneLogic::kExamplePhotoKey);
    SetPreviewImage(photo);
}

void uPreview::nameAndLabel() {
    setObjectName(QStringLiteral("uPreview"));
    m_cap->setObjectName(QStringLiteral("uCap"));
    m_info->setObjectName(QStringLiteral("lblInfo"));
    m_normal->setObjectName(QStringLiteral("uNormal"));
    m_preview->setObjectName(QStringLiteral("uPreview"));
    m_pNormal->setObjectName(QStringLiteral("pNormal"));
    m_pPreview->setObjectName(QStringLiteral("pPreview"));
    m_pNormal->imageView()->setObjectName(QStringLiteral("ixO"));
    m_pPreview->imageView()->setObjectName(QStringLiteral("ixP"));
    m_pNormal->tools()->setObjectName(QStringLiteral("pNormalTools"));
    m_pPreview->tools()->setObjectName(QStringLiteral("pPreviewTools"));
    m_hide->setObjectName(QStringLiteral("tHide"));
    m_cap->setCaption(QStringLiteral("Photo Compare Pane"));
    m_normal->setCaption(QStringLiteral("Original Photo:"));
    m_preview->setCaption(QStringLiteral("Preview Photo:"));
    m_normal->setStatus(QStringLiteral("example.jpg"));
    m_preview->setStatus(QStringLiteral("example.jpg"));
    m_info->setText(PreviewPaneLogic::kInitialHint);
    QPalette palette = m_info->palette();
    palette.setColor(QPalette::WindowText, Qt::white);
    m_info->setPalette(palette);
    m_info->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (PictureBox* box : {m_pNormal, m_pPreview})
        box->tools()->setText(PreviewPaneLogic::kToolsHint);
}

void uPreview::connectEvents() {
    m_hide->setInterval(500);
    // It keeps firing until the mouse moves again, as the strips may be shown meanwhile.
    connect(m_hide, &QTimer::timeout, this, [this] {
        m_pNormal->tools()->hide();
        m_pPreview->tools()->hide();
    });
    m_pNormal->mouseMoved = [this] { toolsFor(true); };
    m_pPreview->mouseMoved = [this] { toolsFor(false); };
    for (PictureBox* box : {m_pNormal, m_pPreview})
        box->rightReleased = [this](const QPoint& at) { m_menu->popup(at); };
    connect(m_cap, &uCaptionBar::CaptionDblClick, this, &uPreview::MaximizeRequest);
    static_cast<InfoLabel*>(m_info)->doubleClicked = [this] { Q_EMIT MaximizeRequest(); };
    chooseFile = [this](const QString& folder) {
        const QStringList files =
            FileDialogs::openFiles(m_owner ? m_owner : this, QStringLiteral("Select Preview Image"),
                                   folder, mEngineMain::imageDialogFilter(), false);
        return files.isEmpty() ? QString() : files.first();
    };
}

uPreview::~uPreview() {
    m_worker.reset(); // no job may report to a pane being torn down
}

void uPreview::buildMenu() {
    m_menu->setObjectName(QStringLiteral("mnuPopup"));
    m_makeDefault = m_menu->addAction(QString());
    m_makeDefault->setObjectName(QStringLiteral("mnuMakeDefault"));
    m_restore = m_menu->addAction(QStringLiteral("Restore 'example.jpg' as Preview"));
    m_restore->setObjectName(QStringLiteral("mnuRestore"));
    m_menu->addSeparator();
    QAction* select = m_menu->addAction(QStringLiteral("Select Preview Image..."));
    select->setObjectName(QStringLiteral("mnuSelectPreviewImage"));
    connect(m_makeDefault, &QAction::triggered, this, &uPreview::makeDefault);
    connect(m_restore, &QAction::triggered, this, &uPreview::restoreBuiltIn);
    connect(select, &QAction::triggered, this, &uPreview::selectPreviewImage);
}

void uPreview::LoadInitSettings() {
    for (uCaptionBar* bar : {m_cap, m_normal, m_preview})
        bar->LoadInitSettings();
}

bool uPreview::isCollapsed() const {
    return PreviewPaneLogic::isCollapsed(m_cap->sizeHint().height(), height());
}

void uPreview::SetPaneCaption() {
    m_info->setText(PreviewPaneLogic::paneHint(isCollapsed()));
}

void uPreview::SetPreviewImage(QString& path) {
    if (!mFile::FileExists(path)) path = PreviewPaneLogic::builtInExample();
    m_photo = path;
    const QString photo = path;
    m_worker->submit(ExampleChannel, [this, photo](const std::atomic<bool>&) {
        PreviewRender::ExampleFrame frame = PreviewRender::loadExample(photo);
        QMetaObject::invokeMethod(
            this,
            [this, frame] {
                m_pNormal->setImage(frame.image);
                m_pNormal->imageView()->setToolTip(frame.info);
                Q_EMIT ExampleShown();
            },
            Qt::QueuedConnection);
    });
    const PreviewPaneLogic::MenuState menu = PreviewPaneLogic::menuState(
        path, mWindowsAPI::GetSettingValue(kSection, PreviewPaneLogic::kExamplePhotoKey,
                                           PreviewPaneLogic::builtInExample()));
    m_makeDefault->setText(menu.makeDefaultCaption);
    m_makeDefault->setEnabled(menu.makeDefaultEnabled);
    m_makeDefault->setData(menu.makeDefaultTag);
    m_restore->setVisible(menu.restoreVisible);
    DoPreview(QString());
}

QString uPreview::DoPreview(const QString& commandLine) {
    m_lastLine = commandLine;
    const quint64 request = ++m_request;
    if (isCollapsed()) {
        m_worker->cancel(PreviewChannel);
        printInstead(PreviewPaneLogic::noPreviewLines(false));
        return {};
    }
    if (commandLine == u"none") {
        m_worker->cancel(PreviewChannel);
        printInstead(PreviewPaneLogic::noPreviewLines(true));
        return {};
    }
    const QString photo = m_photo, output = PreviewPaneLogic::outputFile();
    m_worker->submit(PreviewChannel, [this, request, commandLine, photo,
                                      output](const std::atomic<bool>& cancel) {
        PreviewRender::PreviewFrame rendered =
            PreviewRender::render(commandLine, photo, output, &cancel);
        if (rendered.cancelled) return;
        const Frame frame{rendered.errorText, rendered.image, rendered.info};
        QMetaObject::invokeMethod(
            this, [this, request, frame] { showFrame(request, frame); }, Qt::QueuedConnection);
    });
    return {};
}

void uPreview::printInstead(const QStringList& lines) {
    m_pPreview->setImageVisible(false);
    m_pPreview->Cls();
    m_pPreview->Print(lines);
}

void uPreview::showFrame(quint64 request, const Frame& frame) {
    if (request != m_request) return; // a newer request is on its way
    if (!frame.errorText.isEmpty()) {
        printInstead(frame.errorText.split(QStringLiteral("\r\n")));
    } else {
        m_pPreview->Cls();
        m_pPreview->setImageVisible(true);
        m_pPreview->setImage(frame.image);
        m_pPreview->imageView()->setToolTip(frame.info);
    }
    layoutPane();
    Q_EMIT PreviewShown(frame.errorText);
}

bool uPreview::previewPhotoShown() const {
    return m_pPreview->imageVisible();
}

QStringList uPreview::printedText() const {
    return m_pPreview->printed();
}

QImage uPreview::previewImage() const {
    return m_pPreview->image();
}

QImage uPreview::originalImage() const {
    return m_pNormal->image();
}

void uPreview::toolsFor(bool original) {
    m_pNormal->tools()->setVisible(original);
    m_pPreview->tools()->setVisible(!original);
    m_hide->stop();
    m_hide->start();
}

void uPreview::selectPreviewImage() {
    const QString folder = mWindowsAPI::GetSettingValue(kSection, PreviewPaneLogic::kFolderKey);
    QString file = chooseFile(folder);
    if (file.isEmpty() || !mFile::FileExists(file)) return;
    mWindowsAPI::SaveSettingValue(kSection, PreviewPaneLogic::kFolderKey,
                                  mFile::GetPathPart(file, 1));
    SetPreviewImage(file);
}

void uPreview::makeDefault() {
    QString file = m_makeDefault->data().toString();
    if (!mFile::FileExists(file)) return;
    mWindowsAPI::SaveSettingValue(kSection, PreviewPaneLogic::kExamplePhotoKey, file);
    SetPreviewImage(file);
}

void uPreview::restoreBuiltIn() {
    QString file = PreviewPaneLogic::builtInExample();
    mWindowsAPI::SaveSettingValue(kSection, PreviewPaneLogic::kExamplePhotoKey, file);
    SetPreviewImage(file);
}

// The caption row with its hint, then the original photo over the preview; a low pane keeps
// only the preview.
void uPreview::layoutPane() {
    const int cap = m_cap->sizeHint().height();
    const int w = width(), h = height();
    m_cap->setGeometry(0, 0, w, cap);
    m_info->setGeometry(w / 3, 0, w - w / 3 - Twips::toPixels(90), cap);
    m_info->raise();
    const bool both =
        PreviewPaneLogic::showsBothPhotos(Twips::fromPixels(h), Twips::fromPixels(cap));
    const int photos = std::max(0, h - cap - (both ? 2 : 1) * cap);
    int y = cap;
    m_normal->setVisible(both);
    m_pNormal->setVisible(both);
    if (both) {
        m_normal->setGeometry(0, y, w, cap);
        m_pNormal->setGeometry(0, y + cap, w, photos / 2);
        y += cap + photos / 2;
    }
    m_preview->setGeometry(0, y, w, cap);
    m_pPreview->setGeometry(0, y + cap, w, std::max(0, h - y - cap));
}

void uPreview::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutPane();
    SetPaneCaption();
    // A pane that was too low to preview shows the last script once it has room again.
    const bool collapsed = isCollapsed();
    if (m_wasCollapsed && !collapsed) DoPreview(m_lastLine);
    m_wasCollapsed = collapsed;
}
