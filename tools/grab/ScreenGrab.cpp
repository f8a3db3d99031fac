// Saves a picture of the whole X screen as PNG, for screenshots of the workbench under Xvfb.
// Usage: screen_grab OUT.png
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: screen_grab OUT.png\n", stderr);
        return 2;
    }
    QGuiApplication app(argc, argv);
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen || !screen->grabWindow(0).save(QString::fromLocal8Bit(argv[1]), "PNG")) {
        std::fprintf(stderr, "screen_grab: cannot grab the screen into %s\n", argv[1]);
        return 1;
    }
    return 0;
}
