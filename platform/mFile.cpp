// File utilities: path pieces, existence, reading and writing text, enumeration, file sizes.
#include "platform/mFile.h"

#include "platform/Messages.h"
#include "platform/NativePath.h"
#include "platform/TextCodec.h"

#include <QSaveFile>
#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <system_error>

namespace fs = std::filesystem;

namespace mFile {

namespace {

bool isSeparator(QChar c) {
    return c == u'\\' || c == u'/';
}

fs::path nativeOf(const QString& path) {
    return NativePath::toNative(TextCodec::toNativeName(path));
}

// Trailing blanks and dots of every component dropped ("." and ".." kept).
QString withoutTrailingBlanks(const QString& path) {
    QString out, component;
    auto flush = [&] {
        if (component != u"." && component != u"..") {
            while (!component.isEmpty() && (component.back() == u' ' || component.back() == u'.'))
                component.chop(1);
        }
        out += component;
        component.clear();
    };
    for (QChar c : path) {
        if (isSeparator(c)) {
            flush();
            out += c;
        } else {
            component += c;
        }
    }
    flush();
    return out;
}

QString nameOf(const fs::path& p) {
    return TextCodec::fromNativeName(p.filename().native());
}

// Directory order is whatever the file system returns; names are sorted (without regard to
// case, then exactly) so that batches run in the same order on every machine.
bool nameLess(const QString& a, const QString& b) {
    const int folded = a.compare(b, Qt::CaseInsensitive);
    return folded != 0 ? folded < 0 : a < b;
}

struct Listing {
    QStringList files;
    QStringList folders;
    QStringList folderLinks;
    QStringList unnameableFiles; // names holding "\\"
    QStringList unnameableFolders;
};

// Hidden entries (dot names) are left out, as a plain listing of normal files leaves them out.
Listing listFolder(const fs::path& dir, bool followLinks) {
    Listing listing;
    std::error_code ec;
    fs::directory_iterator it(dir, ec);
    if (ec) return listing;
    for (const fs::directory_entry& entry : it) {
        const QString name = nameOf(entry.path());
        if (name.startsWith(u'.')) continue;
        const bool unnameable = name.contains(u'\\');
        if (entry.is_regular_file(ec))
            (unnameable ? listing.unnameableFiles : listing.files).append(name);
        else if (!entry.is_directory(ec))
            continue;
        else if (unnameable)
            listing.unnameableFolders.append(name);
        else if (entry.is_symlink(ec) && !followLinks)
            listing.folderLinks.append(name);
        else
            listing.folders.append(name);
    }
    std::sort(listing.files.begin(), listing.files.end(), nameLess);
    std::sort(listing.folders.begin(), listing.folders.end(), nameLess);
    return listing;
}

bool matchFrom(const QString& name, qsizetype n, const QString& pattern, qsizetype p);

// "*.*" matches every name, with or without a dot, as on the original platform.
QString foldedPattern(const QString& pattern) {
    return pattern == u"*.*" ? QStringLiteral("*") : pattern.toCaseFolded();
}

bool matchesAny(const QString& name, const QStringList& patterns) {
    for (const QString& pattern : patterns)
        if (matchesPattern(name, pattern)) return true;
    return false;
}

void enumerateInto(QStringList& out, const QString& folder, const QStringList& patterns,
                   bool includeSubfolders, std::set<fs::path>& visited, Enumeration& walk) {
    const QString base = AddBackslash(folder);
    const fs::path dir = toDisk(base);
    std::error_code ec;
    // A folder reached twice through links is listed once, so link cycles end.
    const fs::path identity = fs::canonical(dir, ec);
    if (!ec && !visited.insert(identity).second) return;
    const Listing listing = listFolder(dir, walk.followLinks);
    QStringList folded;
    for (const QString& name : listing.files)
        folded.append(name.toCaseFolded());
    for (const QString& pattern : patterns) {
        const QString p = foldedPattern(pattern);
        for (qsizetype i = 0; i < listing.files.size(); ++i)
            if (matchFrom(folded[i], 0, p, 0)) out.append(base + listing.files[i]);
    }
    // Such a name is told apart from its folder, since in one path its "\" would read as one.
    auto unnameable = [&](const QString& name) {
        walk.unnameable.append(QStringLiteral("\"%1\" in %2").arg(name, base));
    };
    for (const QString& name : listing.unnameableFiles)
        if (matchesAny(name, patterns)) unnameable(name);
    if (!includeSubfolders) return;
    for (const QString& name : listing.unnameableFolders)
        unnameable(name);
    for (const QString& name : listing.folderLinks)
        walk.folderLinks.append(base + name);
    for (const QString& sub : listing.folders)
        enumerateInto(out, base + sub, patterns, true, visited, walk);
}

bool matchFrom(const QString& name, qsizetype n, const QString& pattern, qsizetype p) {
    // Iterative wildcard matching with one backtrack point for the last "*".
    qsizetype starP = -1, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == u'?' || pattern[p] == name[n])) {
            ++n;
            ++p;
        } else if (p < pattern.size() && pattern[p] == u'*') {
            starP = p++;
            starN = n;
        } else if (starP >= 0) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == u'*')
        ++p;
    return p == pattern.size();
}

QString groupThousands(const QString& digits) {
    QString out;
    const qsizetype n = digits.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) out += u',';
        out += digits[i];
    }
    return out;
}

} // namespace

QString AddBackslash(const QString& path) {
    return path.endsWith(u'\\') ? path : path + u'\\';
}

fs::path toDisk(const QString& path) {
    const fs::path native = nativeOf(path);
    std::error_code ec;
    if (path.isEmpty() || fs::exists(native, ec)) return native;
    // A name about to be created loses its trailing blanks and dots too.
    const QString trimmed = withoutTrailingBlanks(path);
    if (trimmed == path || trimmed.isEmpty()) return native;
    return nativeOf(trimmed);
}

bool FolderExists(const QString& path) {
    if (path.isEmpty()) return false;
    std::error_code ec;
    return fs::is_directory(toDisk(path), ec);
}

bool FileExists(const QString& path) {
    if (path.isEmpty()) return false;
    std::error_code ec;
    return fs::is_regular_file(toDisk(path), ec);
}

QString ReadFile(const QString& path) {
    if (!FileExists(path)) return {};
    std::ifstream in(toDisk(path), std::ios::binary);
    if (!in) return {};
    QByteArray bytes;
    char buffer[65536];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0)
        bytes.append(buffer, qsizetype(in.gcount()));
    if (in.bad()) return {};
    return TextCodec::decode(bytes);
}

bool writeTextFile(const QString& path, const QString& text) {
    const std::string native = toDisk(path).string();
    QSaveFile file(QString::fromUtf8(native.data(), qsizetype(native.size())));
    if (!file.open(QIODevice::WriteOnly)) return false;
    const QByteArray bytes = TextCodec::encode(text);
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

QString GetPathPart(const QString& path, int part) {
    qsizetype cut = path.size() - 1;
    while (cut >= 0 && !isSeparator(path[cut]))
        --cut;
    if (part == 1) return path.left(cut + 1);
    if (part == 2) return path.mid(cut + 1);
    messages().inform(QString(), QStringLiteral("There was an error, please contact Kestrane as to "
                                                "reagrad a 0026 error. Thank You"));
    return {};
}

QString GetExtension(const QString& path) {
    for (qsizetype i = path.size() - 1; i >= 0; --i) {
        const QChar c = path[i];
        if (c == u'.') return path.mid(i + 1);
        if (c == u':' || isSeparator(c)) break;
    }
    return {};
}

bool matchesPattern(const QString& name, const QString& pattern) {
    if (pattern.isEmpty()) return false;
    return matchFrom(name.toCaseFolded(), 0, foldedPattern(pattern), 0);
}

QStringList EnumerateFiles(const QString& folder, const QString& patterns, bool includeSubfolders,
                           Enumeration* walk) {
    QStringList wanted;
    for (const QString& pattern : patterns.split(u';')) {
        const QString trimmed = pattern.trimmed();
        if (!trimmed.isEmpty()) wanted.append(trimmed);
    }
    QStringList out;
    std::set<fs::path> visited;
    Enumeration defaults;
    enumerateInto(out, folder, wanted, includeSubfolders, visited, walk ? *walk : defaults);
    return out;
}

QString FormatFileSize(const QString& path, int unitLevel, bool grouped) {
    static const char* const units[] = {" Bytes", " KB", " MB", " GB", " TB"};
    const int level = unitLevel >= 0 && unitLevel <= 4 ? unitLevel : 0;
    const QString unit = QString::fromLatin1(units[level]);
    std::error_code ec;
    const fs::path native = toDisk(path);
    const std::uintmax_t bytes = fs::is_regular_file(native, ec) ? fs::file_size(native, ec) : 0;
    if (ec || bytes == 0) return QStringLiteral("0") + unit;
    const double value = double(bytes) / std::pow(1024.0, level);
    if (!grouped) {
        if (level == 0) return QString::number(bytes) + unit;
        return QString::number(value, 'g', 15).toUpper() + unit;
    }
    // Halves round away from zero, as the number formats of the original platform do.
    if (level <= 1) return groupThousands(QString::number(std::llround(value))) + unit;
    const long long cents = std::llround(value * 100.0);
    return groupThousands(QString::number(cents / 100)) + u'.' +
           QStringLiteral("%1").arg(cents % 100, 2, 10, QChar(u'0')) + unit;
}

QString programFolder() {
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec) return QStringLiteral(".");
    // Built, data/ lies beside the executable; installed, under <prefix>/share/vantorel.
    fs::path folder = exe.parent_path();
    const fs::path installed = folder.parent_path() / "share" / "vantorel";
    if (!fs::is_directory(folder / "data", ec) && fs::is_directory(installed / "data", ec))
        folder = installed;
    return TextCodec::fromNativeName(NativePath::toBackslash(folder));
}

} // namespace mFile
