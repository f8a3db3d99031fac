// The end-to-end fixture: temporary photos, the executable's runs, a JPEG size reader.
#include "E2eFixture.h"

#include <filesystem>

std::optional<std::pair<int, int>> jpegSize(const QByteArray& bytes) {
    const auto byte = [&](qsizetype i) { return static_cast<unsigned char>(bytes[i]); };
    if (bytes.size() < 4 || byte(0) != 0xFF || byte(1) != 0xD8) return std::nullopt;
    if (byte(bytes.size() - 2) != 0xFF || byte(bytes.size() - 1) != 0xD9) return std::nullopt;
    qsizetype at = 2;
    while (at + 9 < bytes.size()) {
        if (byte(at) != 0xFF) return std::nullopt;
        const int marker = byte(at + 1);
        const int length = (byte(at + 2) << 8) | byte(at + 3);
        // Start-of-frame markers C0-CF, except DHT (C4), JPG (C8) and DAC (CC).
        if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 &&
            marker != 0xCC) {
            const int height = (byte(at + 5) << 8) | byte(at + 6);
            const int width = (byte(at + 7) << 8) | byte(at + 8);
            return std::make_pair(width, height);
        }
        at += 2 + length;
    }
    return std::nullopt;
}

void E2eTest::TearDown() {
    std::error_code ec;
    std::filesystem::remove_all(m_dir.path().toStdString(), ec);
}

void E2eTest::SetUp() {
    ASSERT_TRUE(m_dir.isValid());
    ASSERT_TRUE(QFile::exists(QStringLiteral(VANTOREL_BINARY))) << VANTOREL_BINARY;
    // Settings of the runs stay in the temporary folder.
    m_configHome = m_dir.path() + QStringLiteral("/.config");
    QDir().mkpath(m_configHome);
}

std::string E2eTest::path(const QString& relative) const {
    QString native = m_dir.path();
    if (!relative.isEmpty()) native += u'/' + relative;
    return native.replace(u'/', u'\\').toStdString();
}

void E2eTest::write(const QString& relative, const QByteArray& bytes) const {
    const QString native = nativePath(relative);
    QDir().mkpath(QFileInfo(native).path());
    QFile file(native);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << native.toStdString();
    file.write(bytes);
}

QByteArray E2eTest::read(const QString& relative) const {
    QFile file(nativePath(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void E2eTest::copyExample(const QString& relative) const {
    QFile source(QStringLiteral(VANTOREL_DATA_DIR "/example.jpg"));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    write(relative, source.readAll());
}

void E2eTest::copySample(const QString& name, const QString& relative) const {
    QFile source(QStringLiteral(VANTOREL_DATA_DIR "/samples/") + name);
    ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << name.toStdString();
    write(relative, source.readAll());
}

const QStringList& E2eTest::sampleNames() {
    static const QStringList names = [] {
        QStringList list = QDir(QStringLiteral(VANTOREL_DATA_DIR "/samples"))
                               .entryList({QStringLiteral("*.jpg")}, QDir::Files, QDir::Name);
        return list;
    }();
    return names;
}

QStringList E2eTest::entries(const QString& relative) const {
    return QDir(nativePath(relative))
        .entryList(QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

ProcessResult E2eTest::run(const std::vector<std::string>& args, ProcessOptions options) const {
    options.setEnv.emplace_back("XDG_CONFIG_HOME", m_configHome.toStdString());
    return runProgram(VANTOREL_BINARY, args, options);
}

ProcessResult E2eTest::runInTerminal(const std::vector<std::string>& args,
                                     std::vector<std::string> answers,
                                     ProcessOptions options) const {
    options.setEnv.emplace_back("XDG_CONFIG_HOME", m_configHome.toStdString());
    return ::runInTerminal(VANTOREL_BINARY, args, std::move(answers), options);
}

std::string describe(const ProcessResult& r) {
    std::string text =
        r.exited ? "exit status " + std::to_string(r.status) : "signal " + std::to_string(r.signal);
    if (r.timedOut) text += " (killed at the deadline)";
    return text + "\n--- stdout:\n" + r.out + "\n--- stderr:\n" + r.err;
}
