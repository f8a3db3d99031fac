// The colouring pass: a rich-text box's Find and selection replayed on the CR LF text.
#include "editor/ScriptColorizer.h"

#include "vbscript/Value.h"

#include <algorithm>

namespace {

std::vector<QStringMatcher> matchers(const QStringList& words) {
    std::vector<QStringMatcher> out;
    out.reserve(size_t(words.size()));
    for (const QString& w : words)
        out.emplace_back(w, Qt::CaseInsensitive);
    return out;
}

// The selection of the box being coloured. Setting the start empties the selection; Find
// selects its match and leaves the selection alone when there is none.
class Pass {
public:
    explicit Pass(const QString& text) : m_text(text), m_looks(size_t(text.size())) {}

    void setStart(qsizetype start) {
        m_start = std::clamp<qsizetype>(start, 0, m_text.size());
        m_length = 0;
    }
    void find(const QStringMatcher& what, qsizetype from) {
        if (what.pattern().isEmpty() || from > m_text.size()) return;
        const qsizetype at = what.indexIn(m_text, from);
        if (at < 0) return;
        m_start = at;
        m_length = what.pattern().size();
    }
    void paint(Ink ink, bool bold) {
        std::fill_n(m_looks.begin() + m_start, m_length, Look{ink, bold});
    }
    void skipSelection() { setStart(m_start + m_length); }

    qsizetype start() const { return m_start; }
    qsizetype length() const { return m_length; }
    std::vector<Look>& looks() { return m_looks; }

private:
    const QString& m_text;
    std::vector<Look> m_looks;
    qsizetype m_start = 0;
    qsizetype m_length = 0;
};

// Words split at single blanks after CR LF and commas became blanks. The search position moves
// by word lengths only, so it lags behind by the separators; Find searches forwards, so a
// number is still found.
void numbers(Pass& pass, const QString& text) {
    QString words = text;
    words.replace(QStringLiteral("\r\n"), QStringLiteral(" ")).replace(u',', u' ');
    pass.setStart(0);
    for (const QStringView word : QStringView(words).split(u' ')) {
        if (ScriptColorizer::isNumeric(word.toString())) {
            pass.find(QStringMatcher(word.toString(), Qt::CaseInsensitive), pass.start());
            if (pass.length() >= 1) pass.paint(Ink::Number, false);
        }
        pass.setStart(pass.start() + word.size());
    }
}

void everyOccurrence(Pass& pass, const std::vector<QStringMatcher>& words, Ink ink, bool bold) {
    for (const QStringMatcher& word : words) {
        pass.setStart(0);
        for (;;) {
            pass.find(word, pass.start());
            if (pass.length() < 1) break;
            pass.paint(ink, bold);
            pass.skipSelection();
        }
    }
}

// Comment lines start with "//" or "\\"; "fx." and "progress." lines (exact case, first
// column) are calls and keep their colours; every other line is an error. A call line does not
// move the search position.
void lines(Pass& pass, const QString& text) {
    pass.setStart(0);
    for (const QString& line : text.split(QStringLiteral("\r\n"))) {
        const bool comment =
            line.startsWith(QStringLiteral("//")) || line.startsWith(QStringLiteral("\\\\"));
        if (comment) {
            pass.find(QStringMatcher(line, Qt::CaseInsensitive), pass.start());
            if (pass.length() >= 1) {
                pass.paint(Ink::Comment, false);
                pass.skipSelection();
            }
            continue;
        }
        if (line.startsWith(QStringLiteral("fx.")) || line.startsWith(QStringLiteral("progress.")))
            continue;
        pass.find(QStringMatcher(line, Qt::CaseInsensitive), pass.start());
        pass.paint(Ink::Error, true); // whatever is selected, found or not
        pass.skipSelection();
    }
}

} // namespace

void ScriptColorizer::setCommands(const QStringList& commands) {
    m_commands = matchers(commands);
}

void ScriptColorizer::setErrorPatterns(const QStringList& patterns) {
    m_patterns = matchers(patterns);
}

bool ScriptColorizer::isNumeric(const QString& word) {
    if (word.isEmpty()) return false;
    double value = 0;
    return vbs::Value::parseNumber(
        std::u16string_view(reinterpret_cast<const char16_t*>(word.utf16()), size_t(word.size())),
        value);
}

std::vector<Look> ScriptColorizer::colour(const QString& text) const {
    QString crlf = text;
    crlf.replace(u'\n', QStringLiteral("\r\n"));
    Pass pass(crlf);
    numbers(pass, crlf);
    everyOccurrence(pass, m_commands, Ink::Command, false);
    lines(pass, crlf);
    everyOccurrence(pass, m_patterns, Ink::Error, true);
    // Back to one character per line break: the CR of each pair goes.
    std::vector<Look> looks;
    looks.reserve(size_t(text.size()));
    const std::vector<Look>& all = pass.looks();
    for (qsizetype i = 0; i < crlf.size(); ++i)
        if (!(crlf[i] == u'\r' && i + 1 < crlf.size() && crlf[i + 1] == u'\n'))
            looks.push_back(all[size_t(i)]);
    return looks;
}
