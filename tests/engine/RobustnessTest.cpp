// Arbitrary command lines and scripts: the conversions and the run preparation never fail.
#include "RecordingMessages.h"
#include "TempTree.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>
#include <random>

using namespace mEngineMain;

namespace {

// Random text made of the pieces the grammar cares about. Without backslashes a folder switch
// cannot name the root folder, whose whole tree a test must not walk.
QString randomText(std::mt19937& rng, int pieces, bool backslashes = true) {
    // clang-format off
    static const char* const kPieces[] = {
        "/", ":", ";", "\"", " ", "\r\n", "fx.", "FX.", "progress.", "cmd:", "func.", "files:",
        "folder:", "folderall:", "exit", "EXIT", "showscriptwindow", "scriptfile:",
        "loadcmdscript:", "loadvt3script:", "savefile", "%", "% /%", "//", "\\\\", "\\", "a.jpg",
        "'{MainCode}'", "'{EffectsScript}'", "é", "\t"};
    // clang-format on
    std::uniform_int_distribution<size_t> pick(0, std::size(kPieces) - 1);
    QString text;
    for (int i = 0; i < pieces; ++i) {
        const QString piece = QString::fromUtf8(kPieces[pick(rng)]);
        if (backslashes || !piece.contains(u'\\')) text += piece;
    }
    return text;
}

} // namespace

TEST(Robustness, ScriptToCommandLineAlwaysGivesOneLine) {
    std::mt19937 rng(20261122);
    for (int i = 0; i < 3000; ++i) {
        const QString script = randomText(rng, i % 40);
        const QString line = ScriptToCommandLine(script);
        ASSERT_FALSE(line.contains(QStringLiteral("\r\n"))) << script.toStdString();
        ASSERT_TRUE(line.startsWith(QStringLiteral(" /"))) << script.toStdString();
        CommandLineToScript(line); // and back, without failing
    }
}

TEST(Robustness, PreparingArbitraryLinesNeverFails) {
    TempTree tree;
    tree.write("bin/data/template.txt", "Sub Main\r\n'{MainCode}'\r\nEnd Sub\r\n"
                                        "Sub ProcessEffects(p)\r\n'{EffectsScript}'\r\nEnd Sub");
    RecordingMessages recorder;
    ScopedMessages scope(&recorder);
    RunOptions options;
    options.programFolder = tree.path("bin");
    int passes = 0;
    options.expansionGuard = [&] { return ++passes < 100; };
    std::mt19937 rng(7);
    for (int i = 0; i < 2000; ++i) {
        passes = 0;
        const QString line = randomText(rng, i % 30, false);
        const RunPlan plan = prepareRun(line, options);
        if (plan.next == RunPlan::Next::Run) {
            ASSERT_TRUE(plan.script.startsWith(QStringLiteral("Sub Main"))) << line.toStdString();
            // The marker is filled once; only a statement that itself spells it brings it back.
            if (!plan.line.contains(kEffectsPlaceholder, Qt::CaseInsensitive)) {
                ASSERT_FALSE(plan.script.contains(kEffectsPlaceholder, Qt::CaseInsensitive))
                    << line.toStdString();
            }
        }
    }
}
