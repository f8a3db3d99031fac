// The WScript object of vbsrun.
#include "WScriptObject.h"

#include "vbscript/ScriptError.h"

#include <filesystem>

namespace vbsrun {

using namespace vbs;

void ConsoleHost::echo(const String& text)
{
    const std::string s = toUtf8(text) + "\n";
    std::fwrite(s.data(), 1, s.size(), stdout);
}

int ConsoleHost::msgBox(const String& prompt, int buttons, const String& title)
{
    echo(prompt);
    return Host::msgBox(prompt, buttons, title);
}

namespace {

// A Dispatch over a fixed list of member names, answered by one handler.
class TableDispatch : public Dispatch {
public:
    explicit TableDispatch(std::vector<const char16_t*> names) : m_names(std::move(names)) {}
    int memberId(std::u16string_view name) const override
    {
        for (size_t i = 0; i < m_names.size(); ++i)
            if (equalsNoCase(name, m_names[i]))
                return int(i);
        return -1;
    }

protected:
    static void argCount(std::span<Value*> args, size_t lo, size_t hi)
    {
        if (args.size() < lo || args.size() > hi)
            raise(ErrorCode::WrongArgumentCount);
    }

private:
    std::vector<const char16_t*> m_names;
};

class TextStream : public TableDispatch {
public:
    explicit TextStream(FILE* f) : TableDispatch({u"Write", u"WriteLine", u"WriteBlankLines"}), m_file(f) {}
    String typeName() const override { return u"TextStream"; }
    Value invoke(int id, InvokeKind, std::span<Value*> args) override
    {
        std::string out;
        if (id == 0) {
            argCount(args, 1, 1);
            out = toUtf8(args[0]->toString());
        } else if (id == 1) {
            argCount(args, 0, 1);
            out = (args.empty() ? std::string() : toUtf8(args[0]->toString())) + "\n";
        } else {
            argCount(args, 1, 1);
            out = std::string(size_t(std::max(0, int(args[0]->toLong()))), '\n');
        }
        std::fwrite(out.data(), 1, out.size(), m_file);
        std::fflush(m_file);
        return {};
    }

private:
    FILE* m_file;
};

class Arguments : public TableDispatch {
public:
    explicit Arguments(std::vector<std::string> args)
        : TableDispatch({u"Item", u"Count", u"Length"}), m_args(std::move(args)) {}
    String typeName() const override { return u"Object"; }
    int defaultMemberId() const override { return 0; }
    Value invoke(int id, InvokeKind, std::span<Value*> args) override
    {
        if (id == 0) {
            argCount(args, 1, 1);
            const int32_t i = args[0]->toLong();
            if (i < 0 || size_t(i) >= m_args.size())
                raise(ErrorCode::SubscriptOutOfRange);
            return Value(fromUtf8(m_args[size_t(i)]));
        }
        argCount(args, 0, 0);
        return Value(int32_t(m_args.size()));
    }
    bool enumerate(std::vector<Value>& out) override
    {
        for (const auto& a : m_args)
            out.emplace_back(fromUtf8(a));
        return true;
    }

private:
    std::vector<std::string> m_args;
};

class WScript : public TableDispatch {
public:
    WScript(Host& host, std::string path, std::vector<std::string> args)
        : TableDispatch({u"Echo", u"Quit", u"Arguments", u"ScriptName", u"ScriptFullName", u"StdOut",
            u"StdErr", u"Sleep", u"Name", u"Version"})
        , m_host(host), m_path(std::move(path))
        , m_args(makeRef<Arguments>(std::move(args)))
        , m_stdout(makeRef<TextStream>(stdout)), m_stderr(makeRef<TextStream>(stderr)) {}
    String typeName() const override { return u"Object"; }
    Value invoke(int id, InvokeKind, std::span<Value*> args) override
    {
        switch (id) {
        case 0: {
            String line;
            for (size_t i = 0; i < args.size(); ++i) {
                if (i)
                    line += u' ';
                if (!args[i]->isMissing())
                    line += args[i]->isNull() ? String(u"Null") : args[i]->toString();
            }
            m_host.echo(line);
            return {};
        }
        case 1:
            argCount(args, 0, 1);
            std::fflush(stdout);
            throw QuitRequest{args.empty() ? 0 : int(args[0]->toLong())};
        case 2:
            if (!args.empty())
                return m_args->invoke(0, InvokeKind::PropertyGet, args);
            return Value(m_args);
        case 3: return Value(fromUtf8(std::filesystem::path(m_path).filename().string()));
        case 4: return Value(fromUtf8(std::filesystem::absolute(m_path).string()));
        case 5: return Value(m_stdout);
        case 6: return Value(m_stderr);
        case 7: argCount(args, 1, 1); return {};
        case 8: return Value(u"vbsrun");
        default: return Value(u"5.8");
        }
    }

private:
    Host& m_host;
    std::string m_path;
    Ref<Arguments> m_args;
    Ref<TextStream> m_stdout, m_stderr;
};

} // namespace

Ref<Dispatch> makeWScript(Host& host, std::string scriptPath, std::vector<std::string> arguments)
{
    return makeRef<WScript>(host, std::move(scriptPath), std::move(arguments));
}

} // namespace vbsrun
