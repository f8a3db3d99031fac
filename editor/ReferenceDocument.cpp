// The reference document as HTML: an index of bare names, then one entry per fx member headed by
// its call (the first place the document names it, so that dynamic help lands on the entry),
// then the template's helpers, the save formats, the error patterns and the error numbers.
#include "editor/EditorData.h"

#include "imaging/ImagingError.h"
#include "imaging/io/Formats.h"
#include "platform/Messages.h"
#include "vbscript/ScriptError.h"

namespace EditorData {

namespace {

QString esc(const QString& text) {
    return text.toHtmlEscaped();
}

QString q(std::string_view text) {
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QString anchor(const Member& m) {
    return QStringLiteral("m-") + m.command.mid(3);
}

void index(QString& out, const std::vector<Member>& list) {
    out += "<h2>Index</h2>\n<p>The effects object's members (call them with the object's name and "
           "a full stop before them):</p>\n<p>";
    for (const Member& m : list)
        out +=
            QStringLiteral("<a href=\"#%1\">%2</a> &nbsp; ").arg(anchor(m), esc(m.command.mid(3)));
    out += "</p>\n<p><a href=\"#helpers\">Helpers of the template</a> &middot; "
           "<a href=\"#formats\">Save formats</a> &middot; <a href=\"#patterns\">Error patterns</a>"
           " &middot; <a href=\"#errors\">Error numbers</a></p>\n";
}

void entry(QString& out, const Member& m) {
    out += QStringLiteral("<h3><a name=\"%1\"></a>%2</h3>\n").arg(anchor(m), esc(m.command));
    out += QStringLiteral("<p><i>%1</i>").arg(esc(m.kind));
    if (!m.usage.isEmpty()) out += QStringLiteral(": <code>%1</code>").arg(esc(m.usage));
    out += QStringLiteral("</p>\n<p>%1</p>\n").arg(esc(m.description));
    if (!m.arguments.empty()) {
        out += "<ul>\n";
        for (const Argument& a : m.arguments) {
            QString line = QStringLiteral("<b>%1</b>: %2").arg(esc(a.name), esc(a.type));
            if (!a.range.isEmpty()) line += QStringLiteral(", ") + esc(a.range);
            if (!a.initial.isEmpty())
                line += (m.kind == "method" ? QStringLiteral(", default ")
                                            : QStringLiteral(", initially ")) +
                        esc(a.initial);
            if (!a.meaning.isEmpty()) line += QStringLiteral(" &ndash; ") + esc(a.meaning);
            out += QStringLiteral("<li>%1</li>\n").arg(line);
        }
        out += "</ul>\n";
    }
    out += QStringLiteral("<p>Example: <code>%1</code></p>\n").arg(esc(m.example));
}

void helpers(QString& out, const QString& templateText) {
    out += "<h2><a name=\"helpers\"></a>Helpers of the template</h2>\n<p>Functions and subs of "
           "data/template.txt that every script and command line can call:</p>\n";
    for (const Helper& h : templateHelpers(templateText))
        out += QStringLiteral("<h3>%1</h3>\n<p>%2</p>\n").arg(esc(h.declaration), esc(h.comment));
}

void formats(QString& out) {
    out += "<h2><a name=\"formats\"></a>Save formats</h2>\n<p>Codes of SaveFileType and "
           "IFormat; 0 chooses by the extension of SaveFileName.</p>\n<table border=\"1\" "
           "cellpadding=\"3\">\n<tr><th>code</th><th>format</th><th>extensions</th><th>load</th>"
           "<th>save</th><th>notes</th></tr>\n";
    for (const imaging::FormatDef& f : imaging::allFormats())
        out += QStringLiteral("<tr><td>%1</td><td>%2</td><td>%3</td><td>%4</td><td>%5</td>"
                              "<td>%6</td></tr>\n")
                   .arg(f.code)
                   .arg(esc(q(f.name)), esc(q(f.extensions)), f.canLoad ? "yes" : "no",
                        f.canSave ? "yes" : "no", esc(q(f.note)));
    out += "</table>\n";
}

void patterns(QString& out) {
    out += "<h2><a name=\"patterns\"></a>Error patterns</h2>\n<p>The editor marks these mistakes "
           "in bold dark red wherever they occur; they are made from the member table:</p>\n<ul>\n"
           "<li>a read-only property assigned at the start of a line;</li>\n"
           "<li>a method assigned at the start of a line (methods are called);</li>\n"
           "<li>a write-only property read after an equals sign;</li>\n"
           "<li>a method of two or more required arguments called at the start of a line with "
           "its arguments in parentheses, which the language refuses (error 1044).</li>\n</ul>\n";
}

void errorNumbers(QString& out) {
    out += "<h2><a name=\"errors\"></a>Error numbers</h2>\n<h3>Script errors</h3>\n<table "
           "border=\"1\" cellpadding=\"3\">\n";
    for (const vbs::ErrorEntry& e : vbs::errorCatalogue())
        out += QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
                   .arg(e.number)
                   .arg(esc(QString::fromUtf8(e.message)));
    out += "</table>\n<h3>Imaging errors (the ImagError property)</h3>\n<table border=\"1\" "
           "cellpadding=\"3\">\n";
    for (const imaging::ErrorInfo& e : imaging::errorCatalogue())
        out += QStringLiteral("<tr><td>%1</td><td>%2</td></tr>\n")
                   .arg(int(e.code))
                   .arg(esc(q(e.message)));
    out += "</table>\n";
}

} // namespace

QString referenceHtml(const QString& templateText) {
    const std::vector<Member> list = members();
    QString out = QStringLiteral("<html><head><meta charset=\"utf-8\"><title>%1 reference</title>"
                                 "</head><body>\n<h1>%1 reference</h1>\n")
                      .arg(esc(applicationTitle()));
    index(out, list);
    out += "<h2>The effects object</h2>\n";
    for (const Member& m : list)
        entry(out, m);
    helpers(out, templateText);
    formats(out);
    patterns(out);
    errorNumbers(out);
    return out + "</body></html>\n";
}

} // namespace EditorData
