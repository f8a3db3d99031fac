// Parser: tokens to the syntax tree of one piece of code (statements, procedures, classes).
#pragma once

#include "Ast.h"
#include "Lexer.h"

namespace vbs {

// Nesting limit of parentheses, blocks and unary operators, so that hostile input cannot
// exhaust the native stack of the parser, the interpreter or the tree's destructor.
constexpr int kMaxParseDepth = 400;

class Parser {
public:
    Parser(std::vector<Token> tokens, Program& program);
    void parseAll();
    ExprPtr parseWholeExpression();

private:
    friend struct DepthGuard;
    // Token stream.
    const Token& tok() const { return m_toks[m_pos]; }
    const Token& peekTok(size_t k = 1) const;
    bool at(Tok k) const { return tok().kind == k; }
    bool atName(const char16_t* lowerName) const;
    bool accept(Tok k);
    void expect(Tok k, ErrorCode code);
    String expectIdentifier();
    [[noreturn]] void fail(ErrorCode code) const;
    [[noreturn]] void failAt(ErrorCode code, const Token& t) const;
    bool atEndOfStatement() const;
    bool atClosingEnd() const;
    bool canStartStatement() const;
    bool parenGroupBeforeEquals() const;
    void expectEndOfStatement();
    void skipSeparators();

    // Declarations.
    void parseTopLevelItem();
    void parseProcedure(bool isPublic, bool isDefault, ClassDef* owner);
    void parseParams(Procedure& proc);
    void parseClass();
    void parseClassMember(ClassDef& cls);
    void addMember(ClassDef& cls, Procedure* proc);

    // Statements.
    Block parseBlock(std::initializer_list<Tok> terminators, ErrorCode atEof);
    StmtPtr parseStatement();
    StmtPtr parseSimpleStatement();
    void parseStatementsOnLine(Block& out, bool inElse);
    StmtPtr parseIf();
    StmtPtr parseFor();
    StmtPtr parseDo();
    StmtPtr parseWhile();
    StmtPtr parseSelect();
    StmtPtr parseWith();
    StmtPtr parseDim(StmtKind kind);
    StmtPtr parseConst();
    StmtPtr parseExit();
    StmtPtr parseOnError();
    StmtPtr parseAssignOrCall(bool isSet);
    StmtPtr parseCallKeyword();
    StmtPtr parseNestedProcedure();
    void parseRestArgs(CallExpr& call);
    void expectEnd(Tok what, ErrorCode code);
    void declare(const String& name, const Token& at, Procedure::Decl::Kind kind);
    ExprPtr parseStatementTarget();

    // Expressions.
    ExprPtr parseExpr(int minPrec = 1);
    ExprPtr parseBinaryRest(ExprPtr lhs, int minPrec);
    ExprPtr parseUnary();
    ExprPtr parsePostfix();
    ExprPtr parsePrimary();
    ExprPtr parsePostfixRest(ExprPtr e);
    void parseArgs(CallExpr& call);
    ExprPtr makeBinary(ExprKind k, ExprPtr l, ExprPtr r, const Token& at);

    std::vector<Token> m_toks;
    size_t m_pos = 0;
    Program& m_program;
    Procedure* m_proc = nullptr;     // the procedure being parsed (top-level pseudo procedure too)
    bool m_inClass = false;
    int m_depth = 0;
    int m_loopDepthDo = 0, m_loopDepthFor = 0;
    bool m_singleLineIf = false;
};

struct DepthGuard {
    explicit DepthGuard(Parser& p) : m_p(p)
    {
        if (++m_p.m_depth > kMaxParseDepth)
            m_p.fail(ErrorCode::OutOfStackSpace);
    }
    ~DepthGuard() { --m_p.m_depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;
    Parser& m_p;
};

} // namespace vbs
