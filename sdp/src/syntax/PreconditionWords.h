// The words of the RFC 3312 precondition attributes, a=curr, a=des and a=conf, indexed by the
// enumerations that hold them, so that reading and writing share one spelling.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_PRECONDITION_WORDS_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_PRECONDITION_WORDS_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include "syntax/SdpLine.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>
#include <utility>

namespace velmora {
namespace rune {
namespace sdp {

// The type of the usual precondition rows, quality of service.
constexpr std::string_view kQosType = "qos";
// By Preconditions::Kind.
constexpr std::array<std::string_view, 3> kPreconditionKindWords = {"curr", "des", "conf"};
// By Strength.
constexpr std::array<std::string_view, 5> kStrengthWords = {"none", "optional", "mandatory",
                                                            "failure", "unknown"};
// By Preconditions::StatusType.
constexpr std::array<std::string_view, 3> kStatusTypeWords = {"e2e", "local", "remote"};
// By StreamConfig::Direction: none, send, recv, sendrecv.
constexpr std::array<std::string_view, 4> kDirectionTagWords = {"none", "send", "recv", "sendrecv"};
static_assert(StreamConfig::DirectionInactive == 0 && StreamConfig::DirectionSendOnly == 1 &&
                  StreamConfig::DirectionReceiveOnly == 2 && StreamConfig::DirectionFullDuplex == 3,
              "the direction tags are indexed by the model's directions");

// The word of value; "?" for a value outside the enumeration.
template <size_t N, typename Enum>
std::string_view wordOf(const std::array<std::string_view, N>& words, Enum value) {
    const auto index = static_cast<size_t>(value);
    return index < N ? words[index] : std::string_view("?");
}

// Whether the Size bytes at a and b are equal. A comparison of 1, 2, 4 or 8 bytes is one load and
// one compare; a memcmp of another size is a call.
template <size_t Size>
bool equalBytes(const char* a, const char* b) {
    if constexpr (Size == 0) {
        return true;
    } else {
        constexpr size_t kPart = Size >= 8 ? 8 : Size >= 4 ? 4 : Size >= 2 ? 2 : 1;
        return std::memcmp(a, b, kPart) == 0 && equalBytes<Size - kPart>(a + kPart, b + kPart);
    }
}

// Whether text starts with the Size bytes of word, compared as written.
template <size_t Size>
bool startsWithBytes(std::string_view text, const char* word) {
    return text.size() >= Size && equalBytes<Size>(text.data(), word);
}

inline bool isQosType(std::string_view type) {
    return type.size() == kQosType.size() &&
           startsWithBytes<kQosType.size()>(type, kQosType.data());
}

// Whether text starts with the word of Words at Index, as written, followed by a blank or the end.
template <const auto& Words, size_t Index>
bool startsWithWord(std::string_view text) {
    constexpr std::string_view word = Words[Index];
    return (text.size() == word.size() ||
            (text.size() > word.size() && isBlank(text[word.size()]))) &&
           startsWithBytes<word.size()>(text, word.data());
}

// takeWord where the word is not written as the table writes it.
template <size_t N>
bool takeWordIgnoringCase(const std::array<std::string_view, N>& words, std::string_view text,
                          size_t& index) {
    for (size_t i = 0; i < N; ++i) {
        const std::string_view word = words[i];
        if (text.size() >= word.size() &&
            (text.size() == word.size() || isBlank(text[word.size()])) &&
            equalsIgnoreCase(text.substr(0, word.size()), word)) {
            index = i;
            return true;
        }
    }
    return false;
}

// takeWord, over the words at Indexes.
template <const auto& Words, size_t... Indexes>
bool takeWordOf(std::string_view& text, size_t& index, std::index_sequence<Indexes...> /*all*/) {
    // Words are mostly written in lower case; no two words start the same text.
    const bool found = ((startsWithWord<Words, Indexes>(text) && (index = Indexes, true)) || ...) ||
                       takeWordIgnoringCase(Words, text, index);
    if (found) {
        text = trimStart(text.substr(Words[index].size()));
    }
    return found;
}

// The index of the word of Words that text starts with, compared without case (RFC 5234 strings),
// followed by a blank or the end; the word and the blanks after it are taken off text. False when
// it is none.
template <const auto& Words>
bool takeWord(std::string_view& text, size_t& index) {
    return takeWordOf<Words>(text, index, std::make_index_sequence<Words.size()>());
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_PRECONDITION_WORDS_H
