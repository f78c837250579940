#include "SdpTestSupport.h"

using namespace velmora::testing;

namespace {

struct OfferCase {
    // In tests/sdp/data.
    std::string name;
    const char* ip;
    int port;
    sdp::Origin origin;
    StreamCapabilities (*local)();
};

// A narrow-band capability first, with some modes in another order, requiring octet-align, mode
// changes of its own, no redundancy and longer packets; crc it supports is never offered; every
// mode of AMR-WB listed descending is every mode; AVPF only, reduced size.
StreamCapabilities narrowFirst() {
    AmrCodecCapabilities narrow = amrCaps(BandTypeNb, {7, 4, 2, 0});
    narrow.setOctetAlignModeRequired(true);
    narrow.setCrcModeSupport(true);
    narrow.setRdcyModeSupport(false);
    EXPECT_TRUE(narrow.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly).isSuccess());
    EXPECT_TRUE(narrow.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
    narrow.setModeChangeNeighborRequired(true);
    narrow.setPacketTime(40);
    narrow.setMaxPacketTime(200);
    return phoneCaps(narrow, amrCaps(BandTypeWb, {8, 7, 6, 5, 4, 3, 2, 1, 0}), {RtpProfileAvpf},
                     RtcpConfig(5000, 2500, 500, 30, true), false);
}

const OfferCase kOffers[] = {
    // Each AMR capability bandwidth-efficient, then octet-aligned; events of both bands.
    {"offer-phone.sdp", "192.0.2.10", 49152, {"-", 3034423619u, 1}, anyAmr},
    {"offer-phone.sdp", "192.0.2.10", 49152, {"-", 3034423619u, 1}, extendedAnyAmr},
    {"offer-narrow-first.sdp",
     "2001:db8::10",
     65535,
     {"alice", 0, 18446744073709551615u},
     narrowFirst},
};

TEST(CreateOfferTest, OffersTheCapabilities) {
    for (const OfferCase& row : kOffers) {
        SCOPED_TRACE(row.name);
        std::string offer;
        EXPECT_EQ("Success",
                  sdp::createOffer(row.local(), row.ip, row.port, row.origin, offer).format());
        EXPECT_EQ(dataText(row.name), offer);
        expectOthersReadAlike(offer);
    }
}

// A refusal leaves the offer as it was.
TEST(CreateOfferTest, RefusesWithoutAmrEndpointOrOrigin) {
    StreamCapabilities eventsOnly;
    eventsOnly.addCodecCapabilities(DtmfCodecCapabilities());
    const char* const kNoCodec = "Invalid Configuration (Code 1003): No codec to offer";
    std::vector<std::pair<StreamCapabilities, BadEndpoint>> rows = {
        {StreamCapabilities(), {"192.0.2.10", 49152, kNoCodec}},
        {eventsOnly, {"192.0.2.10", 49152, kNoCodec}}};
    for (const BadEndpoint& endpoint : kBadEndpoints) {
        rows.emplace_back(anyAmr(), endpoint);
    }
    for (const auto& row : rows) {
        std::string offer = "left";
        EXPECT_EQ(row.second.refusal,
                  sdp::createOffer(row.first, row.second.ip, row.second.port, sdp::Origin(), offer)
                      .format());
        EXPECT_EQ("left", offer);
    }
    for (const sdp::Origin& origin : kBadOrigins) {
        std::string offer = "left";
        EXPECT_EQ(kBadOrigin,
                  sdp::createOffer(anyAmr(), "192.0.2.10", 49152, origin, offer).format());
        EXPECT_EQ("left", offer);
    }
}

}  // namespace
