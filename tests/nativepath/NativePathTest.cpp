// The "\" path form reaches the right native files, case-insensitively, and maps back.
#include "platform/NativePath.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;

class NativePathTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_root = fs::temp_directory_path() / ("nativepath-" + std::to_string(::getpid()));
        fs::create_directories(m_root / "Data" / "Sub");
        fs::create_directories(m_root / "Fötos");
        for (const char* name :
             {"Data/Template.txt", "Data/Exact.txt", "Data/exact.txt", "Fötos/Été.jpg"})
            std::ofstream(m_root / name) << "x";
        const char* home = std::getenv("HOME");
        m_home = home ? home : "";
        ::setenv("HOME", m_root.c_str(), 1);
    }
    void TearDown() override {
        ::setenv("HOME", m_home.c_str(), 1);
        fs::remove_all(m_root);
    }
    std::string backslash(const fs::path& p) { return NativePath::toBackslash(p); }
    // "@" stands for the root of the test's folder.
    std::string form(std::string text) {
        return text.starts_with('@') ? backslash(m_root) + text.substr(1) : text;
    }
    fs::path native(const std::string& text) {
        if (!text.starts_with('@')) return fs::path(text);
        return text.size() == 1 ? m_root : m_root / text.substr(2);
    }
    fs::path m_root;
    std::string m_home;
};

// Either separator, any case (beyond ASCII too), "~" for home; an exact match wins over a
// variant in another case; what does not exist yet is kept as written, relative stays relative.
TEST_F(NativePathTest, FormsReachTheFilesTheyName) {
    const std::pair<const char*, const char*> cases[] = {
        {"@\\Data/Template.txt", "@/Data/Template.txt"},
        {"@\\data\\TEMPLATE.TXT", "@/Data/Template.txt"},
        {"@\\FÖTOS\\été.JPG", "@/Fötos/Été.jpg"},
        {"@\\DATA\\sub\\New\\out.JPG", "@/Data/Sub/New/out.JPG"},
        {"@\\Data\\exact.txt", "@/Data/exact.txt"},
        {"@\\Data\\Exact.txt", "@/Data/Exact.txt"},
        {"~\\Data\\Template.txt", "@/Data/Template.txt"},
        {"~", "@"},
        {"", ""},
        {"a\\b.jpg", "a/b.jpg"},
    };
    for (const auto& [written, found] : cases)
        EXPECT_EQ(NativePath::toNative(form(written)), native(found)) << written;
}

TEST_F(NativePathTest, ToBackslashRoundTrips) {
    std::string form = backslash(m_root / "Data" / "Template.txt");
    EXPECT_EQ(form.find('/'), std::string::npos);
    EXPECT_EQ(NativePath::toNative(form), m_root / "Data" / "Template.txt");
}

TEST_F(NativePathTest, AFileToWriteKeepsItsNameExactlyWhileFoldersAreFound) {
    EXPECT_EQ(NativePath::toNativeForWrite(backslash(m_root) + "\\data\\template.TXT"),
              m_root / "Data" / "template.TXT");
    EXPECT_EQ(NativePath::toNativeForWrite(backslash(m_root / "Data" / "Template.txt")),
              m_root / "Data" / "Template.txt");
    EXPECT_EQ(NativePath::toNativeForWrite("~\\DATA\\new.jpg"), m_root / "Data" / "new.jpg");
    EXPECT_EQ(NativePath::toNativeForWrite("Out.JPG"), fs::path("Out.JPG"));
}
