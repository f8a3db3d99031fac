// How long the script editor takes on a 2,000-line script with the generated command list and
// error patterns: a colouring pass (computed, and shown in the widget), and one keystroke's work
// (a letter typed mid-script; a space, whose key-up runs a full pass after a change).
// Prints median milliseconds of several runs. Run from the build: build/bin/editor_bench
#include "editor/ScriptColorizer.h"
#include "editor/ScriptEditorCore.h"
#include "editor/ScriptFiles.h"
#include "editor/mRichTextBox.h"
#include "editor/uScriptingWindow.h"
#include "platform/mFile.h"
#include "platform/mWindowsAPI.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <vector>

namespace {

QString script(int lines) {
    const QStringList kinds{"fx.ResizeAspect 1600, 1600, False",
                            "fx.Sharpen 40",
                            "// soften the sky a little: 3 passes",
                            "fx.DrawText 10, 20, \"Holiday 2024\", &HFFFFFF",
                            "fx.SaveFileName = NoExtension(fx.filename) & \"_small.jpg\"",
                            "x = fx.ImagWidth * 2",
                            "fx.Rotate 90",
                            "progress.DoXEvents",
                            "",
                            "fx.SaveFile"};
    QStringList out;
    for (int i = 0; i < lines; ++i)
        out.append(kinds[i % kinds.size()]);
    return out.join(u'\n');
}

double threadCpuMs() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

// Median wall time and median CPU time of the UI thread (the machine may be busy with other
// work; the CPU time is what the editor itself spends). `prepare` runs untimed before each run.
void measure(
    const char* what, int runs, const std::function<void()>& work,
    const std::function<void()>& prepare = [] {}) {
    std::vector<double> wall, cpu;
    for (int i = 0; i < runs; ++i) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        const double cpuStart = threadCpuMs();
        work();
        cpu.push_back(threadCpuMs() - cpuStart);
        wall.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    std::sort(wall.begin(), wall.end());
    std::sort(cpu.begin(), cpu.end());
    std::printf("%-38s %7.2f ms wall %7.2f ms cpu\n", what, wall[wall.size() / 2],
                cpu[cpu.size() / 2]);
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir settings;
    mWindowsAPI::setSettingsFile(settings.filePath("settings.ini"));
    QStringList commands, patterns;
    ScriptFiles::loadCommandList(mFile::AddBackslash(mFile::programFolder()) + "data", commands,
                                 patterns);
    const QString text = script(2000);
    std::printf("script: 2000 lines, %lld characters; %lld commands, %lld error patterns\n",
                qlonglong(text.size()), qlonglong(commands.size()), qlonglong(patterns.size()));

    ScriptColorizer colorizer;
    colorizer.setCommands(commands);
    colorizer.setErrorPatterns(patterns);
    measure("colouring pass, computed:", 15, [&] { (void)colorizer.colour(text); });

    uScriptingWindow editor;
    editor.resize(900, 700);
    editor.show();
    ScriptTextBox* box = editor.box();
    measure("colouring pass, shown (new text):", 9, [&] {
        box->setPlainText(text);
        editor.core().Colorize(true, "-1", false);
    });
    measure("colouring pass, shown (same text):", 9,
            [&] { editor.core().Colorize(true, "-1", false); });
    QTextCursor c = box->textCursor();
    c.setPosition(int(text.size() / 2));
    box->setTextCursor(c);
    measure("keystroke (a letter, mid-script):", 41, [&] { QTest::keyClick(box, Qt::Key_A); });
    // After a change, a space's key-up runs a full pass (and the preview trigger's conversion).
    measure(
        "keystroke (a space: key-up pass):", 21, [&] { QTest::keyClick(box, Qt::Key_Space); },
        [&] { QTest::keyClick(box, Qt::Key_A); });
    return 0;
}
