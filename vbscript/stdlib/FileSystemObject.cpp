// Scripting.FileSystemObject: path names in the "\" form, existence tests, File and Folder
// objects, copying, moving, deleting and text files.
#include "FileObjects.h"

#include "LibSupport.h"

#include <random>

namespace vbs::lib {

namespace {

bool isSeparator(char16_t c) {
    return c == u'\\' || c == u'/';
}

// A path that an operation creates, changes or opens: empty is 52 Bad file name or number.
String pathArg(const Value& v) {
    String path = v.toString();
    if (path.empty()) raise(ErrorCode::BadFileNameOrNumber);
    return path;
}

// The path without trailing separators (a lone root separator stays).
std::u16string_view trimSeparators(std::u16string_view p) {
    while (p.size() > 1 && isSeparator(p.back()))
        p.remove_suffix(1);
    return p;
}

size_t lastSeparator(std::u16string_view p) {
    for (size_t i = p.size(); i-- > 0;)
        if (isSeparator(p[i]) || (i == 1 && p[i] == u':')) return i;
    return std::u16string_view::npos;
}

String fileNameOf(std::u16string_view path) {
    const std::u16string_view p = trimSeparators(path);
    if (p.size() == 1 && isSeparator(p[0])) return {};
    const size_t sep = lastSeparator(p);
    return String(sep == std::u16string_view::npos ? p : p.substr(sep + 1));
}

String parentFolderNameOf(std::u16string_view path) {
    const std::u16string_view p = trimSeparators(path);
    const size_t sep = lastSeparator(p);
    if (sep == std::u16string_view::npos) return {};
    if (p[sep] == u':') return String(p.substr(0, sep + 1));     // "C:a" -> "C:"
    if (sep == 0) return String(p.substr(0, 1));                 // "\a" -> "\"
    if (p[sep - 1] == u':') return String(p.substr(0, sep + 1)); // "C:\a" -> "C:\"
    return String(trimSeparators(p.substr(0, sep)));
}

size_t extensionDot(const String& name) {
    const size_t dot = name.rfind(u'.');
    return dot == String::npos ? String::npos : dot;
}

String baseNameOf(std::u16string_view path) {
    const String name = fileNameOf(path);
    const size_t dot = extensionDot(name);
    return dot == String::npos ? name : name.substr(0, dot);
}

String extensionNameOf(std::u16string_view path) {
    const String name = fileNameOf(path);
    const size_t dot = extensionDot(name);
    return dot == String::npos ? String() : name.substr(dot + 1);
}

String buildPath(const String& path, const String& name) {
    if (path.empty()) return name;
    if (name.empty()) return path;
    const bool left = isSeparator(path.back()) || (path.size() == 2 && path[1] == u':');
    const bool right = isSeparator(name.front());
    if (left && right) return path + name.substr(1);
    return left || right ? path + name : path + u"\\" + name;
}

// "*" and "?" in the last component, matched without regard to case.
bool wildcardMatch(std::u16string_view pattern, std::u16string_view name) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == u'*')
        return wildcardMatch(pattern.substr(1), name) ||
               (!name.empty() && wildcardMatch(pattern, name.substr(1)));
    if (name.empty()) return false;
    if (pattern[0] != u'?' && foldChar(pattern[0]) != foldChar(name[0])) return false;
    return wildcardMatch(pattern.substr(1), name.substr(1));
}

// The files a source path names: one file, or those matching a wildcard; 53 when none.
std::vector<fs::path> sourceFiles(const String& source) {
    const String pattern = fileNameOf(source);
    if (pattern.find_first_of(u"*?") == String::npos) {
        const fs::path native = nativeOf(source);
        if (!fs::is_regular_file(native)) raise(ErrorCode::FileNotFound);
        return {native};
    }
    const String folder = parentFolderNameOf(source);
    const fs::path dir = folder.empty() ? fs::current_path() : nativeOf(folder);
    std::vector<fs::path> files;
    std::error_code ec;
    for (const auto& entry : fs::directory_iterator(dir, ec))
        if (entry.is_regular_file(ec) &&
            wildcardMatch(pattern, fromUtf8(entry.path().filename().string())))
            files.push_back(entry.path());
    if (files.empty()) raise(ErrorCode::FileNotFound);
    return files;
}

class FileSystemObject : public TableDispatch<FileSystemObject> {
public:
    String typeName() const override { return u"FileSystemObject"; }
    static std::span<const Member<FileSystemObject>> members() {
        using F = FileSystemObject;
        static const Member<F> table[] = {
            {u"FileExists", 1, 1, &F::fileExists, nullptr},
            {u"FolderExists", 1, 1, &F::folderExists, nullptr},
            {u"GetFile", 1, 1, &F::getFile, nullptr},
            {u"GetFolder", 1, 1, &F::getFolder, nullptr},
            {u"GetBaseName", 1, 1, &F::getBaseName, nullptr},
            {u"GetExtensionName", 1, 1, &F::getExtensionName, nullptr},
            {u"GetFileName", 1, 1, &F::getFileName, nullptr},
            {u"GetParentFolderName", 1, 1, &F::getParentFolderName, nullptr},
            {u"GetAbsolutePathName", 1, 1, &F::getAbsolutePathName, nullptr},
            {u"BuildPath", 2, 2, &F::buildPathMember, nullptr},
            {u"CreateFolder", 1, 1, &F::createFolder, nullptr},
            {u"DeleteFolder", 1, 2, &F::deleteFolder, nullptr},
            {u"CopyFile", 2, 3, &F::copyFile, nullptr},
            {u"MoveFile", 2, 2, &F::moveFile, nullptr},
            {u"DeleteFile", 1, 2, &F::deleteFile, nullptr},
            {u"OpenTextFile", 1, 4, &F::openTextFile, nullptr},
            {u"CreateTextFile", 1, 3, &F::createTextFile, nullptr},
            {u"GetSpecialFolder", 1, 1, &F::getSpecialFolder, nullptr},
            {u"GetTempName", 0, 0, &F::getTempName, nullptr},
        };
        return table;
    }

    Value fileExists(Args a) { return Value(fs::is_regular_file(nativeOf(a[0]->toString()))); }
    Value folderExists(Args a) { return Value(fs::is_directory(nativeOf(a[0]->toString()))); }

    Value getFile(Args a) {
        const fs::path native = nativeOf(a[0]->toString());
        if (!fs::is_regular_file(native)) raise(ErrorCode::FileNotFound);
        return Value(makeFile(native));
    }

    Value getFolder(Args a) {
        const fs::path native = nativeOf(a[0]->toString());
        if (!fs::is_directory(native)) raise(ErrorCode::PathNotFound);
        return Value(makeFolder(native));
    }

    Value getBaseName(Args a) { return Value(baseNameOf(a[0]->toString())); }
    Value getExtensionName(Args a) { return Value(extensionNameOf(a[0]->toString())); }
    Value getFileName(Args a) { return Value(fileNameOf(a[0]->toString())); }
    Value getParentFolderName(Args a) { return Value(parentFolderNameOf(a[0]->toString())); }
    Value getAbsolutePathName(Args a) { return Value(scriptPathOf(nativeOf(a[0]->toString()))); }
    Value buildPathMember(Args a) { return Value(buildPath(a[0]->toString(), a[1]->toString())); }

    Value createFolder(Args a) {
        const fs::path native = nativeOf(pathArg(*a[0]));
        if (fs::exists(native)) raise(ErrorCode::FileAlreadyExists);
        if (!fs::is_directory(native.parent_path().empty() ? "." : native.parent_path()))
            raise(ErrorCode::PathNotFound);
        std::error_code ec;
        fs::create_directory(native, ec);
        if (ec) raiseFileError(ec, ErrorCode::PathFileAccessError);
        return Value(makeFolder(native));
    }

    Value deleteFolder(Args a) {
        const fs::path native = nativeOf(pathArg(*a[0]));
        if (!fs::is_directory(native)) raise(ErrorCode::PathNotFound);
        std::error_code ec;
        fs::remove_all(native, ec);
        if (ec) raiseFileError(ec, ErrorCode::PathFileAccessError);
        return Value();
    }

    Value copyFile(Args a) {
        const String destination = pathArg(*a[1]);
        const bool overwrite = boolArg(a, 2, true);
        const auto files = sourceFiles(pathArg(*a[0]));
        for (const fs::path& file : files)
            copyOneFile(file, destination, files.size() > 1, overwrite);
        return Value();
    }

    Value moveFile(Args a) {
        const String destination = pathArg(*a[1]);
        const auto files = sourceFiles(pathArg(*a[0]));
        for (const fs::path& file : files)
            moveOneFile(file, destination, files.size() > 1);
        return Value();
    }

    Value deleteFile(Args a) {
        for (const fs::path& file : sourceFiles(pathArg(*a[0]))) {
            std::error_code ec;
            fs::remove(file, ec);
            if (ec) raiseFileError(ec, ErrorCode::PathFileAccessError);
        }
        return Value();
    }

    Value openTextFile(Args a) {
        const long mode = longArg(a, 1, 1);
        const bool create = boolArg(a, 2, false);
        if (mode != 1 && mode != 2 && mode != 8) invalidCall();
        const fs::path native = nativeOf(pathArg(*a[0]));
        if (!fs::is_regular_file(native) && (mode == 1 || !create)) raise(ErrorCode::FileNotFound);
        requireParent(native);
        return Value(openTextStream(native, IoMode(mode)));
    }

    Value createTextFile(Args a) {
        const bool overwrite = boolArg(a, 1, true);
        const fs::path native = nativeOf(pathArg(*a[0]));
        if (fs::exists(native) && !overwrite) raise(ErrorCode::FileAlreadyExists);
        requireParent(native);
        return Value(openTextStream(native, IoMode::Writing));
    }

    // Only the temporary folder (2) exists here; the Windows (0) and system (1) folders do not.
    Value getSpecialFolder(Args a) {
        const int32_t which = a[0]->toLong();
        if (which < 0 || which > 2) invalidCall();
        if (which != 2) raise(ErrorCode::PathNotFound);
        return Value(makeFolder(fs::temp_directory_path()));
    }

    // "radXXXXX.tmp" with five random hexadecimal digits, as scripts expect the form.
    Value getTempName(Args) {
        static std::mt19937 random{std::random_device{}()};
        static const char16_t* kDigits = u"0123456789ABCDEF";
        String name = u"rad";
        for (int i = 0; i < 5; ++i)
            name += kDigits[random() % 16];
        return Value(name + u".tmp");
    }

private:
    static void requireParent(const fs::path& native) {
        const fs::path parent = native.parent_path();
        if (!parent.empty() && !fs::is_directory(parent)) raise(ErrorCode::PathNotFound);
    }
};

} // namespace

Ref<Dispatch> createFileSystemObject() {
    return makeRef<FileSystemObject>();
}

} // namespace vbs::lib
