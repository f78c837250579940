// Texts the tests expect, kept in files beside them: the data folder of the test program.
#ifndef VELMORA_TESTS_DATA_TEXT_H
#define VELMORA_TESTS_DATA_TEXT_H

#include <gtest/gtest.h>

#include <fstream>
#include <string>

namespace velmora {
namespace testing {

// RUNE_TEST_DATA/name, its lines ended by lineEnd (CRLF, as SDP ends them, unless given).
inline std::string dataText(const std::string& name, const char* lineEnd = "\r\n") {
    std::ifstream file(RUNE_TEST_DATA + name);
    EXPECT_TRUE(file.is_open()) << name;
    std::string text;
    for (std::string line; std::getline(file, line);) text.append(line).append(lineEnd);
    return text;
}

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_DATA_TEXT_H
