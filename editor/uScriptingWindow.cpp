// The script editor control's widgets, menus, dialogs and timers.
#include "editor/uScriptingWindow.h"

#include "controls/uCaptionBar.h"
#include "editor/ScriptEditorCore.h"
#include "editor/mRichTextBox.h"
#include "editor/uReference.h"
#include "platform/Messages.h"
#include "platform/NativePath.h"
#include "platform/mFile.h"
#include "platform/mWindowsAPI.h"

#include <QCheckBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <array>

namespace {

const char* const kTimerNames[] = {"tColorize", "tFind", "tHelp", "tDoPreview"};

QAction* menuItem(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
}

} // namespace

// The four timers of the editor as QTimers that tick until their handlers switch them off.
class uScriptingWindow::Timers : public TimerPort {
public:
    explicit Timers(uScriptingWindow* owner) {
        for (size_t i = 0; i < m_timers.size(); ++i) {
            m_timers[i] = new QTimer(owner);
            m_timers[i]->setObjectName(QLatin1String(kTimerNames[i]));
            m_timers[i]->setInterval(timerInterval(EditorTimer(i)));
        }
    }
    QTimer* timer(size_t i) const { return m_timers[i]; }
    void setEnabled(EditorTimer timer, bool enabled) override {
        QTimer* t = m_timers[size_t(timer)];
        if (!enabled)
            t->stop();
        else if (!t->isActive())
            t->start();
    }
    bool isEnabled(EditorTimer timer) const override { return m_timers[size_t(timer)]->isActive(); }

private:
    std::array<QTimer*, 4> m_timers{};
};

uScriptingWindow::uScriptingWindow(QWidget* parent)
    : QWidget(parent), m_caption(new uCaptionBar(this)), m_toolbar(new QWidget(this)),
      m_load(new QPushButton(QStringLiteral("Load Script..."), m_toolbar)),
      m_save(new QPushButton(QStringLiteral("Save Script..."), m_toolbar)),
      m_auto(new QCheckBox(QStringLiteral("Enable Auto Complete"), m_toolbar)),
      m_box(new ScriptTextBox(this)), m_list(new QListWidget(this)), m_menu(new QMenu(this)),
      m_commandMenu(nullptr) {
    setObjectName(QStringLiteral("uScriptingWindow"));
    chooseFile = [this](bool save, const QString& folder) { return defaultChooser(save, folder); };
    m_timers = std::make_unique<Timers>(this);
    for (size_t i = 0; i < 4; ++i) {
        connect(m_timers->timer(i), &QTimer::timeout, this, [this, i] {
            m_core->tick(EditorTimer(i));
            showList();
        });
    }
    m_box->setObjectName(QStringLiteral("rtfScript"));
    m_box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_box->setLineWrapMode(QPlainTextEdit::NoWrap);
    QPalette palette = m_box->palette(); // the colours are chosen for a white page
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    m_box->setPalette(palette);
    m_list->setObjectName(QStringLiteral("lstProperties"));
    m_list->hide();
    m_surface = std::make_unique<RichTextSurface>(m_box);
    m_core = std::make_unique<ScriptEditorCore>(*m_surface, *m_timers);
    m_surface->setLooks(&m_core->looks());
    m_box->setCore(m_core.get());
    m_core->PreviewRequest = [this](QString& line) { Q_EMIT PreviewRequest(line); };

    buildToolbar();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_caption);
    layout->addWidget(m_toolbar);
    layout->addWidget(m_box, 1);

    m_caption->setObjectName(QStringLiteral("uCap"));
    m_caption->setCaption(QStringLiteral("Effects Script"));
    m_core->start(mFile::AddBackslash(mFile::programFolder()) + QStringLiteral("data"));
    buildMenu();
    // Every event of the box may change the list; the list follows after each.
    connect(m_box, &ScriptTextBox::eventForwarded, this, &uScriptingWindow::showList);
    connect(m_box, &ScriptTextBox::rightButtonReleased, this,
            [this](const QPoint& at) { m_menu->popup(at); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        m_core->listDoubleClicked(m_list->row(item));
        showList();
        m_box->setFocus();
    });
}

uScriptingWindow::~uScriptingWindow() {
    m_box->setCore(nullptr);
}

void uScriptingWindow::buildToolbar() {
    m_toolbar->setObjectName(QStringLiteral("pToolbar"));
    m_load->setObjectName(QStringLiteral("cmdLoadScript"));
    m_save->setObjectName(QStringLiteral("cmdSaveScript"));
    m_auto->setObjectName(QStringLiteral("chkAuto"));
    auto* row = new QHBoxLayout(m_toolbar);
    row->setContentsMargins(4, 2, 4, 2);
    row->addWidget(m_load);
    row->addWidget(m_save);
    row->addWidget(m_auto);
    row->addStretch(1);
    connect(m_load, &QPushButton::clicked, this, &uScriptingWindow::loadScript);
    connect(m_save, &QPushButton::clicked, this, &uScriptingWindow::saveScript);
    // Setting the box from the preferences comes here too; the logic tells the cases apart.
    connect(m_auto, &QCheckBox::toggled, this, [this] {
        m_core->autoCompleteToggled();
        showList();
    });
}

void uScriptingWindow::buildMenu() {
    m_menu->setObjectName(QStringLiteral("mnuPopup"));
    m_commandMenu = m_menu->addMenu(QStringLiteral("Add New Command"));
    m_commandMenu->setObjectName(QStringLiteral("mnuAdd"));
    connect(menuItem(m_commandMenu, "mnuAddSaveFile", QStringLiteral("fx.SaveFile")),
            &QAction::triggered, this, [this] { AppendLine(QStringLiteral("fx.SaveFile")); });
    m_commandMenu->addSeparator()->setObjectName(QStringLiteral("bar4"));
    buildCommandMenu();
    m_menu->addSeparator()->setObjectName(QStringLiteral("bar"));
    connect(menuItem(m_menu, "mnuNew", QStringLiteral("New Script")), &QAction::triggered, this,
            [this] { m_core->NewScript(); });
    connect(menuItem(m_menu, "mnuSave", QStringLiteral("Save Script...")), &QAction::triggered,
            this, &uScriptingWindow::saveScript);
    connect(menuItem(m_menu, "mnuLoad", QStringLiteral("Load Script...")), &QAction::triggered,
            this, &uScriptingWindow::loadScript);
    m_menu->addSeparator()->setObjectName(QStringLiteral("bar2"));
    QAction* test = menuItem(m_menu, "mnuTest", QStringLiteral("&Test Script (Run Preview)"));
    test->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    test->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    m_box->addAction(test); // the shortcut works while the menu is closed
    connect(test, &QAction::triggered, this, [this] { RequestPreview(true); });
    m_menu->addSeparator()->setObjectName(QStringLiteral("bar3"));
    connect(menuItem(m_menu, "mnuCommandLine",
                     QStringLiteral("Converter Script to &Command Line View")),
            &QAction::triggered, this, &uScriptingWindow::toCommandLineView);
}

// One item per command word, an empty one included, in the list's order.
void uScriptingWindow::buildCommandMenu() {
    const QStringList& commands = m_core->state().Commands;
    for (int i = 0; i < commands.size(); ++i) {
        QAction* item = menuItem(m_commandMenu, "mnuCmds", commands[i]);
        item->setData(commands[i]); // the tag
        connect(item, &QAction::triggered, this, [this, item] {
            m_core->insertCommand(item->data().toString());
            showList();
        });
    }
}

void uScriptingWindow::LoadInitSettings() {
    m_auto->setChecked(mWindowsAPI::preferences().SetAutoComplete);
    m_core->LoadInitSettings();
    m_caption->LoadInitSettings();
    showList();
}

void uScriptingWindow::RequestPreview(bool force) {
    m_core->RequestPreview(force);
}

QString uScriptingWindow::GetCommandLine(const QString& file) {
    return m_core->GetCommandLine(file);
}

void uScriptingWindow::LoadScriptFile(const QString& file) {
    m_core->LoadScriptFile(file);
}

void uScriptingWindow::AppendLine(const QString& text) {
    m_core->AppendLine(text);
}

void uScriptingWindow::LoadCommandLine(const QString& commandLine) {
    m_core->LoadCommandLine(commandLine);
}

void uScriptingWindow::setReferencePane(uReference* pane) {
    if (pane)
        m_core->ReferencePane = [pane](const QString& word) { pane->ShowTopic(word); };
    else
        m_core->ReferencePane = nullptr;
}

QString uScriptingWindow::scriptText() const {
    return m_box->toPlainText();
}

QString uScriptingWindow::defaultChooser(bool save, const QString& folder) {
    QFileDialog dialog(m_owner ? m_owner : this);
    dialog.setDirectory(QString::fromStdString(mFile::toDisk(folder).string()));
    dialog.setDefaultSuffix(QStringLiteral("vt3"));
    if (save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setNameFilter(QStringLiteral("*.vt3"));
    } else {
        dialog.setFileMode(QFileDialog::ExistingFile);
        dialog.setNameFilters(
            {QStringLiteral("Vantorel 3 Script Files (*.vt3)"), QStringLiteral("All Files (*.*)")});
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    // The rest of the system works on the "\" form of paths.
    return QString::fromStdString(
        NativePath::toBackslash(dialog.selectedFiles().first().toStdString()));
}

void uScriptingWindow::loadScript() {
    m_core->loadChosenFile(chooseFile(false, ScriptEditorCore::scriptDirectory()));
}

void uScriptingWindow::saveScript() {
    const QString file = chooseFile(true, ScriptEditorCore::scriptDirectory());
    if (!file.isEmpty()) {
        if (m_core->saveToFile(file))
            messages().inform(QStringLiteral("Save Complete"),
                              QStringLiteral("Script: ") + mFile::GetPathPart(file, 2) +
                                  QStringLiteral(" has been saved."),
                              MsgIcon::Information);
        else
            messages().inform(QStringLiteral("Save Script"),
                              QStringLiteral("The script could not be written to ") + file,
                              MsgIcon::Critical);
    }
    m_core->Colorize(true, QStringLiteral("-1"), false);
}

void uScriptingWindow::toCommandLineView() {
    if (m_owner)
        QMetaObject::invokeMethod(m_owner, "ConverterToCommandLine",
                                  Q_ARG(QString, m_core->commandLineForView()));
}

// lstProperties follows the logic's list: entries, current one, shown or hidden.
void uScriptingWindow::showList() {
    const CompletionList& list = m_core->state().list;
    QStringList shown;
    for (int i = 0; i < m_list->count(); ++i)
        shown.append(m_list->item(i)->text());
    if (shown != list.items) {
        m_list->clear();
        m_list->addItems(list.items);
    }
    if (list.current >= 0 && list.current < m_list->count()) m_list->setCurrentRow(list.current);
    if (list.visible != m_list->isVisible()) {
        placeList();
        m_list->setVisible(list.visible);
        m_list->raise();
    }
}

// A fixed place at the top right of the script box; it does not follow the caret.
void uScriptingWindow::placeList() {
    const QRect area = m_box->geometry();
    const int width = std::min(240, area.width() / 2);
    const int height = std::min(150, area.height() - 8);
    m_list->setGeometry(area.right() - width - 20, area.top() + 4, width, std::max(height, 40));
}

void uScriptingWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placeList();
}
