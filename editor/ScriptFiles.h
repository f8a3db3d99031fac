// Script files (.vt3), the header of a new script, and the editor's two data files.
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace ScriptFiles {

// The three header lines of a new script, each ending in CR LF.
QString newScriptHeader(const QString& title, const QString& version, const QDateTime& now);
// "3.0.12" (major.minor.revision) as the header writes it: "3.0.0.12".
QString headerVersion(const QString& applicationVersion);

// A script file is the editor's text with CR LF line ends and one CR LF appended; it is read
// back unchanged (UTF-8, or Windows-1252 when not valid UTF-8), so every load-and-save cycle
// adds one empty line. Texts here use "\n" line breaks, as the editor holds them.
bool writeScript(const QString& path, const QString& editorText);
QString readScript(const QString& path);

// data/commands.txt: one command per line, its first word being the command; data/errors.txt:
// one pattern per line, "{vbcrlf}" (this exact case) standing for a line break. A missing file
// leaves its list as it was.
void loadCommandList(const QString& dataFolder, QStringList& commands, QStringList& patterns);

// Line breaks between the editor's form ("\n") and the script's (CR LF).
QString toCrLf(const QString& editorText);
QString fromCrLf(const QString& scriptText);

} // namespace ScriptFiles
