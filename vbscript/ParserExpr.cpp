// Parser: expressions, by precedence climbing (Imp lowest, ^ highest).
#include "Parser.h"

namespace vbs {

namespace {

constexpr int kMaxExprDepth = 2000;  // height of one expression tree

int binaryPrec(Tok k)
{
    switch (k) {
    case Tok::Imp: return 1;
    case Tok::Eqv: return 2;
    case Tok::Xor: return 3;
    case Tok::Or: return 4;
    case Tok::And: return 5;
    case Tok::Eq: case Tok::Ne: case Tok::Lt: case Tok::Gt: case Tok::Le: case Tok::Ge:
    case Tok::Is: return 7;
    case Tok::Amp: return 8;
    case Tok::Plus: case Tok::Minus: return 9;
    case Tok::Mod: return 10;
    case Tok::Backslash: return 11;
    case Tok::Star: case Tok::Slash: return 12;
    case Tok::Caret: return 14;
    default: return 0;
    }
}

ExprKind binaryKind(Tok k)
{
    switch (k) {
    case Tok::Imp: return ExprKind::Imp;
    case Tok::Eqv: return ExprKind::Eqv;
    case Tok::Xor: return ExprKind::Xor;
    case Tok::Or: return ExprKind::Or;
    case Tok::And: return ExprKind::And;
    case Tok::Eq: return ExprKind::Eq;
    case Tok::Ne: return ExprKind::Ne;
    case Tok::Lt: return ExprKind::Lt;
    case Tok::Gt: return ExprKind::Gt;
    case Tok::Le: return ExprKind::Le;
    case Tok::Ge: return ExprKind::Ge;
    case Tok::Is: return ExprKind::Is;
    case Tok::Amp: return ExprKind::Concat;
    case Tok::Plus: return ExprKind::Add;
    case Tok::Minus: return ExprKind::Sub;
    case Tok::Mod: return ExprKind::Mod;
    case Tok::Backslash: return ExprKind::IntDiv;
    case Tok::Star: return ExprKind::Mul;
    case Tok::Slash: return ExprKind::Div;
    default: return ExprKind::Pow;
    }
}

// A numeric literal, possibly negated, counts as a literal in string comparisons.
bool isNumericLiteral(const Expr* e)
{
    if (e->kind == ExprKind::Literal)
        return static_cast<const LiteralExpr*>(e)->numericLiteral;
    if (e->kind == ExprKind::Neg)
        return isNumericLiteral(static_cast<const UnaryExpr*>(e)->operand.get());
    if (e->kind == ExprKind::Name)
        return static_cast<const NameExpr*>(e)->isConst;
    return false;
}

} // namespace



ExprPtr Parser::makeBinary(ExprKind k, ExprPtr l, ExprPtr r, const Token& at)
{
    const int depth = std::max(l->depth, r->depth) + 1;
    if (depth > kMaxExprDepth)
        failAt(ErrorCode::OutOfStackSpace, at);
    auto b = std::make_unique<BinaryExpr>(k, std::move(l), std::move(r), at.line, at.column);
    b->depth = uint16_t(depth);
    b->leftLiteral = isNumericLiteral(b->left.get());
    b->rightLiteral = isNumericLiteral(b->right.get());
    return b;
}

ExprPtr Parser::parseExpr(int minPrec)
{
    DepthGuard guard(*this);
    return parseBinaryRest(parseUnary(), minPrec);
}

ExprPtr Parser::parseBinaryRest(ExprPtr lhs, int minPrec)
{
    while (true) {
        const Tok k = tok().kind;
        const int prec = binaryPrec(k);
        if (prec == 0 || prec < minPrec)
            return lhs;
        const Token opTok = tok();
        ++m_pos;
        ExprPtr rhs = parseExpr(prec + 1);
        lhs = makeBinary(binaryKind(k), std::move(lhs), std::move(rhs), opTok);
    }
}

// unary: "Not" operand binds looser than comparisons; "-" and "+" bind tighter than every
// binary operator, "^" included (-3^2 is 9).
ExprPtr Parser::parseUnary()
{
    const Token t = tok();
    if (accept(Tok::Not)) {
        ExprPtr operand = parseExpr(7);
        auto e = std::make_unique<UnaryExpr>(ExprKind::Not, std::move(operand), t.line, t.column);
        e->depth = uint16_t(e->operand->depth + 1);
        return e;
    }
    if (accept(Tok::Minus)) {
        DepthGuard guard(*this);
        ExprPtr operand = parseUnary();
        if (operand->kind == ExprKind::Literal && static_cast<LiteralExpr*>(operand.get())->numericLiteral) {
            // Fold "-5" into the literal; negation keeps the literal's type, so -32768 is a Long
            // (32768 is one) as on Windows.
            auto* lit = static_cast<LiteralExpr*>(operand.get());
            const Value& v = lit->value;
            if (v.type() == VarType::Integer && v.rawInteger() != -32768)
                lit->value = Value(int16_t(-v.rawInteger()));
            else if (v.type() == VarType::Long && v.rawLong() != INT32_MIN)
                lit->value = Value(int32_t(-v.rawLong()));
            else if (v.type() == VarType::Double)
                lit->value = Value(-v.rawDouble());
            else
                goto noFold;
            return operand;
        }
    noFold:
        auto e = std::make_unique<UnaryExpr>(ExprKind::Neg, std::move(operand), t.line, t.column);
        e->depth = uint16_t(e->operand->depth + 1);
        return e;
    }
    if (accept(Tok::Plus)) {
        DepthGuard guard(*this);
        return parseUnary();
    }
    return parsePostfix();
}

ExprPtr Parser::parsePostfix()
{
    return parsePostfixRest(parsePrimary());
}

ExprPtr Parser::parsePostfixRest(ExprPtr e)
{
    while (true) {
        // (f)(x) and ((a))(0) apply the arguments to what the parentheses hold.
        if (at(Tok::LParen) && e->kind != ExprKind::Literal && e->kind != ExprKind::New) {
            const Token t = tok();
            auto call = std::make_unique<CallExpr>(std::move(e), t.line, t.column);
            parseArgs(*call);
            call->depth = uint16_t(call->target->depth + 1);
            e = std::move(call);
        } else if (at(Tok::Dot) && !tok().spaceBefore && e->kind != ExprKind::Literal) {
            ++m_pos;
            const Token nameTok = tok();
            String name = expectIdentifier();
            auto m = std::make_unique<MemberExpr>(std::move(e), std::move(name), nameTok.line, nameTok.column);
            m->depth = uint16_t(m->object->depth + 1);
            e = std::move(m);
        } else {
            return e;
        }
        if (e->depth > kMaxExprDepth)
            fail(ErrorCode::OutOfStackSpace);
    }
}

void Parser::parseArgs(CallExpr& call)
{
    DepthGuard guard(*this);
    expect(Tok::LParen, ErrorCode::ExpectedLParen);
    if (accept(Tok::RParen))
        return;
    while (true) {
        if (at(Tok::Comma))
            call.args.push_back(nullptr);
        else
            call.args.push_back(parseExpr());
        if (accept(Tok::Comma))
            continue;
        expect(Tok::RParen, ErrorCode::ExpectedRParen);
        return;
    }
}

ExprPtr Parser::parsePrimary()
{
    const Token t = tok();
    switch (t.kind) {
    case Tok::Integer: {
        ++m_pos;
        const double d = t.number;
        if (d >= -32768 && d <= 32767)
            return std::make_unique<LiteralExpr>(Value(int16_t(d)), true, t.line, t.column);
        return std::make_unique<LiteralExpr>(Value(int32_t(d)), true, t.line, t.column);
    }
    case Tok::Float:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value(t.number), true, t.line, t.column);
    case Tok::String:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value(t.text), false, t.line, t.column);
    case Tok::Date:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value::fromDate(t.number), false, t.line, t.column);
    case Tok::True: case Tok::False:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value(t.kind == Tok::True), false, t.line, t.column);
    case Tok::Empty:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value(), false, t.line, t.column);
    case Tok::Null:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value::null(), false, t.line, t.column);
    case Tok::Nothing:
        ++m_pos;
        return std::make_unique<LiteralExpr>(Value::nothing(), false, t.line, t.column);
    case Tok::Identifier:
        ++m_pos;
        return std::make_unique<NameExpr>(t.text, t.line, t.column);
    case Tok::Me:
        ++m_pos;
        return std::make_unique<Expr>(ExprKind::Me, t.line, t.column);
    case Tok::Dot: {
        ++m_pos;
        const Token nameTok = tok();
        String name = expectIdentifier();
        return std::make_unique<MemberExpr>(std::make_unique<WithExpr>(t.line, t.column),
            std::move(name), nameTok.line, nameTok.column);
    }
    case Tok::New: {
        ++m_pos;
        String name = expectIdentifier();
        return std::make_unique<NewExpr>(std::move(name), t.line, t.column);
    }
    case Tok::LParen: {
        DepthGuard guard(*this);
        ++m_pos;
        ExprPtr e = parseExpr();
        expect(Tok::RParen, ErrorCode::ExpectedRParen);
        e->parenthesized = true;
        return e;
    }
    default:
        if (atEndOfStatement())
            fail(ErrorCode::ExpectedExpression);
        fail(ErrorCode::SyntaxError);
    }
}

ExprPtr Parser::parseWholeExpression()
{
    skipSeparators();
    ExprPtr e = parseExpr();
    skipSeparators();
    if (!at(Tok::End))
        fail(ErrorCode::ExpectedEndOfStatement);
    return e;
}

} // namespace vbs
