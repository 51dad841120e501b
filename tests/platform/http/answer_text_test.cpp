#include "platform/http/answer_text.h"

#include <gtest/gtest.h>

namespace vorlane::platform {
namespace {

using namespace std::string_literals;

struct DecodeRow {
  std::string name;
  std::string bytes;
  std::string contentType;
  std::string text;
};

class DecodeAnswerRows : public testing::TestWithParam<DecodeRow> {};

TEST_P(DecodeAnswerRows, GivesUtf8) {
  EXPECT_EQ(DecodeAnswer(GetParam().bytes, GetParam().contentType), GetParam().text);
}

const std::string kLong(40'000, 'a');

INSTANTIATE_TEST_SUITE_P(
    Answers, DecodeAnswerRows,
    testing::Values(
        DecodeRow{"Empty", "", "", ""},
        DecodeRow{"EmptyWithCharset", "", "text/xml; charset=utf-16", ""},
        DecodeRow{"Utf8Undeclared", "राम & Söhne", "text/xml", "राम & Söhne"},
        DecodeRow{"ControlsStay", "a\0\x04\r\nb"s, "text/xml", "a\0\x04\r\nb"s},
        DecodeRow{"Utf8Mark", "\xEF\xBB\xBF<A/>", "text/xml", "<A/>"},
        DecodeRow{"Utf16LittleEndianMark", "\xFF\xFE<\0\x30\x09"s, "text/xml", "<र"},
        DecodeRow{"Utf16BigEndianMark", "\xFE\xFF\0<\x09\x30"s, "text/xml", "<र"},
        DecodeRow{"MarkBeatsCharset", "\xFF\xFE<\0"s, "text/xml; charset=utf-8", "<"},
        DecodeRow{"Utf16Declared", "<\0\x3D\xD8\x00\xDE"s, "text/xml; charset=UTF-16", "<😀"},
        DecodeRow{"Utf16CutInACharacter", "<\0\x30"s, "text/xml; charset=utf-16", "<\uFFFD"},
        DecodeRow{"Utf16LoneSurrogate", "\x3D\xD8<\0"s, "text/xml; charset=utf-16", "\uFFFD<"},
        DecodeRow{"QuotedCharset", "\xE9", "text/xml; Charset=\"ISO-8859-1\"; x=y", "é"},
        DecodeRow{"OtherCharset", "\xCE\xD2", "text/xml;charset=gb2312", "我"},
        DecodeRow{"UnknownCharset", "\x80 5", "text/xml; charset=martian", "€ 5"},
        DecodeRow{"WrongClaimOfUtf8", "caf\xE9", "text/xml; charset=utf-8", "café"},
        DecodeRow{"Windows1252Undeclared", "\x93quoted\x94 \xBD", "", "“quoted” ½"},
        DecodeRow{"Windows1252Gap", "\x81\xE9", "", "\uFFFDé"},
        DecodeRow{"Overlong", "\xC0\xAF", "", "À¯"},
        DecodeRow{"SurrogateInUtf8", "\xED\xA0\x80", "", "í\u00A0€"},
        DecodeRow{"CutUtf8AfterLongAscii", kLong + "\xE0\xA4", "", kLong + "à¤"},
        DecodeRow{"LongConversion", kLong + "\xE9" + kLong, "text/xml; charset=latin1",
                  kLong + "é" + kLong}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vorlane::platform
