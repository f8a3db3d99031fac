// The scripting view's widgets; its steps and texts are ScriptingWorkflow's.
#include "views/srcScripting.h"

#include "controls/Twips.h"
#include "controls/uCaptionBar.h"
#include "controls/uDialog.h"
#include "editor/mRichTextBox.h"
#include "editor/uReference.h"
#include "editor/uScriptingWindow.h"
#include "effects/uPreview.h"
#include "engine/PreviewRun.h"
#include "engine/ScriptHost.h"
#include "platform/mWindowsAPI.h"
#include "views/frmScript.h"
#include "views/panePhotoSelect.h"
#include "views/paneTools.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString kSection = QStringLiteral("Settings");
const QString kKey = QStringLiteral("ScriptingSplitter");
constexpr int kBarTwips = 75;

} // namespace

const QString& srcScripting::description() {
    static const QString text = QStringLiteral(
        "The scripting editor allows you to manipulate photos directly using VBScript and the "
        "Vantorel 3 Engine. The Reference pane on the right can assist you in finding all the "
        "photo engine commands available to you. Note: The scripting engine supports all normal "
        "VBScript functions.");
    return text;
}

srcScripting::srcScripting(QWidget* parent)
    : QWidget(parent), m_caption(new uCaptionBar(this)), m_dialog(new uDialog(this)),
      m_content(new QWidget(this)), m_editor(new uScriptingWindow(m_content)),
      m_photos(new panePhotoSelect(m_content)), m_bar(new QWidget(m_content)),
      m_indicator(new QWidget(m_content)), m_tools(new paneTools(m_content)),
      m_back(new QPushButton(ScriptingWorkflow::backCaption(), this)),
      m_next(new QPushButton(this)), m_status(new uCaptionBar(this)) {
    nameAndLabel();
    buildLayout();
    buildWorkflow();
    m_editor->setReferencePane(m_tools->GetReference());
    connect(m_editor, &uScriptingWindow::PreviewRequest, m_tools->GetPreview(),
            &uPreview::DoPreview);
    // The editor's own first request was made before anyone listened.
    m_editor->RequestPreview(true);
    stepChanged();
    setFocusProxy(m_editor->box());
}

void srcScripting::nameAndLabel() {
    setObjectName(QStringLiteral("srcScripting"));
    m_caption->setObjectName(QStringLiteral("uCap"));
    m_caption->setCaption(QStringLiteral("Scripting Editor"));
    m_dialog->setObjectName(QStringLiteral("uDialog"));
    m_dialog->setText(description());
    m_bar->setObjectName(QStringLiteral("pSplit"));
    m_bar->setCursor(Qt::SplitHCursor);
    m_bar->installEventFilter(this);
    m_indicator->setObjectName(QStringLiteral("pHSplit"));
    m_indicator->setAutoFillBackground(true);
    QPalette palette = m_indicator->palette();
    palette.setColor(QPalette::Window, palette.color(QPalette::Dark));
    m_indicator->setPalette(palette);
    m_indicator->hide();
    m_back->setObjectName(QStringLiteral("cmdConfig"));
    m_next->setObjectName(QStringLiteral("cmdSelectPhotos"));
    m_status->setObjectName(QStringLiteral("uStatus"));
    // A long text on the status line must not widen the window.
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_splitTag =
        mWindowsAPI::GetSettingValue(kSection, kKey, QString::number(ScriptingSplit::kDefault))
            .toInt();
}

void srcScripting::buildLayout() {
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(4, 4, 4, 4);
    buttons->addStretch(1);
    buttons->addWidget(m_back);
    buttons->addWidget(m_next);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_caption);
    layout->addWidget(m_dialog);
    layout->addWidget(m_content, 1);
    layout->addLayout(buttons);
    layout->addWidget(m_status);
    m_content->installEventFilter(this);
}

void srcScripting::buildWorkflow() {
    m_runner = [](const QString& line) { return mEngineMain::RunCommandLine(line, false); };
    m_testRunner = [](const QString& line, const QString& output) {
        mEngineMain::PreviewRunOptions options;
        options.output = output;
        return mEngineMain::runPreviewLine(line, options).errorText;
    };
    ScriptingWorkflow::Ports ports;
    ports.commandLine = [this] { return m_editor->GetCommandLine(); };
    ports.appendLine = [this](const QString& line) { m_editor->AppendLine(line); };
    ports.testRun = [this](const QString& line, const QString& output) {
        return m_testRunner(line, output);
    };
    ports.run = [this](const QString& line) { return m_runner(line); };
    ports.files = [this] { return m_photos->GetAllFilesArray(); };
    ports.clearFiles = [this] { m_photos->ClearList(); };
    ports.stepChanged = [this] { stepChanged(); };
    m_workflow = std::make_unique<ScriptingWorkflow>(std::move(ports));
    connect(m_next, &QPushButton::clicked, this, [this] { m_workflow->next(); });
    connect(m_back, &QPushButton::clicked, this, [this] { m_workflow->back(); });
}

srcScripting::~srcScripting() = default;

uReference* srcScripting::reference() const {
    return m_tools->GetReference();
}

uPreview* srcScripting::preview() const {
    return m_tools->GetPreview();
}

void srcScripting::LoadInitSettings() {
    for (uCaptionBar* bar : {m_caption, m_status})
        bar->LoadInitSettings();
    m_dialog->LoadInitSettings();
    m_editor->LoadInitSettings();
    m_tools->LoadInitSettings();
    m_photos->LoadInitSettings();
}

void srcScripting::LoadCommandLine(const QString& commandLine) {
    m_editor->LoadCommandLine(commandLine);
}

void srcScripting::SetOwner(frmScript* owner) {
    m_owner = owner;
    m_photos->SetOwner(owner);
    m_tools->SetOwner(owner);
    m_editor->SetOwner(owner);
}

QString srcScripting::RunScriptingEngine(const QStringList& files) {
    return m_workflow->RunScriptingEngine(files);
}

QString srcScripting::scriptText() const {
    return m_editor->scriptText();
}

QString srcScripting::statusText() const {
    return m_status->Status();
}

void srcScripting::stepChanged() {
    const bool photos = m_workflow->step() == ScriptingWorkflow::Step::Photos;
    m_back->setVisible(photos);
    m_next->setText(m_workflow->nextCaption());
    m_photos->setVisible(photos);
    m_editor->setVisible(!photos);
    layoutContent();
    if (photos) m_photos->Refresh();
}

// The left part up to the stored position (kept inside the view), the bar, the tool pane.
void srcScripting::layoutContent() {
    const int bar = Twips::toPixels(kBarTwips);
    const int width = m_content->width(), height = m_content->height();
    const int left = std::clamp(Twips::toPixels(m_splitTag), 0, std::max(0, width - bar));
    m_editor->setGeometry(0, 0, left, height);
    m_photos->setGeometry(0, 0, left, height);
    m_bar->setGeometry(left, 0, bar, height);
    m_tools->setGeometry(left + bar, 0, std::max(0, width - left - bar), height);
}

void srcScripting::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutContent();
}

// The content follows its size; the bar's drag moves the indicator within the margins, says
// where it is on the status line and drops the bar there.
bool srcScripting::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_content && event->type() == QEvent::Resize) layoutContent();
    if (watched != m_bar) return QWidget::eventFilter(watched, event);
    const int viewWidth = Twips::fromPixels(m_content->width());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_indicator->setGeometry(m_bar->geometry());
        m_indicator->show();
        m_indicator->raise();
        m_dragLeft = Twips::fromPixels(m_bar->x());
        return true;
    case QEvent::MouseMove:
        if (m_indicator->isVisible()) {
            const double x =
                Twips::fromPixels(1) * static_cast<QMouseEvent*>(event)->position().x();
            m_dragLeft = ScriptingSplit::dragPosition(Twips::fromPixels(m_bar->x()), x, viewWidth);
            m_indicator->move(Twips::toPixels(m_dragLeft), 0);
            m_status->setStatus(
                ScriptingSplit::dragStatus(m_dragLeft, viewWidth, Twips::kPerPixel));
        }
        return true;
    case QEvent::MouseButtonRelease:
        if (!m_indicator->isVisible()) return true;
        m_indicator->hide();
        m_splitTag = m_dragLeft;
        mWindowsAPI::SaveSettingValue(kSection, kKey, QString::number(m_splitTag));
        m_status->setStatus(QString());
        layoutContent();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}
