// File, Folder and their collections, and the path and time helpers of the file-system objects.
#include "FileObjects.h"

#include "LibSupport.h"
#include "OleDate.h"
#include "platform/NativePath.h"

#include <algorithm>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>

namespace vbs::lib {

fs::path nativeOf(const String& scriptPath) {
    return NativePath::toNative(toUtf8(scriptPath));
}

String scriptPathOf(const fs::path& native) {
    std::error_code ec;
    fs::path absolute = fs::absolute(native, ec);
    if (ec) absolute = native;
    String s = fromUtf8(NativePath::toBackslash(absolute.lexically_normal()));
    if (s.size() > 1 && s.back() == u'\\') s.pop_back();
    return s;
}

void raiseFileError(const std::error_code& ec, ErrorCode fallback) {
    if (ec == std::errc::permission_denied || ec == std::errc::operation_not_permitted)
        raise(ErrorCode::PermissionDenied);
    if (ec == std::errc::file_exists) raise(ErrorCode::FileAlreadyExists);
    if (ec == std::errc::no_space_on_device) raise(ErrorCode::DiskFull);
    raise(fallback);
}

namespace {

double localSerial(std::time_t t) {
    std::tm local{};
    localtime_r(&t, &local);
    return fromParts({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                      local.tm_min, local.tm_sec});
}

} // namespace

double modifiedDate(const fs::path& native) {
    struct stat st {};
    if (::stat(native.c_str(), &st) != 0) return 0;
    return localSerial(st.st_mtime);
}

// The birth time where the file system keeps one, else the last change.
double createdDate(const fs::path& native) {
    struct statx stx {};
    if (::statx(AT_FDCWD, native.c_str(), 0, STATX_BTIME | STATX_CTIME, &stx) == 0)
        return localSerial((stx.stx_mask & STATX_BTIME) ? stx.stx_btime.tv_sec
                                                        : stx.stx_ctime.tv_sec);
    return modifiedDate(native);
}

namespace {

fs::path targetFor(const fs::path& file, const String& destination, bool intoFolder) {
    const fs::path native = nativeOf(destination);
    const bool endsInSeparator = destination.back() == u'\\' || destination.back() == u'/';
    if (endsInSeparator || fs::is_directory(native) || intoFolder) {
        if (!fs::is_directory(native)) raise(ErrorCode::PathNotFound);
        return native / file.filename();
    }
    return native;
}

} // namespace

fs::path copyOneFile(const fs::path& file, const String& destination, bool intoFolder,
                     bool overwrite) {
    const fs::path target = targetFor(file, destination, intoFolder);
    if (fs::exists(target) && !overwrite) raise(ErrorCode::FileAlreadyExists);
    std::error_code ec;
    fs::copy_file(file, target, fs::copy_options::overwrite_existing, ec);
    if (ec) raiseFileError(ec, ErrorCode::PathNotFound);
    return target;
}

fs::path moveOneFile(const fs::path& file, const String& destination, bool intoFolder) {
    const fs::path target = targetFor(file, destination, intoFolder);
    if (fs::exists(target)) raise(ErrorCode::FileAlreadyExists);
    std::error_code ec;
    fs::rename(file, target, ec);
    if (ec == std::errc::cross_device_link) {
        ec.clear();
        if (fs::copy_file(file, target, ec)) fs::remove(file, ec);
    }
    if (ec) raiseFileError(ec, ErrorCode::PathNotFound);
    return target;
}

namespace {

String nameOf(const fs::path& native) {
    return fromUtf8(native.filename().string());
}

// The "\" form's parent folder: the default value of ParentFolder's Path.
Ref<Dispatch> parentOf(const fs::path& native) {
    std::error_code ec;
    const fs::path absolute = fs::absolute(native, ec).lexically_normal();
    return makeFolder(absolute.has_relative_path() ? absolute.parent_path() : absolute);
}

class File : public TableDispatch<File> {
public:
    explicit File(fs::path native) : m_native(std::move(native)) {}
    String typeName() const override { return u"File"; }
    int defaultMemberId() const override { return memberId(u"Path"); }
    static std::span<const Member<File>> members() {
        static const Member<File> table[] = {
            {u"Path", 0, 0, &File::path, nullptr},
            {u"Name", 0, 0, &File::name, nullptr},
            {u"Size", 0, 0, &File::size, nullptr},
            {u"DateCreated", 0, 0, &File::dateCreated, nullptr},
            {u"DateLastModified", 0, 0, &File::dateLastModified, nullptr},
            {u"ParentFolder", 0, 0, &File::parentFolder, nullptr},
            {u"Copy", 1, 2, &File::copy, nullptr},
            {u"Move", 1, 1, &File::move, nullptr},
            {u"Delete", 0, 1, &File::remove, nullptr},
        };
        return table;
    }
    Value path(Args) { return Value(scriptPathOf(m_native)); }
    Value name(Args) { return Value(nameOf(m_native)); }
    Value size(Args) {
        std::error_code ec;
        const auto bytes = fs::file_size(m_native, ec);
        if (ec) raiseFileError(ec, ErrorCode::FileNotFound);
        return bytes <= uint64_t(INT32_MAX) ? Value(int32_t(bytes)) : Value(double(bytes));
    }
    Value dateCreated(Args) { return Value::fromDate(createdDate(m_native)); }
    Value dateLastModified(Args) { return Value::fromDate(modifiedDate(m_native)); }
    Value parentFolder(Args) { return Value(parentOf(m_native)); }

    Value copy(Args a) {
        copyOneFile(existing(), destinationArg(*a[0]), false,
                    given(a, 1) ? a[1]->toBoolean() : true);
        return Value();
    }
    // The object follows its file to the new place.
    Value move(Args a) {
        m_native = moveOneFile(existing(), destinationArg(*a[0]), false);
        return Value();
    }
    Value remove(Args) {
        std::error_code ec;
        fs::remove(existing(), ec);
        if (ec) raiseFileError(ec, ErrorCode::PathFileAccessError);
        return Value();
    }

private:
    const fs::path& existing() const {
        if (!fs::is_regular_file(m_native)) raise(ErrorCode::FileNotFound);
        return m_native;
    }
    static String destinationArg(const Value& v) {
        String path = v.toString();
        if (path.empty()) raise(ErrorCode::BadFileNameOrNumber);
        return path;
    }
    fs::path m_native;
};

// Files or SubFolders of a folder, sorted by name, indexed by name without regard to case.
class FolderItems : public TableDispatch<FolderItems> {
public:
    FolderItems(const fs::path& folder, bool folders) {
        std::error_code ec;
        std::vector<fs::path> paths;
        for (const auto& entry : fs::directory_iterator(folder, ec))
            if ((folders ? entry.is_directory(ec) : entry.is_regular_file(ec)))
                paths.push_back(entry.path());
        std::sort(paths.begin(), paths.end());
        for (const fs::path& p : paths) {
            m_names.push_back(nameOf(p));
            m_items.emplace_back(folders ? makeFolder(p) : Ref<Dispatch>(makeRef<File>(p)));
        }
    }
    String typeName() const override { return u"Files"; }
    int defaultMemberId() const override { return memberId(u"Item"); }
    bool enumerate(std::vector<Value>& out) override {
        out = m_items;
        return true;
    }
    static std::span<const Member<FolderItems>> members() {
        static const Member<FolderItems> table[] = {
            {u"Item", 1, 1, &FolderItems::item, nullptr},
            {u"Count", 0, 0, &FolderItems::count, nullptr},
        };
        return table;
    }
    Value count(Args) { return Value(int32_t(m_items.size())); }
    Value item(Args a) {
        const String name = a[0]->toString();
        for (size_t i = 0; i < m_names.size(); ++i)
            if (equalsNoCase(m_names[i], name)) return m_items[i];
        invalidCall();
    }

private:
    std::vector<String> m_names;
    std::vector<Value> m_items;
};

class Folder : public TableDispatch<Folder> {
public:
    explicit Folder(fs::path native) : m_native(std::move(native)) {}
    String typeName() const override { return u"Folder"; }
    int defaultMemberId() const override { return memberId(u"Path"); }
    static std::span<const Member<Folder>> members() {
        static const Member<Folder> table[] = {
            {u"Path", 0, 0, &Folder::path, nullptr},
            {u"Name", 0, 0, &Folder::name, nullptr},
            {u"Files", 0, 0, &Folder::files, nullptr},
            {u"SubFolders", 0, 0, &Folder::subFolders, nullptr},
            {u"ParentFolder", 0, 0, &Folder::parentFolder, nullptr},
            {u"DateCreated", 0, 0, &Folder::dateCreated, nullptr},
            {u"DateLastModified", 0, 0, &Folder::dateLastModified, nullptr},
            {u"IsRootFolder", 0, 0, &Folder::isRootFolder, nullptr},
        };
        return table;
    }
    Value path(Args) { return Value(scriptPathOf(m_native)); }
    Value name(Args) {
        std::error_code ec;
        const fs::path absolute = fs::absolute(m_native, ec).lexically_normal();
        return Value(isRoot() ? String() : nameOf(absolute));
    }
    Value files(Args) { return Value(makeRef<FolderItems>(m_native, false)); }
    Value subFolders(Args) { return Value(makeRef<FolderItems>(m_native, true)); }
    Value parentFolder(Args) {
        if (isRoot()) return Value::nothing();
        return Value(parentOf(m_native));
    }
    Value dateCreated(Args) { return Value::fromDate(createdDate(m_native)); }
    Value dateLastModified(Args) { return Value::fromDate(modifiedDate(m_native)); }
    Value isRootFolder(Args) { return Value(isRoot()); }

private:
    bool isRoot() const {
        std::error_code ec;
        const fs::path absolute = fs::absolute(m_native, ec).lexically_normal();
        return absolute == absolute.root_path();
    }
    fs::path m_native;
};

} // namespace

Ref<Dispatch> makeFile(const fs::path& native) {
    return makeRef<File>(native);
}

Ref<Dispatch> makeFolder(const fs::path& native) {
    fs::path p = native;
    if (!p.has_filename() && p.has_relative_path()) p = p.parent_path();
    return makeRef<Folder>(p);
}

} // namespace vbs::lib
