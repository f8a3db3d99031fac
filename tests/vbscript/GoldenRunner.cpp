// Runs vbsrun on golden .vbs scripts and compares stdout, error number, line and exit status
// with the expectations written in the scripts:
//   ' expect: text                          one line of output, in order
//   ' expect runtime error 13 line 4         the script stops with that error
//   ' expect compile error 1025 line 4       the code does not compile
//   ' expect exit 3                          WScript.Quit 3
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Expectation {
    std::vector<std::string> output;
    std::string errorKind; // "runtime", "compile" or empty
    int errorNumber = 0;
    int errorLine = 0;
    int exitStatus = 0;
};

std::string readFile(const fs::path& p)
{
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::vector<std::string> splitLines(const std::string& text)
{
    std::vector<std::string> lines;
    std::string cur;
    for (char c : text) {
        if (c == '\n') {
            if (!cur.empty() && cur.back() == '\r')
                cur.pop_back();
            lines.push_back(cur);
            cur.clear();
        } else {
            cur.push_back(c);
        }
    }
    if (!cur.empty())
        lines.push_back(cur);
    return lines;
}

Expectation parseExpectations(const std::string& source)
{
    Expectation e;
    static const std::regex out(R"('\s*expect:\s?(.*)$)");
    static const std::regex err(R"('\s*expect (runtime|compile) error (\d+)(?: line (\d+))?)");
    static const std::regex exitRe(R"('\s*expect exit (\d+))");
    for (const auto& line : splitLines(source)) {
        std::smatch m;
        if (std::regex_search(line, m, exitRe)) {
            e.exitStatus = std::stoi(m[1]);
        } else if (std::regex_search(line, m, err)) {
            e.errorKind = m[1];
            e.errorNumber = std::stoi(m[2]);
            e.errorLine = m[3].matched ? std::stoi(m[3]) : 0;
        } else if (std::regex_search(line, m, out)) {
            e.output.push_back(m[1]);
        }
    }
    return e;
}

bool runOne(const std::string& vbsrun, const fs::path& script, const fs::path& tmp)
{
    const std::string source = readFile(script);
    const Expectation exp = parseExpectations(source);
    const fs::path outFile = tmp / "out.txt", errFile = tmp / "err.txt";
    const std::string cmd = "\"" + vbsrun + "\" \"" + script.string() + "\" > \"" + outFile.string()
        + "\" 2> \"" + errFile.string() + "\"";
    const int raw = std::system(cmd.c_str());
    const int status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    const auto output = splitLines(readFile(outFile));
    const std::string err = readFile(errFile);
    std::vector<std::string> problems;
    if (output != exp.output) {
        std::ostringstream s;
        s << "output differs\n  expected:";
        for (const auto& l : exp.output) s << "\n    [" << l << "]";
        s << "\n  actual:";
        for (const auto& l : output) s << "\n    [" << l << "]";
        problems.push_back(s.str());
    }
    if (exp.errorKind.empty()) {
        if (status != exp.exitStatus || !err.empty())
            problems.push_back("unexpected failure (status " + std::to_string(status) + "): " + err);
    } else {
        static const std::regex report(R"(\((\d+), (\d+)\) (runtime|compilation) error (-?\d+): )");
        std::smatch m;
        if (status != 1 || !std::regex_search(err, m, report)) {
            problems.push_back("expected " + exp.errorKind + " error " + std::to_string(exp.errorNumber)
                + ", got status " + std::to_string(status) + ": " + err);
        } else {
            const std::string kind = m[3] == "compilation" ? "compile" : "runtime";
            const int number = std::stoi(m[4]), line = std::stoi(m[1]);
            if (kind != exp.errorKind || number != exp.errorNumber || (exp.errorLine && line != exp.errorLine))
                problems.push_back("expected " + exp.errorKind + " error " + std::to_string(exp.errorNumber)
                    + (exp.errorLine ? " line " + std::to_string(exp.errorLine) : "") + ", got: " + err);
        }
    }
    if (exp.output.empty() && exp.errorKind.empty() && exp.exitStatus == 0)
        problems.push_back("the script states no expectation");
    for (const auto& p : problems)
        std::cout << "FAIL " << script.filename().string() << ": " << p << "\n";
    return problems.empty();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::cerr << "usage: vbscript_golden VBSRUN DIR...\n";
        return 2;
    }
    const fs::path tmp = fs::temp_directory_path() / ("vbs-golden-" + std::to_string(::getpid()));
    fs::create_directories(tmp);
    int total = 0, failed = 0;
    for (int i = 2; i < argc; ++i) {
        std::vector<fs::path> scripts;
        if (fs::is_directory(argv[i])) {
            for (const auto& entry : fs::directory_iterator(argv[i]))
                if (entry.path().extension() == ".vbs")
                    scripts.push_back(entry.path());
        } else {
            scripts.push_back(argv[i]);
        }
        std::sort(scripts.begin(), scripts.end());
        for (const auto& s : scripts) {
            ++total;
            if (!runOne(argv[1], s, tmp))
                ++failed;
        }
    }
    fs::remove_all(tmp);
    std::cout << total - failed << " of " << total << " golden scripts passed\n";
    return failed == 0 && total > 0 ? 0 : 1;
}
