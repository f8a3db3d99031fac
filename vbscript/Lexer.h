// Lexer: VBScript source text to tokens, each with its line and column.
#pragma once

#include "ScriptError.h"

#include <cstdint>
#include <vector>

namespace vbs {

enum class Tok : uint8_t {
    End, NewLine, Colon, Identifier, Integer, Float, String, Date,
    LParen, RParen, Comma, Dot, Amp, Plus, Minus, Star, Slash, Backslash, Caret,
    Eq, Ne, Lt, Gt, Le, Ge,
    // Keywords
    And, ByRef, ByVal, Call, Case, Class, Const, Dim, Do, Each, Else, ElseIf, Empty, EndKw, Eqv,
    Erase, Exit, False, For, Function, If, Imp, In, Is, Loop, Me, Mod, New, Next, Not, Nothing,
    Null, On, Option, Or, Private, Property, Public, ReDim, Select, Set, Stop, Sub, Then, To,
    True, Until, Wend, While, With, Xor,
};

struct Token {
    Tok kind = Tok::End;
    bool spaceBefore = false; // whitespace directly before (".x" after a blank is a With member)
    int line = 0;
    int column = 0;
    String text;        // identifier name as written, string contents
    double number = 0;  // Integer, Float, Date (OLE date)
};

// Lexes the whole text; throws a located ScriptError (1032, 1033, 1031, ...) on bad input.
// continuedLines, when given, receives (ascending) each line that continues the one before it
// after a " _".
std::vector<Token> lex(std::u16string_view source, std::vector<int>* continuedLines = nullptr);


} // namespace vbs
