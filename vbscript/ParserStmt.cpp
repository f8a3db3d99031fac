// Parser: statements, procedures and classes.
#include "Parser.h"

namespace vbs {

Parser::Parser(std::vector<Token> tokens, Program& program)
    : m_toks(std::move(tokens)), m_program(program)
{
}

const Token& Parser::peekTok(size_t k) const
{
    return m_toks[std::min(m_pos + k, m_toks.size() - 1)];
}

bool Parser::atName(const char16_t* lowerName) const
{
    return at(Tok::Identifier) && equalsNoCase(tok().text, lowerName);
}

bool Parser::accept(Tok k)
{
    if (!at(k))
        return false;
    ++m_pos;
    return true;
}

void Parser::expect(Tok k, ErrorCode code)
{
    if (!accept(k))
        fail(code);
}

String Parser::expectIdentifier()
{
    if (!at(Tok::Identifier))
        fail(ErrorCode::ExpectedIdentifier);
    return m_toks[m_pos++].text;
}

void Parser::fail(ErrorCode code) const
{
    failAt(code, tok());
}

void Parser::failAt(ErrorCode code, const Token& t) const
{
    ScriptError e(code);
    e.line = t.line;
    e.column = t.column;
    throw e;
}

bool Parser::atEndOfStatement() const
{
    return at(Tok::NewLine) || at(Tok::Colon) || at(Tok::End) || (m_singleLineIf && at(Tok::Else))
        || atClosingEnd();
}

// "End If", "End Sub", ... may follow a statement on its line without a colon: x = 1 End Sub.
bool Parser::atClosingEnd() const
{
    if (!at(Tok::EndKw))
        return false;
    switch (peekTok().kind) {
    case Tok::If: case Tok::Sub: case Tok::Function: case Tok::Property: case Tok::Class:
    case Tok::With: case Tok::Select:
        return true;
    default:
        return false;
    }
}

void Parser::expectEndOfStatement()
{
    if (!atEndOfStatement())
        fail(ErrorCode::ExpectedEndOfStatement);
}

void Parser::skipSeparators()
{
    while (at(Tok::NewLine) || at(Tok::Colon))
        ++m_pos;
}

void Parser::declare(const String& name, const Token& at, Procedure::Decl::Kind kind)
{
    m_proc->decls.push_back({name, at.line, at.column, kind});
}

// program: { option | procedure | class | statement }
void Parser::parseAll()
{
    m_program.top = std::make_unique<Procedure>();
    m_program.top->kind = ProcKind::TopLevel;
    m_program.top->chunk = m_program.chunk;
    m_proc = m_program.top.get();
    skipSeparators();
    if (at(Tok::Option)) {
        ++m_pos;
        if (!atName(u"explicit"))
            fail(ErrorCode::SyntaxError);
        ++m_pos;
        m_program.optionExplicit = true;
        expectEndOfStatement();
    }
    while (true) {
        skipSeparators();
        if (at(Tok::End))
            break;
        parseTopLevelItem();
    }
    m_program.top->optionExplicit = m_program.optionExplicit;
}

void Parser::parseTopLevelItem()
{
    const Token start = tok();
    bool isPublic = true, isDefault = false, hadScope = false;
    if (at(Tok::Public) || at(Tok::Private)) {
        isPublic = at(Tok::Public);
        hadScope = true;
        ++m_pos;
        if (atName(u"default")) {
            failAt(ErrorCode::MustBeInsideClass, tok());
        }
    }
    switch (tok().kind) {
    case Tok::Sub: case Tok::Function: case Tok::Property:
        if (at(Tok::Property))
            fail(ErrorCode::MustBeInsideClass);
        parseProcedure(isPublic, isDefault, nullptr);
        return;
    case Tok::Class:
        if (hadScope)
            fail(ErrorCode::SyntaxError);
        parseClass();
        return;
    case Tok::Option:
        fail(ErrorCode::MustBeFirstStatement);
    case Tok::Const:
        m_proc->body.push_back(parseConst());
        break;
    default:
        if (hadScope) {
            m_pos--; // "Public x" at top level is a Dim
            m_proc->body.push_back(parseDim(StmtKind::Dim));
        } else {
            m_proc->body.push_back(parseStatement());
        }
    }
    expectEndOfStatement();
}

// procedure: ("Sub" | "Function" | "Property" ("Get"|"Let"|"Set")) name [params] block "End" kind
void Parser::parseProcedure(bool isPublic, bool isDefault, ClassDef* owner)
{
    auto proc = std::make_unique<Procedure>();
    const Token start = tok();
    Tok endKind = tok().kind;
    ErrorCode endCode = ErrorCode::ExpectedSub;
    if (accept(Tok::Sub)) {
        proc->kind = ProcKind::Sub;
    } else if (accept(Tok::Function)) {
        proc->kind = ProcKind::Function;
        endCode = ErrorCode::ExpectedFunction;
    } else {
        expect(Tok::Property, ErrorCode::ExpectedProperty);
        endCode = ErrorCode::ExpectedProperty;
        if (atName(u"get")) proc->kind = ProcKind::PropertyGet;
        else if (atName(u"let")) proc->kind = ProcKind::PropertyLet;
        else if (at(Tok::Set)) proc->kind = ProcKind::PropertySet;
        else fail(ErrorCode::ExpectedLetSetGet);
        ++m_pos;
    }
    proc->line = start.line;
    proc->column = start.column;
    proc->name = expectIdentifier();
    proc->isPublic = isPublic;
    proc->isDefault = isDefault;
    proc->owner = owner;
    proc->chunk = m_program.chunk;
    proc->optionExplicit = m_program.optionExplicit;
    if (at(Tok::LParen))
        parseParams(*proc);
    if ((proc->kind == ProcKind::PropertyLet || proc->kind == ProcKind::PropertySet) && proc->params.empty())
        fail(ErrorCode::PropertyNeedsArgument);
    if (owner && (equalsNoCase(proc->name, u"Class_Initialize") || equalsNoCase(proc->name, u"Class_Terminate"))
        && !proc->params.empty())
        fail(ErrorCode::InitTerminateArgs);
    // After the parameter list the body may start on the same line: Sub S() x = 1 End Sub.
    if (m_toks[m_pos - 1].kind != Tok::RParen)
        expectEndOfStatement();
    Procedure* saved = m_proc;
    m_proc = proc.get();
    const int savedDo = m_loopDepthDo, savedFor = m_loopDepthFor;
    const bool savedSingleLine = m_singleLineIf;
    m_loopDepthDo = m_loopDepthFor = 0;
    m_singleLineIf = false;
    proc->body = parseBlock({Tok::EndKw}, ErrorCode::ExpectedEnd);
    m_loopDepthDo = savedDo;
    m_loopDepthFor = savedFor;
    m_singleLineIf = savedSingleLine;
    m_proc = saved;
    expectEnd(endKind, endCode);
    if (owner) {
        addMember(*owner, proc.get());
        owner->procedures.push_back(std::move(proc));
    } else {
        m_program.procedures.push_back(std::move(proc));
    }
    expectEndOfStatement();
}

void Parser::parseParams(Procedure& proc)
{
    expect(Tok::LParen, ErrorCode::ExpectedLParen);
    if (accept(Tok::RParen))
        return;
    while (true) {
        Param p;
        if (accept(Tok::ByVal)) p.byRef = false;
        else accept(Tok::ByRef);
        const Token nameTok = tok();
        p.name = expectIdentifier();
        if (accept(Tok::LParen)) {
            expect(Tok::RParen, ErrorCode::ExpectedRParen);
            p.isArray = true;
        }
        for (const auto& other : proc.params)
            if (equalsNoCase(other.name, p.name))
                failAt(ErrorCode::NameRedefined, nameTok);
        proc.params.push_back(std::move(p));
        if (accept(Tok::Comma))
            continue;
        expect(Tok::RParen, ErrorCode::ExpectedRParen);
        return;
    }
}

// class: "Class" name { member } "End" "Class"
void Parser::parseClass()
{
    const Token start = tok();
    expect(Tok::Class, ErrorCode::ExpectedClass);
    auto cls = std::make_unique<ClassDef>();
    cls->name = expectIdentifier();
    cls->line = start.line;
    cls->column = start.column;
    expectEndOfStatement();
    m_inClass = true;
    while (true) {
        skipSeparators();
        if (at(Tok::End))
            fail(ErrorCode::ExpectedEnd);
        if (at(Tok::EndKw))
            break;
        parseClassMember(*cls);
    }
    m_inClass = false;
    expectEnd(Tok::Class, ErrorCode::ExpectedClass);
    expectEndOfStatement();
    m_program.classes.push_back(std::move(cls));
}

void Parser::parseClassMember(ClassDef& cls)
{
    bool isPublic = true, isDefault = false, hadScope = false;
    if (at(Tok::Public) || at(Tok::Private)) {
        isPublic = at(Tok::Public);
        hadScope = true;
        ++m_pos;
        if (atName(u"default")) {
            if (!isPublic)
                fail(ErrorCode::DefaultNeedsPublic);
            isDefault = true;
            ++m_pos;
            if (!at(Tok::Function) && !at(Tok::Sub) && !at(Tok::Property))
                fail(ErrorCode::DefaultOnWrongMember);
        }
    }
    if (at(Tok::Sub) || at(Tok::Function) || at(Tok::Property)) {
        if (isDefault && at(Tok::Property) && !(peekTok().kind == Tok::Identifier
                                                 && equalsNoCase(peekTok().text, u"get")))
            fail(ErrorCode::DefaultOnlyOnGet);
        parseProcedure(isPublic, isDefault, &cls);
        return;
    }
    if (at(Tok::Dim) || hadScope) {
        if (at(Tok::Dim)) {
            if (hadScope)
                fail(ErrorCode::SyntaxError);
            ++m_pos;
        }
        while (true) {
            FieldDecl f;
            f.line = tok().line;
            f.column = tok().column;
            f.name = expectIdentifier();
            f.isPublic = isPublic;
            if (accept(Tok::LParen)) {
                f.isArray = true;
                while (!at(Tok::RParen)) {
                    if (!at(Tok::Integer))
                        fail(ErrorCode::ExpectedIntegerConstant);
                    f.dims.push_back(int32_t(tok().number) + 1);
                    ++m_pos;
                    if (!accept(Tok::Comma))
                        break;
                }
                expect(Tok::RParen, ErrorCode::ExpectedRParen);
            }
            cls.fields.push_back(f);
            ClassDef::Member m;
            m.name = f.name;
            m.isPublic = isPublic;
            m.field = int(cls.fields.size()) - 1;
            const String key = foldCase(f.name);
            if (cls.memberIndex.count(key)) {
                ScriptError e(ErrorCode::NameRedefined);
                e.line = f.line;
                e.column = f.column;
                throw e;
            }
            cls.memberIndex[key] = int(cls.members.size());
            cls.members.push_back(std::move(m));
            if (!accept(Tok::Comma))
                break;
        }
        expectEndOfStatement();
        return;
    }
    if (at(Tok::Const)) {
        fail(ErrorCode::SyntaxError);
    }
    fail(ErrorCode::ExpectedStatement);
}

void Parser::addMember(ClassDef& cls, Procedure* proc)
{
    const String key = foldCase(proc->name);
    if (proc->kind == ProcKind::Sub && (key == u"class_initialize" || key == u"class_terminate")) {
        (key == u"class_initialize" ? cls.initialize : cls.terminate) = proc;
    }
    auto it = cls.memberIndex.find(key);
    ClassDef::Member* m;
    if (it == cls.memberIndex.end()) {
        cls.memberIndex[key] = int(cls.members.size());
        cls.members.push_back({});
        m = &cls.members.back();
        m->name = proc->name;
        m->isPublic = proc->isPublic;
    } else {
        m = &cls.members[size_t(it->second)];
    }
    Procedure** slot = nullptr;
    switch (proc->kind) {
    case ProcKind::Sub: case ProcKind::Function: slot = &m->method; break;
    case ProcKind::PropertyGet: slot = &m->get; break;
    case ProcKind::PropertyLet: slot = &m->let; break;
    default: slot = &m->set; break;
    }
    if (*slot || m->field >= 0 || (m->method && proc->kind != ProcKind::Sub && proc->kind != ProcKind::Function)
        || (slot == &m->method && (m->get || m->let || m->set))) {
        ScriptError e(ErrorCode::NameRedefined);
        e.line = proc->line;
        e.column = proc->column;
        throw e;
    }
    *slot = proc;
    // Property Let/Set take the Get's arguments plus the value.
    const Procedure* get = m->get;
    for (const Procedure* put : {m->let, m->set}) {
        if (get && put && put->params.size() != get->params.size() + 1) {
            ScriptError e(ErrorCode::InconsistentPropertyArgs);
            e.line = proc->line;
            e.column = proc->column;
            throw e;
        }
    }
    if (proc->isPublic)
        m->isPublic = true;
    if (proc->isDefault) {
        if (cls.defaultMember >= 0 && cls.defaultMember != cls.memberIndex[key]) {
            ScriptError e(ErrorCode::MultipleDefaults);
            e.line = proc->line;
            e.column = proc->column;
            throw e;
        }
        cls.defaultMember = cls.memberIndex[key];
    }
}

// "End" followed by the kind of block it closes.
void Parser::expectEnd(Tok what, ErrorCode code)
{
    expect(Tok::EndKw, ErrorCode::ExpectedEnd);
    if (!accept(what))
        fail(code);
}

Block Parser::parseBlock(std::initializer_list<Tok> terminators, ErrorCode atEof)
{
    DepthGuard guard(*this);
    Block block;
    while (true) {
        skipSeparators();
        if (at(Tok::End))
            fail(atEof);
        for (Tok t : terminators)
            if (at(t))
                return block;
        block.push_back(parseStatement());
        expectEndOfStatement();
    }
}

} // namespace vbs
