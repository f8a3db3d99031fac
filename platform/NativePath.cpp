// Maps the system's "\" path form to native paths and back.
#include "platform/NativePath.h"

#include <glib.h>

#include <cstdlib>
#include <system_error>

namespace fs = std::filesystem;

namespace {

std::string homeFolder() {
    const char* home = std::getenv("HOME");
    return home && *home ? std::string(home) : std::string("/");
}

// Names compare as the user sees them: Unicode case folding, so "FÖTOS" finds "Fötos".
bool sameIgnoringCase(const std::string& a, const std::string& b) {
    gchar* fa = g_utf8_casefold(a.c_str(), static_cast<gssize>(a.size()));
    gchar* fb = g_utf8_casefold(b.c_str(), static_cast<gssize>(b.size()));
    bool same = g_strcmp0(fa, fb) == 0;
    g_free(fa);
    g_free(fb);
    return same;
}

// The entry of folder whose name equals name without regard to case; the name itself when the
// folder holds none (or cannot be read). An exact match always wins.
std::string matchInFolder(const fs::path& folder, const std::string& name) {
    std::error_code ec;
    if (fs::exists(folder / name, ec)) return name;
    fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, ec);
    if (ec) return name;
    for (const auto& entry : it) {
        std::string candidate = entry.path().filename().string();
        if (sameIgnoringCase(candidate, name)) return candidate;
    }
    return name;
}

} // namespace

namespace NativePath {

fs::path toNative(std::string_view path) {
    std::string text(path);
    for (char& c : text)
        if (c == '\\') c = '/';
    if (text == "~")
        text = homeFolder();
    else if (text.rfind("~/", 0) == 0)
        text = homeFolder() + text.substr(1);

    fs::path written(text);
    std::error_code ec;
    if (text.empty() || fs::exists(written, ec)) return written;

    // Rebuild component by component, resolving case where the written form is missing.
    fs::path resolved;
    bool lost = false; // once a component is missing, the rest cannot be looked up
    for (const auto& part : written) {
        std::string name = part.string();
        if (resolved.empty() && written.has_root_directory() && name == "/") {
            resolved = "/";
            continue;
        }
        if (lost || name.empty() || name == "." || name == "..") {
            resolved /= name;
            continue;
        }
        std::string actual = matchInFolder(resolved, name);
        resolved /= actual;
        if (!fs::exists(resolved, ec)) lost = true;
    }
    return resolved;
}

std::string toBackslash(const fs::path& path) {
    std::string text = path.string();
    for (char& c : text)
        if (c == '/') c = '\\';
    return text;
}

} // namespace NativePath

namespace NativePath {

fs::path toNativeForWrite(std::string_view path) {
    std::string text(path);
    for (char& c : text)
        if (c == '\\') c = '/';
    size_t cut = text.rfind('/');
    std::string name = cut == std::string::npos ? text : text.substr(cut + 1);
    // "~" alone, a trailing separator, "." and "..": no file name to keep apart.
    if (name.empty() || name == "~" || name == "." || name == "..") return toNative(path);
    if (cut == std::string::npos) return fs::path(name);
    if (cut == 0) return fs::path("/") / name;
    return toNative(std::string_view(text).substr(0, cut)) / name;
}

} // namespace NativePath
