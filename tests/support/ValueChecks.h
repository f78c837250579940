// What every value type of the model promises: equality that tells distinct objects apart, and
// copies that are their source. Deep copies and releases are left to the sanitizers and valgrind,
// which see a shared entry as a double free and a forgotten one as a leak.
#ifndef VELMORA_TESTS_VALUE_CHECKS_H
#define VELMORA_TESTS_VALUE_CHECKS_H

#include <velmora/rune/CodecCapabilities.h>
#include <velmora/rune/CodecConfig.h>
#include <velmora/rune/StreamConfig.h>

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace velmora {
namespace testing {

// Every pair of `objects`, all distinct, is equal iff it is one index twice, under == and under
// != where the type has it (codec configurations have not).
template <typename Objects>
void expectEqualIffSameIndex(const Objects& objects) {
    for (size_t i = 0; i < objects.size(); ++i) {
        for (size_t j = 0; j < objects.size(); ++j) {
            EXPECT_EQ(i == j, objects[i] == objects[j]) << i << " == " << j;
            if constexpr (!std::is_base_of_v<rune::CodecConfig, typename Objects::value_type>) {
                EXPECT_EQ(i != j, objects[i] != objects[j]) << i << " != " << j;
            }
        }
    }
}

// `copy` is `source`: equal, and printing the same where the type prints (a stream only prints).
template <typename T, typename U>
void expectSame(const T& source, const U& copy) {
    if constexpr (!std::is_same_v<T, rune::StreamConfig>) {
        EXPECT_TRUE(source == copy);
    }
    if constexpr (std::is_same_v<T, rune::StreamConfig> ||
                  std::is_base_of_v<rune::CodecConfig, T>) {
        EXPECT_EQ(source.toString(), copy.toString());
    }
}

// A copy, an assignment over `other`, a self-assignment and a clone are all `source`, which should
// hold every field away from its default and lists that are not empty.
template <typename T>
void expectCopiesEqual(const T& source, T other) {
    expectSame(source, T(source));
    other = source;
    expectSame(source, other);
    other = static_cast<const T&>(other);
    expectSame(source, other);
    if constexpr (std::is_base_of_v<rune::CodecConfig, T> ||
                  std::is_base_of_v<rune::CodecCapabilities, T>) {
        expectSame(source, *std::unique_ptr<std::remove_pointer_t<decltype(source.clone())>>(
                               source.clone()));
    }
}

}  // namespace testing
}  // namespace velmora

#endif  // VELMORA_TESTS_VALUE_CHECKS_H
