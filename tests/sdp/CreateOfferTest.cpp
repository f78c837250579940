#include "SdpTestSupport.h"

#include <functional>

using namespace velmora::testing;

namespace {

struct OfferCase {
    std::function<StreamCapabilities()> local;
    const char* ip;
    int port;
    sdp::Origin origin;
    // In tests/sdp/data.
    std::string name;
};

const OfferCase kOffers[] = {
    // A phone's: every mode of both bands, each bandwidth-efficient then octet-aligned, events
    // of both bands.
    {[] { return phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb)); },
     "192.0.2.10",
     49152,
     {"-", 3034423619u, 1},
     "offer-phone.sdp"},
    // A narrow-band capability first, with some modes in another order, requiring octet-align,
    // mode changes of its own, no redundancy and longer packets; crc it supports is never
    // offered; every mode of AMR-WB listed descending is every mode; AVPF only, reduced size.
    {[] {
         AmrCodecCapabilities narrow = amrCaps(BandTypeNb, {7, 4, 2, 0});
         narrow.setOctetAlignModeRequired(true);
         narrow.setCrcModeSupport(true);
         narrow.setRdcyModeSupport(false);
         EXPECT_TRUE(narrow.setModeChangeCapability(ModeChangeCapabilityAnyFrameOnly).isSuccess());
         EXPECT_TRUE(narrow.setModeChangePeriod(ModeChangePeriodEveryOtherFrame).isSuccess());
         narrow.setModeChangeNeighborRequired(true);
         narrow.setPacketTime(40);
         narrow.setMaxPacketTime(200);
         StreamCapabilities local;
         local.addCodecCapabilities(narrow);
         local.addCodecCapabilities(amrCaps(BandTypeWb, {8, 7, 6, 5, 4, 3, 2, 1, 0}));
         DtmfCodecCapabilities events;
         events.setBandType(BandTypeNb);
         local.addCodecCapabilities(events);
         local.addRtpProfile(RtpProfileAvpf);
         RtcpConfig rtcp(5000, 2500, 500, 30, true);
         local.setRtcpCaps(rtcp);
         return local;
     },
     "2001:db8::10",
     65535,
     {"alice", 0, 18446744073709551615u},
     "offer-narrow-first.sdp"},
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
TEST(CreateOfferTest, RefusesWithoutAmrOrEndpoint) {
    StreamCapabilities eventsOnly;
    eventsOnly.addCodecCapabilities(DtmfCodecCapabilities());
    const char* const kNoCodec = "Invalid Configuration (Code 1003): No codec to offer";
    std::vector<std::pair<StreamCapabilities, BadEndpoint>> rows = {
        {StreamCapabilities(), {"192.0.2.10", 49152, kNoCodec}},
        {eventsOnly, {"192.0.2.10", 49152, kNoCodec}}};
    for (const BadEndpoint& endpoint : kBadEndpoints) {
        rows.emplace_back(phoneCaps(amrCaps(BandTypeWb), amrCaps(BandTypeNb)), endpoint);
    }
    for (const auto& row : rows) {
        std::string offer = "left";
        EXPECT_EQ(row.second.refusal,
                  sdp::createOffer(row.first, row.second.ip, row.second.port, sdp::Origin(), offer)
                      .format());
        EXPECT_EQ("left", offer);
    }
}

}  // namespace
