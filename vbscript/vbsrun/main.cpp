// vbsrun: runs a plain .vbs file and reports an uncaught error as FILE(line, column) ... on stderr.
#include "WScriptObject.h"

#include "vbscript/ScriptControl.h"
#ifdef VBSRUN_HAS_STDLIB
#include "vbscript/stdlib/StandardLibrary.h"
#endif

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: vbsrun FILE.vbs [arguments]\n");
        return 2;
    }
    const std::string path = argv[1];
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "vbsrun: cannot open %s\n", path.c_str());
        return 2;
    }
    std::ostringstream bytes;
    bytes << in.rdbuf();
    std::string text = bytes.str();
    if (text.compare(0, 3, "\xEF\xBB\xBF") == 0)
        text.erase(0, 3);

    vbsrun::ConsoleHost host;
    vbs::ScriptControl control;
    control.setHost(&host);
#ifdef VBSRUN_HAS_STDLIB
    vbs::installStandardLibrary(control);
#endif
    control.addObject(u"WScript", vbsrun::makeWScript(host, path, {argv + 2, argv + argc}));
    try {
        if (control.addCode(vbs::fromUtf8OrCp1252(text))) {
            std::fflush(stdout);
            return 0;
        }
    } catch (const vbsrun::QuitRequest& q) {
        std::fflush(stdout);
        return q.status;
    }
    std::fflush(stdout);
    const vbs::ErrorInfo& e = control.error();
    std::fprintf(stderr, "%s(%d, %d) %s error %d: %s\n", path.c_str(), e.line, e.column,
        e.compileTime ? "compilation" : "runtime", int(e.number),
        vbs::toUtf8(e.description).c_str());
    return 1;
}
