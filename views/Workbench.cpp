// Start-up of the workbench: application, dialogs, progress window, main window.
#include "views/Workbench.h"

#include "engine/QtMessages.h"
#include "engine/ScriptHost.h"
#include "engine/frmConvProgressWindow.h"
#include "views/frmScript.h"

#include <QApplication>
#include <cstdlib>
#include <xcb/xcb.h>

struct Workbench::Parts {
    Parts(int& argc, char** argv) : app(argc, argv), scope(&dialogs) {}
    QApplication app;
    QtMessages dialogs;
    ScopedMessages scope;
    std::unique_ptr<frmScript> window;
};

bool Workbench::displayAvailable() {
    const char* platform = std::getenv("QT_QPA_PLATFORM");
    if (platform && std::string_view(platform) == "offscreen") return true;
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    if (wayland && *wayland) return true;
    const char* display = std::getenv("DISPLAY");
    if (!display || !*display) return false;
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool ok = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return ok;
}

Workbench::Workbench(int& argc, char** argv) : m_parts(std::make_unique<Parts>(argc, argv)) {
    // The window outlives this object, as the progress window does: it may be shown again by a
    // later run and is torn down with the process.
    mEngineMain::loadProgressWindow().setBackend(std::make_unique<frmConvProgressWindow>());
}

Workbench::~Workbench() = default;

void Workbench::showMainWindow(const QString& commandViewText) {
    if (!m_parts->window) m_parts->window = std::make_unique<frmScript>();
    m_parts->window->show();
    if (!commandViewText.isEmpty()) m_parts->window->ConverterToCommandLine(commandViewText);
}

bool Workbench::windowShown() const {
    return m_parts->window != nullptr;
}

int Workbench::exec() {
    return QApplication::exec();
}

void Workbench::exit(int status) {
    QCoreApplication::exit(status);
}
