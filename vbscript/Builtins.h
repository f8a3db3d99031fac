// Registration of built-in functions from tables, and what a built-in can reach while it runs.
#pragma once

#include "Value.h"

#include <span>
#include <string_view>

namespace vbs {

class Host;
class Engine;
struct Locale;

// VBScript's Rnd generator (a 24-bit linear congruential generator) and Randomize.
class RandomState {
public:
    // Rnd(number): < 0 reseeds from number and returns that value, 0 repeats the last value,
    // > 0 or omitted gives the next value.
    float rnd(double arg = 1.0);
    // Randomize number; randomizeNow() seeds from the clock like a bare Randomize.
    void randomize(double seed);
    void randomizeNow();

private:
    uint32_t m_seed = 327680;
};

class CallContext {
public:
    CallContext(Engine& engine, Host& host, RandomState& random)
        : m_engine(engine), m_host(host), m_random(random) {}
    Host& host() const { return m_host; }
    RandomState& random() const { return m_random; }
    // The engine's locale (SetLocale), which conversions in this call use too.
    const Locale& locale() const;
    void setLocale(const Locale& locale) const;
    Engine& engine() const { return m_engine; }

private:
    Engine& m_engine;
    Host& m_host;
    RandomState& m_random;
};

// One built-in function. Arguments arrive by reference (a built-in may write back, though
// few do); omitted optional arguments are not passed (args.size() is the count given), and an
// argument left empty in the middle ("f(a, , c)") arrives as Value::missing().
// maxArgs = -1 means any number.
struct BuiltinDef {
    std::u16string_view name;
    int minArgs;
    int maxArgs;
    Value (*fn)(CallContext&, std::span<Value*> args);
};

// A class the host or library provides for "New Name" (RegExp). A script may declare a class of
// the same name, but New still makes the provided one.
struct NativeClassDef {
    std::u16string_view name;
    Ref<Dispatch> (*create)();
};

// A named constant (vbCrLf, vbTextCompare, ...).
struct ConstantDef {
    std::u16string_view name;
    Value (*make)();
};

} // namespace vbs
