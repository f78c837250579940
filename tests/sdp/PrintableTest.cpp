// The rule for printing untrusted text, which the library's refusals and rune-sdp share.
#include "syntax/Printable.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using velmora::rune::sdp::isPrintable;
using velmora::rune::sdp::quote;

struct PrintableCase {
    std::string text;
    std::string shown;
    bool printable;
};

const PrintableCase kPrintableCases[] = {
    {"a=rtpmap:97 AMR/8000\t\xC3\xA9\xE2\x82\xAC\xF0\x9F\x93\x9E",
     "a=rtpmap:97 AMR/8000\t\xC3\xA9\xE2\x82\xAC\xF0\x9F\x93\x9E", true},
    // C0 controls, DEL, a raw CSI byte, and U+009B (the C1 CSI in UTF-8).
    {"\x1B[2J\r\n\x7F\x9B\xC2\x9B\xC2\xA0", "\\x1B[2J\\x0D\\x0A\\x7F\\x9B\\xC2\\x9B\xC2\xA0",
     false},
    // The bidirectional controls, and the characters either side of them.
    {"\xD8\x9C\xD8\x9B\xE2\x80\x8D\xE2\x80\x8E\xE2\x80\x8F\xE2\x80\x90",
     "\\xD8\\x9C\xD8\x9B\xE2\x80\x8D\\xE2\\x80\\x8E\\xE2\\x80\\x8F\xE2\x80\x90", false},
    {"\xE2\x80\xA9\xE2\x80\xAA\xE2\x80\xAE\xE2\x80\xAF"
     "\xE2\x81\xA5\xE2\x81\xA6\xE2\x81\xA9\xE2\x81\xAA",
     "\xE2\x80\xA9\\xE2\\x80\\xAA\\xE2\\x80\\xAE\xE2\x80\xAF"
     "\xE2\x81\xA5\\xE2\\x81\\xA6\\xE2\\x81\\xA9\xE2\x81\xAA",
     false},
    // Invalid UTF-8, each byte on its own: stray continuation, overlongs, a surrogate, above
    // U+10FFFF, bytes that never start a character, a sequence cut short.
    {"\x80\xC0\xAF\xE0\x9F\xBF\xF0\x8F\xBF\xBF\xED\xA0\x80\xF4\x90\x80\x80\xF5\xFF\xE2\x82",
     "\\x80\\xC0\\xAF\\xE0\\x9F\\xBF\\xF0\\x8F\\xBF\\xBF\\xED\\xA0\\x80\\xF4\\x90\\x80\\x80\\xF5"
     "\\xFF\\xE2\\x82",
     false},
    // The last of each length, and a character cut short before an ASCII byte.
    {"\xDF\xBF\xEF\xBF\xBF\xF4\x8F\xBF\xBF\xE2\x82x",
     "\xDF\xBF\xEF\xBF\xBF\xF4\x8F\xBF\xBF\\xE2\\x82x", false},
    // 120 bytes shown, counted before escaping; a character cut by the bound is escaped.
    {std::string(121, 'a'), std::string(120, 'a') + "...", true},
    {std::string(119, 'a') + "\xC3\xA9", std::string(119, 'a') + "\\xC3...", true},
};

class PrintableTest : public ::testing::TestWithParam<PrintableCase> {};

TEST_P(PrintableTest, ShowsEachUnprintableByteAsHex) {
    const PrintableCase& c = GetParam();
    EXPECT_EQ(quote(c.text), c.shown);
    EXPECT_EQ(isPrintable(c.text), c.printable);
}

INSTANTIATE_TEST_SUITE_P(Table, PrintableTest, ::testing::ValuesIn(kPrintableCases));

}  // namespace
