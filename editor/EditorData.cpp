// The fx members, error patterns and template helpers as the editor's data files present them.
#include "editor/EditorData.h"

#include "effects/FxMember.h"
#include "imaging/Operation.h"
#include "imaging/Property.h"
#include "vbscript/Text.h"

#include <QRegularExpression>
#include <algorithm>
#include <cmath>
#include <map>

namespace EditorData {

namespace {

using fx::MemberDef;
using fx::MemberKind;

QString q(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QString number(double v) {
    return QString::number(v, 'g', 10);
}

QString typeName(imaging::ParamType t) {
    static const char* names[] = {"integer", "long",   "single", "double",
                                  "boolean", "string", "colour"};
    return QLatin1String(names[int(t)]);
}

QString codeType(char code) {
    switch (code) {
    case 'i':
        return QStringLiteral("integer");
    case 'l':
        return QStringLiteral("long");
    case 'f':
        return QStringLiteral("single");
    case 'd':
        return QStringLiteral("double");
    case 'b':
        return QStringLiteral("boolean");
    case 's':
        return QStringLiteral("string");
    case 'c':
        return QStringLiteral("colour");
    case 'o':
        return QStringLiteral("object");
    default:
        return QStringLiteral("any");
    }
}

QString rangeOf(imaging::ParamType t, double min, double max) {
    using T = imaging::ParamType;
    if (t == T::String || t == T::Bool || min > max) return {};
    if (t == T::Color) return QStringLiteral("&H000000 to &HFFFFFF");
    return number(min) + QStringLiteral(" to ") + number(max);
}

// A value of the declared type and range for an example: a quarter into the range, a quarter
// of the positive side when the range runs both ways, small steps for coordinates.
QString sampleValue(imaging::ParamType t, double min, double max, size_t index) {
    using T = imaging::ParamType;
    switch (t) {
    case T::Bool:
        return QStringLiteral("True");
    case T::String:
        return QStringLiteral("\"Hello\"");
    case T::Color:
        return QStringLiteral("&H0000FF");
    default:
        break;
    }
    double v = min < 0 && max > 0 ? max / 4 : min + (max - min) / 4;
    if (min <= -32768 && max >= 32767) v = 10.0 * double(index + 1);
    if (t != T::Single && t != T::Double) v = std::round(v);
    return number(v);
}

Argument argumentOf(const imaging::ParamDef& p) {
    return {q(p.name), typeName(p.type), rangeOf(p.type, p.min, p.max),
            p.def ? number(*p.def) : QString(), q(p.meaning)};
}

void describeMethod(const MemberDef& def, Member& m) {
    const imaging::OperationDef* op =
        def.handler ? nullptr : imaging::findOperation(vbs::toUtf8(def.name));
    m.kind = QStringLiteral("method");
    m.usage = QString::fromStdString(fx::argumentNames(def));
    QStringList sample;
    if (op) {
        for (size_t k = 0; k < op->params.size(); ++k) {
            const imaging::ParamDef& p = op->params[k];
            m.arguments.push_back(argumentOf(p));
            if (!p.def) sample.append(sampleValue(p.type, p.min, p.max, k));
        }
    } else {
        const QStringList names = q(def.argNames).split(QStringLiteral(", "), Qt::SkipEmptyParts);
        for (qsizetype k = 0; k < names.size(); ++k)
            m.arguments.push_back({names[k], codeType(def.args[size_t(k)]), {}, {}, {}});
    }
    const QString args = def.example.empty() ? sample.join(QStringLiteral(", ")) : q(def.example);
    m.example = m.command + (args.isEmpty() ? QString() : u' ' + args);
}

void describeProperty(const MemberDef* get, const MemberDef* let, Member& m) {
    const MemberDef& any = get ? *get : *let;
    const imaging::PropertyDef* p = imaging::findProperty(vbs::toUtf8(any.name));
    m.kind = get && let ? QStringLiteral("property")
             : get      ? QStringLiteral("read-only property")
                        : QStringLiteral("write-only property");
    const QString type = p ? typeName(p->type) : codeType(get ? get->result : let->args[0]);
    m.usage = let ? QStringLiteral("= ") + type : QStringLiteral("(read-only ") + type + u')';
    if (let) {
        Argument value{QStringLiteral("value"), type, {}, {}, q(any.description)};
        QString sample;
        if (p) {
            value.range = rangeOf(p->type, p->min, p->max);
            const bool stored = p->type != imaging::ParamType::String;
            if (stored)
                value.initial = p->type == imaging::ParamType::Bool ? (p->def ? "True" : "False")
                                                                    : number(p->def);
            sample =
                stored && p->def != 0 ? value.initial : sampleValue(p->type, p->min, p->max, 0);
        }
        if (!let->example.empty()) sample = q(let->example);
        if (sample.isEmpty())
            sample = type == "boolean" ? "True" : type == "string" ? "\"Hello\"" : "1";
        m.arguments.push_back(value);
        m.example = m.command + QStringLiteral(" = ") + sample;
    } else if (get->result == 'o') {
        m.example = QStringLiteral("Set picture = ") + m.command;
    } else {
        const QString arg = get->example.empty() ? QString() : u'(' + q(get->example) + u')';
        if (!get->argNames.empty())
            m.usage = u'(' + q(get->argNames) + QStringLiteral(") ") + m.usage;
        m.example = QStringLiteral("value = ") + m.command + arg;
    }
}

} // namespace

std::vector<Member> members() {
    // Sides of one name gathered; the table's order is the dispatch order, not the reader's.
    std::map<QString, std::vector<const MemberDef*>> byName;
    for (const MemberDef& def : fx::memberTable())
        if (def.name != u"Init")
            byName[QString::fromStdU16String(std::u16string(def.name)).toLower()].push_back(&def);
    std::vector<Member> out;
    for (const auto& [key, sides] : byName) {
        Member m;
        m.command =
            QStringLiteral("fx.") + QString::fromStdU16String(std::u16string(sides[0]->name));
        const MemberDef *get = nullptr, *let = nullptr, *method = nullptr;
        for (const MemberDef* d : sides)
            (d->kind == MemberKind::Get ? get : d->kind == MemberKind::Let ? let : method) = d;
        m.description = q(fx::description(method ? *method : get ? *get : *let));
        if (method)
            describeMethod(*method, m);
        else
            describeProperty(get, let, m);
        out.push_back(std::move(m));
    }
    return out;
}

std::vector<ErrorPattern> errorPatterns() {
    std::vector<ErrorPattern> out;
    const QString lineStart = QStringLiteral("\r\n");
    for (const Member& m : members()) {
        if (m.kind == "read-only property")
            out.push_back({lineStart + m.command + QStringLiteral(" ="),
                           QStringLiteral("a read-only property cannot be assigned")});
        if (m.kind == "method")
            out.push_back({lineStart + m.command + QStringLiteral(" ="),
                           QStringLiteral("a method cannot be assigned; it is called")});
        if (m.kind == "write-only property")
            out.push_back({QStringLiteral("= ") + m.command,
                           QStringLiteral("a write-only property cannot be read")});
        const auto required = std::count_if(m.arguments.begin(), m.arguments.end(),
                                            [](const Argument& a) { return a.initial.isEmpty(); });
        if (m.kind == "method" && required >= 2)
            out.push_back({lineStart + m.command + u'(',
                           QStringLiteral("a statement may not put two or more arguments in "
                                          "parentheses (error 1044)")});
    }
    return out;
}

std::vector<Helper> templateHelpers(const QString& templateText) {
    static const QRegularExpression declaration(
        QStringLiteral("^(Function|Sub)\\s+(\\w+)\\s*\\(([^)]*)\\)"),
        QRegularExpression::CaseInsensitiveOption);
    std::vector<Helper> out;
    QStringList comment;
    for (const QString& raw : QString(templateText).replace("\r\n", "\n").split(u'\n')) {
        const QString line = raw.trimmed();
        if (line.startsWith(u'\'')) {
            comment.append(line.mid(1).trimmed());
            continue;
        }
        const QRegularExpressionMatch match = declaration.match(line);
        const QString name = match.captured(2);
        if (match.hasMatch() && name.compare("Main", Qt::CaseInsensitive) != 0 &&
            name.compare("ProcessEffects", Qt::CaseInsensitive) != 0)
            out.push_back({match.captured(0), comment.join(u' ')});
        comment.clear();
    }
    return out;
}

QString commandsText() {
    QStringList lines;
    for (const Member& m : members())
        lines.append(m.usage.isEmpty() ? m.command : m.command + QStringLiteral("  ") + m.usage);
    return lines.join(QStringLiteral("\r\n"));
}

QString errorsText() {
    QStringList lines;
    for (const ErrorPattern& p : errorPatterns())
        lines.append(
            QString(p.pattern).replace(QStringLiteral("\r\n"), QStringLiteral("{vbcrlf}")));
    return lines.join(QStringLiteral("\r\n"));
}

} // namespace EditorData
