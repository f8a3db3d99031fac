// The colouring pass: a rich-text box's Find and selection replayed on the CR LF text.
#include "editor/ScriptColorizer.h"

#include "vbscript/Value.h"

#include <algorithm>

namespace {

void foldInPlace(QString& s) {
    for (QChar& c : s) {
        const char16_t u = c.unicode();
        if (u < 0x80)
            c = QChar(u >= u'A' && u <= u'Z' ? char16_t(u + 32) : u);
        else
            c = c.toCaseFolded();
    }
}

// Case is folded once per pass; a search then compares code units. Searches for the command
// words and error patterns, which run over the whole text, start from an index of the
// positions of every three-character sequence (by a hash of it, positions ascending): only the
// places of the needle's rarest three characters are compared.
class FoldedText {
public:
    explicit FoldedText(const QString& text) : m_text(text) { foldInPlace(m_text); }
    qsizetype size() const { return m_text.size(); }
    const QString& text() const { return m_text; }

    // The first occurrence of the folded needle at or after `from`; -1 when there is none.
    qsizetype find(const QString& needle, qsizetype from) {
        if (needle.size() < 3) return m_text.indexOf(needle, from, Qt::CaseSensitive);
        buildIndex();
        // Most needles share a prefix ("fx."): the rarest sequence of the needle, at offset k,
        // is the one looked up.
        qsizetype k = 0;
        uint32_t h = hash(needle.constData());
        for (qsizetype i = 1; i + 3 <= needle.size(); ++i) {
            const uint32_t hi = hash(needle.constData() + i);
            if (m_start[hi + 1] - m_start[hi] < m_start[h + 1] - m_start[h]) h = hi, k = i;
        }
        const auto first = m_positions.begin() + m_start[h],
                   last = m_positions.begin() + m_start[h + 1];
        const QStringView text(m_text);
        for (auto it = std::lower_bound(first, last, int(from + k)); it != last; ++it) {
            const qsizetype at = *it - k;
            if (at + needle.size() <= text.size() &&
                std::equal(needle.begin(), needle.end(), text.begin() + at))
                return at;
        }
        return -1;
    }

private:
    // Small enough to stay in the cache; the rarest sequence keeps the buckets searched short.
    static constexpr uint32_t kBuckets = 0x0FFF;
    static uint32_t hash(const QChar* c) {
        return (c[0].unicode() * 31u * 31u + c[1].unicode() * 31u + c[2].unicode()) & kBuckets;
    }
    void buildIndex() {
        if (!m_start.empty()) return;
        m_start.assign(kBuckets + 2, 0);
        const qsizetype n = m_text.size() - 2;
        for (qsizetype i = 0; i < n; ++i)
            ++m_start[hash(m_text.constData() + i) + 1];
        for (size_t h = 1; h < m_start.size(); ++h)
            m_start[h] += m_start[h - 1];
        m_positions.resize(size_t(std::max<qsizetype>(n, 0)));
        std::vector<int> next(m_start.begin(), m_start.end() - 1);
        for (qsizetype i = 0; i < n; ++i)
            m_positions[size_t(next[hash(m_text.constData() + i)]++)] = int(i);
    }

    QString m_text;
    std::vector<int> m_start; // bucket h holds m_positions[m_start[h], m_start[h + 1])
    std::vector<int> m_positions;
};

QString folded(const QString& text) {
    QString out = text;
    foldInPlace(out);
    return out;
}

// The selection of the box being coloured. Setting the start empties the selection; Find
// (case-insensitive) selects its match and leaves the selection alone when there is none.
class Pass {
public:
    explicit Pass(const QString& text) : m_text(text), m_looks(size_t(text.size())) {}

    void setStart(qsizetype start) {
        m_start = std::clamp<qsizetype>(start, 0, m_text.size());
        m_length = 0;
    }
    // `what` is folded already.
    void find(const QString& what, qsizetype from) {
        if (what.isEmpty() || from > m_text.size()) return;
        const qsizetype at = m_text.find(what, from);
        if (at < 0) return;
        m_start = at;
        m_length = what.size();
    }
    void paint(Ink ink, bool bold) {
        std::fill_n(m_looks.begin() + m_start, m_length, Look{ink, bold});
    }
    void skipSelection() { setStart(m_start + m_length); }

    qsizetype start() const { return m_start; }
    qsizetype length() const { return m_length; }
    std::vector<Look>& looks() { return m_looks; }

private:
    FoldedText m_text;
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
        if (ScriptColorizer::isNumeric(word)) {
            pass.find(folded(word.toString()), pass.start());
            if (pass.length() >= 1) pass.paint(Ink::Number, false);
        }
        pass.setStart(pass.start() + word.size());
    }
}

void everyOccurrence(Pass& pass, const QStringList& words, Ink ink, bool bold) {
    for (const QString& word : words) {
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
    for (const QStringView line : QStringView(text).split(QStringLiteral("\r\n"))) {
        const bool comment =
            line.startsWith(QStringLiteral("//")) || line.startsWith(QStringLiteral("\\\\"));
        if (comment) {
            pass.find(folded(line.toString()), pass.start());
            if (pass.length() >= 1) {
                pass.paint(Ink::Comment, false);
                pass.skipSelection();
            }
            continue;
        }
        if (line.startsWith(QStringLiteral("fx.")) || line.startsWith(QStringLiteral("progress.")))
            continue;
        pass.find(folded(line.toString()), pass.start());
        pass.paint(Ink::Error, true); // whatever is selected, found or not
        pass.skipSelection();
    }
}

} // namespace

void ScriptColorizer::setCommands(const QStringList& commands) {
    m_commands.clear();
    for (const QString& c : commands)
        m_commands.append(folded(c));
}

void ScriptColorizer::setErrorPatterns(const QStringList& patterns) {
    m_patterns.clear();
    for (const QString& p : patterns)
        m_patterns.append(folded(p));
}

bool ScriptColorizer::isNumeric(QStringView word) {
    // The language's test needs a decimal digit, or "&" for "&H" and "&O": most words have
    // neither and are settled here.
    const bool candidate = std::any_of(
        word.begin(), word.end(), [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'&'; });
    if (!candidate) return false;
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
