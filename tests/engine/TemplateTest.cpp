// The shipped script template meets what the command-line run needs of it.
#include "QtPrint.h"
#include "RecordingMessages.h"
#include "TempTree.h"
#include "engine/mEngineMain.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

QByteArray shippedTemplate() {
    QFile file(QStringLiteral(VANTOREL_SOURCE_DIR "/data/template.txt"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The lines of the procedure that starts with `header`, up to its "End Sub".
QStringList procedure(const QString& text, const QString& header) {
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    QStringList body;
    bool inside = false;
    for (const QString& line : lines) {
        const QString t = line.trimmed();
        if (!inside && t.startsWith(header, Qt::CaseInsensitive)) {
            inside = true;
        } else if (inside) {
            if (t.compare(QStringLiteral("End Sub"), Qt::CaseInsensitive) == 0) break;
            body.append(t);
        }
    }
    return body;
}

} // namespace

TEST(Template, UsesCrLfLineEndsOnly) {
    const QByteArray bytes = shippedTemplate();
    ASSERT_FALSE(bytes.isEmpty());
    EXPECT_EQ(bytes.count("\n"), bytes.count("\r\n"));
    EXPECT_EQ(bytes.count("\r"), bytes.count("\r\n"));
}

TEST(Template, MainAndProcessEffectsHoldTheirPlaceholders) {
    const QString text = QString::fromUtf8(shippedTemplate());
    const QStringList main = procedure(text, QStringLiteral("Sub Main"));
    EXPECT_TRUE(main.contains(QStringLiteral("'{MainCode}'")));
    const QStringList effects = procedure(text, QStringLiteral("Sub ProcessEffects("));
    const qsizetype load = effects.indexOf(QStringLiteral("fx.filename = path"));
    const qsizetype body = effects.indexOf(QStringLiteral("'{EffectsScript}'"));
    ASSERT_GE(load, 0);
    EXPECT_GT(body, load); // the photo is loaded before the effects run
    EXPECT_TRUE(effects.contains(QStringLiteral("progress.DoXEvents")));
    EXPECT_TRUE(text.contains(QStringLiteral("Function NoExtension(path)")));
}

TEST(Template, ABatchFillsBothPlaceholders) {
    TempTree tree;
    tree.write("bin/data/template.txt", shippedTemplate());
    tree.write("p/a.jpg");
    RecordingMessages recorder;
    ScopedMessages scope(&recorder);
    mEngineMain::RunOptions options;
    options.programFolder = tree.path("bin");
    const mEngineMain::RunPlan plan =
        mEngineMain::prepareRun("/files:" + tree.path("p\\a.jpg") + "/fx.Blur", options);
    EXPECT_EQ(plan.fileCount, 1);
    EXPECT_FALSE(plan.script.contains(mEngineMain::kMainCodePlaceholder));
    EXPECT_FALSE(plan.script.contains(mEngineMain::kEffectsPlaceholder));
    EXPECT_TRUE(plan.script.contains("\r\nProcessEffects \"" + tree.path("p\\a.jpg") + "\"\r\n"));
    EXPECT_TRUE(plan.script.contains("\r\nfx.Blur \r\nprogress.show\r\n"));
}
