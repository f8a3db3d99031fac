// Every script shipped in scripts/ runs over the sample photos and leaves the files its header
// promises, the originals untouched.
#include "E2eFixture.h"

#include <QRegularExpression>

namespace {

struct Expectation {
    const char* script;
    const char* outputs; // what each photo leaves, "*" standing for its name without extension
};

// Test names show the script, not the bytes of the structure.
[[maybe_unused]] void PrintTo(const Expectation& e, std::ostream* os) {
    *os << e.script;
}

class ExampleScriptsTest : public E2eTest, public testing::WithParamInterface<Expectation> {};

QString scriptPath(const char* name) {
    QString path = QStringLiteral(VANTOREL_DATA_DIR "/../scripts/") + QLatin1String(name);
    return path.replace(u'/', u'\\');
}

} // namespace

TEST_P(ExampleScriptsTest, RunsOverTheSamples) {
    const Expectation& e = GetParam();
    for (const QString& name : sampleNames())
        copySample(name, "in/" + name);
    const ProcessResult r = run(
        {"/folder:" + path("in"), "/loadvt3script:" + scriptPath(e.script).toStdString(), "/exit"},
        {.timeoutSeconds = 60});
    ASSERT_TRUE(r.exited && r.status == 0) << describe(r);
    const QStringList files = entries("in");
    for (const QString& name : sampleNames()) {
        EXPECT_EQ(read("in/" + name).size(),
                  QFile(QStringLiteral(VANTOREL_DATA_DIR "/samples/") + name).size());
        const QString stem = name.left(name.lastIndexOf(u'.'));
        for (const QString& pattern : QString::fromLatin1(e.outputs).split(u' ')) {
            const QRegularExpression wanted(QRegularExpression::anchoredPattern(
                QRegularExpression::escape(pattern)
                    .replace(QStringLiteral("\\*"), QRegularExpression::escape(stem))
                    .replace(QStringLiteral("DATE"),
                             QStringLiteral("\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d"))));
            EXPECT_FALSE(files.filter(wanted).isEmpty())
                << pattern.toStdString() << " for " << name.toStdString();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, ExampleScriptsTest,
                         testing::Values(Expectation{"web-export.vt3", "web_*.jpg"},
                                         Expectation{"watermark-corner.vt3", "wm_*.jpg"},
                                         Expectation{"black-and-white.vt3", "bw_*.jpg"},
                                         Expectation{"square-crop.vt3", "square_*.jpg"},
                                         Expectation{"thumbnails.vt3", "thumb_*.jpg"},
                                         Expectation{"rotate-and-rename-by-date.vt3", "DATE_*.jpg"},
                                         Expectation{"convert-webp-avif.vt3", "*.webp *.avif"},
                                         Expectation{"sepia-vignette.vt3", "sepia_*.jpg"}),
                         [](const testing::TestParamInfo<Expectation>& info) {
                             std::string name = info.param.script;
                             name = name.substr(0, name.find('.'));
                             std::erase(name, '-');
                             return name;
                         });
