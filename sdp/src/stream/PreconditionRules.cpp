#include "stream/PreconditionRules.h"

#include "stream/StreamBuilder.h"

#include <algorithm>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

using Kind = Preconditions::Kind;
using Row = PreconditionRow;
using StatusType = Preconditions::StatusType;

constexpr std::string_view kQos = "qos";

Row qosRow(Kind kind, Strength strength, StatusType statusType, StreamConfig::Direction direction) {
    return Row{kind, kQos, strength, statusType, direction};
}

// Of a public row or a view.
template <typename AnyRow>
AnyRow mirrored(AnyRow row) {
    row.statusType = row.statusType == StatusType::Local    ? StatusType::Remote
                     : row.statusType == StatusType::Remote ? StatusType::Local
                                                            : row.statusType;
    row.direction = mirror(row.direction);
    return row;
}

// Whether the rows have a qos row of the segmented model, where this side reports its own
// segment.
bool hasQosSegments(const PreconditionRows& rows) {
    return std::any_of(rows.begin(), rows.end(), [](const Row& row) {
        return row.type == kQos && row.statusType != StatusType::E2e;
    });
}

// The status this side has reserved is its a=curr local row.
void setLocalStatus(PreconditionRows& rows, StreamConfig::Direction status) {
    rows.add(qosRow(Kind::Current, Strength::None, StatusType::Local, status));
}

// RFC 3312 section 6: a mandatory remote segment that is not reserved yet asks for confirmation.
void askConfirmation(PreconditionRows& answer) {
    // The a=conf rows go after every other row: the rows before them keep their places.
    const size_t count = answer.size();
    for (size_t i = 0; i < count; ++i) {
        const Row& row = answer[i];
        if (row.kind != Kind::Desired || row.strength != Strength::Mandatory ||
            row.statusType != StatusType::Remote) {
            continue;
        }
        const Row* current = answer.find(Kind::Current, row.type, StatusType::Remote);
        if (current == nullptr || !covers(current->direction, row.direction)) {
            answer.add(
                Row{Kind::Confirmed, row.type, Strength::None, StatusType::Remote, row.direction});
        }
    }
}

}  // namespace

bool covers(StreamConfig::Direction have, StreamConfig::Direction want) {
    static_assert(StreamConfig::DirectionFullDuplex ==
                      (StreamConfig::DirectionSendOnly | StreamConfig::DirectionReceiveOnly),
                  "a direction is its send and receive bits");
    return (static_cast<int>(want) & ~static_cast<int>(have)) == 0;
}

Preconditions mirrorPreconditions(const Preconditions& preconditions) {
    Preconditions seen;
    for (const Preconditions::Row& row : preconditions.rows()) {
        seen.add(mirrored(row));
    }
    return seen;
}

void answerPreconditions(const PreconditionRows& offered, StreamConfig::Direction status,
                         Strength strength, PreconditionRows& answer) {
    for (const Row& row : offered) {
        // A confirmation asked of this side is no row of the answer's.
        if (row.kind == Kind::Confirmed) {
            continue;
        }
        Row answered = mirrored(row);
        if (answered.kind == Kind::Desired) {
            const bool own = answered.type == kQos && answered.statusType == StatusType::Local;
            // Never lower than offered; failure and unknown, last in Strength, stay.
            answered.strength = std::max(answered.strength, own ? strength : Strength::None);
        }
        answer.add(answered);
    }
    if (hasQosSegments(answer)) {
        setLocalStatus(answer, status);
        if (strength != Strength::None &&
            answer.find(Kind::Desired, kQos, StatusType::Local) == nullptr) {
            answer.add(qosRow(Kind::Desired, strength, StatusType::Local,
                              StreamConfig::DirectionFullDuplex));
        }
    }
    askConfirmation(answer);
}

void offerPreconditions(const Preconditions& agreed, StreamConfig::Direction status,
                        Strength strength, PreconditionRows& offer) {
    if (agreed.rows().empty()) {
        if (strength == Strength::None) {
            return;
        }
        const StreamConfig::Direction both = StreamConfig::DirectionFullDuplex;
        offer.add(qosRow(Kind::Current, Strength::None, StatusType::Remote,
                         StreamConfig::DirectionInactive));
        offer.add(qosRow(Kind::Desired, strength, StatusType::Local, both));
        offer.add(qosRow(Kind::Desired, Strength::Optional, StatusType::Remote, both));
        setLocalStatus(offer, status);
        return;
    }
    for (const Preconditions::Row& row : agreed.rows()) {
        if (row.kind != Kind::Confirmed) {
            offer.add(viewOf(row));
        }
    }
    if (hasQosSegments(offer)) {
        setLocalStatus(offer, status);
    }
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
