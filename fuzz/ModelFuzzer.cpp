// Reads its input as a sequence of setter calls on one object of each value type of the model and,
// after each call, checks what holds for every value whatever the fields: a refused setter changes
// neither the text nor the equality of its object, copies, assignments, self-assignments and
// clones equal their source and print the same, check() gives the same twice and on a copy, and a
// configuration that passes check() prefers one of its own rates. The sanitizers do the rest.
// The abort paths are left alone: the preferred rate is asked only after a successful check().
#include <velmora/rune/Amr.h>
#include <velmora/rune/Dtmf.h>
#include <velmora/rune/StreamCapabilities.h>
#include <velmora/rune/StreamConfig.h>

#include "Require.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace velmora::rune;

// Small values, the range of ports and payload types, or anything.
int32_t number(FuzzedDataProvider& in) {
    switch (in.ConsumeIntegralInRange(0, 2)) {
        case 0:
            return in.ConsumeIntegralInRange(-2, 10);
        case 1:
            return in.ConsumeIntegralInRange(0, 70000);
        default:
            return in.ConsumeIntegral<int32_t>();
    }
}

std::string address(FuzzedDataProvider& in) {
    static const char* const kAddresses[] = {"192.0.2.7", "2001:db8::1", "999.1.1.1", ""};
    return in.ConsumeBool() ? kAddresses[in.ConsumeIntegralInRange(0, 3)]
                            : in.ConsumeRandomLengthString(40);
}

RtpProfile profile(FuzzedDataProvider& in) {
    return in.ConsumeBool() ? RtpProfileAvp : RtpProfileAvpf;
}

unsigned count(FuzzedDataProvider& in) {
    return static_cast<unsigned>(number(in));
}

RtcpConfig rtcp(FuzzedDataProvider& in) {
    return RtcpConfig{count(in), count(in), count(in), count(in), in.ConsumeBool()};
}

// Equal and printing the same, as far as the type tells: a stream has no equality, capabilities
// have no text (their equality takes every field).
template <typename T, typename U>
bool same(const T& lhs, const U& rhs) {
    if constexpr (std::is_same_v<T, StreamConfig>) {
        return lhs.toString() == rhs.toString();
    } else if constexpr (std::is_base_of_v<CodecConfig, T>) {
        return lhs == rhs && lhs.toString() == rhs.toString();
    } else {
        return lhs == rhs;
    }
}

template <typename T>
void checkCopies(const T& object) {
    T copy(object);
    REQUIRE(same(copy, object));
    T assigned;
    assigned = object;
    REQUIRE(same(assigned, object));
    copy = static_cast<const T&>(copy);
    REQUIRE(same(copy, object));
    if constexpr (std::is_base_of_v<CodecConfig, T> || std::is_base_of_v<CodecCapabilities, T>) {
        const std::unique_ptr<std::remove_pointer_t<decltype(object.clone())>> clone(
            object.clone());
        REQUIRE(same(object, *clone));
    }
}

// check() changes nothing: the same answer twice and on a copy. An AMR codec that passes it
// prefers one of its own rates.
void checkCheck(const CodecConfig& codec) {
    const std::string checked = codec.check().format();
    const std::unique_ptr<CodecConfig> clone(codec.clone());
    REQUIRE(codec.check().format() == checked && clone->check().format() == checked);
    const auto* amr = dynamic_cast<const AmrCodecConfig*>(&codec);
    if (amr != nullptr && checked == "Success") {
        const std::vector<AmrRate>& rates = amr->getSupportedAmrRates();
        REQUIRE(std::count(rates.begin(), rates.end(), amr->getPreferedAmrRate()) == 1);
    }
}

void checkCheck(const StreamConfig& stream) {
    const std::string checked = stream.check().format();
    REQUIRE(stream.check().format() == checked && StreamConfig(stream).check().format() == checked);
    for (unsigned int index = 0; checked == "Success" && index < stream.getUplinkCodecCount();)
        checkCheck(*stream.getUplinkCodec(index++));
    for (unsigned int index = 0; checked == "Success" && index < stream.getDownlinkCodecCount();)
        checkCheck(*stream.getDownlinkCodec(index++));
}

void checkCheck(const CodecCapabilities&) {}
void checkCheck(const StreamCapabilities&) {}

struct Objects {
    AmrCodecConfig amr;
    DtmfCodecConfig dtmf;
    AmrCodecCapabilities amrCaps;
    DtmfCodecCapabilities dtmfCaps;
    StreamConfig stream;
    StreamCapabilities streamCaps;
};

// A setter call with values from the input; false when the object refused it.
template <typename T>
using Change = bool (*)(T&, const Objects&, FuzzedDataProvider&);

const Change<CodecConfig> kCodecChanges[] = {
    [](auto& c, auto&, auto& in) { return c.setBandType(BandType(number(in))).isSuccess(); },
    [](auto& c, auto&, auto& in) { return c.setPayloadType(number(in)), true; },
    [](auto& c, auto&, auto& in) { return c.setPacketTime(count(in)), true; },
    [](auto& c, auto&, auto& in) { return c.setMaxPacketTime(count(in)), true; },
};

const Change<AmrCodecConfig> kAmrChanges[] = {
    [](auto& c, auto&, auto& in) { return c.setOctetAlignMode(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setDTXMode(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setRdcyMode(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setMaxRdcy(number(in)), true; },
    [](auto& c, auto&, auto& in) { return c.setCrcMode(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setRobustSortingMode(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setInterleavingMode(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setModeChangeNeighbor(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) {
        return c.setModeChangePeriod(ModeChangePeriod(in.ConsumeBool())), true;
    },
    [](auto& c, auto&, auto& in) { return c.addAmrRate(AmrRate(number(in))).isSuccess(); },
    [](auto& c, auto&, auto&) { return c.clearAmrRateVector(), true; },
};

const Change<CodecCapabilities> kCapsChanges[] = {
    [](auto& c, auto&, auto& in) { return c.setBandType(BandType(in.ConsumeBool())), true; },
    [](auto& c, auto&, auto& in) { return c.setPacketTime(count(in)), true; },
    [](auto& c, auto&, auto& in) { return c.setMaxPacketTime(count(in)), true; },
    [](auto& c, auto&, auto& in) { return c.setChannelCount(count(in)), true; },
};

const Change<AmrCodecCapabilities> kAmrCapsChanges[] = {
    [](auto& c, auto&, auto& in) { return c.setOctetAlignModeRequired(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setDTXModeSupport(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setRdcyModeSupport(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setMaxSupportedRdcy(number(in)), true; },
    [](auto& c, auto&, auto& in) {
        return c.setModeChangeNeighborRequired(in.ConsumeBool()), true;
    },
    [](auto& c, auto&, auto& in) { return c.setRateAdaptationModeSupport(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setCrcModeSupport(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setRobustSortingModeSupport(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) { return c.setInterleavingModeSupport(in.ConsumeBool()), true; },
    [](auto& c, auto&, auto& in) {
        return c.setModeChangePeriod(ModeChangePeriod(number(in))).isSuccess();
    },
    [](auto& c, auto&, auto& in) {
        return c.setModeChangeCapability(ModeChangeCapability(number(in))).isSuccess();
    },
    [](auto& c, auto&, auto& in) { return c.addSupportedAmrRate(AmrRate(number(in))).isSuccess(); },
    [](auto& c, auto&, auto&) { return c.clearSupportedAmrRateVector(), true; },
};

const CodecConfig& codec(const Objects& o, FuzzedDataProvider& in) {
    return in.ConsumeBool() ? static_cast<const CodecConfig&>(o.amr) : o.dtmf;
}

const CodecCapabilities& capabilities(const Objects& o, FuzzedDataProvider& in) {
    return in.ConsumeBool() ? static_cast<const CodecCapabilities&>(o.amrCaps) : o.dtmfCaps;
}

const Change<StreamConfig> kStreamChanges[] = {
    [](auto& s, auto&, auto& in) {
        return s.setDirection(StreamConfig::Direction(number(in))).isSuccess();
    },
    [](auto& s, auto&, auto& in) { return s.setRemoteRtpPort(number(in)).isSuccess(); },
    [](auto& s, auto&, auto& in) { return s.setRemoteIp(address(in)).isSuccess(); },
    [](auto& s, auto& o, auto& in) { return s.addUplinkCodec(codec(o, in)).isSuccess(); },
    [](auto& s, auto& o, auto& in) { return s.addDownlinkCodec(codec(o, in)).isSuccess(); },
    [](auto& s, auto&, auto&) { return s.clearUplinkCodecs(), true; },
    [](auto& s, auto&, auto&) { return s.clearDownlinkCodecs(), true; },
    [](auto& s, auto&, auto& in) { return s.muteUplink(in.ConsumeBool()), true; },
    [](auto& s, auto&, auto& in) { return s.setRtcp(in.ConsumeBool()), true; },
    [](auto& s, auto&, auto& in) { return s.setRtcpConfig(rtcp(in)), true; },
    [](auto& s, auto&, auto& in) { return s.setHoldState(in.ConsumeBool()), true; },
    [](auto& s, auto&, auto& in) { return s.setRtpProfile(profile(in)), true; },
    [](auto& s, auto&, auto& in) {
        return s.setPdpContext({number(in), number(in)}), true;
    },
};

const Change<StreamCapabilities> kStreamCapsChanges[] = {
    [](auto& s, auto& o, auto& in) { return s.addCodecCapabilities(capabilities(o, in)), true; },
    [](auto& s, auto&, auto&) { return s.clearCodecCapabilities(), true; },
    [](auto& s, auto&, auto& in) {
        RtcpConfig caps = rtcp(in);
        return s.setRtcpCaps(caps), true;
    },
    [](auto& s, auto&, auto& in) { return s.addRtpProfile(profile(in)), true; },
};

// One change of `object` picked by the input, then what holds for every value.
template <typename T, typename Target, size_t N>
void change(T& object, const Objects& o, const Change<Target> (&changes)[N],
            FuzzedDataProvider& in) {
    const T before(object);
    if (!changes[in.ConsumeIntegralInRange<size_t>(0, N - 1)](object, o, in)) {
        REQUIRE(same(object, before));
    }
    if constexpr (!std::is_same_v<T, StreamConfig>) {
        REQUIRE((object == before) == (before == object));
    }
    checkCopies(object);
    checkCheck(object);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    Objects o;
    for (int step = 0; step < 64 && in.remaining_bytes() > 0; ++step) {
        switch (in.ConsumeIntegralInRange(0, 7)) {
            case 0:
                change(o.amr, o, kCodecChanges, in);
                break;
            case 1:
                change(o.amr, o, kAmrChanges, in);
                break;
            case 2:
                change(o.dtmf, o, kCodecChanges, in);
                break;
            case 3:
                change(o.amrCaps, o, kCapsChanges, in);
                break;
            case 4:
                change(o.amrCaps, o, kAmrCapsChanges, in);
                break;
            case 5:
                change(o.dtmfCaps, o, kCapsChanges, in);
                break;
            case 6:
                change(o.stream, o, kStreamChanges, in);
                break;
            default:
                change(o.streamCaps, o, kStreamCapsChanges, in);
        }
    }
    return 0;
}
