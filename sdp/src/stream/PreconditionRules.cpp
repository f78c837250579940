#include "stream/PreconditionRules.h"

#include "stream/StreamBuilder.h"
#include "syntax/PreconditionWords.h"

#include <algorithm>
#include <string_view>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

using Kind = Preconditions::Kind;
using Row = PreconditionRow;
using StatusType = Preconditions::StatusType;

Row qosRow(Kind kind, Strength strength, StatusType statusType, StreamConfig::Direction direction) {
    return Row{kind, kQosType, strength, statusType, direction};
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
// segment. A confirmation is no such row.
bool hasQosSegments(const PreconditionRows& rows) {
    return std::any_of(rows.begin(), rows.end(), [](const Row& row) {
        return row.kind != Kind::Confirmed && isQosType(row.type) &&
               row.statusType != StatusType::E2e;
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

// What this side says of its own segment in an answer.
struct OwnSegment {
    // The directions it has reserved.
    StreamConfig::Direction status;
    // What it desires.
    Strength strength;
    // Whether the offer has the segmented model, where this side reports its segment.
    bool reported;
};

// Of rows kept in a body's order, from at on: the end of those of that kind and status type.
const Row* endOf(const Row* at, const Row* end, Kind kind, StatusType statusType) {
    while (at != end && at->kind == kind && at->statusType == statusType) {
        ++at;
    }
    return at;
}

// Answers the offered rows from begin to end, all of one status type, which is statusType seen
// from here. This side's qos rows desire its strength at least; where it reports its segment, its
// a=curr qos row is its status. Whether this side has a qos row among them.
bool answerRows(const Row* begin, const Row* end, StatusType statusType, const OwnSegment& own,
                PreconditionRows& answer) {
    bool hasOwnQos = false;
    for (const Row* offered = begin; offered != end; ++offered) {
        Row row = *offered;
        row.statusType = statusType;
        row.direction = mirror(row.direction);
        if (statusType == StatusType::Local && isQosType(row.type)) {
            hasOwnQos = true;
            if (row.kind == Kind::Desired) {
                // Never lower than offered; failure and unknown, last in Strength, stay.
                row.strength = std::max(row.strength, own.strength);
            } else if (own.reported) {
                row = qosRow(Kind::Current, Strength::None, StatusType::Local, own.status);
            }
        }
        answer.add(row);
    }
    return hasOwnQos;
}

// This side's qos row of kind, where it reports its segment and the offer has none.
void addOwnQosRow(Kind kind, const OwnSegment& own, PreconditionRows& answer) {
    if (kind == Kind::Current) {
        answer.add(qosRow(Kind::Current, Strength::None, StatusType::Local, own.status));
    } else if (own.strength != Strength::None) {
        answer.add(qosRow(Kind::Desired, own.strength, StatusType::Local,
                          StreamConfig::DirectionFullDuplex));
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
    const OwnSegment own{status, strength, hasQosSegments(offered)};
    // The offered rows of a kind come local, remote, then e2e. Answered, the remote ones go
    // first: each row then goes after the last, without a search. A confirmation asked of this
    // side is no row of the answer's.
    const Row* at = offered.begin();
    for (const Kind kind : {Kind::Current, Kind::Desired}) {
        const Row* const remote = endOf(at, offered.end(), kind, StatusType::Local);
        const Row* const e2e = endOf(remote, offered.end(), kind, StatusType::Remote);
        const Row* const next = endOf(e2e, offered.end(), kind, StatusType::E2e);
        if (!answerRows(remote, e2e, StatusType::Local, own, answer) && own.reported) {
            addOwnQosRow(kind, own, answer);
        }
        answerRows(at, remote, StatusType::Remote, own, answer);
        answerRows(e2e, next, StatusType::E2e, own, answer);
        at = next;
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
