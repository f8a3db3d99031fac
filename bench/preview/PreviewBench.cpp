// How long a preview takes from the request to the painted image, on the example photo
// (data/example.jpg, 1024 x 683) in a pane of 420 x 640 pixels, for a script of three effects;
// and the engine's run alone. Each request changes one number, as typing does. Prints the median
// and the 90th percentile in milliseconds. Run from the build: build/bin/preview_bench [runs]
#include "effects/PreviewPaneLogic.h"
#include "effects/uPreview.h"
#include "engine/PreviewRun.h"
#include "platform/ScratchFolder.h"
#include "platform/mWindowsAPI.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

QString threeEffects(int i) {
    return QStringLiteral(
               " /fx.ResizeAspect 800, 800, False /fx.Sharpen %1 /fx.AdjustHSL 10, %2, 0")
        .arg(20 + i % 40)
        .arg(-(i % 50));
}

void report(const char* what, std::vector<double> ms) {
    std::sort(ms.begin(), ms.end());
    std::printf("%-44s median %6.1f ms   p90 %6.1f ms   (%zu runs)\n", what, ms[ms.size() / 2],
                ms[ms.size() * 9 / 10], ms.size());
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir scratch;
    ScratchFolder::setOverride(scratch.path());
    mWindowsAPI::setSettingsFile(scratch.path() + QStringLiteral("/settings.ini"));
    QApplication app(argc, argv);
    const int runs = argc > 1 ? std::max(3, std::atoi(argv[1])) : 30;

    uPreview pane;
    pane.resize(420, 640);
    pane.show();
    std::vector<double> shown;
    for (int i = 0; i < runs + 2; ++i) {
        QEventLoop loop;
        QObject::connect(&pane, &uPreview::PreviewShown, &loop, &QEventLoop::quit);
        QElapsedTimer clock;
        clock.start();
        pane.DoPreview(threeEffects(i));
        loop.exec();
        pane.repaint(); // painted, not only handed over
        if (i >= 2) shown.push_back(clock.nsecsElapsed() / 1e6); // the first ones warm up
        if (!pane.previewPhotoShown())
            std::printf("error: %s\n", qPrintable(pane.printedText().join(' ')));
    }
    report("request to shown image (three effects)", shown);

    std::vector<double> engine;
    const QString output = PreviewPaneLogic::outputFile();
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer clock;
        clock.start();
        mEngineMain::PreviewRunOptions options;
        options.output = output;
        mEngineMain::runPreviewLine(
            PreviewPaneLogic::runLine(threeEffects(i), PreviewPaneLogic::builtInExample(), output),
            options);
        engine.push_back(clock.nsecsElapsed() / 1e6);
    }
    report("engine run alone (script, effects, save)", engine);
    return 0;
}
