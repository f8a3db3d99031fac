// Regular expressions with VBScript's (JScript 5.5) semantics on the 16-bit PCRE2 library.
#include "RegexEngine.h"

#define PCRE2_CODE_UNIT_WIDTH 16
#include <pcre2.h>

namespace vbs::lib {

namespace {

pcre2_code* codeOf(void* p) {
    return static_cast<pcre2_code*>(p);
}

PCRE2_SPTR units(std::u16string_view text) {
    return reinterpret_cast<PCRE2_SPTR>(text.data());
}

struct MatchData {
    explicit MatchData(pcre2_code* code)
        : data(pcre2_match_data_create_from_pattern(code, nullptr)) {}
    ~MatchData() { pcre2_match_data_free(data); }
    pcre2_match_data* data;
};

} // namespace

RegexProgram::RegexProgram(void* code, size_t groupCount)
    : m_code(code), m_groupCount(groupCount) {}

RegexProgram::~RegexProgram() {
    pcre2_code_free(codeOf(m_code));
}

std::shared_ptr<const RegexProgram> RegexProgram::compile(std::u16string_view pattern, Flags flags,
                                                          std::u16string* error) {
    // JScript's reading of a pattern: \uXXXX escapes, [] and [^] allowed, a reference to a group
    // that has not matched matches nothing, "$" only at the very end unless multi-line, and
    // CR or LF end a line. Code units are characters, so lone surrogates are fine.
    uint32_t options =
        PCRE2_ALT_BSUX | PCRE2_ALLOW_EMPTY_CLASS | PCRE2_MATCH_UNSET_BACKREF | PCRE2_DOLLAR_ENDONLY;
    if (flags.ignoreCase) options |= PCRE2_CASELESS;
    if (flags.multiline) options |= PCRE2_MULTILINE;
    pcre2_compile_context* context = pcre2_compile_context_create(nullptr);
    pcre2_set_newline(context, PCRE2_NEWLINE_ANYCRLF);
    int code = 0;
    PCRE2_SIZE offset = 0;
    pcre2_code* compiled =
        pcre2_compile(units(pattern), pattern.size(), options, &code, &offset, context);
    pcre2_compile_context_free(context);
    if (!compiled) {
        if (error) {
            PCRE2_UCHAR buffer[256];
            const int n = pcre2_get_error_message(code, buffer, 256);
            error->assign(reinterpret_cast<const char16_t*>(buffer), n > 0 ? size_t(n) : 0);
        }
        return nullptr;
    }
    pcre2_jit_compile(compiled, PCRE2_JIT_COMPLETE); // an optional speed-up; failure is harmless
    uint32_t captures = 0;
    pcre2_pattern_info(compiled, PCRE2_INFO_CAPTURECOUNT, &captures);
    return std::shared_ptr<const RegexProgram>(new RegexProgram(compiled, captures));
}

std::optional<RegexMatch> RegexProgram::matchFrom(std::u16string_view subject, size_t start) const {
    if (start > subject.size()) return std::nullopt;
    MatchData match(codeOf(m_code));
    const int rc =
        pcre2_match(codeOf(m_code), units(subject), subject.size(), start, 0, match.data, nullptr);
    if (rc < 0) return std::nullopt;
    const PCRE2_SIZE* ovector = pcre2_get_ovector_pointer(match.data);
    RegexMatch result;
    result.whole = {ovector[0], ovector[1] - ovector[0]};
    for (size_t i = 1; i <= m_groupCount; ++i) {
        if (int(i) >= rc || ovector[2 * i] == PCRE2_UNSET)
            result.groups.emplace_back();
        else
            result.groups.push_back(RegexSpan{ovector[2 * i], ovector[2 * i + 1] - ovector[2 * i]});
    }
    return result;
}

std::vector<RegexMatch> RegexProgram::matchAll(std::u16string_view subject, bool global) const {
    std::vector<RegexMatch> matches;
    size_t start = 0;
    while (auto m = matchFrom(subject, start)) {
        matches.push_back(*m);
        if (!global) break;
        start = m->whole.index + m->whole.length;
        if (m->whole.length == 0) ++start;
    }
    return matches;
}

std::u16string RegexProgram::replace(std::u16string_view subject, std::u16string_view replacement,
                                     bool global) const {
    std::u16string out;
    size_t copied = 0;
    for (const RegexMatch& m : matchAll(subject, global)) {
        out.append(subject.substr(copied, m.whole.index - copied));
        out.append(expandReplacement(replacement, subject, m));
        copied = m.whole.index + m.whole.length;
    }
    out.append(subject.substr(copied));
    return out;
}

std::u16string expandReplacement(std::u16string_view replacement, std::u16string_view subject,
                                 const RegexMatch& match) {
    std::u16string out;
    const size_t groups = match.groups.size();
    auto digit = [&](size_t i) {
        return i < replacement.size() && replacement[i] >= u'0' && replacement[i] <= u'9'
                   ? int(replacement[i] - u'0')
                   : -1;
    };
    for (size_t i = 0; i < replacement.size(); ++i) {
        const char16_t c = replacement[i];
        if (c != u'$' || i + 1 >= replacement.size()) {
            out += c;
            continue;
        }
        const char16_t next = replacement[i + 1];
        if (next == u'$') {
            out += u'$';
        } else if (next == u'&') {
            out.append(subject.substr(match.whole.index, match.whole.length));
        } else if (next == u'`') {
            out.append(subject.substr(0, match.whole.index));
        } else if (next == u'\'') {
            out.append(subject.substr(match.whole.index + match.whole.length));
        } else if (digit(i + 1) >= 0) {
            // Two digits when they name a group, else one; a group that does not exist stays
            // as written.
            size_t n = size_t(digit(i + 1));
            size_t used = 1;
            if (digit(i + 2) >= 0 && n * 10 + size_t(digit(i + 2)) <= groups &&
                n * 10 + size_t(digit(i + 2)) > 0) {
                n = n * 10 + size_t(digit(i + 2));
                used = 2;
            }
            if (n == 0 || n > groups) {
                out += c;
                continue;
            }
            if (const auto& g = match.groups[n - 1])
                out.append(subject.substr(g->index, g->length));
            i += used;
            continue;
        } else {
            out += c;
            continue;
        }
        ++i;
    }
    return out;
}

} // namespace vbs::lib
