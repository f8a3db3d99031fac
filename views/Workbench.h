// The workbench's part of start-up: with a display, one Qt application for the whole process,
// Qt dialogs for every message and question, the progress window on screen, and the main
// window when the command line asks for it.
#pragma once

#include <QString>
#include <memory>

class Workbench {
public:
    // Whether a window can be shown: Qt's offscreen platform, a Wayland display, or an X display
    // that answers (an unreachable one would make Qt abort).
    static bool displayAvailable();

    Workbench(int& argc, char** argv);
    ~Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    // Shows the main window; a non-empty text goes to the command-line view, which is shown.
    void showMainWindow(const QString& commandViewText);
    bool windowShown() const;
    // Runs until the main window closes, or a run from the window ends the process (exit).
    int exec();
    void exit(int status);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};
