// Lexer: keywords and names without regard to case, literals, comments, line continuations.
#include "Lexer.h"

#include "Locale.h"
#include "Value.h"

#include <cmath>
#include <unordered_map>

namespace vbs {

namespace {

const std::unordered_map<String, Tok>& keywords()
{
    static const std::unordered_map<String, Tok> map = {
        {u"and", Tok::And}, {u"byref", Tok::ByRef}, {u"byval", Tok::ByVal}, {u"call", Tok::Call},
        {u"case", Tok::Case}, {u"class", Tok::Class}, {u"const", Tok::Const}, {u"dim", Tok::Dim},
        {u"do", Tok::Do}, {u"each", Tok::Each}, {u"else", Tok::Else}, {u"elseif", Tok::ElseIf},
        {u"empty", Tok::Empty}, {u"end", Tok::EndKw}, {u"eqv", Tok::Eqv}, {u"erase", Tok::Erase},
        {u"exit", Tok::Exit}, {u"false", Tok::False}, {u"for", Tok::For},
        {u"function", Tok::Function}, {u"if", Tok::If}, {u"imp", Tok::Imp}, {u"in", Tok::In},
        {u"is", Tok::Is}, {u"loop", Tok::Loop}, {u"me", Tok::Me}, {u"mod", Tok::Mod},
        {u"new", Tok::New}, {u"next", Tok::Next}, {u"not", Tok::Not}, {u"nothing", Tok::Nothing},
        {u"null", Tok::Null}, {u"on", Tok::On}, {u"option", Tok::Option}, {u"or", Tok::Or},
        {u"private", Tok::Private}, {u"property", Tok::Property}, {u"public", Tok::Public},
        {u"redim", Tok::ReDim}, {u"select", Tok::Select}, {u"set", Tok::Set}, {u"stop", Tok::Stop},
        {u"sub", Tok::Sub}, {u"then", Tok::Then}, {u"to", Tok::To}, {u"true", Tok::True},
        {u"until", Tok::Until}, {u"wend", Tok::Wend}, {u"while", Tok::While}, {u"with", Tok::With},
        {u"xor", Tok::Xor},
    };
    return map;
}

bool isIdentStart(char16_t c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= 0xC0 && c != 0xD7 && c != 0xF7
        && !(c >= 0x2000 && c <= 0x206F) && c != 0xFEFF && c != 0x3000);
}

bool isIdentChar(char16_t c)
{
    return isIdentStart(c) || (c >= '0' && c <= '9') || c == '_';
}

bool isSpace(char16_t c)
{
    return c == ' ' || c == '\t' || c == 0xA0 || c == 0xFEFF || c == 0x3000 || c == '\f' || c == '\v';
}

class Lexer {
public:
    Lexer(std::u16string_view src, std::vector<int>* continued) : m_src(src), m_continued(continued) {}

    std::vector<Token> run()
    {
        while (true) {
            bool space = skipBlanks();
            Token t;
            t.spaceBefore = space;
            t.line = m_line;
            t.column = column();
            if (m_pos >= m_src.size()) {
                t.kind = Tok::End;
                m_out.push_back(std::move(t));
                return std::move(m_out);
            }
            lexOne(t);
        }
    }

private:
    int column() const { return int(m_pos - m_lineStart) + 1; }
    char16_t peek(size_t k = 0) const { return m_pos + k < m_src.size() ? m_src[m_pos + k] : 0; }

    [[noreturn]] void fail(ErrorCode code, int line, int col)
    {
        ScriptError e(code);
        e.line = line;
        e.column = col;
        throw e;
    }

    void newLine()
    {
        if (peek() == '\r' && peek(1) == '\n')
            ++m_pos;
        ++m_pos;
        ++m_line;
        m_lineStart = m_pos;
    }

    // Blanks and "_" line continuations; returns whether anything was skipped.
    bool skipBlanks()
    {
        const size_t start = m_pos;
        while (m_pos < m_src.size()) {
            const char16_t c = peek();
            if (isSpace(c)) {
                ++m_pos;
            } else if (c == '_' && !isIdentChar(peek(1)) && (m_pos == 0 || !isIdentChar(m_src[m_pos - 1]))) {
                size_t k = m_pos + 1;
                while (k < m_src.size() && isSpace(m_src[k]))
                    ++k;
                if (k < m_src.size() && (m_src[k] == '\r' || m_src[k] == '\n')) {
                    m_pos = k;
                    newLine();
                    if (m_continued)
                        m_continued->push_back(m_line);
                } else if (k >= m_src.size()) {
                    m_pos = k;
                } else {
                    break;
                }
            } else {
                break;
            }
        }
        return m_pos > start;
    }

    void push(Token& t, Tok kind)
    {
        t.kind = kind;
        m_out.push_back(std::move(t));
    }

    void skipComment()
    {
        while (m_pos < m_src.size() && peek() != '\r' && peek() != '\n')
            ++m_pos;
    }

    void lexOne(Token& t)
    {
        const char16_t c = peek();
        if (c == '\r' || c == '\n') {
            newLine();
            push(t, Tok::NewLine);
            return;
        }
        if (c == '\'') {
            skipComment();
            return;
        }
        if (isIdentStart(c)) {
            lexWord(t);
            return;
        }
        if (c == '[') {
            size_t k = m_pos + 1;
            while (k < m_src.size() && m_src[k] != ']' && m_src[k] != '\r' && m_src[k] != '\n')
                ++k;
            if (k >= m_src.size() || m_src[k] != ']')
                fail(ErrorCode::ExpectedRBracket, t.line, t.column);
            t.text = String(m_src.substr(m_pos + 1, k - m_pos - 1));
            m_pos = k + 1;
            push(t, Tok::Identifier);
            return;
        }
        if ((c >= '0' && c <= '9') || (c == '.' && peek(1) >= '0' && peek(1) <= '9'
                                          && !(m_out.size() && !t.spaceBefore && endsOperand(m_out.back().kind)))) {
            lexNumber(t);
            return;
        }
        if (c == '"') {
            lexString(t);
            return;
        }
        if (c == '#') {
            lexDate(t);
            return;
        }
        if (c == '&' && startsRadixLiteral()) {
            lexRadix(t);
            return;
        }
        ++m_pos;
        switch (c) {
        case ':': push(t, Tok::Colon); return;
        case '(': push(t, Tok::LParen); return;
        case ')': push(t, Tok::RParen); return;
        case ',': push(t, Tok::Comma); return;
        case '.': push(t, Tok::Dot); return;
        case '&': push(t, Tok::Amp); return;
        case '+': push(t, Tok::Plus); return;
        case '-': push(t, Tok::Minus); return;
        case '*': push(t, Tok::Star); return;
        case '/': push(t, Tok::Slash); return;
        case '\\': push(t, Tok::Backslash); return;
        case '^': push(t, Tok::Caret); return;
        // "=>", "=<" and "><" are accepted spellings of >=, <= and <>.
        case '=':
            if (peek() == '>') { ++m_pos; push(t, Tok::Ge); return; }
            if (peek() == '<') { ++m_pos; push(t, Tok::Le); return; }
            push(t, Tok::Eq);
            return;
        case '<':
            if (peek() == '>') { ++m_pos; push(t, Tok::Ne); return; }
            if (peek() == '=') { ++m_pos; push(t, Tok::Le); return; }
            push(t, Tok::Lt);
            return;
        case '>':
            if (peek() == '=') { ++m_pos; push(t, Tok::Ge); return; }
            if (peek() == '<') { ++m_pos; push(t, Tok::Ne); return; }
            push(t, Tok::Gt);
            return;
        default:
            fail(ErrorCode::InvalidCharacter, t.line, t.column);
        }
    }

    // "&H" or "&O" followed by a digit of that base, or "&" and an octal digit. Otherwise "&" is
    // the concatenation operator, also directly before a name ("x" &hi).
    bool startsRadixLiteral() const
    {
        const char16_t c = peek(1);
        if (c == 'h' || c == 'H')
            return isHexDigit(peek(2));
        if (c == 'o' || c == 'O')
            return peek(2) >= '0' && peek(2) <= '7';
        return c >= '0' && c <= '7';
    }

    static bool isHexDigit(char16_t c)
    {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    }

    // "Property" is a keyword only where it starts or ends a property (Property Get/Let/Set,
    // End Property, Exit Property); elsewhere it is an ordinary name.
    bool propertyIsKeyword() const
    {
        if (!m_out.empty() && (m_out.back().kind == Tok::EndKw || m_out.back().kind == Tok::Exit))
            return true;
        size_t k = m_pos;
        while (k < m_src.size() && isSpace(m_src[k]))
            ++k;
        if (k + 3 > m_src.size() || (k + 3 < m_src.size() && isIdentChar(m_src[k + 3])))
            return false;
        const String word = foldCase(m_src.substr(k, 3));
        return word == u"get" || word == u"let" || word == u"set";
    }

    static bool endsOperand(Tok k)
    {
        return k == Tok::Identifier || k == Tok::RParen || k == Tok::Integer || k == Tok::Float
            || k == Tok::String;
    }

    void lexWord(Token& t)
    {
        const size_t start = m_pos;
        while (m_pos < m_src.size() && isIdentChar(peek()))
            ++m_pos;
        if (m_pos - start > 255)
            fail(ErrorCode::IdentifierTooLong, t.line, t.column);
        t.text = String(m_src.substr(start, m_pos - start));
        // After a member dot, every word is a name (obj.End, fx.Loop).
        const bool afterDot = !m_out.empty() && m_out.back().kind == Tok::Dot && !t.spaceBefore;
        if (!afterDot) {
            const String folded = foldCase(t.text);
            if (folded == u"rem") {
                skipComment();
                return;
            }
            const auto it = keywords().find(folded);
            if (it != keywords().end() && (it->second != Tok::Property || propertyIsKeyword())) {
                push(t, it->second);
                return;
            }
        }
        push(t, Tok::Identifier);
    }

    void lexNumber(Token& t)
    {
        std::string digits;
        bool isFloat = false;
        while (peek() >= '0' && peek() <= '9')
            digits.push_back(char(m_src[m_pos++]));
        if (peek() == '.' && peek(1) >= '0' && peek(1) <= '9') {
            isFloat = true;
            digits.push_back(char(m_src[m_pos++]));
            while (peek() >= '0' && peek() <= '9')
                digits.push_back(char(m_src[m_pos++]));
        } else if (peek() == '.' && !isIdentStart(peek(1))) {
            isFloat = true;
            ++m_pos;
        }
        if ((peek() == 'e' || peek() == 'E')
            && ((peek(1) >= '0' && peek(1) <= '9')
                || ((peek(1) == '+' || peek(1) == '-') && peek(2) >= '0' && peek(2) <= '9'))) {
            isFloat = true;
            digits.push_back('e');
            ++m_pos;
            if (peek() == '+' || peek() == '-')
                digits.push_back(char(m_src[m_pos++]));
            while (peek() >= '0' && peek() <= '9')
                digits.push_back(char(m_src[m_pos++]));
        }
        if (isIdentStart(peek()) || peek() == '_')
            fail(ErrorCode::ExpectedEndOfStatement, m_line, column());
        t.number = std::strtod(digits.c_str(), nullptr);
        if (!std::isfinite(t.number))
            fail(ErrorCode::InvalidNumber, t.line, t.column);
        push(t, isFloat || t.number > 2147483647.0 ? Tok::Float : Tok::Integer);
    }

    void lexRadix(Token& t)
    {
        ++m_pos; // &
        int base = 8;
        if (peek() == 'h' || peek() == 'H') { base = 16; ++m_pos; }
        else if (peek() == 'o' || peek() == 'O') { ++m_pos; }
        uint64_t v = 0;
        size_t n = 0;
        while (true) {
            const char16_t c = peek();
            int d = -1;
            if (c >= '0' && c <= '9') d = c - '0';
            else if (base == 16 && c >= 'a' && c <= 'f') d = c - 'a' + 10;
            else if (base == 16 && c >= 'A' && c <= 'F') d = c - 'A' + 10;
            if (d < 0 || d >= base)
                break;
            v = v * uint64_t(base) + uint64_t(d);
            if (v > 0xFFFFFFFFull)
                fail(ErrorCode::InvalidNumber, t.line, t.column);
            ++m_pos;
            ++n;
        }
        bool longSuffix = false;
        if (peek() == '&') {
            ++m_pos; // a trailing "&" reads the digits as 32 bits: &HFFFF& is 65535, not -1
            longSuffix = true;
        }
        // The literal ends at the first character that is not a digit: &h01or&h02 is 1 Or 2.
        if (n == 0)
            fail(ErrorCode::SyntaxError, t.line, t.column);
        // &HFFFF is the Integer -1; wider literals, and any with the "&" suffix, are 32-bit two's
        // complement (the parser keeps an Integer when the value fits one).
        if (v <= 0xFFFF && !longSuffix)
            t.number = double(int16_t(uint16_t(v)));
        else
            t.number = double(int32_t(uint32_t(v)));
        push(t, Tok::Integer);
    }

    void lexString(Token& t)
    {
        ++m_pos;
        String text;
        while (true) {
            if (m_pos >= m_src.size() || peek() == '\r' || peek() == '\n')
                fail(ErrorCode::UnterminatedString, t.line, t.column);
            const char16_t c = m_src[m_pos++];
            if (c == '"') {
                if (peek() == '"') {
                    text.push_back('"');
                    ++m_pos;
                    continue;
                }
                break;
            }
            text.push_back(c);
        }
        t.text = std::move(text);
        push(t, Tok::String);
    }

    void lexDate(Token& t)
    {
        const size_t start = ++m_pos;
        while (m_pos < m_src.size() && peek() != '#' && peek() != '\r' && peek() != '\n')
            ++m_pos;
        if (peek() != '#')
            fail(ErrorCode::SyntaxError, t.line, t.column);
        double d;
        // Date literals are written the US way whatever the locale.
        if (!Value::parseDate(m_src.substr(start, m_pos - start), d, englishUs()))
            fail(ErrorCode::SyntaxError, t.line, t.column);
        ++m_pos;
        t.number = d;
        push(t, Tok::Date);
    }

    std::u16string_view m_src;
    size_t m_pos = 0;
    size_t m_lineStart = 0;
    int m_line = 1;
    std::vector<Token> m_out;
    std::vector<int>* m_continued;
};

} // namespace

std::vector<Token> lex(std::u16string_view source, std::vector<int>* continuedLines)
{
    return Lexer(source, continuedLines).run();
}

} // namespace vbs
