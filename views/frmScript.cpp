// The main window: menus from one table, view switching by name, preferences and placement.
#include "views/frmScript.h"

#include "platform/Messages.h"
#include "platform/mWindowsAPI.h"
#include "views/mInterface.h"
#include "views/srcCommandLine.h"
#include "views/srcScripting.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDir>
#include <QLockFile>
#include <QMenuBar>
#include <QStackedWidget>
#include <QStandardPaths>
#include <QUrl>

namespace {

const QString kFormName = QStringLiteral("frmScript");

bool& preference(int index) {
    mWindowsAPI::Preferences& p = mWindowsAPI::preferences();
    switch (index) {
    case 0:
        return p.SetColorize;
    case 1:
        return p.SetAutoComplete;
    case 2:
        return p.SetDynamicHelp;
    default:
        return p.SetDynamicPreview;
    }
}

// Held while this window lives; a second instance finds it taken.
std::unique_ptr<QLockFile> takeInstanceLock() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (folder.isEmpty()) folder = QDir::tempPath();
    auto lock = std::make_unique<QLockFile>(folder + QStringLiteral("/vantorel-window.lock"));
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0)) return nullptr;
    return lock;
}

void openAddress(const QString& address) {
    QDesktopServices::openUrl(QUrl(address));
}

} // namespace

QString frmScript::caption() {
    return applicationTitle() + QStringLiteral(" - v") + QCoreApplication::applicationVersion();
}

frmScript::frmScript(QWidget* parent)
    : QMainWindow(parent), m_views(new QStackedWidget(this)), m_scripting(new srcScripting),
      m_commandLine(new srcCommandLine), m_instanceLock(takeInstanceLock()) {
    setObjectName(kFormName);
    setWindowTitle(caption());
    m_views->addWidget(m_scripting);
    m_views->addWidget(m_commandLine);
    setCentralWidget(m_views);
    buildMenus();
    resize(1000, 700);
    if (!isSecondInstance()) restorePlacement();
    mWindowsAPI::setApplySettingsHook([this] { LoadInitSettings(); });
    mWindowsAPI::LoadSettings(false);
    ShowTool(QStringLiteral("srcScripting"));
}

frmScript::~frmScript() {
    mWindowsAPI::setApplySettingsHook({});
}

QMenu* frmScript::addMenu(QMenu* parent, const char* name, const QString& caption) {
    QMenu* menu = parent ? parent->addMenu(caption) : menuBar()->addMenu(caption);
    menu->setObjectName(QLatin1String(name));
    return menu;
}

QAction* frmScript::addAction(QMenu* menu, const char* name, const QString& caption) {
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
}

void frmScript::buildMenus() {
    QMenu* file = addMenu(nullptr, "mnuFile", QStringLiteral("&File"));
    connect(addAction(file, "mnuProgwebsite", QStringLiteral("Vantorel on the &Web")),
            &QAction::triggered, this, [] { openAddress(mInterface::productWebSite()); });
    file->addSeparator()->setObjectName(QStringLiteral("bar1"));
    connect(addAction(file, "mnuExit", QStringLiteral("E&xit")), &QAction::triggered, this,
            &QWidget::close);

    QMenu* view = addMenu(nullptr, "mnuView", QStringLiteral("&View"));
    connect(addAction(view, "mnuLSrcScripting", QStringLiteral("&Scripting Editor")),
            &QAction::triggered, this, [this] { ShowTool(QStringLiteral("srcScripting")); });
    connect(addAction(view, "mnuLSrcCommandLine", QStringLiteral("Command &Line (Interface)")),
            &QAction::triggered, this, [this] { ShowTool(QStringLiteral("srcCommandLine")); });

    QMenu* prefs = addMenu(nullptr, "mnusrcScripting1", QStringLiteral("Scripting Preferences"));
    connect(addAction(prefs, "mnuPrefOff", QStringLiteral("Turn Off All Automation  (Faster)")),
            &QAction::triggered, this, &frmScript::turnOffAutomation);
    QMenu* manage = addMenu(prefs, "mnuManage", QStringLiteral("Manage Automation Features"));
    const char* names[] = {"mnuPref0", "mnuPref1", "mnuPref2", "mnuPref3"};
    const QString captions[] = {
        QStringLiteral("Script &Colorization"), QStringLiteral("Script &AutoComplete"),
        QStringLiteral("Dynamic Help &Referencing"), QStringLiteral("Dynamic &Preview")};
    for (int i = 0; i < 4; ++i) {
        m_pref[size_t(i)] = addAction(manage, names[i], captions[i]);
        m_pref[size_t(i)]->setCheckable(true);
        // Only clicks count: setting a check mark while applying settings emits no trigger.
        connect(m_pref[size_t(i)], &QAction::triggered, this, [this, i] { preferenceClicked(i); });
    }

    QMenu* help = addMenu(nullptr, "mnuHelp", QStringLiteral("&Help"));
    connect(addAction(help, "mnuSendFeedback", QStringLiteral("Send Suggestions or Feedback")),
            &QAction::triggered, this, [] { openAddress(mInterface::feedbackPage()); });
    // The program looks for updates no more than the user asks: this opens the downloads page.
    connect(addAction(help, "mnuCheckForUpdates", QStringLiteral("Check for Application &Updates")),
            &QAction::triggered, this, [] { openAddress(mInterface::downloadsPage()); });
}

void frmScript::ShowTool(const QString& name) {
    for (QWidget* view :
         {static_cast<QWidget*>(m_scripting), static_cast<QWidget*>(m_commandLine)}) {
        if (view->objectName().compare(name, Qt::CaseInsensitive) != 0) continue;
        m_views->setCurrentWidget(view);
        m_currentTool = view->objectName();
        view->setFocus();
    }
    m_scripting->SetOwner(this);
    m_commandLine->SetOwner(this);
    DoMenus();
}

void frmScript::DoMenus() {
    for (QMenu* menu : findChildren<QMenu*>()) {
        if (const auto visible = mInterface::menuVisibleFor(menu->objectName(), m_currentTool))
            menu->menuAction()->setVisible(*visible);
    }
}

void frmScript::ConvertToScript(const QString& commandLine) {
    m_scripting->LoadCommandLine(commandLine);
    ShowTool(QStringLiteral("srcScripting"));
}

void frmScript::ConverterToCommandLine(const QString& commandLine) {
    m_commandLine->SetCommandLine(commandLine);
    ShowTool(QStringLiteral("srcCommandLine"));
}

void frmScript::LoadInitSettings() {
    for (int i = 0; i < 4; ++i)
        m_pref[size_t(i)]->setChecked(preference(i));
    m_scripting->LoadInitSettings();
    m_commandLine->LoadInitSettings();
}

void frmScript::preferenceClicked(int index) {
    if (mWindowsAPI::isLoadingSettings()) return;
    preference(index) = !preference(index);
    mWindowsAPI::SaveSettings();
}

void frmScript::turnOffAutomation() {
    for (int i = 0; i < 4; ++i)
        preference(i) = false;
    mWindowsAPI::SaveSettings();
}

void frmScript::restorePlacement() {
    const mInterface::Placement defaults{geometry(), 0};
    const mInterface::Placement stored = mInterface::loadPlacement(kFormName, defaults);
    setGeometry(stored.normalGeometry);
    if (stored.windowState == 2)
        setWindowState(Qt::WindowMaximized);
    else if (stored.windowState == 1)
        setWindowState(Qt::WindowMinimized);
}

void frmScript::savePlacement() {
    const Qt::WindowStates state = windowState();
    const int code = state & Qt::WindowMinimized ? 1 : state & Qt::WindowMaximized ? 2 : 0;
    mInterface::savePlacement(kFormName, {code == 0 ? geometry() : normalGeometry(), code});
}

void frmScript::closeEvent(QCloseEvent* event) {
    // The window goes first, so that saving never shows as a delay.
    if (windowState() == Qt::WindowNoState) {
        hide();
        QCoreApplication::processEvents();
    }
    mWindowsAPI::SaveSettings();
    savePlacement();
    event->accept();
    // The program ends with its main window, whatever else is still loaded.
    QCoreApplication::quit();
}
