// The SDP side of one dialog (RFC 3264 section 8): the first offer or answer and every re-offer
// after it (hold and resume, a refresh, a new address after a handover, the UPDATE after a QoS
// reservation), with one o= line whose version counts, the agreed payload types kept, and the
// direction both sides' holds leave. A value type: copyable, no threads, no I/O. Every operation
// leaves its output arguments, and the session, as they were when it refuses.
//
//   sdp::Session session(localCaps, "192.0.2.10", 49152, sdp::Origin{"-", sessionId, 1});
//   std::string offer;
//   sdp::Result result = session.createOffer(offer);
//   ... send offer, receive answerText ...
//   result = session.acceptAnswer(answerText, stream);
//   session.setLocalDirection(StreamConfig::DirectionSendOnly);  // hold
//   result = session.createOffer(offer);                         // the hold re-offer
//
// Session is defined in sdp/src/session/Session.cpp, Preconditions in
// sdp/src/session/Preconditions.cpp.
#ifndef VELMORA_RUNE_SDP_SESSION_H
#define VELMORA_RUNE_SDP_SESSION_H

#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>
#include <velmora/rune/sdp/Sdp.h>

#include <cstdint>
#include <string>
#include <vector>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {
namespace sdp {

// Which side of an exchange this side was.
enum class Role { Offerer, Answerer };

// The strength of a desired precondition (RFC 3312 section 5). Failure and Unknown are what an
// answer may say about a precondition it cannot meet or does not know, kept as they are; this
// side desires None, Optional or Mandatory. Stronger values come later.
enum class Strength { None, Optional, Mandatory, Failure, Unknown };

// The RFC 3312 precondition rows of a stream (a=curr, a=des, a=conf), seen from this side:
// "local" is this side's segment. Rows are kept in the order a body writes them: curr, then des,
// then conf; within each, local, then remote, then e2e.
class Preconditions {
  public:
    // a=curr, a=des, a=conf.
    enum class Kind { Current, Desired, Confirmed };
    enum class StatusType { E2e, Local, Remote };

    struct Row {
        Kind kind = Kind::Current;
        // The precondition type as written ("qos"); other types are kept as text.
        std::string type = "qos";
        // For a=des only; None elsewhere.
        Strength strength = Strength::None;
        StatusType statusType = StatusType::Local;
        // none, send, recv, sendrecv: DirectionInactive, DirectionSendOnly, DirectionReceiveOnly,
        // DirectionFullDuplex.
        StreamConfig::Direction direction = StreamConfig::DirectionInactive;

        // Every field.
        bool operator==(const Row& other) const;
        bool operator!=(const Row& other) const { return !(*this == other); }
        // As a body writes it, without the line end: "a=des:qos mandatory local sendrecv".
        std::string toString() const;
    };

    const std::vector<Row>& rows() const { return mRows; }
    // The row of that kind, type and status type; null when there is none. There is one at most.
    const Row* find(Kind kind, const std::string& type, StatusType statusType) const;
    // Puts row in its place in the order above, replacing the row of the same kind, type and
    // status type.
    void add(const Row& row);
    // True when every mandatory a=des row's direction is covered by the a=curr row of the same
    // type and status type; true without rows.
    bool met() const;

    // The rows.
    bool operator==(const Preconditions& other) const { return mRows == other.mRows; }
    bool operator!=(const Preconditions& other) const { return !(*this == other); }

  private:
    std::vector<Row> mRows;
};

class Session {
  public:
    // A dialog this side takes part in; nothing sent yet. Values are checked where they are used,
    // as the free functions check them.
    Session(const StreamCapabilities& local, const std::string& localIp, int localPort,
            const Origin& origin);

    // The first offer (as sdp::createOffer writes it, with the local direction) or a re-offer of
    // the agreed exchange. 1003 "Offer outstanding" while this side's offer is outstanding.
    // Precondition rows before the direction: after an exchange that agreed some, its a=curr and
    // a=des rows with the local a=curr from the QoS status (an UPDATE after a reservation); else,
    // when this side desires a strength, the four rows of a first offer (a=curr local from the
    // status, a=curr remote none, a=des local with the strength, a=des optional remote).
    Result createOffer(std::string& offer);
    // The answer to this side's outstanding offer (as sdp::acceptAnswer); on success the exchange
    // is agreed, with the answer's precondition rows (1002 "Bad precondition" for a line without
    // the RFC 3312 form, context the line). 1003 "No offer outstanding" without one.
    Result acceptAnswer(const std::string& answer, StreamConfig& negotiated);
    // The peer refused the outstanding offer (SIP 488, 491): the last agreed exchange stays in
    // force; versions keep counting, since the cancelled offer was sent.
    void cancelOffer();
    // A first offer (as sdp::answerOffer) or a re-offer; on success the exchange is agreed.
    // 1003 "Offer outstanding" while this side's offer is outstanding, "Offer removes a media
    // section" for a re-offer with fewer m= lines than the agreed exchange. The offer's
    // precondition rows are answered (RFC 3312 section 5.2) from the QoS status and strength, and
    // refused as sdp::answerOffer refuses them.
    Result answerOffer(const std::string& offer, StreamConfig& negotiated, std::string& answer);

    // Where this side receives from now on (after a handover); the model's checks.
    Result setLocalEndpoint(const std::string& localIp, int localPort);
    // DirectionFullDuplex (the default; resume), DirectionSendOnly (hold), DirectionReceiveOnly
    // or DirectionInactive; the model's check of the value.
    Result setLocalDirection(StreamConfig::Direction direction);
    // The directions in which the local access network has reserved resources (RFC 3312):
    // DirectionInactive (the default, written "none"), DirectionSendOnly, DirectionReceiveOnly or
    // DirectionFullDuplex; the model's check of the value.
    Result setQosStatus(StreamConfig::Direction local);
    // The strength this side desires for its own segment: Strength::None (the default: no
    // precondition of its own), Optional or Mandatory; 1002 "Invalid strength : " + the value
    // for the others.
    Result setQosStrength(Strength strength);

    // A session whose last agreed exchange is offer and answer, role saying which side of it this
    // side was; the local endpoint, origin and version come from the description this side sent,
    // the local direction is full duplex. Both texts are read and refused as acceptAnswer reads
    // an exchange; then 1002 "Bad origin line" when the description this side sent has no o= line
    // of the form "o=<username> <sess-id> <sess-version> <nettype> <addrtype> <address>".
    static Result restore(const StreamCapabilities& local, const std::string& offer,
                          const std::string& answer, Role role, Session& session);

    // The precondition rows of the last agreed exchange, seen from this side.
    const Preconditions& preconditions() const;

  private:
    // Hidden: the library's own steps, not part of its interface.
    // Gives body the o= line of the dialog, its version counted, and keeps it as the last sent.
    __attribute__((visibility("hidden"))) void send(std::string& body);
    // The exchange of offer and answer is agreed, on the stream in mAgreedStream.
    __attribute__((visibility("hidden"))) void agree(const std::string& offer,
                                                     const std::string& answer, Role role,
                                                     Preconditions preconditions);
    bool hasAgreed() const { return !mAgreedOffer.empty(); }

    StreamCapabilities mLocal;
    std::string mLocalIp;
    int mLocalPort;
    StreamConfig::Direction mLocalDirection = StreamConfig::DirectionFullDuplex;
    // What the first description sent writes.
    Origin mOrigin;
    // Whether a description was sent yet; the version of the next one counts from mOrigin's.
    bool mSent = false;
    // The o= line of the first description sent, in parts; its version the last one sent.
    std::string mOriginHead;
    uint64_t mVersion = 0;
    std::string mOriginTail;
    // The last description sent, for the version rule and the re-offer's rejected sections.
    std::string mLastSent;
    // The outstanding offer this side sent; empty when none is.
    std::string mOutstanding;
    // The last agreed exchange; empty before the first.
    std::string mAgreedOffer;
    std::string mAgreedAnswer;
    Role mAgreedRole = Role::Offerer;
    // The stream of the agreed exchange, its section's index and the exchange's m= lines.
    StreamConfig mAgreedStream;
    unsigned mAgreedIndex = 0;
    unsigned mAgreedSections = 0;
    Preconditions mPreconditions;
    StreamConfig::Direction mQosStatus = StreamConfig::DirectionInactive;
    Strength mQosStrength = Strength::None;
};

}  // namespace sdp
}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_SDP_SESSION_H
