// Syntax tree of a compiled piece of code; every node carries its line and column.
#pragma once

#include "Value.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace vbs {

class Engine;
struct ClassDef;
struct Expr;
struct Procedure;

// How the interpreter evaluates a node. The resolver picks an evaluator for the node's shape once
// names are resolved (a local read in place, an operation on locals and literals with its
// operator fixed); every node starts with the general one, which handles any shape.
using EvalFn = Value (*)(Engine&, const Expr*);
Value evalGeneral(Engine& engine, const Expr* e);

// How a statement ends: normally, or leaving its Do, For or procedure.
enum class Flow : uint8_t { Normal, ExitDo, ExitFor, ExitProc };
struct Stmt;
// How the interpreter runs a statement, picked the same way (a plain assignment to a local
// skips the general one's tests).
using ExecFn = Flow (*)(Engine&, const Stmt*);
Flow execGeneral(Engine& engine, const Stmt* s);

enum class ExprKind : uint8_t {
    Literal,
    Name,       // an identifier; the resolver turns it into one of the next six
    Local,      // frame variable
    RefParam,   // ByRef parameter: the caller's variable
    Global,     // global slot (variable, procedure, built-in, class, named object)
    Implicit,   // undeclared in a procedure: the global if one exists by then, else a local
    Field,      // field of Me, used without qualification inside its class
    MeMember,   // method or property of Me, used without qualification
    Me,
    WithObject, // the object of the innermost With (".x")
    Call,       // target(args) or a statement call: procedure, array index or default member
    Member,     // object.name
    New,
    Neg, Not,
    Add, Sub, Mul, Div, IntDiv, Mod, Pow, Concat,
    Eq, Ne, Lt, Gt, Le, Ge, Is,
    And, Or, Xor, Eqv, Imp,
};

struct Expr {
    Expr(ExprKind k, int line, int col) : kind(k), line(line), column(col) {}
    virtual ~Expr() = default;
    ExprKind kind;
    bool parenthesized = false; // "(x)" as an argument is passed ByVal
    uint16_t depth = 1;
    int line, column;
    EvalFn evaluate = &evalGeneral;
};
using ExprPtr = std::unique_ptr<Expr>;

struct LiteralExpr : Expr {
    LiteralExpr(Value v, bool numeric, int line, int col)
        : Expr(ExprKind::Literal, line, col), value(std::move(v)), numericLiteral(numeric) {}
    Value value;
    bool numericLiteral; // compared with a string, the string is converted to a number
};

struct NameExpr : Expr {
    NameExpr(String n, int line, int col) : Expr(ExprKind::Name, line, col), name(std::move(n)) {}
    String name;
    int slot = -1;      // Local/RefParam/Global/Field/MeMember index
    int localSlot = -1; // Implicit: the local used when no global exists
    bool isConst = false;
};

struct CallExpr : Expr {
    CallExpr(ExprPtr t, int line, int col) : Expr(ExprKind::Call, line, col), target(std::move(t)) {}
    ExprPtr target;
    std::vector<ExprPtr> args; // nullptr for an omitted argument
    bool parens = true;
    // Set by the resolver: no argument is omitted or could be an array item passed by
    // reference (an unparenthesized call), and there are at most kMaxDirectArgs, so a script
    // procedure can take them without the general argument list.
    static constexpr size_t kMaxDirectArgs = 6;
    bool directArgs = false;
    // directArgs, and every argument is a local or a parameter without parentheses: the call
    // passes pointers to them and evaluates nothing. argSlots: the slot of each, a local's as
    // it is, a ByRef parameter's complemented (~slot).
    bool variableArgs = false;
    int32_t argSlots[kMaxDirectArgs] = {};
    // a(i) with a a local and i a local or a literal, read as an item when a holds an array:
    // their slots, found when the evaluator is chosen (itemIndex -1: the index is the literal
    // *itemIndexLiteral; itemArray -1: another shape).
    mutable int32_t itemArray = -1, itemIndex = -1;
    mutable const Value* itemIndexLiteral = nullptr;
};

struct MemberExpr : Expr {
    MemberExpr(ExprPtr o, String n, int line, int col)
        : Expr(ExprKind::Member, line, col), object(std::move(o)), name(std::move(n)) {}
    ExprPtr object; // WithObject expression for ".name"
    String name;
    // The member's id as last found: valid for objects with this member table, seen from their
    // own class's code or not, while the engine has not been reset since (a reset frees classes).
    struct MemberCache {
        const void* table = nullptr;
        uint64_t generation = 0;
        int id = -1;
        bool own = false;
        Procedure* method = nullptr; // the Sub or Function when the object is a script class's
    };
    mutable MemberCache cache;
};

struct NewExpr : Expr {
    NewExpr(String n, int line, int col) : Expr(ExprKind::New, line, col), className(std::move(n)) {}
    String className;
    int slot = -1; // global slot of the class
};

struct UnaryExpr : Expr {
    UnaryExpr(ExprKind k, ExprPtr o, int line, int col) : Expr(k, line, col), operand(std::move(o)) {}
    ExprPtr operand;
};

struct BinaryExpr : Expr {
    BinaryExpr(ExprKind k, ExprPtr l, ExprPtr r, int line, int col)
        : Expr(k, line, col), left(std::move(l)), right(std::move(r)) {}
    ExprPtr left, right;
    bool leftLiteral = false, rightLiteral = false; // for string/number comparisons
};

struct WithExpr : Expr {
    WithExpr(int line, int col) : Expr(ExprKind::WithObject, line, col) {}
    int slot = -1; // hidden local holding the With object
};

enum class StmtKind : uint8_t {
    Call, Assign, If, For, ForEach, Do, Select, With, Dim, ReDim, Erase, Exit, Const,
    OnErrorResumeNext, OnErrorGoto0, Nop,
};

struct Stmt {
    Stmt(StmtKind k, int line, int col) : kind(k), line(line), column(col) {}
    virtual ~Stmt() = default;
    StmtKind kind;
    int line, column;
    ExecFn run = &execGeneral;
};
using StmtPtr = std::unique_ptr<Stmt>;
using Block = std::vector<StmtPtr>;

struct CallStmt : Stmt {
    CallStmt(ExprPtr c, int line, int col) : Stmt(StmtKind::Call, line, col), call(std::move(c)) {}
    ExprPtr call;
};

struct AssignStmt : Stmt {
    AssignStmt(ExprPtr t, ExprPtr v, bool set, int line, int col)
        : Stmt(StmtKind::Assign, line, col), target(std::move(t)), value(std::move(v)), isSet(set) {}
    ExprPtr target, value;
    bool isSet;
    bool isMid = false;           // the Mid statement: Mid(var, start[, length]) = text
    bool appendsToTarget = false; // "s = s & x & y": appended in place
    std::vector<const Expr*> appendPieces; // x, y
    // a(i) = literal with a a local, i a local or a literal: what the executor reads, found
    // when it is chosen (itemIndex -1: the index is the literal *itemIndexLiteral), and the i of
    // the last run, for its stride.
    mutable int32_t itemArray = -1, itemIndex = -1;
    mutable const Value* itemIndexLiteral = nullptr;
    mutable const Value* itemValue = nullptr;
    mutable int64_t lastItem = 0;
};

struct IfStmt : Stmt {
    IfStmt(int line, int col) : Stmt(StmtKind::If, line, col) {}
    struct Arm {
        ExprPtr condition;
        Block body;
    };
    std::vector<Arm> arms;
    Block elseBody;
};

struct ForStmt : Stmt {
    ForStmt(int line, int col) : Stmt(StmtKind::For, line, col) {}
    ExprPtr var, from, to, step;
    Block body;
};

struct ForEachStmt : Stmt {
    ForEachStmt(int line, int col) : Stmt(StmtKind::ForEach, line, col) {}
    ExprPtr var, collection;
    Block body;
};

struct DoStmt : Stmt {
    DoStmt(int line, int col) : Stmt(StmtKind::Do, line, col) {}
    ExprPtr condition; // may be null (endless Do ... Loop)
    bool testAtTop = true;
    bool until = false;
    bool isWhileWend = false;
    Block body;
};

struct SelectStmt : Stmt {
    SelectStmt(int line, int col) : Stmt(StmtKind::Select, line, col) {}
    struct Arm {
        std::vector<ExprPtr> values;
        Block body;
    };
    ExprPtr subject;
    std::vector<Arm> arms;
    bool hasElse = false;
    Block elseBody;
};

struct WithStmt : Stmt {
    WithStmt(int line, int col) : Stmt(StmtKind::With, line, col) {}
    ExprPtr object;
    int slot = -1;
    Block body;
};

struct DimStmt : Stmt {
    DimStmt(StmtKind k, int line, int col) : Stmt(k, line, col) {}
    struct Item {
        ExprPtr var;
        std::vector<ExprPtr> bounds; // upper bounds; empty for a scalar or "a()"
        bool isArray = false;
    };
    std::vector<Item> items;
    bool preserve = false; // ReDim Preserve
};

struct EraseStmt : Stmt {
    EraseStmt(int line, int col) : Stmt(StmtKind::Erase, line, col) {}
    std::vector<ExprPtr> vars;
};

enum class ExitKind : uint8_t { None, Do, For, Proc };

struct ExitStmt : Stmt {
    ExitStmt(ExitKind k, int line, int col) : Stmt(StmtKind::Exit, line, col), exitKind(k) {}
    ExitKind exitKind;
};

struct ConstStmt : Stmt {
    ConstStmt(int line, int col) : Stmt(StmtKind::Const, line, col) {}
    std::vector<std::pair<ExprPtr, ExprPtr>> items;
};

enum class ProcKind : uint8_t { Sub, Function, PropertyGet, PropertyLet, PropertySet, TopLevel };

struct Param {
    String name;
    bool byRef = true;
    bool isArray = false; // "a()"
};

struct Procedure {
    String name;
    ProcKind kind = ProcKind::Sub;
    std::vector<Param> params;
    Block body;
    int line = 0, column = 0;
    bool isPublic = true;
    bool isDefault = false;
    ClassDef* owner = nullptr;
    int chunk = 0;
    bool optionExplicit = false;
    // Filled by the resolver: every local (parameters first, then the result, then Dims).
    std::vector<String> localNames;
    std::unordered_map<String, int> localIndex; // folded name -> slot
    struct Decl {
        String name;
        int line, column;
        enum Kind : uint8_t { Dim, ReDim, Const } kind;
    };
    std::vector<Decl> decls; // Dim/ReDim/Const in the body (top level: global declarations)
    // Undeclared names used in the body (global if one exists when they run, else a local):
    // folded name -> (global slot, local slot). Execute'd code shares them.
    std::unordered_map<String, std::pair<int, int>> implicitIndex;
    int resultSlot = -1;
    int localCount = 0;
    bool allByRef = true; // no ByVal parameter: a call binds its arguments by copying pointers
    size_t paramCount = 0; // params.size(), kept where the calls read it
    std::unordered_set<String> execLocals; // folded names Dim'd by Execute'd code
};

struct FieldDecl {
    String name;
    bool isPublic = true;
    std::vector<int32_t> dims; // Dim a(3): a fixed array field
    bool isArray = false;
    int line = 0, column = 0;
};

struct ClassDef {
    String name;
    int line = 0, column = 0;
    std::vector<FieldDecl> fields;
    std::vector<std::unique_ptr<Procedure>> procedures;
    struct Member {
        String name;
        bool isPublic = true;
        int field = -1;
        Procedure* method = nullptr; // Sub or Function
        Procedure* get = nullptr;
        Procedure* let = nullptr;
        Procedure* set = nullptr;
    };
    std::vector<Member> members;
    std::unordered_map<String, int> memberIndex; // folded name -> members index
    int defaultMember = -1;
    Procedure* initialize = nullptr;
    Procedure* terminate = nullptr;
};

// One piece of added code (AddCode, ExecuteGlobal, Execute, Eval).
struct Program {
    int chunk = 0;
    std::u16string_view sourceView() const { return source; }
    String source;
    bool optionExplicit = false;
    std::unique_ptr<Procedure> top; // the top-level statements
    std::vector<std::unique_ptr<Procedure>> procedures;
    std::vector<std::unique_ptr<ClassDef>> classes;
    ExprPtr expression; // Eval: the expression alone
};

} // namespace vbs
