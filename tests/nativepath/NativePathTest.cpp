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
        std::ofstream(m_root / "Data" / "Template.txt") << "x";
    }
    void TearDown() override { fs::remove_all(m_root); }
    std::string backslash(const fs::path& p) { return NativePath::toBackslash(p); }
    fs::path m_root;
};

TEST_F(NativePathTest, MixedSeparatorsAreAccepted) {
    std::string mixed = m_root.string() + "\\Data/Template.txt";
    EXPECT_EQ(NativePath::toNative(mixed), m_root / "Data" / "Template.txt");
}

TEST_F(NativePathTest, MissingPathIsMatchedWithoutRegardToCase) {
    fs::path p = NativePath::toNative(backslash(m_root) + "\\data\\TEMPLATE.TXT");
    EXPECT_EQ(p, m_root / "Data" / "Template.txt");
}

TEST_F(NativePathTest, CaseIsFoldedBeyondAscii) {
    fs::create_directories(m_root / "Fötos");
    std::ofstream(m_root / "Fötos" / "Été.jpg") << "x";
    EXPECT_EQ(NativePath::toNative(backslash(m_root) + "\\FÖTOS\\été.JPG"),
              m_root / "Fötos" / "Été.jpg");
}

TEST_F(NativePathTest, UnknownTailIsKeptAsWrittenForNewFiles) {
    fs::path p = NativePath::toNative(backslash(m_root) + "\\DATA\\sub\\New\\out.JPG");
    EXPECT_EQ(p, m_root / "Data" / "Sub" / "New" / "out.JPG");
}

TEST_F(NativePathTest, ExactMatchWinsOverCaseVariant) {
    std::ofstream(m_root / "Data" / "template.txt") << "y";
    EXPECT_EQ(NativePath::toNative(backslash(m_root / "Data" / "template.txt")),
              m_root / "Data" / "template.txt");
}

TEST_F(NativePathTest, TildeIsTheHomeFolder) {
    const char* old = std::getenv("HOME");
    std::string saved = old ? old : "";
    ::setenv("HOME", m_root.c_str(), 1);
    EXPECT_EQ(NativePath::toNative("~\\Data\\Template.txt"), m_root / "Data" / "Template.txt");
    EXPECT_EQ(NativePath::toNative("~"), m_root);
    ::setenv("HOME", saved.c_str(), 1);
}

TEST_F(NativePathTest, RelativeAndEmptyPathsStayRelative) {
    EXPECT_EQ(NativePath::toNative(""), fs::path());
    EXPECT_EQ(NativePath::toNative("a\\b.jpg"), fs::path("a/b.jpg"));
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
    const char* old = std::getenv("HOME");
    std::string saved = old ? old : "";
    ::setenv("HOME", m_root.c_str(), 1);
    EXPECT_EQ(NativePath::toNativeForWrite("~\\DATA\\new.jpg"), m_root / "Data" / "new.jpg");
    ::setenv("HOME", saved.c_str(), 1);
    EXPECT_EQ(NativePath::toNativeForWrite("Out.JPG"), fs::path("Out.JPG"));
}
