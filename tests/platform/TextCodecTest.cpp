// Text files: UTF-8 with a Windows-1252 fallback, CR LF line ends, UTF-16 at the script boundary.
#include "platform/TextCodec.h"

#include <gtest/gtest.h>

using namespace TextCodec;

TEST(TextCodec, DecodesUtf8AndDropsByteOrderMark) {
    EXPECT_EQ(decode(QByteArray("\xEF\xBB\xBF"
                                "caf\xC3\xA9")),
              QString::fromUtf8("café"));
    EXPECT_EQ(decode(QByteArray("\xE2\x82\xAC 5")), QString::fromUtf8("€ 5"));
}

TEST(TextCodec, InvalidUtf8IsTakenAsWindows1252) {
    // 0xE9 alone is not UTF-8; in Windows-1252 it is "é", 0x80 is the euro sign, 0x93/0x94 quotes.
    EXPECT_EQ(decode(QByteArray("caf\xE9 \x80 \x93q\x94")), QString::fromUtf8("café € “q”"));
    // The undefined bytes keep their C1 value rather than vanishing.
    EXPECT_EQ(fromWindows1252(QByteArray("\x81\x8D")), QString(QChar(0x81)) + QChar(0x8D));
}

TEST(TextCodec, Utf16WithByteOrderMark) {
    EXPECT_EQ(decode(QByteArray("\xFF\xFE"
                                "a\0\xE9\0\n\0",
                                8)),
              QString::fromUtf8("aé\r\n"));
    EXPECT_EQ(decode(QByteArray("\xFE\xFF"
                                "\0a\0\xE9",
                                6)),
              QString::fromUtf8("aé"));
}

TEST(TextCodec, LineEndsBecomeCrLf) {
    EXPECT_EQ(decode("a\nb\r\nc\rd\n\ne"), QStringLiteral("a\r\nb\r\nc\r\nd\r\n\r\ne"));
    EXPECT_EQ(toCrLf(QStringLiteral("\r\r\n\n")), QStringLiteral("\r\n\r\n\r\n"));
    EXPECT_EQ(toCrLf(QString()), QString());
}

TEST(TextCodec, ScriptBoundaryKeepsUtf16CodeUnits) {
    const QString text = QString::fromUtf8("fx.Text \"a😀é\"\r\n");
    const std::u16string script = toScriptText(text);
    EXPECT_EQ(script.size(), size_t(text.size())); // the emoji is two code units on both sides
    EXPECT_EQ(script[10], char16_t(0xD83D));
    EXPECT_EQ(fromScriptText(script), text);
}
