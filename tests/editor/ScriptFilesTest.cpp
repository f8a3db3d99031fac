// Script files, the new script's header, the data files and the script's conversions.
#include "editor/ScriptFiles.h"
#include "EditorHarness.h"
#include "TempTree.h"
#include "engine/mEngineMain.h"

#include <gtest/gtest.h>

TEST(ScriptFiles, NewScriptHeaderAndVersion) {
    EXPECT_EQ(ScriptFiles::headerVersion("3.0.12"), "3.0.0.12");
    EXPECT_EQ(ScriptFiles::headerVersion("3.1.0"), "3.1.0.0");
    const QString header = ScriptFiles::newScriptHeader("Vantorel 3 Caldrith", "3.0.0.0",
                                                        QDateTime::currentDateTime());
    const QStringList lines = header.split("\r\n");
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], "//Vantorel 3 Caldrith 'Script File'");
    EXPECT_TRUE(lines[1].startsWith("//Created With: Vantorel 3 Caldrith v.3.0.0.0 On: "));
    EXPECT_TRUE(lines[1].contains(" - "));
    EXPECT_EQ(lines[2], "//Script Name: Unknown");
    EXPECT_EQ(lines[3], "");
}

TEST(ScriptFiles, EachSaveAndLoadAddsOneLineAndReadsOlderEncodings) {
    TempTree tree;
    EditorHarness h;
    h.core.NewScript();
    const QString script = h.box.text();
    const QString path = tree.nativePath("a.vt3");
    ASSERT_TRUE(h.core.saveToFile(path));
    EXPECT_EQ(tree.read("a.vt3"), ScriptFiles::toCrLf(script).toUtf8() + "\r\n");
    h.core.loadChosenFile(path);
    EXPECT_EQ(h.box.text(), script + "\n");
    EXPECT_EQ(h.box.text().count('\n'), 4); // three header lines and one more empty line
    EXPECT_EQ(ScriptEditorCore::scriptDirectory(), tree.nativePath(""));
    // A Windows-1252 script (0xE9 is e acute) reads as the rest of the product reads text.
    tree.write("old.vt3", "fx.DrawText 1, 1, \"caf\xE9\"\r\n");
    h.core.LoadScriptFile(tree.nativePath("old.vt3"));
    EXPECT_EQ(h.box.text(), QString::fromUtf8("fx.DrawText 1, 1, \"caf\u00e9\"\n"));
    h.core.LoadScriptFile(tree.nativePath("missing.vt3")); // changes nothing
    EXPECT_EQ(h.box.text(), QString::fromUtf8("fx.DrawText 1, 1, \"caf\u00e9\"\n"));
}

TEST(ScriptFiles, CommandListAndErrorPatterns) {
    TempTree tree;
    tree.write("commands.txt", "fx.Resize  width, height\r\nfx.Rotate 90\r\n");
    tree.write("errors.txt", "{vbcrlf}fx.Blur =\r\nfx.A{VBCRLF}");
    QStringList c{"kept"}, p{"kept"};
    ScriptFiles::loadCommandList(tree.nativePath("missing"), c, p);
    EXPECT_EQ(c, QStringList{"kept"}); // a missing file leaves the list alone
    ScriptFiles::loadCommandList(tree.nativePath(""), c, p);
    // A closing line break makes a last, empty entry.
    EXPECT_EQ(c, (QStringList{"fx.Resize", "fx.Rotate", ""}));
    EXPECT_EQ(p, (QStringList{"\r\nfx.Blur =", "fx.A{VBCRLF}"}));
}

TEST(ScriptFiles, InsertedCommandsAndConversions) {
    EditorHarness h;
    h.core.insertCommand("fx.Rotate");
    EXPECT_EQ(h.box.text(), "fx.Rotate ");
    h.core.insertCommand("fx.Blur");
    EXPECT_EQ(h.box.text(), "fx.Rotate \nfx.Blur ");
    h.core.AppendLine("fx.SaveFile");
    EXPECT_EQ(h.box.text(), "fx.Rotate \nfx.Blur \nfx.SaveFile");
    h.core.NewScript();
    EXPECT_EQ(h.box.selStart(), h.box.text().size());
    // Only comment lines: the converter's output for them, behind "/files:nofiles ".
    EXPECT_EQ(h.core.commandLineForView(),
              "/files:nofiles " +
                  mEngineMain::ScriptToCommandLine(ScriptFiles::toCrLf(h.box.text())));
    h.core.LoadCommandLine("/files:a.jpg /fx.Blur /fx.savefile");
    EXPECT_TRUE(h.box.text().startsWith("//"));
    EXPECT_TRUE(h.box.text().endsWith("//Script Name: Unknown\n\nfx.Blur \nfx.savefile"))
        << h.box.text().toStdString();
    EXPECT_EQ(h.core.GetCommandLine(""), " /fx.Blur /fx.savefile");
    EXPECT_EQ(h.box.GetEditInfo(7).toInt(), 6);
    EXPECT_EQ(h.box.GetEditInfo(9).toString(), "This should not happen!! Try Again!!");
}
