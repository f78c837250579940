// Reads its input as a sequence of public operations on the model's value types and checks, after
// every step, what a client relies on: a refused setter leaves the object as it was, a copy
// compares equal to its source and prints the same text, check() gives the same result twice, and
// each operation has its documented outcome. The documented abort paths are never taken: the
// preferred AMR rate is not asked of a narrow-band configuration holding rate 8, no null codec is
// handed to a list, and no codec is built with an invalid id or band (the constructors that could
// are protected). Base-class assignment is only made between codecs of one kind: across kinds it
// would give an AMR object the DTMF id, which the model leaves to its caller (checkCodecId).
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>

#include "Require.h"

#include <arpa/inet.h>
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

using velmora::rune::AmrCodecCapabilities;
using velmora::rune::AmrCodecConfig;
using velmora::rune::AmrRate;
using velmora::rune::BandType;
using velmora::rune::BandTypeNb;
using velmora::rune::CodecCapabilities;
using velmora::rune::CodecConfig;
using velmora::rune::CodecIdAmr;
using velmora::rune::CodecIdDtmf;
using velmora::rune::Dtmf;
using velmora::rune::DtmfCodecCapabilities;
using velmora::rune::DtmfCodecConfig;
using velmora::rune::ModeChangeCapability;
using velmora::rune::ModeChangePeriod;
using velmora::rune::RtcpConfig;
using velmora::rune::RtpProfile;
using velmora::rune::StreamCapabilities;
using velmora::rune::StreamConfig;
using velmora::utilities::result::Result;

constexpr size_t kSlots = 2;
constexpr size_t kMaxSteps = 128;
// Longer merged chains only cost time.
constexpr size_t kMaxChainedText = 4096;

// Everything an operation may touch; two objects of each kind, so that copies and comparisons
// have a partner.
struct World {
    std::array<StreamConfig, kSlots> streams;
    std::array<StreamCapabilities, kSlots> streamCaps;
    std::array<AmrCodecConfig, kSlots> amrs;
    std::array<DtmfCodecConfig, kSlots> dtmfs;
    std::array<AmrCodecCapabilities, kSlots> amrCaps;
    std::array<DtmfCodecCapabilities, kSlots> dtmfCaps;
    // A list of the caller's own: refused codecs stay the fuzzer's, so nothing leaks here.
    StreamConfig::CodecConfigList list;
    CodecConfig::Result codecResult = CodecConfig::Result::success();
    CodecCapabilities::Result capsResult = CodecCapabilities::Result::success();
    StreamConfig::Result streamResult = StreamConfig::Result::success();
};

class Input {
  public:
    Input(const uint8_t* data, size_t size) : mData(data, size) {}

    bool more() { return mData.remaining_bytes() > 0; }
    size_t below(size_t count) { return mData.ConsumeIntegralInRange<size_t>(0, count - 1); }
    size_t slot() { return below(kSlots); }
    bool flag() { return mData.ConsumeBool(); }

    // Mostly the values the model tests against, sometimes anything.
    int32_t number() {
        static const int32_t kInteresting[] = {
            -10, -1, 0,   1,    2,    3,     4,     7,     8,     9,       20,
            98,  99, 240, 1023, 1024, 49150, 65534, 65535, 65536, INT_MIN, INT_MAX};
        switch (mData.ConsumeIntegralInRange<int>(0, 2)) {
            case 0:
                return kInteresting[below(sizeof(kInteresting) / sizeof(kInteresting[0]))];
            case 1:
                return mData.ConsumeIntegralInRange<int32_t>(-3, 10);
            default:
                return mData.ConsumeIntegral<int32_t>();
        }
    }
    unsigned unsignedNumber() { return static_cast<unsigned>(number()); }

    std::string address() {
        static const char* const kAddresses[] = {
            "127.0.0.1",        "192.0.2.7", "::1",     "2001:db8::1",
            "::ffff:192.0.2.1", "999.1.1.1", "",        "1.2.3",
            "fe80::1%eth0",     "1.2.3.4 ",  "0.0.0.0", "::"};
        if (flag()) {
            return kAddresses[below(sizeof(kAddresses) / sizeof(kAddresses[0]))];
        }
        return mData.ConsumeRandomLengthString(48);
    }

    // Built by the constructor or by the setters, which must agree.
    RtcpConfig rtcp() {
        const unsigned interval = unsignedNumber();
        const unsigned rr = unsignedNumber();
        const unsigned rs = unsignedNumber();
        const unsigned as = unsignedNumber();
        const bool reducedSize = flag();
        const RtcpConfig built(interval, rr, rs, as, reducedSize);
        RtcpConfig set = RtcpConfig::disabledRtcpConfig;
        set.setInterval(interval);
        set.setRr(rr);
        set.setRs(rs);
        set.setAs(as);
        set.setReducedSizeMode(reducedSize);
        REQUIRE(built == set && !(built != set));
        REQUIRE(built.getInterval() == interval && built.getRr() == rr && built.getRs() == rs &&
                built.getAs() == as && built.isReducedSizeMode() == reducedSize);
        return flag() ? built : set;
    }

    char character() { return mData.ConsumeIntegral<char>(); }

  private:
    FuzzedDataProvider mData;
};

// ---- Independent descriptions of each object, read through the getters only.

std::string describe(const RtcpConfig& rtcp) {
    std::ostringstream out;
    out << rtcp.getInterval() << ',' << rtcp.getRr() << ',' << rtcp.getRs() << ',' << rtcp.getAs()
        << ',' << rtcp.isReducedSizeMode();
    return out.str();
}

std::string describe(const CodecConfig& codec) {
    std::ostringstream out;
    out << codec.getCodecId() << ',' << codec.getBandType() << ',' << codec.getPayloadType() << ','
        << codec.getPacketTime() << ',' << codec.getMaxPacketTime();
    if (const auto* amr = dynamic_cast<const AmrCodecConfig*>(&codec)) {
        out << ';' << amr->isOctetAlignModeEnabled() << amr->isDTXModeEnabled()
            << amr->isRdcyModeEnabled() << ',' << amr->getMaxRdcy() << ','
            << amr->isCrcModeEnabled() << amr->isRobustSortingModeEnabled()
            << amr->isInterleavingModeEnabled() << amr->isModeChangeNeighborEnabled() << ','
            << amr->getModeChangePeriod() << ';';
        for (AmrRate rate : amr->getSupportedAmrRates()) {
            out << rate << ' ';
        }
    }
    return out.str();
}

// The stored maximum redundancy, which the getter hides while redundancy is off.
int storedMaxRdcy(const AmrCodecCapabilities& caps) {
    AmrCodecCapabilities probe(caps);
    probe.setRdcyModeSupport(true);
    return probe.getMaxSupportedRdcy();
}

std::string describe(const CodecCapabilities& caps) {
    std::ostringstream out;
    out << caps.getCodecId() << ',' << caps.getBandType() << ',' << caps.getPacketTime() << ','
        << caps.getMaxPacketTime() << ',' << caps.getChannelCount();
    if (const auto* amr = dynamic_cast<const AmrCodecCapabilities*>(&caps)) {
        out << ';' << amr->isOctetAlignModeRequired() << amr->isDTXModeSupported()
            << amr->isRdcyModeSupported() << ',' << storedMaxRdcy(*amr) << ','
            << amr->isRateAdaptationModeSupported() << ',' << amr->getModeChangePeriod() << ','
            << amr->getModeChangeCapability() << ',' << amr->isModeChangeNeighborRequired()
            << amr->isCrcModeSupported() << amr->isRobustSortingModeSupported()
            << amr->isInterleavingModeSupported() << ';';
        for (unsigned index = 0; index < amr->getSupportedAmrRateCount(); ++index) {
            out << amr->getSupportedAmrRate(index) << ' ';
        }
    }
    return out.str();
}

std::string describe(const StreamConfig& stream) {
    std::ostringstream out;
    const StreamConfig::PdpContext pdp = stream.getPdpContext();
    out << stream.getRemoteIp() << '|' << stream.getRemoteRtpPort() << '|' << stream.isUplinkMuted()
        << '|' << stream.getDirection() << '|' << stream.isRtcpEnabled() << '|'
        << describe(stream.getRtcpConfig()) << '|' << stream.isHeld() << '|'
        << stream.getRtpProfile() << '|' << pdp.primaryCID << ',' << pdp.secondaryCID;
    for (unsigned index = 0; index < stream.getUplinkCodecCount(); ++index) {
        out << "|up " << describe(*stream.getUplinkCodec(index));
    }
    for (unsigned index = 0; index < stream.getDownlinkCodecCount(); ++index) {
        out << "|down " << describe(*stream.getDownlinkCodec(index));
    }
    return out.str();
}

std::string describe(const StreamCapabilities& caps) {
    std::ostringstream out;
    out << describe(caps.getRTCPcaps()) << '|';
    for (RtpProfile profile : caps.getSupportedRtpProfiles()) {
        out << profile << ' ';
    }
    for (unsigned index = 0; index < caps.getCodecCapabilityCount(); ++index) {
        out << '|' << describe(*caps.getCodecCapabilities(index));
    }
    return out.str();
}

// ---- What the documentation says the model answers.

bool expectedEqual(const CodecConfig& lhs, const CodecConfig& rhs) {
    if (lhs.getCodecId() != rhs.getCodecId() || lhs.getBandType() != rhs.getBandType() ||
        lhs.getPayloadType() != rhs.getPayloadType()) {
        return false;
    }
    const auto* left = dynamic_cast<const AmrCodecConfig*>(&lhs);
    const auto* right = dynamic_cast<const AmrCodecConfig*>(&rhs);
    if (left == nullptr || right == nullptr) {
        return true;
    }
    // Packet times, mode-change options and the rates take no part.
    return left->isOctetAlignModeEnabled() == right->isOctetAlignModeEnabled() &&
           left->isDTXModeEnabled() == right->isDTXModeEnabled() &&
           left->isRdcyModeEnabled() == right->isRdcyModeEnabled() &&
           left->getMaxRdcy() == right->getMaxRdcy() &&
           left->isCrcModeEnabled() == right->isCrcModeEnabled() &&
           left->isRobustSortingModeEnabled() == right->isRobustSortingModeEnabled() &&
           left->isInterleavingModeEnabled() == right->isInterleavingModeEnabled();
}

// Every field of capabilities takes part.
bool expectedEqual(const CodecCapabilities& lhs, const CodecCapabilities& rhs) {
    return describe(lhs) == describe(rhs);
}

bool expectedEqual(const StreamCapabilities& lhs, const StreamCapabilities& rhs) {
    return describe(lhs) == describe(rhs);
}

bool expectedValid(const CodecConfig& codec) {
    if (codec.getPacketTime() == 0 || codec.getMaxPacketTime() == 0 ||
        codec.getPacketTime() > codec.getMaxPacketTime()) {
        return false;
    }
    const auto* amr = dynamic_cast<const AmrCodecConfig*>(&codec);
    if (amr == nullptr) {
        return true;
    }
    return amr->getAmrRateCount() > 0 &&
           !(amr->getBandType() == BandTypeNb && amr->containAmrRate(velmora::rune::AmrRate8));
}

bool expectedValid(const StreamConfig& stream) {
    const unsigned direction = static_cast<unsigned>(stream.getDirection());
    const bool uplink = direction == 1 || direction == 3;
    const bool downlink = direction == 2 || direction == 3;
    if ((uplink && stream.getUplinkCodecCount() == 0) ||
        (downlink && stream.getDownlinkCodecCount() == 0)) {
        return false;
    }
    for (unsigned index = 0; index < stream.getUplinkCodecCount(); ++index) {
        if (!expectedValid(*stream.getUplinkCodec(index))) {
            return false;
        }
    }
    for (unsigned index = 0; index < stream.getDownlinkCodecCount(); ++index) {
        if (!expectedValid(*stream.getDownlinkCodec(index))) {
            return false;
        }
    }
    return true;
}

// The library's own ranking, most preferred first.
AmrRate expectedPreferredRate(const AmrCodecConfig& amr) {
    static const std::vector<int> kNarrow = {7, 4, 2, 0, 1, 3, 5, 6};
    static const std::vector<int> kWide = {2, 1, 0, 3, 4, 5, 6, 7, 8};
    const std::vector<int>& order = amr.getBandType() == BandTypeNb ? kNarrow : kWide;
    for (int rate : order) {
        if (amr.containAmrRate(static_cast<AmrRate>(rate))) {
            return static_cast<AmrRate>(rate);
        }
    }
    return velmora::rune::AmrRateNone;
}

bool isValidAddress(const std::string& text) {
    unsigned char buffer[16];
    return inet_pton(AF_INET, text.c_str(), buffer) == 1 ||
           inet_pton(AF_INET6, text.c_str(), buffer) == 1;
}

bool isValidPort(int64_t port) {
    return port >= 1024 && port <= 65535;
}

// What format() promises whatever the code's text: "Success" alone, else the code in its place
// and the chained failures last.
template <typename Trait>
bool formatsConsistently(const Result<Trait>& result) {
    const std::string text = result.format();
    if (result.isSuccess()) {
        return text == "Success";
    }
    const std::string code = " (Code " + std::to_string(static_cast<int>(result.mCode)) + ")";
    const size_t chained = text.size() - result.mChained.size();
    return text.size() >= result.mChained.size() &&
           text.compare(chained, std::string::npos, result.mChained) == 0 &&
           text.find(code) != std::string::npos;
}

template <typename Trait>
bool sameResult(const Result<Trait>& lhs, const Result<Trait>& rhs) {
    return lhs.mCode == rhs.mCode && lhs.mMessage == rhs.mMessage && lhs.mChained == rhs.mChained &&
           lhs.mContext == rhs.mContext;
}

// Merges an operation's result into the world's and checks what &= promises.
template <typename Trait>
void merge(Result<Trait>& merged, const Result<Trait>& result) {
    const Result<Trait> before = merged;
    merged &= result;
    if (before.isSuccess()) {
        REQUIRE(sameResult(merged, result));
    } else if (result.isSuccess()) {
        REQUIRE(sameResult(merged, before));
    } else {
        REQUIRE(merged.mCode == before.mCode && merged.mMessage == before.mMessage &&
                merged.mContext == before.mContext &&
                merged.mChained == before.mChained + " && " + result.format());
    }
    REQUIRE(formatsConsistently(merged));
    if (merged.mChained.size() > kMaxChainedText) {
        merged = Result<Trait>::success();
    }
}

// A validating setter either does what was asked or refuses with 1002, the given message, and
// no change at all.
template <typename Object, typename Trait>
void expectOutcome(const Object& object, const std::string& before, const Result<Trait>& result,
                   bool accepted, const std::string& message) {
    if (accepted) {
        REQUIRE(result.isSuccess());
        REQUIRE(result.format() == "Success");
    } else {
        REQUIRE(static_cast<int>(result.mCode) == 1002);
        REQUIRE(result.mMessage == message);
        REQUIRE(result.format() == "Invalid Param (Code 1002): " + message);
        REQUIRE(describe(object) == before);
    }
}

// ---- Invariants, checked for every object after every step.

template <typename Object>
void expectSelfAssignmentKeeps(Object& object) {
    const std::string before = describe(object);
    Object& alias = object;
    object = alias;
    REQUIRE(describe(object) == before);
}

void verifyCodec(const CodecConfig& codec) {
    const std::unique_ptr<CodecConfig> clone(codec.clone());
    REQUIRE(clone.get() != &codec);
    REQUIRE(describe(*clone) == describe(codec));
    REQUIRE(*clone == codec);
    REQUIRE(clone->toString() == codec.toString());
    const CodecConfig::Result first = codec.check();
    const CodecConfig::Result second = codec.check();
    REQUIRE(sameResult(first, second));
    REQUIRE(first.isSuccess() == expectedValid(codec));
    REQUIRE(formatsConsistently(first));
    REQUIRE(sameResult(clone->check(), first));
    REQUIRE(codec.toString().compare(0, 11, "    Codec: ") == 0);
    if (const auto* amr = dynamic_cast<const AmrCodecConfig*>(&codec)) {
        CodecConfig::checkCodecId(codec.getCodecId(), CodecIdAmr);
        REQUIRE(amr->getAmrRate(amr->getAmrRateCount()) == velmora::rune::AmrRateNone);
        // The one documented abort: a rate the band does not rank.
        if (!(amr->getBandType() == BandTypeNb && amr->containAmrRate(velmora::rune::AmrRate8))) {
            REQUIRE(amr->getPreferedAmrRate() == expectedPreferredRate(*amr));
        }
    } else {
        CodecConfig::checkCodecId(codec.getCodecId(), CodecIdDtmf);
    }
}

template <typename Codec>
void verifyCodecValue(Codec& codec) {
    const Codec copy(codec);
    REQUIRE(describe(copy) == describe(codec));
    REQUIRE(copy == codec);
    REQUIRE(copy.toString() == codec.toString());
    Codec assigned;
    assigned = codec;
    REQUIRE(describe(assigned) == describe(codec));
    expectSelfAssignmentKeeps(codec);
    verifyCodec(codec);
}

void verifyCapabilities(const CodecCapabilities& caps) {
    const std::unique_ptr<CodecCapabilities> clone(caps.clone());
    REQUIRE(clone.get() != &caps);
    REQUIRE(describe(*clone) == describe(caps));
    REQUIRE(*clone == caps && !(*clone != caps));
    if (const auto* amr = dynamic_cast<const AmrCodecCapabilities*>(&caps)) {
        REQUIRE(amr->getSupportedAmrRate(amr->getSupportedAmrRateCount()) ==
                velmora::rune::AmrRateNone);
        REQUIRE(amr->getMaxSupportedRdcy() ==
                (amr->isRdcyModeSupported() ? storedMaxRdcy(*amr) : -1));
    }
}

template <typename Caps>
void verifyCapabilitiesValue(Caps& caps) {
    const Caps copy(caps);
    REQUIRE(describe(copy) == describe(caps));
    REQUIRE(copy == caps);
    Caps assigned;
    assigned = caps;
    REQUIRE(describe(assigned) == describe(caps));
    expectSelfAssignmentKeeps(caps);
    verifyCapabilities(caps);
}

void verifyCodecLists(const StreamConfig& lhs, const StreamConfig& rhs) {
    for (unsigned index = 0; index < lhs.getUplinkCodecCount(); ++index) {
        REQUIRE(lhs.getUplinkCodec(index) != rhs.getUplinkCodec(index));
        REQUIRE(*lhs.getUplinkCodec(index) == *rhs.getUplinkCodec(index));
    }
    for (unsigned index = 0; index < lhs.getDownlinkCodecCount(); ++index) {
        REQUIRE(lhs.getDownlinkCodec(index) != rhs.getDownlinkCodec(index));
        REQUIRE(*lhs.getDownlinkCodec(index) == *rhs.getDownlinkCodec(index));
    }
}

void verifyStream(StreamConfig& stream) {
    const std::string text = stream.toString();
    const StreamConfig copy(stream);
    REQUIRE(describe(copy) == describe(stream));
    REQUIRE(copy.toString() == text);
    verifyCodecLists(copy, stream);
    StreamConfig assigned;
    assigned = stream;
    REQUIRE(describe(assigned) == describe(stream));
    REQUIRE(assigned.toString() == text);
    expectSelfAssignmentKeeps(stream);

    const StreamConfig::Result first = stream.check();
    const StreamConfig::Result second = stream.check();
    REQUIRE(sameResult(first, second));
    REQUIRE(first.isSuccess() == expectedValid(stream));
    REQUIRE(formatsConsistently(first));
    REQUIRE(sameResult(copy.check(), first));

    std::ostringstream remote;
    remote << "  Remote: " << stream.getRemoteIp() << ":" << stream.getRemoteRtpPort() << "\n";
    REQUIRE(text.compare(0, remote.str().size(), remote.str()) == 0);
    const int64_t rtcpPort = static_cast<int64_t>(stream.getRemoteRtpPort()) + 1;
    REQUIRE(stream.getRemoteRtcpPort() == (isValidPort(rtcpPort) ? rtcpPort : -1));
    const unsigned direction = static_cast<unsigned>(stream.getDirection());
    REQUIRE(direction < 4);
    REQUIRE(stream.hasUplink() == ((direction & 1u) != 0));
    REQUIRE(stream.hasDownlink() == ((direction & 2u) != 0));
    REQUIRE(stream.getUplinkCodec(stream.getUplinkCodecCount()) == nullptr);
    REQUIRE(stream.getDownlinkCodec(stream.getDownlinkCodecCount()) == nullptr);
    for (unsigned index = 0; index < stream.getUplinkCodecCount(); ++index) {
        verifyCodec(*stream.getUplinkCodec(index));
    }
    for (unsigned index = 0; index < stream.getDownlinkCodecCount(); ++index) {
        verifyCodec(*stream.getDownlinkCodec(index));
    }
}

void verifyStreamCaps(StreamCapabilities& caps) {
    const StreamCapabilities copy(caps);
    REQUIRE(describe(copy) == describe(caps));
    REQUIRE(copy == caps && !(copy != caps));
    for (unsigned index = 0; index < caps.getCodecCapabilityCount(); ++index) {
        REQUIRE(copy.getCodecCapabilities(index) != caps.getCodecCapabilities(index));
        verifyCapabilities(*caps.getCodecCapabilities(index));
    }
    StreamCapabilities assigned;
    assigned = caps;
    REQUIRE(describe(assigned) == describe(caps));
    expectSelfAssignmentKeeps(caps);
    REQUIRE(caps.getCodecCapabilities(caps.getCodecCapabilityCount()) == nullptr);
    const std::set<RtpProfile>& profiles = caps.getSupportedRtpProfiles();
    REQUIRE(std::is_sorted(profiles.begin(), profiles.end()));
}

void verifyList(const StreamConfig::CodecConfigList& list) {
    REQUIRE(list.get(list.count()) == nullptr);
    StreamConfig::CodecConfigList copy;
    copy.cloneContentFrom(list);
    REQUIRE(copy.count() == list.count());
    bool valid = true;
    for (unsigned index = 0; index < list.count(); ++index) {
        REQUIRE(copy.get(index) != list.get(index));
        REQUIRE(*copy.get(index) == *list.get(index));
        valid = valid && expectedValid(*list.get(index));
    }
    const StreamConfig::Result result = StreamConfig::checkCodecs(list);
    REQUIRE(result.isSuccess() == valid);
    REQUIRE(sameResult(result, StreamConfig::checkCodecs(copy)));
}

void verifyWorld(World& world) {
    for (size_t slot = 0; slot < kSlots; ++slot) {
        verifyStream(world.streams[slot]);
        verifyStreamCaps(world.streamCaps[slot]);
        verifyCodecValue(world.amrs[slot]);
        verifyCodecValue(world.dtmfs[slot]);
        verifyCapabilitiesValue(world.amrCaps[slot]);
        verifyCapabilitiesValue(world.dtmfCaps[slot]);
    }
    verifyList(world.list);
}

// ---- Operations. Each reads its arguments from the input and checks its own outcome.

const CodecConfig& pickCodec(World& world, Input& in) {
    if (in.flag()) {
        return world.amrs[in.slot()];
    }
    return world.dtmfs[in.slot()];
}

const CodecCapabilities& pickCaps(World& world, Input& in) {
    if (in.flag()) {
        return world.amrCaps[in.slot()];
    }
    return world.dtmfCaps[in.slot()];
}

// One direction of a stream, through its public wrappers.
struct Link {
    StreamConfig::Result (StreamConfig::*add)(const CodecConfig&);
    unsigned int (StreamConfig::*count)() const;
    CodecConfig* (StreamConfig::*get)(unsigned int) const;
    void (StreamConfig::*clear)();
};

const Link kLinks[] = {
    {&StreamConfig::addUplinkCodec, &StreamConfig::getUplinkCodecCount,
     &StreamConfig::getUplinkCodec, &StreamConfig::clearUplinkCodecs},
    {&StreamConfig::addDownlinkCodec, &StreamConfig::getDownlinkCodecCount,
     &StreamConfig::getDownlinkCodec, &StreamConfig::clearDownlinkCodecs},
};

template <typename Object>
struct Flag {
    void (Object::*set)(bool);
    bool (Object::*get)() const;
};

const Flag<AmrCodecConfig> kAmrFlags[] = {
    {&AmrCodecConfig::setOctetAlignMode, &AmrCodecConfig::isOctetAlignModeEnabled},
    {&AmrCodecConfig::setDTXMode, &AmrCodecConfig::isDTXModeEnabled},
    {&AmrCodecConfig::setRdcyMode, &AmrCodecConfig::isRdcyModeEnabled},
    {&AmrCodecConfig::setCrcMode, &AmrCodecConfig::isCrcModeEnabled},
    {&AmrCodecConfig::setRobustSortingMode, &AmrCodecConfig::isRobustSortingModeEnabled},
    {&AmrCodecConfig::setInterleavingMode, &AmrCodecConfig::isInterleavingModeEnabled},
    {&AmrCodecConfig::setModeChangeNeighbor, &AmrCodecConfig::isModeChangeNeighborEnabled},
};

const Flag<AmrCodecCapabilities> kAmrCapsFlags[] = {
    {&AmrCodecCapabilities::setOctetAlignModeRequired,
     &AmrCodecCapabilities::isOctetAlignModeRequired},
    {&AmrCodecCapabilities::setDTXModeSupport, &AmrCodecCapabilities::isDTXModeSupported},
    {&AmrCodecCapabilities::setRdcyModeSupport, &AmrCodecCapabilities::isRdcyModeSupported},
    {&AmrCodecCapabilities::setModeChangeNeighborRequired,
     &AmrCodecCapabilities::isModeChangeNeighborRequired},
    {&AmrCodecCapabilities::setRateAdaptationModeSupport,
     &AmrCodecCapabilities::isRateAdaptationModeSupported},
    {&AmrCodecCapabilities::setCrcModeSupport, &AmrCodecCapabilities::isCrcModeSupported},
    {&AmrCodecCapabilities::setRobustSortingModeSupport,
     &AmrCodecCapabilities::isRobustSortingModeSupported},
    {&AmrCodecCapabilities::setInterleavingModeSupport,
     &AmrCodecCapabilities::isInterleavingModeSupported},
};

template <typename Object, size_t N>
void setFlag(Object& object, const Flag<Object> (&flags)[N], Input& in) {
    const Flag<Object>& flag = flags[in.below(N)];
    const bool value = in.flag();
    (object.*flag.set)(value);
    REQUIRE((object.*flag.get)() == value);
}

// The base setters that store without validation, for configurations and capabilities alike.
template <typename Codec>
void setPacketTimes(Codec& codec, Input& in) {
    const unsigned packetTime = in.unsignedNumber();
    const unsigned maxPacketTime = in.unsignedNumber();
    codec.setPacketTime(packetTime);
    codec.setMaxPacketTime(maxPacketTime);
    REQUIRE(codec.getPacketTime() == packetTime && codec.getMaxPacketTime() == maxPacketTime);
}

void setCodecBand(World& world, CodecConfig& codec, Input& in) {
    const int32_t band = in.number();
    const std::string before = describe(codec);
    const CodecConfig::Result result = codec.setBandType(static_cast<BandType>(band));
    expectOutcome(codec, before, result, band == 0 || band == 1,
                  "Bad band type: " + std::to_string(band));
    if (result.isSuccess()) {
        REQUIRE(codec.getBandType() == band);
    }
    merge(world.codecResult, result);
}

// Assignment and copy construction, between two slots or of a slot onto itself.
template <typename Object>
void assignAcross(std::array<Object, kSlots>& objects, Input& in) {
    const Object& source = objects[in.slot()];
    Object& target = objects[in.slot()];
    if (in.flag()) {
        target = source;
    } else {
        target = Object(source);
    }
    REQUIRE(describe(target) == describe(source));
}

// copyFrom of the stream types copies everything.
template <typename Object>
void copyAcross(std::array<Object, kSlots>& objects, Input& in) {
    const Object& source = objects[in.slot()];
    Object& target = objects[in.slot()];
    target.copyFrom(source);
    REQUIRE(describe(target) == describe(source));
}

// The base assignment, which copies the base fields only.
void assignBase(AmrCodecConfig& target, const AmrCodecConfig& source) {
    static_cast<CodecConfig&>(target) = source;
}

void assignBase(AmrCodecCapabilities& target, const AmrCodecCapabilities& source) {
    static_cast<CodecCapabilities&>(target) = source;
}

// copyFrom of the AMR types copies the AMR fields only and leaves the base alone; the base
// assignment does the opposite.
template <typename Object>
void copyPartsAcross(std::array<Object, kSlots>& objects, Input& in) {
    const Object& source = objects[in.slot()];
    Object& target = objects[in.slot()];
    Object expected(source);
    const bool amrFields = in.flag();
    if (amrFields) {
        assignBase(expected, target);
        target.copyFrom(source);
    } else {
        expected.copyFrom(target);
        assignBase(target, source);
    }
    REQUIRE(describe(target) == describe(expected));
}

struct Operation {
    const char* name;
    void (*run)(World&, Input&);
};

const Operation kOperations[] = {
    // StreamConfig
    {"stream.setDirection",
     [](World& w, Input& in) {
         StreamConfig& stream = w.streams[in.slot()];
         const int32_t direction = in.number();
         const std::string before = describe(stream);
         const auto result = stream.setDirection(static_cast<StreamConfig::Direction>(direction));
         expectOutcome(stream, before, result, direction >= 0 && direction <= 3,
                       "Invalid direction : " + std::to_string(direction));
         REQUIRE(result.isFailure() || stream.getDirection() == direction);
         merge(w.streamResult, result);
     }},
    {"stream.setRemoteRtpPort",
     [](World& w, Input& in) {
         StreamConfig& stream = w.streams[in.slot()];
         const int32_t port = in.number();
         const std::string before = describe(stream);
         const auto result = stream.setRemoteRtpPort(port);
         expectOutcome(stream, before, result, isValidPort(port),
                       "Invalid socket port: " + std::to_string(port));
         REQUIRE(result.isFailure() || stream.getRemoteRtpPort() == port);
         merge(w.streamResult, result);
     }},
    {"stream.setRemoteIp",
     [](World& w, Input& in) {
         StreamConfig& stream = w.streams[in.slot()];
         const std::string address = in.address();
         const std::string before = describe(stream);
         const auto result = stream.setRemoteIp(address);
         expectOutcome(stream, before, result, isValidAddress(address),
                       "Invalid internet address : " + address);
         REQUIRE(result.isFailure() || stream.getRemoteIp() == address);
         merge(w.streamResult, result);
     }},
    {"stream.plainSetters",
     [](World& w, Input& in) {
         StreamConfig& stream = w.streams[in.slot()];
         const bool muted = in.flag();
         const bool rtcp = in.flag();
         const bool held = in.flag();
         const auto profile = static_cast<RtpProfile>(in.number());
         StreamConfig::PdpContext pdp;
         pdp.primaryCID = in.number();
         pdp.secondaryCID = in.number();
         const RtcpConfig rtcpConfig = in.rtcp();
         stream.muteUplink(muted);
         stream.setRtcp(rtcp);
         stream.setHoldState(held);
         stream.setRtpProfile(profile);
         stream.setPdpContext(pdp);
         stream.setRtcpConfig(rtcpConfig);
         REQUIRE(stream.isUplinkMuted() == muted && stream.isRtcpEnabled() == rtcp &&
                 stream.isHeld() == held && stream.getRtpProfile() == profile);
         REQUIRE(stream.getPdpContext().primaryCID == pdp.primaryCID &&
                 stream.getPdpContext().secondaryCID == pdp.secondaryCID);
         REQUIRE(stream.getRtcpConfig() == rtcpConfig);
     }},
    {"stream.addCodec",
     [](World& w, Input& in) {
         StreamConfig& stream = w.streams[in.slot()];
         const Link& link = kLinks[in.below(2)];
         const CodecConfig& codec = pickCodec(w, in);
         const unsigned count = (stream.*link.count)();
         bool clash = false;
         for (unsigned index = 0; index < count; ++index) {
             clash = clash || (stream.*link.get)(index)->getPayloadType() == codec.getPayloadType();
         }
         const std::string before = describe(stream);
         // A refused clone is kept on purpose by the library (suppressed by name for LSan).
         const auto result = (stream.*link.add)(codec);
         expectOutcome(stream, before, result, !clash,
                       "A codec with the same payload type " +
                           std::to_string(codec.getPayloadType()) + " is already present");
         if (result.isSuccess()) {
             REQUIRE((stream.*link.count)() == count + 1);
             const CodecConfig* added = (stream.*link.get)(count);
             REQUIRE(added != &codec && describe(*added) == describe(codec));
         }
         merge(w.streamResult, result);
     }},
    {"stream.clearCodecs",
     [](World& w, Input& in) {
         StreamConfig& stream = w.streams[in.slot()];
         const Link& link = kLinks[in.below(2)];
         (stream.*link.clear)();
         REQUIRE((stream.*link.count)() == 0 && (stream.*link.get)(0) == nullptr);
     }},
    {"stream.assign", [](World& w, Input& in) { assignAcross(w.streams, in); }},
    {"stream.copyFrom", [](World& w, Input& in) { copyAcross(w.streams, in); }},
    {"stream.getCodec",
     [](World& w, Input& in) {
         const StreamConfig& stream = w.streams[in.slot()];
         const Link& link = kLinks[in.below(2)];
         const unsigned index = in.unsignedNumber();
         REQUIRE(((stream.*link.get)(index) == nullptr) == (index >= (stream.*link.count)()));
     }},
    {"stream.check",
     [](World& w, Input& in) { merge(w.streamResult, w.streams[in.slot()].check()); }},

    // A codec list of the caller's own
    {"list.add",
     [](World& w, Input& in) {
         std::unique_ptr<CodecConfig> codec(pickCodec(w, in).clone());
         const unsigned count = w.list.count();
         bool clash = false;
         for (unsigned index = 0; index < count; ++index) {
             clash = clash || w.list.get(index)->getPayloadType() == codec->getPayloadType();
         }
         const auto result = w.list.add(codec.get());
         REQUIRE(result.isSuccess() == !clash);
         REQUIRE(!clash || result.mMessage == "A codec with the same payload type " +
                                                  std::to_string(codec->getPayloadType()) +
                                                  " is already present");
         REQUIRE(w.list.count() == (clash ? count : count + 1));
         if (result.isSuccess()) {
             REQUIRE(w.list.get(count) == codec.release());
         }
         merge(w.streamResult, result);
     }},
    {"list.addListedOrNull",
     [](World& w, Input& in) {
         const unsigned count = w.list.count();
         CodecConfig* listed = count == 0 ? nullptr : w.list.get(in.below(count));
         const auto result = w.list.add(listed);
         REQUIRE(result.mMessage == (listed == nullptr ? "Null pointer" : "Already present"));
         REQUIRE(w.list.count() == count);
         merge(w.streamResult, result);
     }},
    {"list.cloneContentFrom",
     [](World& w, Input& in) {
         StreamConfig::CodecConfigList& list = w.list;
         if (in.flag()) {
             const unsigned count = list.count();
             list.cloneContentFrom(list);
             REQUIRE(list.count() == count);
         } else {
             StreamConfig::CodecConfigList copy;
             copy.cloneContentFrom(list);
             list.clear();
             list.cloneContentFrom(copy);
             REQUIRE(list.count() == copy.count());
         }
     }},
    {"list.clear", [](World& w, Input&) { w.list.clear(); }},

    // StreamCapabilities
    {"streamCaps.addCodecCapabilities",
     [](World& w, Input& in) {
         StreamCapabilities& caps = w.streamCaps[in.slot()];
         const CodecCapabilities& codec = pickCaps(w, in);
         const unsigned count = caps.getCodecCapabilityCount();
         caps.addCodecCapabilities(codec);
         REQUIRE(caps.getCodecCapabilityCount() == count + 1);
         const CodecCapabilities* added = caps.getCodecCapabilities(count);
         REQUIRE(added != &codec && describe(*added) == describe(codec));
     }},
    {"streamCaps.getCodecCapabilities",
     [](World& w, Input& in) {
         const StreamCapabilities& caps = w.streamCaps[in.slot()];
         const unsigned index = in.unsignedNumber();
         REQUIRE((caps.getCodecCapabilities(index) == nullptr) ==
                 (index >= caps.getCodecCapabilityCount()));
     }},
    {"streamCaps.clearCodecCapabilities",
     [](World& w, Input& in) {
         StreamCapabilities& caps = w.streamCaps[in.slot()];
         caps.clearCodecCapabilities();
         REQUIRE(caps.getCodecCapabilityCount() == 0);
     }},
    {"streamCaps.setters",
     [](World& w, Input& in) {
         StreamCapabilities& caps = w.streamCaps[in.slot()];
         RtcpConfig rtcp = in.rtcp();
         const auto profile = static_cast<RtpProfile>(in.number());
         const size_t profiles = caps.getSupportedRtpProfiles().size();
         const bool known = caps.getSupportedRtpProfiles().count(profile) != 0;
         caps.setRtcpCaps(rtcp);
         caps.addRtpProfile(profile);
         REQUIRE(caps.getRTCPcaps() == rtcp && !(caps.getRTCPcaps() != rtcp));
         REQUIRE(caps.getSupportedRtpProfiles().size() == profiles + (known ? 0 : 1));
     }},
    {"streamCaps.assign", [](World& w, Input& in) { assignAcross(w.streamCaps, in); }},
    {"streamCaps.copyFrom", [](World& w, Input& in) { copyAcross(w.streamCaps, in); }},
    {"streamCaps.compare",
     [](World& w, Input& in) {
         const StreamCapabilities& lhs = w.streamCaps[in.slot()];
         const StreamCapabilities& rhs = w.streamCaps[in.slot()];
         REQUIRE((lhs == rhs) == expectedEqual(lhs, rhs));
         REQUIRE((lhs != rhs) == !(lhs == rhs));
     }},

    // AmrCodecConfig
    {"amr.setFlag", [](World& w, Input& in) { setFlag(w.amrs[in.slot()], kAmrFlags, in); }},
    {"amr.setNumbers",
     [](World& w, Input& in) {
         AmrCodecConfig& amr = w.amrs[in.slot()];
         const int maxRdcy = in.number();
         const auto period = static_cast<ModeChangePeriod>(in.number());
         const int payloadType = in.number();
         amr.setMaxRdcy(maxRdcy);
         amr.setModeChangePeriod(period);
         amr.setPayloadType(payloadType);
         REQUIRE(amr.getMaxRdcy() == maxRdcy && amr.getModeChangePeriod() == period &&
                 amr.getPayloadType() == payloadType);
     }},
    {"amr.setPacketTimes", [](World& w, Input& in) { setPacketTimes(w.amrs[in.slot()], in); }},
    {"amr.setBandType", [](World& w, Input& in) { setCodecBand(w, w.amrs[in.slot()], in); }},
    {"amr.addAmrRate",
     [](World& w, Input& in) {
         AmrCodecConfig& amr = w.amrs[in.slot()];
         const int32_t rate = in.number();
         const unsigned count = amr.getAmrRateCount();
         const bool listed = amr.containAmrRate(static_cast<AmrRate>(rate));
         const std::string before = describe(amr);
         const auto result = amr.addAmrRate(static_cast<AmrRate>(rate));
         expectOutcome(amr, before, result, rate >= 0 && rate <= 8,
                       "Bad amr rate: " + std::to_string(rate));
         if (result.isSuccess()) {
             REQUIRE(amr.containAmrRate(static_cast<AmrRate>(rate)));
             REQUIRE(amr.getAmrRateCount() == (listed ? count : count + 1));
             REQUIRE(listed || amr.getAmrRate(count) == rate);
         }
         merge(w.codecResult, result);
     }},
    {"amr.clearAmrRateVector",
     [](World& w, Input& in) {
         AmrCodecConfig& amr = w.amrs[in.slot()];
         amr.clearAmrRateVector();
         REQUIRE(amr.getAmrRateCount() == 0 && amr.getSupportedAmrRates().empty());
         REQUIRE(amr.getPreferedAmrRate() == velmora::rune::AmrRateNone);
     }},
    {"amr.getAmrRate",
     [](World& w, Input& in) {
         const AmrCodecConfig& amr = w.amrs[in.slot()];
         const unsigned index = in.unsignedNumber();
         const std::vector<AmrRate>& rates = amr.getSupportedAmrRates();
         REQUIRE(amr.getAmrRate(index) ==
                 (index < rates.size() ? rates[index] : velmora::rune::AmrRateNone));
     }},
    {"amr.assign", [](World& w, Input& in) { assignAcross(w.amrs, in); }},
    {"amr.copyParts", [](World& w, Input& in) { copyPartsAcross(w.amrs, in); }},
    {"amr.check", [](World& w, Input& in) { merge(w.codecResult, w.amrs[in.slot()].check()); }},

    // DtmfCodecConfig
    {"dtmf.setPayloadType",
     [](World& w, Input& in) {
         DtmfCodecConfig& dtmf = w.dtmfs[in.slot()];
         const int payloadType = in.number();
         dtmf.setPayloadType(payloadType);
         REQUIRE(dtmf.getPayloadType() == payloadType);
     }},
    {"dtmf.setPacketTimes", [](World& w, Input& in) { setPacketTimes(w.dtmfs[in.slot()], in); }},
    {"dtmf.setBandType", [](World& w, Input& in) { setCodecBand(w, w.dtmfs[in.slot()], in); }},
    {"dtmf.assign", [](World& w, Input& in) { assignAcross(w.dtmfs, in); }},
    {"dtmf.copyFrom", [](World& w, Input& in) { copyAcross(w.dtmfs, in); }},
    {"dtmf.check", [](World& w, Input& in) { merge(w.codecResult, w.dtmfs[in.slot()].check()); }},

    // Comparing any two codec configurations, of either kind
    {"codec.compare",
     [](World& w, Input& in) {
         const CodecConfig& lhs = pickCodec(w, in);
         const CodecConfig& rhs = pickCodec(w, in);
         REQUIRE((lhs == rhs) == expectedEqual(lhs, rhs));
     }},

    // AmrCodecCapabilities
    {"amrCaps.setFlag",
     [](World& w, Input& in) { setFlag(w.amrCaps[in.slot()], kAmrCapsFlags, in); }},
    {"amrCaps.setMaxSupportedRdcy",
     [](World& w, Input& in) {
         AmrCodecCapabilities& caps = w.amrCaps[in.slot()];
         const int maxRdcy = in.number();
         caps.setMaxSupportedRdcy(maxRdcy);
         REQUIRE(storedMaxRdcy(caps) == maxRdcy);
     }},
    {"amrCaps.setModeChange",
     [](World& w, Input& in) {
         AmrCodecCapabilities& caps = w.amrCaps[in.slot()];
         const int32_t value = in.number();
         const std::string before = describe(caps);
         const bool valid = value == 0 || value == 1;
         if (in.flag()) {
             const auto result = caps.setModeChangePeriod(static_cast<ModeChangePeriod>(value));
             expectOutcome(caps, before, result, valid,
                           "Bad mode change period: " + std::to_string(value));
             REQUIRE(result.isFailure() || caps.getModeChangePeriod() == value);
             merge(w.capsResult, result);
         } else {
             const auto result =
                 caps.setModeChangeCapability(static_cast<ModeChangeCapability>(value));
             expectOutcome(caps, before, result, valid,
                           "Bad mode change capability: " + std::to_string(value));
             REQUIRE(result.isFailure() || caps.getModeChangeCapability() == value);
             merge(w.capsResult, result);
         }
     }},
    {"amrCaps.addSupportedAmrRate",
     [](World& w, Input& in) {
         AmrCodecCapabilities& caps = w.amrCaps[in.slot()];
         const int32_t rate = in.number();
         const std::string before = describe(caps);
         const auto result = caps.addSupportedAmrRate(static_cast<AmrRate>(rate));
         expectOutcome(caps, before, result, rate >= 0 && rate <= 8,
                       "Bad amr rate: " + std::to_string(rate));
         merge(w.capsResult, result);
     }},
    {"amrCaps.clearSupportedAmrRateVector",
     [](World& w, Input& in) {
         AmrCodecCapabilities& caps = w.amrCaps[in.slot()];
         caps.clearSupportedAmrRateVector();
         REQUIRE(caps.getSupportedAmrRateCount() == 0);
     }},
    {"amrCaps.assign", [](World& w, Input& in) { assignAcross(w.amrCaps, in); }},
    {"amrCaps.copyParts", [](World& w, Input& in) { copyPartsAcross(w.amrCaps, in); }},

    // Base setters of the capabilities, which store anything
    {"caps.setBase",
     [](World& w, Input& in) {
         CodecCapabilities& caps = in.flag() ? static_cast<CodecCapabilities&>(w.amrCaps[in.slot()])
                                             : w.dtmfCaps[in.slot()];
         const auto band = static_cast<BandType>(in.number());
         const unsigned channels = in.unsignedNumber();
         caps.setBandType(band);
         caps.setChannelCount(channels);
         setPacketTimes(caps, in);
         REQUIRE(caps.getBandType() == band && caps.getChannelCount() == channels);
     }},
    {"dtmfCaps.assign",
     [](World& w, Input& in) {
         DtmfCodecCapabilities& target = w.dtmfCaps[in.slot()];
         const DtmfCodecCapabilities& source = w.dtmfCaps[in.slot()];
         if (in.flag()) {
             target = source;
         } else {
             target = DtmfCodecCapabilities(source);
         }
         REQUIRE(describe(target) == describe(source));
     }},
    {"caps.compare",
     [](World& w, Input& in) {
         const CodecCapabilities& lhs = pickCaps(w, in);
         const CodecCapabilities& rhs = pickCaps(w, in);
         REQUIRE((lhs == rhs) == expectedEqual(lhs, rhs));
         REQUIRE((lhs != rhs) == !(lhs == rhs));
     }},

    // Results
    {"result.selfMerge",
     [](World& w, Input&) {
         const StreamConfig::Result copy = w.streamResult;
         merge(w.streamResult, copy);
     }},

    // DTMF key map
    {"dtmf.getDtmfKeyFromChar",
     [](World&, Input& in) {
         static const std::string kKeys = "0123456789*#ABCD";
         const char c = in.character();
         const size_t expected = kKeys.find(c);
         Dtmf::Key key = static_cast<Dtmf::Key>(-7);
         const bool found = Dtmf::getDtmfKeyFromChar(c, key);
         REQUIRE(found == (expected != std::string::npos));
         REQUIRE(found ? key == static_cast<int>(expected) : key == -7);
     }},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    // MODEL_FUZZER_TRACE=1 lists the operations of an input, to read a finding.
    static const bool trace = std::getenv("MODEL_FUZZER_TRACE") != nullptr;
    Input in(data, size);
    World world;
    constexpr size_t kCount = sizeof(kOperations) / sizeof(kOperations[0]);
    for (size_t step = 0; step < kMaxSteps && in.more(); ++step) {
        const Operation& operation = kOperations[in.below(kCount)];
        if (trace) {
            std::fprintf(stderr, "step %zu: %s\n", step, operation.name);
        }
        operation.run(world, in);
        verifyWorld(world);
    }
    return 0;
}
