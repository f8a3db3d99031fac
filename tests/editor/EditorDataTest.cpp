// The generated data files: complete, consistent with each other, and honest about errors.
#include "editor/EditorData.h"
#include "FxDriver.h"
#include "QtPrint.h"
#include "effects/FxMember.h"
#include "vbscript/ScriptControl.h"
#include "vbscript/stdlib/StandardLibrary.h"

#include <QSet>
#include <gtest/gtest.h>

namespace {

struct Script {
    FxDriver fx;
    vbs::ScriptControl control;
    Script() {
        vbs::installStandardLibrary(control);
        control.setHost(&fx.host);
        control.addObject(u"fx", fx.fx);
    }
    bool add(const QString& code) { return control.addCode(code.toStdU16String()); }
};

} // namespace

TEST(EditorData, EveryMemberIsACommandOnceAndFirstNamedAtItsOwnEntry) {
    const QStringList lines = EditorData::commandsText().split("\r\n");
    QSet<QString> commands;
    for (const QString& line : lines)
        commands.insert(line.section(u' ', 0, 0).toLower());
    EXPECT_EQ(commands.size(), lines.size()); // each once
    EXPECT_FALSE(lines.last().isEmpty());     // no empty item closes the menu
    for (const fx::MemberDef& def : fx::memberTable()) {
        const QString name = QString::fromStdU16String(std::u16string(def.name));
        EXPECT_EQ(commands.contains("fx." + name.toLower()), name != "Init") << name.toStdString();
    }
    // Dynamic help finds a command's first occurrence: it must be the entry's heading.
    const QString html = EditorData::referenceHtml("Function FileName(path)\nEnd Function\n");
    for (const EditorData::Member& m : EditorData::members()) {
        const QString heading = "<a name=\"m-" + m.command.mid(3) + "\"></a>";
        EXPECT_EQ(html.indexOf(m.command, 0, Qt::CaseInsensitive),
                  html.indexOf(heading) + heading.size())
            << m.command.toStdString();
    }
    EXPECT_TRUE(html.contains("<h3>Function FileName(path)</h3>"));
}

TEST(EditorData, EveryExampleCompilesAndNoneLooksLikeAnError) {
    Script s;
    QStringList examples;
    for (const EditorData::Member& m : EditorData::members()) {
        examples.append(m.example);
        EXPECT_TRUE(s.add("Sub Example()\r\n" + m.example + "\r\nEnd Sub\r\n"))
            << m.example.toStdString() << ": " << vbs::toUtf8(s.control.error().description);
    }
    // Correct uses of every member, each at the start of a line, match no error pattern.
    const QString all = "\r\n" + examples.join("\r\n") + "\r\n";
    for (const EditorData::ErrorPattern& p : EditorData::errorPatterns())
        EXPECT_FALSE(all.contains(p.pattern, Qt::CaseInsensitive)) << p.pattern.toStdString();
}

TEST(EditorData, EveryErrorPatternMarksCodeThatFails) {
    const std::vector<EditorData::ErrorPattern> patterns = EditorData::errorPatterns();
    ASSERT_GT(patterns.size(), 40u);
    for (const EditorData::ErrorPattern& p : patterns) {
        QString code = QString(p.pattern).remove("\r\n");
        if (code.endsWith('=')) code += " 1";
        if (code.endsWith('(')) code += "1, 2, 3, 4, 5, 6, 7, 8)";
        if (code.startsWith('=')) code = "value " + code;
        Script s;
        EXPECT_FALSE(s.add(code + "\r\n"))
            << code.toStdString() << " (" << p.reason.toStdString() << ")";
    }
    EXPECT_TRUE(EditorData::errorsText().startsWith("{vbcrlf}fx."));
}
