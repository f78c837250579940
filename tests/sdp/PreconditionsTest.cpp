#include <velmora/rune/sdp/Session.h>

#include "SdpTestSupport.h"

#include <algorithm>
#include <sstream>

using namespace velmora::testing;

namespace {

using sdp::Strength;

// An AMR-WB offer whose precondition lines, from line 8 on, are rows.
std::string offerWith(const std::string& rows) {
    return offer({"m=audio 49170 RTP/AVP 97", "a=rtpmap:97 AMR-WB/16000/1"}) + rows +
           "a=sendrecv\r\n";
}

sdp::Session answerer(Direction status, Strength strength) {
    sdp::Session session(anyAmr(), "192.0.2.10", 49152, sdp::Origin{"-", 1, 1});
    EXPECT_TRUE(session.setQosStatus(status).isSuccess());
    EXPECT_TRUE(session.setQosStrength(strength).isSuccess());
    return session;
}

struct AnswerCase {
    std::string title, offered, answered;
    // This side's.
    Direction status;
    Strength strength;
    bool met;
};

// The index of word in words, as the enums number their values.
template <size_t N>
int indexOf(const char* const (&words)[N], const std::string& word) {
    return static_cast<int>(std::find(words, words + N, word) - words);
}

// The cases of tests/sdp/data/precondition-answers.txt.
std::vector<AnswerCase> answerCases() {
    static const char* const kStatuses[] = {"none", "send", "recv", "sendrecv"};
    static const char* const kStrengths[] = {"none", "optional", "mandatory"};
    std::vector<AnswerCase> cases;
    std::istringstream lines(dataText("precondition-answers.txt", "\n"));
    bool answered = false;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string mark, status, strength, met;
        if (line.compare(0, 2, "> ") == 0) {
            cases.push_back({line.substr(2), "", "", kInactive, Strength::None, false});
            answered = false;
        } else if (line[0] == '=' && words >> mark >> status >> strength >> met) {
            cases.back().status = static_cast<Direction>(indexOf(kStatuses, status));
            cases.back().strength = static_cast<Strength>(indexOf(kStrengths, strength));
            cases.back().met = met == "met";
            answered = true;
        } else if (!cases.empty()) {
            (answered ? cases.back().answered : cases.back().offered) += line + "\r\n";
        }
    }
    return cases;
}

TEST(PreconditionsTest, AnswersTheOfferedRows) {
    for (const AnswerCase& c : answerCases()) {
        SCOPED_TRACE(c.title);
        // The answer is the one of the offer without preconditions, with the rows before the
        // direction.
        sdp::Session plain = answerer(kInactive, Strength::None);
        StreamConfig stream;
        std::string expected;
        ASSERT_TRUE(plain.answerOffer(offerWith(""), stream, expected).isSuccess());
        expected.insert(expected.find("a=sendrecv\r\n"), c.answered);
        sdp::Session session = answerer(c.status, c.strength);
        std::string answer;
        ASSERT_TRUE(session.answerOffer(offerWith(c.offered), stream, answer).isSuccess());
        EXPECT_EQ(expected, answer);
        std::string rows;
        for (const auto& row : session.preconditions().rows()) rows += row.toString() + "\r\n";
        EXPECT_EQ(c.answered, rows);
        EXPECT_EQ(c.met, session.preconditions().met());
        expectOthersReadAlike(answer);
    }
}

TEST(PreconditionsTest, RefusesRowsItCannotReadOrMeet) {
    for (const Case& c : dataCases("precondition-refusals.txt")) {
        sdp::Session session = answerer(kInactive, Strength::None);
        StreamConfig stream;
        std::string answer = "untouched";
        EXPECT_EQ(c.expected, session.answerOffer(c.text, stream, answer).format());
        EXPECT_EQ("untouched", answer);
    }
}

TEST(PreconditionsTest, AcceptingRefusesAnAnswerRowItCannotRead) {
    sdp::Session caller(anyAmr(), "192.0.2.20", 40000, sdp::Origin{"-", 5, 1});
    std::string offer, answer;
    StreamConfig stream;
    ASSERT_TRUE(caller.createOffer(offer).isSuccess());
    ASSERT_TRUE(answerer(kInactive, Strength::None).answerOffer(offer, stream, answer).isSuccess());
    answer.insert(answer.find("a=sendrecv"), "a=curr:qos local maybe\r\n");
    StreamConfig untouched;
    EXPECT_EQ(refusal("Invalid Param (Code 1002): Bad precondition", answer, 16, "answer "),
              caller.acceptAnswer(answer, untouched).format());
    EXPECT_EQ(StreamConfig().toString(), untouched.toString());
}

TEST(PreconditionsTest, SectionsWithPortZeroCarryNone) {
    const std::string text =
        offerWith("") + sdpText({"m=audio 0 RTP/AVP 97", "a=curr:qos local", "a=des:foo"});
    sdp::Session session = answerer(kInactive, Strength::Mandatory);
    StreamConfig stream;
    std::string answer;
    EXPECT_EQ("Success", session.answerOffer(text, stream, answer).format());
    EXPECT_TRUE(session.preconditions().rows().empty());
}

TEST(PreconditionsTest, MetWhenEveryMandatoryRowIsCovered) {
    using Row = sdp::Preconditions::Row;
    using Kind = sdp::Preconditions::Kind;
    using Status = sdp::Preconditions::StatusType;
    const Row wanted{Kind::Desired, "qos", Strength::Mandatory, Status::Local, kSendRecv};
    const struct {
        std::vector<Row> rows;
        bool met;
    } cases[] = {
        {{}, true},
        {{wanted}, false},
        {{wanted, {Kind::Current, "qos", Strength::None, Status::Local, kSendOnly}}, false},
        {{wanted, {Kind::Current, "qos", Strength::None, Status::Remote, kSendRecv}}, false},
        {{wanted, {Kind::Current, "foo", Strength::None, Status::Local, kSendRecv}}, false},
        {{wanted, {Kind::Current, "qos", Strength::None, Status::Local, kSendRecv}}, true},
        {{{Kind::Desired, "qos", Strength::Optional, Status::Local, kSendRecv}}, true},
    };
    for (const auto& c : cases) {
        sdp::Preconditions preconditions;
        for (const Row& row : c.rows) preconditions.add(row);
        EXPECT_EQ(c.met, preconditions.met()) << c.rows.size();
    }
}

// TS 24.229 section 5.1.3: both sides desire their own segment; the INVITE's offer and answer
// leave it unmet, the UPDATE that reports the caller's reservation and its answer meet it, and
// the hold re-offer after it keeps the current status.
TEST(PreconditionsTest, CallSetUpWithReservationsThenHold) {
    sdp::Session caller(anyAmr(), "192.0.2.20", 40000, sdp::Origin{"-", 5, 1});
    sdp::Session callee = answerer(kInactive, Strength::Mandatory);
    ASSERT_TRUE(caller.setQosStrength(Strength::Mandatory).isSuccess());
    std::string offer, answer;
    StreamConfig stream;
    const struct {
        const char* offer;
        const char* answer;
        // Set before the offer, and before the answer.
        Direction callerStatus;
        Direction calleeStatus;
        bool met;
    } steps[] = {
        {"qos-invite-offer.sdp", "qos-invite-answer.sdp", kInactive, kInactive, false},
        {"qos-update-offer.sdp", "qos-update-answer.sdp", kSendRecv, kSendRecv, true},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.offer);
        ASSERT_TRUE(caller.setQosStatus(step.callerStatus).isSuccess());
        ASSERT_EQ("Success", caller.createOffer(offer).format());
        EXPECT_EQ(dataText(step.offer), offer);
        ASSERT_TRUE(callee.setQosStatus(step.calleeStatus).isSuccess());
        ASSERT_EQ("Success", callee.answerOffer(offer, stream, answer).format());
        EXPECT_EQ(dataText(step.answer), answer);
        ASSERT_EQ("Success", caller.acceptAnswer(answer, stream).format());
        EXPECT_EQ(step.met, callee.preconditions().met());
        EXPECT_EQ(step.met, caller.preconditions().met());
        expectOthersReadAlike(offer);
        expectOthersReadAlike(answer);
    }
    // Both sides see the same rows from their own side, restored too.
    for (const sdp::Role role : {sdp::Role::Offerer, sdp::Role::Answerer}) {
        sdp::Session restored = answerer(kInactive, Strength::None);
        ASSERT_TRUE(sdp::Session::restore(anyAmr(), offer, answer, role, restored).isSuccess());
        EXPECT_EQ(role == sdp::Role::Offerer ? caller.preconditions() : callee.preconditions(),
                  restored.preconditions());
    }
    ASSERT_TRUE(caller.setLocalDirection(StreamConfig::DirectionSendOnly).isSuccess());
    ASSERT_EQ("Success", caller.createOffer(offer).format());
    EXPECT_EQ(dataText("qos-hold-offer.sdp"), offer);
    expectOthersReadAlike(offer);
}

TEST(PreconditionsTest, LocalStateTakesItsValuesOnly) {
    sdp::Session session = answerer(kInactive, Strength::None);
    EXPECT_EQ("Invalid Param (Code 1002): Invalid direction : 4",
              session.setQosStatus(static_cast<Direction>(4)).format());
    EXPECT_EQ("Invalid Param (Code 1002): Invalid strength : 3",
              session.setQosStrength(Strength::Failure).format());
}

TEST(PreconditionsTest, RowWritesWhatItHolds) {
    using Row = sdp::Preconditions::Row;
    using Kind = sdp::Preconditions::Kind;
    using StatusType = sdp::Preconditions::StatusType;
    const struct {
        Row row;
        std::string line;
    } cases[] = {
        {{Kind::Desired, "qos", Strength::Unknown, StatusType::Remote, kSendRecv},
         "a=des:qos unknown remote sendrecv"},
        {{Kind::Confirmed, "qos", Strength::None, StatusType::E2e, kSendOnly},
         "a=conf:qos e2e send"},
        {{Kind::Current, "foo", Strength::None, StatusType::Local, kInactive},
         "a=curr:foo local none"},
        {{Kind::Current, "q\x01s", Strength::None, StatusType::Local, kInactive},
         "a=curr:q\\x01s local none"},
        {{Kind::Desired, "qos", static_cast<Strength>(5), StatusType::Local, kSendRecv},
         "a=des:qos ? local sendrecv"},
        {{Kind::Current, "qos", Strength::None, static_cast<StatusType>(3), kInactive},
         "a=curr:qos ? none"},
        {{Kind::Current, "qos", Strength::None, StatusType::Local, static_cast<Direction>(4)},
         "a=curr:qos local ?"},
        {{static_cast<Kind>(3), "qos", Strength::None, StatusType::Local, kInactive},
         "a=?:qos local none"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.line, row.row.toString());
    }
}

}  // namespace
