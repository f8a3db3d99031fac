// Parser: call and assignment statements (the forms a statement starting with a name takes).
#include "Parser.h"

namespace vbs {

// The target of an assignment or call statement: a name with ".member" and "(args)" directly
// attached. "(" after a blank starts the first argument instead.
ExprPtr Parser::parseStatementTarget()
{
    ExprPtr e = parsePrimary();
    while (true) {
        if (at(Tok::LParen) && !tok().spaceBefore) {
            const Token t = tok();
            auto call = std::make_unique<CallExpr>(std::move(e), t.line, t.column);
            parseArgs(*call);
            e = std::move(call);
        } else if (at(Tok::Dot) && !tok().spaceBefore) {
            ++m_pos;
            const Token nameTok = tok();
            String name = expectIdentifier();
            e = std::make_unique<MemberExpr>(std::move(e), std::move(name), nameTok.line, nameTok.column);
        } else {
            return e;
        }
    }
}

// Whether the tokens from here are a parenthesised group directly followed by "=".
bool Parser::parenGroupBeforeEquals() const
{
    if (!at(Tok::LParen))
        return false;
    int depth = 0;
    for (size_t k = m_pos; k < m_toks.size(); ++k) {
        switch (m_toks[k].kind) {
        case Tok::LParen: ++depth; break;
        case Tok::RParen:
            if (--depth == 0)
                return k + 1 < m_toks.size() && m_toks[k + 1].kind == Tok::Eq;
            break;
        case Tok::NewLine: case Tok::Colon: case Tok::End: return false;
        default: break;
        }
    }
    return false;
}

StmtPtr Parser::parseAssignOrCall(bool isSet)
{
    const Token t = tok();
    ExprPtr target = parseStatementTarget();
    if (parenGroupBeforeEquals()) {
        // "arr (0) = v": a blank before the index still makes an assignment target.
        const Token p = tok();
        auto call = std::make_unique<CallExpr>(std::move(target), p.line, p.column);
        parseArgs(*call);
        target = std::move(call);
    }
    if (accept(Tok::Eq)) {
        if (target->kind == ExprKind::Call && static_cast<CallExpr*>(target.get())->target->kind == ExprKind::Me)
            failAt(ErrorCode::InvalidUseOfMe, t);
        if (target->kind == ExprKind::Me)
            failAt(ErrorCode::InvalidUseOfMe, t);
        ExprPtr value = parseExpr();
        bool isMid = false;
        if (!isSet && target->kind == ExprKind::Call) {
            const auto* c = static_cast<CallExpr*>(target.get());
            isMid = c->target->kind == ExprKind::Name
                && equalsNoCase(static_cast<NameExpr*>(c->target.get())->name, u"Mid");
            if (isMid && (c->args.size() < 2 || c->args.size() > 3 || !c->args[0] || !c->args[1]
                             || (c->args.size() == 3 && !c->args[2])))
                failAt(ErrorCode::SyntaxError, t);
        }
        auto assign = std::make_unique<AssignStmt>(std::move(target), std::move(value), isSet, t.line, t.column);
        assign->isMid = isMid;
        return assign;
    }
    if (isSet)
        fail(ErrorCode::ExpectedEquals);
    if (target->kind == ExprKind::Me || target->kind == ExprKind::Literal)
        fail(ErrorCode::ExpectedStatement);
    std::unique_ptr<CallExpr> call;
    if (target->kind == ExprKind::Call) {
        call.reset(static_cast<CallExpr*>(target.release()));
        if (atEndOfStatement()) {
            // "Foo(x)" as a statement passes x by value; "Foo(x, y)" is not allowed.
            if (call->args.size() > 1)
                failAt(ErrorCode::ParenthesesCallingSub, t);
            if (call->args.size() == 1 && call->args[0])
                call->args[0]->parenthesized = true;
            call->parens = false;
            return std::make_unique<CallStmt>(std::move(call), t.line, t.column);
        }
        if (call->args.size() != 1 || !call->args[0])
            fail(ErrorCode::ExpectedEndOfStatement);
        // "Foo(1) + 2, 3": the parenthesised group began the first argument.
        ExprPtr first = std::move(call->args[0]);
        first->parenthesized = true;
        first = parseBinaryRest(parsePostfixRest(std::move(first)), 1);
        auto outer = std::make_unique<CallExpr>(std::move(call->target), t.line, t.column);
        outer->args.push_back(std::move(first));
        outer->parens = false;
        if (!atEndOfStatement()) {
            expect(Tok::Comma, ErrorCode::ExpectedEndOfStatement);
            parseRestArgs(*outer);
        }
        return std::make_unique<CallStmt>(std::move(outer), t.line, t.column);
    }
    call = std::make_unique<CallExpr>(std::move(target), t.line, t.column);
    call->parens = false;
    if (!atEndOfStatement()) {
        if (accept(Tok::Comma)) {
            call->args.push_back(nullptr);
        } else {
            call->args.push_back(parseExpr());
            if (!atEndOfStatement())
                expect(Tok::Comma, ErrorCode::ExpectedEndOfStatement);
        }
        if (m_toks[m_pos - 1].kind == Tok::Comma)
            parseRestArgs(*call);
    }
    return std::make_unique<CallStmt>(std::move(call), t.line, t.column);
}

// The arguments after a comma of a call statement; an empty one is an omitted argument.
void Parser::parseRestArgs(CallExpr& call)
{
    while (true) {
        if (atEndOfStatement()) {
            call.args.push_back(nullptr);
            return;
        }
        if (accept(Tok::Comma)) {
            call.args.push_back(nullptr);
            continue;
        }
        call.args.push_back(parseExpr());
        if (atEndOfStatement())
            return;
        expect(Tok::Comma, ErrorCode::ExpectedEndOfStatement);
    }
}

// call: "Call" target ["(" args ")"]
StmtPtr Parser::parseCallKeyword()
{
    const Token t = tok();
    ++m_pos;
    if (!at(Tok::Identifier) && !at(Tok::Dot) && !at(Tok::Me) && !at(Tok::LParen))
        fail(ErrorCode::ExpectedIdentifier);
    // The target may be parenthesised: Call (New C).Run(), Call (((f))) (x).
    ExprPtr target = parseStatementTarget();
    std::unique_ptr<CallExpr> call;
    if (target->kind == ExprKind::Call && !target->parenthesized) {
        call.reset(static_cast<CallExpr*>(target.release()));
    } else {
        call = std::make_unique<CallExpr>(std::move(target), t.line, t.column);
        if (at(Tok::LParen))
            parseArgs(*call); // Call f (x): the argument list may follow a blank
    }
    call->parens = false;
    return std::make_unique<CallStmt>(std::move(call), t.line, t.column);
}

} // namespace vbs
