// Regular expressions with VBScript's (JScript 5.5) semantics on the 16-bit PCRE2 library.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vbs::lib {

struct RegexSpan {
    size_t index = 0;
    size_t length = 0;
};

struct RegexMatch {
    RegexSpan whole;
    std::vector<std::optional<RegexSpan>> groups; // groups 1..n; nullopt = did not take part
};

class RegexProgram {
public:
    struct Flags {
        bool ignoreCase = false;
        bool multiline = false;
    };

    // nullptr and a message when the pattern does not compile.
    static std::shared_ptr<const RegexProgram> compile(std::u16string_view pattern, Flags flags,
                                                       std::u16string* error = nullptr);
    ~RegexProgram();
    RegexProgram(const RegexProgram&) = delete;
    RegexProgram& operator=(const RegexProgram&) = delete;

    size_t groupCount() const { return m_groupCount; }
    std::optional<RegexMatch> matchFrom(std::u16string_view subject, size_t start) const;
    // Every match (global) or the first; an empty match moves the next search one unit on.
    std::vector<RegexMatch> matchAll(std::u16string_view subject, bool global) const;
    // Replacement text understands $1..$99, $&, $`, $' and $$.
    std::u16string replace(std::u16string_view subject, std::u16string_view replacement,
                           bool global) const;

private:
    explicit RegexProgram(void* code, size_t groupCount);
    void* m_code; // pcre2_code_16, kept opaque so that callers need no PCRE2 headers
    size_t m_groupCount;
};

std::u16string expandReplacement(std::u16string_view replacement, std::u16string_view subject,
                                 const RegexMatch& match);

} // namespace vbs::lib
