// The editor's data files made from the tables the code runs on, so that they cannot drift from
// it: the command list (every fx member), the error patterns (mistakes the member table can
// tell), and the reference document (members with arguments, ranges, meaning and an example;
// the template's helpers; the save formats; the error catalogues).
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace EditorData {

struct Argument {
    QString name;
    QString type;    // integer, long, single, double, boolean, string, colour, object
    QString range;   // "1 to 20", "" when any value of the type goes
    QString initial; // the default of an optional argument or a property's initial value
    QString meaning;
};

// One fx member under one name (a property's read and write sides together).
struct Member {
    QString command; // "fx.Resize"
    QString kind;    // method, property, read-only property, write-only property
    QString usage;   // the arguments as the command list shows them
    QString description;
    std::vector<Argument> arguments;
    QString example; // one script line
};

// Every member a script may call (the host's Init left out), in name order without regard to case.
std::vector<Member> members();

// An error pattern: text that is always wrong where it stands, and why; CR LF for a line break.
struct ErrorPattern {
    QString pattern;
    QString reason;
};
// Made from the member table: a read-only property or a method assigned to at the start of a
// line, a write-only property read after "= ", and a statement calling a method of two or more
// required arguments with its arguments in parentheses (error 1044).
std::vector<ErrorPattern> errorPatterns();

// A Function or Sub of the template with the comment above it.
struct Helper {
    QString declaration; // "Function NoExtension(path)"
    QString comment;
};
// The helpers of a template text (Main and ProcessEffects, the template's own, left out).
std::vector<Helper> templateHelpers(const QString& templateText);

// The files as the editor reads them: CR LF between lines, "{vbcrlf}" inside patterns.
QString commandsText();
QString errorsText();
QString referenceHtml(const QString& templateText);

} // namespace EditorData
