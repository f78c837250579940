// The words of the RFC 3312 precondition attributes, a=curr, a=des and a=conf, indexed by the
// enumerations that hold them, so that reading and writing share one spelling.
#ifndef VELMORA_RUNE_SDP_SRC_SYNTAX_PRECONDITION_WORDS_H
#define VELMORA_RUNE_SDP_SRC_SYNTAX_PRECONDITION_WORDS_H

#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Session.h>

#include "syntax/SdpLine.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

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

// The index of the word of words that text starts with, compared without case (RFC 5234
// strings), followed by a blank or the end; the word and the blanks after it are taken off text.
// False when it is none.
template <size_t N>
bool takeWord(const std::array<std::string_view, N>& words, std::string_view& text, size_t& index) {
    for (size_t i = 0; i < N; ++i) {
        const std::string_view word = words[i];
        // The byte after the word rules out most words without a comparison.
        if (text.size() >= word.size() &&
            (text.size() == word.size() || isBlank(text[word.size()])) &&
            equalsIgnoreCase(text.substr(0, word.size()), word)) {
            index = i;
            text = trimStart(text.substr(word.size()));
            return true;
        }
    }
    return false;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#endif  // VELMORA_RUNE_SDP_SRC_SYNTAX_PRECONDITION_WORDS_H
