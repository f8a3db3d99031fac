// The script host with a fake script engine: objects, results, error reports, end of a run.
#include "HostFixture.h"
#include "engine/ProgressObject.h"
#include "vbscript/ScriptError.h"

#include <QStringList>

using namespace mEngineMain;

namespace {

// What the fake engine saw, and how it is to behave.
struct FakeScript {
    QString language;
    QStringList objects;
    QString code;
    QStringList ran;
    std::optional<ScriptFailure> compileError, runError;
    QString result;
};

class FakeEngine : public ScriptEngine {
public:
    explicit FakeEngine(FakeScript& s) : m_s(s) {}
    bool setLanguage(const QString& language) override {
        m_s.language = language;
        return true;
    }
    void addObject(const QString& name, vbs::Ref<vbs::Dispatch> object) override {
        EXPECT_TRUE(object);
        m_s.objects.append(name);
    }
    bool addCode(const QString& code) override {
        m_s.code = code;
        return !(m_failure = m_s.compileError);
    }
    bool run(const QString& procedure, QString* result) override {
        m_s.ran.append(procedure);
        if ((m_failure = m_s.runError)) return false;
        *result = m_s.result;
        return true;
    }
    ScriptFailure error() const override { return m_failure.value_or(ScriptFailure{}); }

private:
    FakeScript& m_s;
    std::optional<ScriptFailure> m_failure;
};

class ScriptHostTest : public HostTest {
protected:
    void SetUp() override {
        HostTest::SetUp();
        ScriptHostServices& s = scriptHostServices();
        s.createEngine = [this] { return std::make_unique<FakeEngine>(fake); };
        s.createEffects = [](frmConvProgress&) {
            return vbs::Ref<vbs::Dispatch>(new ProgressObject(loadProgressWindow()));
        };
        tree.write("bin/data/template.txt",
                   "Sub Main\r\n'{MainCode}'\r\nEnd Sub\r\n"
                   "Sub ProcessEffects(p)\r\n'{EffectsScript}'\r\nEnd Sub");
    }
    FakeScript fake;
};

const QString kScript = QStringLiteral("a\r\nb\r\nc");

} // namespace

TEST_F(ScriptHostTest, RunAddsTheObjectsAndCallsMain) {
    fake.result = "done";
    ScriptStatus status;
    EXPECT_EQ(RunScript(kScript, false, &status), QStringLiteral("done"));
    EXPECT_EQ(status, ScriptStatus::Succeeded);
    EXPECT_EQ(fake.language, QStringLiteral("VBScript"));
    EXPECT_EQ(fake.objects, (QStringList{"FX", "Progress"}));
    EXPECT_EQ(fake.code, kScript);
    EXPECT_EQ(fake.ran, QStringList{"Main"});
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(ScriptHostTest, NoEngineShowsTheMessageAndRunsNothing) {
    scriptHostServices().createEngine = [] { return std::unique_ptr<ScriptEngine>(); };
    ScriptStatus status;
    EXPECT_EQ(RunScript(kScript, true, &status), QString());
    EXPECT_EQ(status, ScriptStatus::NoEngine);
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QString());
    EXPECT_EQ(recorder.boxes[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(recorder.boxes[0].text, noScriptEngineText());
}

TEST_F(ScriptHostTest, PreviewReturnsTheErrorAsText) {
    fake.compileError = ScriptFailure{1002, "Syntax error", 2};
    ScriptStatus status;
    EXPECT_EQ(RunScript(kScript, true, &status),
              QStringLiteral("Error was found: 1002: Syntax error\r\n\r\nPlease correct the below "
                             "line:\r\n\r\n   b"));
    EXPECT_EQ(status, ScriptStatus::Failed);
    EXPECT_TRUE(fake.ran.isEmpty()); // Main is not called after a compile error
    EXPECT_TRUE(recorder.boxes.isEmpty());
}

TEST_F(ScriptHostTest, RealRunShowsTheErrorBox) {
    fake.runError = ScriptFailure{13, "Type mismatch", 3};
    EXPECT_EQ(RunScript(kScript, false), QString());
    ASSERT_EQ(recorder.boxes.size(), 1);
    EXPECT_EQ(recorder.boxes[0].title, QStringLiteral("Script Runtime Error"));
    EXPECT_EQ(recorder.boxes[0].buttons, MsgButtons::OkOnly);
    EXPECT_TRUE(recorder.boxes[0].text.contains("13: Type mismatch at line 3\r\n"));
}

TEST_F(ScriptHostTest, BatchWithoutExitOpensTheWindowAfterTheRun) {
    const RunOutcome outcome = runCommandLine("/fx.Blur", false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::Succeeded);
    EXPECT_EQ(windowText, QString());
    EXPECT_FALSE(exitStatus);
    EXPECT_EQ(fake.ran, QStringList{"Main"});
}

TEST_F(ScriptHostTest, InteractiveStartRunsNothing) {
    const RunOutcome outcome = runCommandLine("/showscriptwindow /fx.Blur", false, options);
    EXPECT_EQ(outcome.status, ScriptStatus::NotRun);
    EXPECT_EQ(windowText, QStringLiteral("/fx.Blur"));
    EXPECT_TRUE(fake.ran.isEmpty());
    EXPECT_FALSE(exitStatus);
}

TEST_F(ScriptHostTest, ProgressLearnsTheNumberOfPhotos) {
    tree.write("p/a.jpg");
    tree.write("p/b.jpg");
    runCommandLine("/folder:" + tree.path("p") + "/fx.Blur", false, options);
    EXPECT_EQ(loadProgressWindow().state().fileCount, 2);
}

TEST_F(ScriptHostTest, FailureToCreateTheEffectsObjectIsReported) {
    scriptHostServices().createEffects = [](frmConvProgress&) -> vbs::Ref<vbs::Dispatch> {
        throw vbs::ScriptError(429, u"ActiveX component can't create object");
    };
    ScriptStatus status;
    EXPECT_TRUE(RunScript(kScript, true, &status)
                    .startsWith("Error was found: 429: ActiveX component can't create object"));
    EXPECT_EQ(status, ScriptStatus::Failed);
    EXPECT_TRUE(fake.ran.isEmpty());
}
