// Scripting.FileSystemObject on a scratch folder: path names, files, folders, text streams.
#include "DispatchCall.h"
#include "FileObjects.h"
#include "platform/NativePath.h"

#include <cstdlib>
#include <fstream>

using namespace vbstest;
using vbs::String;
using vbs::Value;
namespace fs = std::filesystem;

namespace {

fs::path nativeOfForTest(const String& path) {
    return NativePath::toNative(vbs::toUtf8(path));
}

class FileSystemObjectTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "vbstdlib-fso-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        m_dir = pattern;
        m_fso = vbs::lib::createFileSystemObject();
    }
    void TearDown() override { fs::remove_all(m_dir); }

    // The scratch folder in the "\" form, with a name appended.
    String path(std::u16string_view name = {}) const {
        String base = vbs::fromUtf8(NativePath::toBackslash(m_dir));
        return name.empty() ? base : base + u"\\" + String(name);
    }
    void writeBytes(const std::string& name, const std::string& bytes) const {
        std::ofstream(m_dir / name, std::ios::binary) << bytes;
    }
    std::string readBytes(const std::string& name) const {
        std::ifstream in(m_dir / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    Value call(std::u16string_view member, std::vector<Value> args = {}) {
        return invoke(*m_fso, member, std::move(args));
    }
    // The error number a call raises (0 when it succeeds).
    int failure(std::u16string_view member, std::vector<Value> args = {}) {
        return errorOf([&] { call(member, std::move(args)); });
    }

    fs::path m_dir;
    vbs::Ref<vbs::Dispatch> m_fso;
};

} // namespace

TEST_F(FileSystemObjectTest, PathNames) {
    struct Case {
        const char16_t* member;
        const char16_t* in;
        const char16_t* out;
    };
    const Case cases[] = {
        {u"GetFileName", u"\\photos\\2003\\img.jpg", u"img.jpg"},
        {u"GetFileName", u"\\photos\\2003\\", u"2003"},
        {u"GetFileName", u"C:\\a.b.jpg", u"a.b.jpg"},
        {u"GetBaseName", u"\\photos\\a.b.jpg", u"a.b"},
        {u"GetBaseName", u"noext", u"noext"},
        {u"GetExtensionName", u"\\photos\\a.b.JPG", u"JPG"},
        {u"GetExtensionName", u"\\photos\\noext", u""},
        {u"GetParentFolderName", u"\\photos\\2003\\img.jpg", u"\\photos\\2003"},
        {u"GetParentFolderName", u"\\img.jpg", u"\\"},
        {u"GetParentFolderName", u"C:\\img.jpg", u"C:\\"},
        {u"GetParentFolderName", u"img.jpg", u""},
        {u"GetParentFolderName", u"a/b/c.jpg", u"a/b"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(call(c.member, {Value(c.in)}).toString(), c.out) << String(c.member).size();
    EXPECT_EQ(call(u"BuildPath", {Value(u"\\photos"), Value(u"a.jpg")}).toString(),
              u"\\photos\\a.jpg");
    EXPECT_EQ(call(u"BuildPath", {Value(u"\\photos\\"), Value(u"\\a.jpg")}).toString(),
              u"\\photos\\a.jpg");
    EXPECT_EQ(call(u"BuildPath", {Value(u""), Value(u"a.jpg")}).toString(), u"a.jpg");
}

TEST_F(FileSystemObjectTest, FilesAndFolders) {
    writeBytes("Photo.JPG", "12345");
    fs::create_directory(m_dir / "sub");
    EXPECT_TRUE(call(u"FileExists", {Value(path(u"photo.jpg"))}).toBoolean()); // any case
    EXPECT_FALSE(call(u"FileExists", {Value(path(u"sub"))}).toBoolean());
    EXPECT_TRUE(call(u"FolderExists", {Value(path(u"SUB"))}).toBoolean());
    auto file = dispatchOf(call(u"GetFile", {Value(path(u"photo.jpg"))}));
    EXPECT_EQ(get(file, u"Name").toString(), u"Photo.JPG");
    EXPECT_EQ(get(file, u"Path").toString(), path(u"Photo.JPG"));
    EXPECT_EQ(get(file, u"Size").toLong(), 5);
    EXPECT_EQ(get(file, u"DateLastModified").type(), vbs::VarType::Date);
    EXPECT_GT(get(file, u"DateCreated").toDouble(), 40000);
    EXPECT_EQ(get(dispatchOf(get(file, u"ParentFolder")), u"Path").toString(), path());
    auto folder = dispatchOf(call(u"GetFolder", {Value(path())}));
    EXPECT_EQ(get(folder, u"Name").toString(), vbs::fromUtf8(m_dir.filename().string()));
    auto files = dispatchOf(get(folder, u"Files"));
    EXPECT_EQ(get(files, u"Count").toLong(), 1);
    EXPECT_EQ(get(dispatchOf(get(files, u"Item", {Value(u"photo.jpg")})), u"Size").toLong(), 5);
    const auto subs = each(dispatchOf(get(folder, u"SubFolders")));
    ASSERT_EQ(subs.size(), 1u);
    EXPECT_EQ(get(dispatchOf(subs[0]), u"Name").toString(), u"sub");
    EXPECT_EQ(failure(u"GetFile", {Value(path(u"none.jpg"))}), 53);
    EXPECT_EQ(failure(u"GetFolder", {Value(path(u"none"))}), 76);
}

TEST_F(FileSystemObjectTest, CreateCopyMoveDelete) {
    call(u"CreateFolder", {Value(path(u"out"))});
    EXPECT_TRUE(fs::is_directory(m_dir / "out"));
    EXPECT_EQ(failure(u"CreateFolder", {Value(path(u"out"))}), 58);
    EXPECT_EQ(failure(u"CreateFolder", {Value(path(u"no\\such"))}), 76);
    writeBytes("a.jpg", "A");
    writeBytes("b.jpg", "B");
    call(u"CopyFile", {Value(path(u"a.jpg")), Value(path(u"out\\"))});
    EXPECT_EQ(readBytes("out/a.jpg"), "A");
    EXPECT_EQ(
        failure(u"CopyFile", {Value(path(u"b.jpg")), Value(path(u"out\\a.jpg")), Value(false)}),
        58);
    call(u"CopyFile", {Value(path(u"b.jpg")), Value(path(u"out\\a.jpg"))}); // overwrites by default
    EXPECT_EQ(readBytes("out/a.jpg"), "B");
    call(u"CopyFile", {Value(path(u"*.JPG")), Value(path(u"out"))});
    EXPECT_EQ(readBytes("out/b.jpg"), "B");
    call(u"MoveFile", {Value(path(u"a.jpg")), Value(path(u"moved.jpg"))});
    EXPECT_FALSE(fs::exists(m_dir / "a.jpg"));
    EXPECT_EQ(readBytes("moved.jpg"), "A");
    EXPECT_EQ(failure(u"MoveFile", {Value(path(u"b.jpg")), Value(path(u"moved.jpg"))}), 58);
    call(u"DeleteFile", {Value(path(u"out\\*.jpg"))});
    EXPECT_TRUE(fs::is_empty(m_dir / "out"));
    EXPECT_EQ(failure(u"DeleteFile", {Value(path(u"none.jpg"))}), 53);
    EXPECT_EQ(failure(u"CopyFile", {Value(path(u"b.jpg")), Value(u"")}), 52);
    EXPECT_EQ(failure(u"CreateFolder", {Value(u"")}), 52);
    EXPECT_EQ(failure(u"CopyFile", {Value(path(u"none.jpg")), Value(path(u"x.jpg"))}), 53);
}

TEST_F(FileSystemObjectTest, SpecialFolderAndTempName) {
    auto temp = dispatchOf(call(u"GetSpecialFolder", {Value(int16_t(2))}));
    EXPECT_TRUE(fs::is_directory(nativeOfForTest(get(temp, u"Path").toString())));
    EXPECT_EQ(failure(u"GetSpecialFolder", {Value(int16_t(0))}), 76);
    EXPECT_EQ(failure(u"GetSpecialFolder", {Value(int16_t(3))}), 5);
    const String name = call(u"GetTempName").toString();
    EXPECT_EQ(name.size(), 12u);
    EXPECT_EQ(name.substr(0, 3), u"rad");
    EXPECT_EQ(name.substr(8), u".tmp");
}

TEST_F(FileSystemObjectTest, FileMethods) {
    writeBytes("a.jpg", "A");
    fs::create_directory(m_dir / "out");
    auto file = dispatchOf(call(u"GetFile", {Value(path(u"a.jpg"))}));
    invoke(file, u"Copy", {Value(path(u"out\\"))});
    EXPECT_EQ(readBytes("out/a.jpg"), "A");
    EXPECT_EQ(errorOf([&] {
                  invoke(file, u"Copy", {Value(path(u"out\\a.jpg")), Value(false)});
              }),
              58);
    invoke(file, u"Move", {Value(path(u"b.jpg"))});
    EXPECT_FALSE(fs::exists(m_dir / "a.jpg"));
    EXPECT_EQ(get(file, u"Name").toString(), u"b.jpg");
    invoke(file, u"Delete");
    EXPECT_FALSE(fs::exists(m_dir / "b.jpg"));
    EXPECT_EQ(errorOf([&] { invoke(file, u"Delete"); }), 53);
}

TEST_F(FileSystemObjectTest, TextStreams) {
    auto out = dispatchOf(call(u"CreateTextFile", {Value(path(u"list.txt"))}));
    invoke(out, u"WriteLine", {Value(u"caf\u00E9")});
    invoke(out, u"Write", {Value(u"last")});
    invoke(out, u"Close");
    EXPECT_EQ(readBytes("list.txt"), "caf\xC3\xA9\r\nlast");
    EXPECT_EQ(errorOf([&] { invoke(out, u"Write", {Value(u"x")}); }), 54);

    auto in = dispatchOf(call(u"OpenTextFile", {Value(path(u"list.txt"))}));
    EXPECT_EQ(invoke(in, u"ReadLine").toString(), u"caf\u00E9");
    EXPECT_FALSE(get(in, u"AtEndOfStream").toBoolean());
    EXPECT_EQ(invoke(in, u"ReadLine").toString(), u"last");
    EXPECT_TRUE(get(in, u"AtEndOfStream").toBoolean());
    EXPECT_EQ(errorOf([&] { invoke(in, u"ReadLine"); }), 62);
    EXPECT_EQ(errorOf([&] { invoke(in, u"Write", {Value(u"x")}); }), 54);

    auto append = dispatchOf(call(u"OpenTextFile", {Value(path(u"list.txt")), Value(int16_t(8))}));
    invoke(append, u"WriteLine");
    invoke(append, u"Close");
    EXPECT_EQ(readBytes("list.txt"), "caf\xC3\xA9\r\nlast\r\n");
    EXPECT_EQ(failure(u"CreateTextFile", {Value(path(u"list.txt")), Value(false)}), 58);
    EXPECT_EQ(failure(u"OpenTextFile", {Value(path(u"none.txt"))}), 53);
    EXPECT_EQ(failure(u"OpenTextFile", {Value(path(u"list.txt")), Value(int16_t(3))}), 5);
    call(u"OpenTextFile", {Value(path(u"new.txt")), Value(int16_t(2)), Value(true)});
    EXPECT_TRUE(fs::exists(m_dir / "new.txt"));
}

TEST_F(FileSystemObjectTest, ReadsWindows1252AndUtf16) {
    writeBytes("ansi.txt", "caf\xE9 \x80\r\nx\ny");
    auto in = dispatchOf(call(u"OpenTextFile", {Value(path(u"ansi.txt"))}));
    EXPECT_EQ(invoke(in, u"ReadLine").toString(), u"caf\u00E9 \u20AC");
    EXPECT_EQ(invoke(in, u"ReadAll").toString(), u"x\ny");
    writeBytes("wide.txt", std::string("\xFF\xFE"
                                       "a\0\xE9\0",
                                       6));
    auto wide = dispatchOf(call(u"OpenTextFile", {Value(path(u"wide.txt"))}));
    EXPECT_EQ(invoke(wide, u"ReadAll").toString(), u"a\u00E9");
    writeBytes("bom.txt", "\xEF\xBB\xBFok");
    EXPECT_EQ(
        invoke(dispatchOf(call(u"OpenTextFile", {Value(path(u"bom.txt"))})), u"ReadAll").toString(),
        u"ok");
}
