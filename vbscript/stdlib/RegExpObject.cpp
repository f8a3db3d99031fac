// The RegExp object (New RegExp, CreateObject("VBScript.RegExp")) and its match collections.
#include "RegExpObject.h"

#include "LibSupport.h"
#include "RegexEngine.h"

namespace vbs::lib {

namespace {

// An indexed, enumerable list of values with Count and a default Item (SubMatches and Matches).
template <class Derived> class ListObject : public TableDispatch<Derived> {
public:
    explicit ListObject(std::vector<Value> items) : m_items(std::move(items)) {}
    int defaultMemberId() const override { return this->memberId(u"Item"); }
    bool enumerate(std::vector<Value>& out) override {
        out = m_items;
        return true;
    }
    Value count(Args) { return Value(int32_t(m_items.size())); }
    Value item(Args a) {
        const int32_t i = a[0]->toLong();
        if (i < 0 || size_t(i) >= m_items.size()) invalidCall();
        return m_items[size_t(i)];
    }

private:
    std::vector<Value> m_items;
};

class SubMatches : public ListObject<SubMatches> {
public:
    using ListObject::ListObject;
    String typeName() const override { return u"ISubMatches"; }
    static std::span<const Member<SubMatches>> members() {
        static const Member<SubMatches> table[] = {
            {u"Item", 1, 1, &SubMatches::item, nullptr},
            {u"Count", 0, 0, &SubMatches::count, nullptr},
        };
        return table;
    }
};

class MatchObject : public TableDispatch<MatchObject> {
public:
    MatchObject(std::u16string_view subject, const RegexMatch& m)
        : m_value(subject.substr(m.whole.index, m.whole.length)), m_index(m.whole.index) {
        std::vector<Value> groups;
        for (const auto& g : m.groups)
            groups.push_back(g ? Value(String(subject.substr(g->index, g->length))) : Value());
        m_subMatches = makeRef<SubMatches>(std::move(groups));
    }
    String typeName() const override { return u"IMatch2"; }
    int defaultMemberId() const override { return 0; }
    static std::span<const Member<MatchObject>> members() {
        static const Member<MatchObject> table[] = {
            {u"Value", 0, 0, &MatchObject::value, nullptr},
            {u"FirstIndex", 0, 0, &MatchObject::firstIndex, nullptr},
            {u"Length", 0, 0, &MatchObject::length, nullptr},
            {u"SubMatches", 0, 0, &MatchObject::subMatches, nullptr},
        };
        return table;
    }
    Value value(Args) { return Value(m_value); }
    Value firstIndex(Args) { return Value(int32_t(m_index)); }
    Value length(Args) { return Value(int32_t(m_value.size())); }
    Value subMatches(Args) { return Value(m_subMatches); }

private:
    String m_value;
    size_t m_index;
    Ref<SubMatches> m_subMatches;
};

class MatchCollection : public ListObject<MatchCollection> {
public:
    using ListObject::ListObject;
    String typeName() const override { return u"IMatchCollection2"; }
    static std::span<const Member<MatchCollection>> members() {
        static const Member<MatchCollection> table[] = {
            {u"Item", 1, 1, &MatchCollection::item, nullptr},
            {u"Count", 0, 0, &MatchCollection::count, nullptr},
        };
        return table;
    }
};

class RegExp : public TableDispatch<RegExp> {
public:
    String typeName() const override { return u"IRegExp2"; }
    static std::span<const Member<RegExp>> members() {
        static const Member<RegExp> table[] = {
            {u"Pattern", 0, 0, &RegExp::pattern, &RegExp::setPattern},
            {u"IgnoreCase", 0, 0, &RegExp::ignoreCase, &RegExp::setIgnoreCase},
            {u"Global", 0, 0, &RegExp::global, &RegExp::setGlobal},
            {u"Multiline", 0, 0, &RegExp::multiline, &RegExp::setMultiline},
            {u"Test", 1, 1, &RegExp::test, nullptr},
            {u"Execute", 1, 1, &RegExp::execute, nullptr},
            {u"Replace", 2, 2, &RegExp::replace, nullptr},
        };
        return table;
    }

    Value pattern(Args) { return Value(m_pattern); }
    Value ignoreCase(Args) { return Value(m_flags.ignoreCase); }
    Value global(Args) { return Value(m_global); }
    Value multiline(Args) { return Value(m_flags.multiline); }
    void setPattern(Args, const Value& v) {
        m_pattern = v.toString();
        m_program.reset();
    }
    void setIgnoreCase(Args, const Value& v) {
        m_flags.ignoreCase = v.toBoolean();
        m_program.reset();
    }
    void setGlobal(Args, const Value& v) { m_global = v.toBoolean(); }
    void setMultiline(Args, const Value& v) {
        m_flags.multiline = v.toBoolean();
        m_program.reset();
    }

    Value test(Args a) {
        const String subject = a[0]->toString();
        return Value(program().matchFrom(subject, 0).has_value());
    }

    Value execute(Args a) {
        const String subject = a[0]->toString();
        std::vector<Value> matches;
        for (const RegexMatch& m : program().matchAll(subject, m_global))
            matches.emplace_back(makeRef<MatchObject>(subject, m));
        return Value(makeRef<MatchCollection>(std::move(matches)));
    }

    Value replace(Args a) {
        const String subject = a[0]->toString();
        const String replacement = a[1]->toString();
        return Value(program().replace(subject, replacement, m_global));
    }

private:
    // Compiled on first use after a change; a bad pattern is 5017 at the call that uses it.
    const RegexProgram& program() {
        if (!m_program) {
            m_program = RegexProgram::compile(m_pattern, m_flags);
            if (!m_program) raise(ErrorCode::RegExpSyntax);
        }
        return *m_program;
    }

    String m_pattern;
    RegexProgram::Flags m_flags;
    bool m_global = false;
    std::shared_ptr<const RegexProgram> m_program;
};

} // namespace

Ref<Dispatch> createRegExp() {
    return makeRef<RegExp>();
}

} // namespace vbs::lib
