// Parser: the statements inside a procedure or at the top level.
#include "Parser.h"

namespace vbs {

StmtPtr Parser::parseStatement()
{
    DepthGuard guard(*this);
    const Token t = tok();
    switch (t.kind) {
    case Tok::Dim: return parseDim(StmtKind::Dim);
    case Tok::ReDim: return parseDim(StmtKind::ReDim);
    case Tok::Const: return parseConst();
    case Tok::Erase: {
        ++m_pos;
        auto s = std::make_unique<EraseStmt>(t.line, t.column);
        do {
            s->vars.push_back(parsePostfix());
        } while (accept(Tok::Comma));
        return s;
    }
    case Tok::Set:
        ++m_pos;
        return parseAssignOrCall(true);
    case Tok::Call: return parseCallKeyword();
    case Tok::If: return parseIf();
    case Tok::For: return parseFor();
    case Tok::Do: return parseDo();
    case Tok::While: return parseWhile();
    case Tok::Select: return parseSelect();
    case Tok::With: return parseWith();
    case Tok::Exit: return parseExit();
    case Tok::On: return parseOnError();
    case Tok::Stop:
        ++m_pos;
        return std::make_unique<Stmt>(StmtKind::Nop, t.line, t.column);
    case Tok::Identifier:
        if (equalsNoCase(t.text, u"let") && peekTok().kind == Tok::Identifier)
            ++m_pos;
        return parseAssignOrCall(false);
    case Tok::Dot: case Tok::Me:
        return parseAssignOrCall(false);
    case Tok::Loop: fail(ErrorCode::LoopWithoutDo);
    case Tok::Next: fail(ErrorCode::UnexpectedNext);
    case Tok::Sub: case Tok::Function: case Tok::Public: case Tok::Private:
        if (m_proc->kind == ProcKind::TopLevel && !m_inClass)
            return parseNestedProcedure();
        fail(ErrorCode::SyntaxError);
    case Tok::Class: case Tok::Property: case Tok::Option:
        fail(ErrorCode::SyntaxError);
    default:
        fail(ErrorCode::ExpectedStatement);
    }
}

// A Sub or Function inside a block of top-level code (If False Then Sub S ... End Sub End If) is
// declared as if it stood at the top level.
StmtPtr Parser::parseNestedProcedure()
{
    const Token t = tok();
    bool isPublic = true;
    if (at(Tok::Public) || at(Tok::Private)) {
        isPublic = at(Tok::Public);
        if (peekTok().kind != Tok::Sub && peekTok().kind != Tok::Function)
            fail(ErrorCode::SyntaxError);
        ++m_pos;
    }
    parseProcedure(isPublic, false, nullptr);
    return std::make_unique<Stmt>(StmtKind::Nop, t.line, t.column);
}

// Whether the current token can begin a statement (a Case label's statement may follow it on
// the same line without a colon).
bool Parser::canStartStatement() const
{
    switch (tok().kind) {
    case Tok::Identifier: case Tok::Dot: case Tok::Me: case Tok::Dim: case Tok::ReDim: case Tok::Const:
    case Tok::Erase: case Tok::Set: case Tok::Call: case Tok::If: case Tok::For: case Tok::Do:
    case Tok::While: case Tok::Select: case Tok::With: case Tok::Exit: case Tok::On: case Tok::Stop:
        return true;
    default:
        return false;
    }
}

// dim: "Dim" name ["(" [bounds] ")"] {"," ...};  redim: "ReDim" ["Preserve"] name "(" exprs ")" ...
StmtPtr Parser::parseDim(StmtKind kind)
{
    const Token t = tok();
    ++m_pos;
    auto s = std::make_unique<DimStmt>(kind, t.line, t.column);
    if (kind == StmtKind::ReDim && atName(u"preserve")) {
        s->preserve = true;
        ++m_pos;
    }
    do {
        const Token nameTok = tok();
        DimStmt::Item item;
        item.var = std::make_unique<NameExpr>(expectIdentifier(), nameTok.line, nameTok.column);
        if (at(Tok::LParen)) {
            ++m_pos;
            item.isArray = true;
            if (!at(Tok::RParen)) {
                do {
                    if (kind == StmtKind::Dim) {
                        // Dim takes integer constants only.
                        const bool neg = accept(Tok::Minus);
                        if (!at(Tok::Integer))
                            fail(ErrorCode::ExpectedIntegerConstant);
                        const double d = neg ? -tok().number : tok().number;
                        item.bounds.push_back(std::make_unique<LiteralExpr>(Value(int32_t(d)), true, tok().line, tok().column));
                        ++m_pos;
                    } else {
                        item.bounds.push_back(parseExpr());
                    }
                } while (accept(Tok::Comma));
            }
            expect(Tok::RParen, ErrorCode::ExpectedRParen);
        } else if (kind == StmtKind::ReDim) {
            fail(ErrorCode::ExpectedLParen);
        }
        declare(static_cast<NameExpr*>(item.var.get())->name, nameTok,
            kind == StmtKind::Dim ? Procedure::Decl::Dim : Procedure::Decl::ReDim);
        s->items.push_back(std::move(item));
    } while (accept(Tok::Comma));
    return s;
}

// const: "Const" name "=" literal {"," name "=" literal}
StmtPtr Parser::parseConst()
{
    const Token t = tok();
    ++m_pos;
    auto s = std::make_unique<ConstStmt>(t.line, t.column);
    do {
        const Token nameTok = tok();
        auto name = std::make_unique<NameExpr>(expectIdentifier(), nameTok.line, nameTok.column);
        expect(Tok::Eq, ErrorCode::ExpectedEquals);
        ExprPtr value = parseExpr();
        if (value->kind != ExprKind::Literal)
            failAt(ErrorCode::ExpectedLiteral, nameTok);
        declare(name->name, nameTok, Procedure::Decl::Const);
        s->items.emplace_back(std::move(name), std::move(value));
    } while (accept(Tok::Comma));
    return s;
}

StmtPtr Parser::parseExit()
{
    const Token t = tok();
    ++m_pos;
    ExitKind k = ExitKind::Proc;
    const ProcKind pk = m_proc->kind;
    bool ok = false;
    if (accept(Tok::Do)) { k = ExitKind::Do; ok = m_loopDepthDo > 0; }
    else if (accept(Tok::For)) { k = ExitKind::For; ok = m_loopDepthFor > 0; }
    else if (accept(Tok::Sub)) ok = pk == ProcKind::Sub;
    else if (accept(Tok::Function)) ok = pk == ProcKind::Function;
    else if (accept(Tok::Property))
        ok = pk == ProcKind::PropertyGet || pk == ProcKind::PropertyLet || pk == ProcKind::PropertySet;
    else fail(ErrorCode::InvalidExit);
    if (!ok)
        failAt(ErrorCode::InvalidExit, t);
    return std::make_unique<ExitStmt>(k, t.line, t.column);
}

StmtPtr Parser::parseOnError()
{
    const Token t = tok();
    ++m_pos;
    if (!atName(u"error"))
        fail(ErrorCode::SyntaxError);
    ++m_pos;
    if (atName(u"resume")) {
        ++m_pos;
        expect(Tok::Next, ErrorCode::SyntaxError);
        return std::make_unique<Stmt>(StmtKind::OnErrorResumeNext, t.line, t.column);
    }
    if (atName(u"goto")) {
        ++m_pos;
        if (!at(Tok::Integer) || tok().number != 0)
            fail(ErrorCode::SyntaxError);
        ++m_pos;
        return std::make_unique<Stmt>(StmtKind::OnErrorGoto0, t.line, t.column);
    }
    fail(ErrorCode::SyntaxError);
}

void Parser::parseStatementsOnLine(Block& out, bool)
{
    while (true) {
        if (at(Tok::NewLine) || at(Tok::End) || at(Tok::Else) || atClosingEnd())
            return;
        if (accept(Tok::Colon))
            continue;
        out.push_back(parseStatement());
        if (!atEndOfStatement())
            fail(ErrorCode::ExpectedEndOfStatement);
    }
}

// if: "If" expr "Then" (NL block {"ElseIf" ...} ["Else" block] "End" "If" | stmts ["Else" stmts])
StmtPtr Parser::parseIf()
{
    const Token t = tok();
    ++m_pos;
    auto s = std::make_unique<IfStmt>(t.line, t.column);
    IfStmt::Arm arm;
    arm.condition = parseExpr();
    expect(Tok::Then, ErrorCode::ExpectedThen);
    if (!at(Tok::NewLine) && !at(Tok::End)) {
        const bool saved = m_singleLineIf;
        m_singleLineIf = true;
        parseStatementsOnLine(arm.body, false);
        s->arms.push_back(std::move(arm));
        if (accept(Tok::Else))
            parseStatementsOnLine(s->elseBody, true);
        // A one-line If may end with "End If".
        if (at(Tok::EndKw) && peekTok().kind == Tok::If)
            m_pos += 2;
        m_singleLineIf = saved;
        return s;
    }
    const bool saved = m_singleLineIf;
    m_singleLineIf = false;
    arm.body = parseBlock({Tok::ElseIf, Tok::Else, Tok::EndKw}, ErrorCode::ExpectedEnd);
    s->arms.push_back(std::move(arm));
    while (at(Tok::ElseIf)) {
        ++m_pos;
        IfStmt::Arm more;
        more.condition = parseExpr();
        expect(Tok::Then, ErrorCode::ExpectedThen);
        more.body = parseBlock({Tok::ElseIf, Tok::Else, Tok::EndKw}, ErrorCode::ExpectedEnd);
        s->arms.push_back(std::move(more));
    }
    if (accept(Tok::Else))
        s->elseBody = parseBlock({Tok::EndKw}, ErrorCode::ExpectedEnd);
    expectEnd(Tok::If, ErrorCode::ExpectedIf);
    m_singleLineIf = saved;
    return s;
}

// for: "For" name "=" expr "To" expr ["Step" expr] block "Next"  |  "For" "Each" name "In" expr block "Next"
StmtPtr Parser::parseFor()
{
    const Token t = tok();
    ++m_pos;
    const bool saved = m_singleLineIf;
    m_singleLineIf = false;
    StmtPtr result;
    if (accept(Tok::Each)) {
        auto s = std::make_unique<ForEachStmt>(t.line, t.column);
        const Token nameTok = tok();
        s->var = std::make_unique<NameExpr>(expectIdentifier(), nameTok.line, nameTok.column);
        expect(Tok::In, ErrorCode::ExpectedIn);
        s->collection = parseExpr();
        ++m_loopDepthFor;
        s->body = parseBlock({Tok::Next}, ErrorCode::ExpectedNext);
        --m_loopDepthFor;
        result = std::move(s);
    } else {
        auto s = std::make_unique<ForStmt>(t.line, t.column);
        const Token nameTok = tok();
        s->var = std::make_unique<NameExpr>(expectIdentifier(), nameTok.line, nameTok.column);
        expect(Tok::Eq, ErrorCode::ExpectedEquals);
        s->from = parseExpr();
        expect(Tok::To, ErrorCode::ExpectedTo);
        s->to = parseExpr();
        if (atName(u"step")) {
            ++m_pos;
            s->step = parseExpr();
        }
        ++m_loopDepthFor;
        s->body = parseBlock({Tok::Next}, ErrorCode::ExpectedNext);
        --m_loopDepthFor;
        result = std::move(s);
    }
    expect(Tok::Next, ErrorCode::ExpectedNext);
    if (at(Tok::Identifier))
        ++m_pos;
    m_singleLineIf = saved;
    return result;
}

// do: "Do" [("While"|"Until") expr] block "Loop" [("While"|"Until") expr]
StmtPtr Parser::parseDo()
{
    const Token t = tok();
    ++m_pos;
    const bool saved = m_singleLineIf;
    m_singleLineIf = false;
    auto s = std::make_unique<DoStmt>(t.line, t.column);
    if (at(Tok::While) || at(Tok::Until)) {
        s->until = at(Tok::Until);
        ++m_pos;
        s->condition = parseExpr();
    }
    ++m_loopDepthDo;
    s->body = parseBlock({Tok::Loop}, ErrorCode::ExpectedLoop);
    --m_loopDepthDo;
    expect(Tok::Loop, ErrorCode::ExpectedLoop);
    if (at(Tok::While) || at(Tok::Until)) {
        if (s->condition)
            fail(ErrorCode::ExpectedEndOfStatement);
        s->until = at(Tok::Until);
        s->testAtTop = false;
        ++m_pos;
        s->condition = parseExpr();
    }
    m_singleLineIf = saved;
    return s;
}

// while: "While" expr block "Wend"
StmtPtr Parser::parseWhile()
{
    const Token t = tok();
    ++m_pos;
    const bool saved = m_singleLineIf;
    m_singleLineIf = false;
    auto s = std::make_unique<DoStmt>(t.line, t.column);
    s->isWhileWend = true;
    s->condition = parseExpr();
    s->body = parseBlock({Tok::Wend}, ErrorCode::ExpectedWend);
    expect(Tok::Wend, ErrorCode::ExpectedWend);
    m_singleLineIf = saved;
    return s;
}

// select: "Select" "Case" expr {"Case" exprs block} ["Case" "Else" block] "End" "Select"
StmtPtr Parser::parseSelect()
{
    const Token t = tok();
    ++m_pos;
    const bool saved = m_singleLineIf;
    m_singleLineIf = false;
    expect(Tok::Case, ErrorCode::ExpectedCase);
    auto s = std::make_unique<SelectStmt>(t.line, t.column);
    s->subject = parseExpr();
    expectEndOfStatement();
    skipSeparators();
    while (accept(Tok::Case)) {
        if (accept(Tok::Else)) {
            s->hasElse = true;
            s->elseBody = parseBlock({Tok::EndKw}, ErrorCode::ExpectedEnd);
            break;
        }
        SelectStmt::Arm arm;
        do {
            arm.values.push_back(parseExpr());
        } while (accept(Tok::Comma));
        // The arm's first statement may follow the label directly: Case 1 x = 2.
        if (!canStartStatement())
            expectEndOfStatement();
        arm.body = parseBlock({Tok::Case, Tok::EndKw}, ErrorCode::ExpectedEnd);
        s->arms.push_back(std::move(arm));
    }
    if (!at(Tok::EndKw))
        fail(at(Tok::End) ? ErrorCode::ExpectedEnd : ErrorCode::ExpectedCase);
    expectEnd(Tok::Select, ErrorCode::ExpectedSelect);
    m_singleLineIf = saved;
    return s;
}

// with: "With" expr block "End" "With"
StmtPtr Parser::parseWith()
{
    const Token t = tok();
    ++m_pos;
    const bool saved = m_singleLineIf;
    m_singleLineIf = false;
    auto s = std::make_unique<WithStmt>(t.line, t.column);
    s->object = parseExpr();
    s->body = parseBlock({Tok::EndKw}, ErrorCode::ExpectedEnd);
    expectEnd(Tok::With, ErrorCode::ExpectedWith);
    m_singleLineIf = saved;
    return s;
}

} // namespace vbs
