// Scripting.Dictionary: an insertion-ordered map of variant keys to items.
#include "DictionaryObject.h"

#include "LibSupport.h"

#include <cstring>
#include <unordered_map>

namespace vbs::lib {

namespace {

class Dictionary : public TableDispatch<Dictionary> {
public:
    String typeName() const override { return u"Dictionary"; }
    int defaultMemberId() const override { return memberId(u"Item"); }
    bool enumerate(std::vector<Value>& out) override {
        out.clear();
        for (const Entry& e : m_entries)
            if (e.live) out.push_back(e.key);
        return true;
    }

    static std::span<const Member<Dictionary>> members() {
        static const Member<Dictionary> table[] = {
            {u"Item", 1, 1, &Dictionary::item, &Dictionary::setItem},
            {u"Add", 2, 2, &Dictionary::add, nullptr},
            {u"Exists", 1, 1, &Dictionary::exists, nullptr},
            {u"Remove", 1, 1, &Dictionary::remove, nullptr},
            {u"RemoveAll", 0, 0, &Dictionary::removeAll, nullptr},
            {u"Keys", 0, 0, &Dictionary::keys, nullptr},
            {u"Items", 0, 0, &Dictionary::items, nullptr},
            {u"Count", 0, 0, &Dictionary::count, nullptr},
            {u"CompareMode", 0, 0, &Dictionary::compareMode, &Dictionary::setCompareMode},
            {u"Key", 1, 1, nullptr, &Dictionary::setKey},
        };
        return table;
    }

    // Reading a missing key adds it with an Empty item, as Scripting.Dictionary does.
    Value item(Args a) { return m_entries[findOrAdd(*a[0])].item; }
    void setItem(Args a, const Value& v) { m_entries[findOrAdd(*a[0])].item = v; }

    Value add(Args a) {
        const String id = identity(*a[0]);
        if (m_index.count(id)) raise(ErrorCode::KeyAlreadyExists);
        insert(id, *a[0], *a[1]);
        return Value();
    }

    Value exists(Args a) { return Value(m_index.count(identity(*a[0])) != 0); }

    Value remove(Args a) {
        const auto it = m_index.find(identity(*a[0]));
        if (it == m_index.end()) raise(ErrorCode::ElementNotFound);
        // Removal leaves a hole, so that emptying a large dictionary one key at a time stays
        // linear; the holes are squeezed out once they outnumber the entries.
        Entry& e = m_entries[it->second];
        e = Entry{};
        m_index.erase(it);
        if (m_entries.size() > 16 && m_entries.size() > 2 * m_index.size()) compact();
        return Value();
    }

    Value removeAll(Args) {
        m_entries.clear();
        m_index.clear();
        return Value();
    }

    Value keys(Args) {
        std::vector<Value> out;
        for (const Entry& e : m_entries)
            if (e.live) out.push_back(e.key);
        return Value::makeArray(std::move(out));
    }

    Value items(Args) {
        std::vector<Value> out;
        for (const Entry& e : m_entries)
            if (e.live) out.push_back(e.item);
        return Value::makeArray(std::move(out));
    }

    Value count(Args) { return Value(int32_t(m_index.size())); }
    Value compareMode(Args) { return Value(int32_t(m_compare)); }

    // The mode can change only while the dictionary is empty.
    void setCompareMode(Args, const Value& v) {
        const int32_t mode = v.toLong();
        if (!m_index.empty() || mode < 0) invalidCall();
        m_compare = mode == 0 ? Compare::Binary : Compare::Text;
    }

    // d.Key(old) = new renames a key.
    void setKey(Args a, const Value& newKey) {
        const auto it = m_index.find(identity(*a[0]));
        if (it == m_index.end()) raise(ErrorCode::ElementNotFound);
        const String newId = identity(newKey);
        if (m_index.count(newId)) raise(ErrorCode::KeyAlreadyExists);
        const size_t at = it->second;
        m_index.erase(it);
        m_entries[at].key = newKey;
        m_entries[at].id = newId;
        m_index[newId] = at;
    }

private:
    struct Entry {
        String id;
        Value key;
        Value item;
        bool live = false;
    };

    // Keys are equal when they are the same number (of any numeric subtype), the same string
    // (ignoring case under vbTextCompare) or the same object.
    String identity(const Value& key) const {
        if (key.isArray()) raise(ErrorCode::TypeMismatch);
        if (key.isObject()) {
            const auto p = reinterpret_cast<uintptr_t>(key.object());
            return u"o" + fromAscii(std::to_string(p));
        }
        if (key.isString())
            return u"s" + (m_compare == Compare::Text ? foldCase(key.str()) : key.str());
        if (key.isEmpty()) return u"e";
        if (key.isNull()) return u"z";
        double d = key.toDouble();
        if (d == 0) d = 0; // -0 and 0 are one key
        uint64_t bits = 0;
        std::memcpy(&bits, &d, sizeof bits);
        return String(key.type() == VarType::Date ? u"d" : u"n") + fromAscii(std::to_string(bits));
    }

    size_t findOrAdd(const Value& key) {
        const String id = identity(key);
        const auto it = m_index.find(id);
        if (it != m_index.end()) return it->second;
        insert(id, key, Value());
        return m_entries.size() - 1;
    }

    void insert(const String& id, const Value& key, const Value& item) {
        m_index[id] = m_entries.size();
        m_entries.push_back({id, key, item, true});
    }

    void compact() {
        std::vector<Entry> live;
        live.reserve(m_index.size());
        for (Entry& e : m_entries)
            if (e.live) live.push_back(std::move(e));
        m_entries = std::move(live);
        for (size_t i = 0; i < m_entries.size(); ++i)
            m_index[m_entries[i].id] = i;
    }

    std::vector<Entry> m_entries;
    std::unordered_map<String, size_t> m_index;
    Compare m_compare = Compare::Binary;
};

} // namespace

Ref<Dispatch> createDictionary() {
    return makeRef<Dictionary>();
}

} // namespace vbs::lib
