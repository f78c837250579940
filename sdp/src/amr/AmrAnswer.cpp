#include "amr/AmrAnswer.h"

#include <algorithm>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// The largest max-red an fmtp may carry, in ms.
const int kMaxRedundancy = 65535;
const uint32_t kEveryOtherFrame = 2;

// The modes local lists, one bit each.
unsigned listedModes(const AmrCodecCapabilities& local) {
    unsigned listed = 0;
    const unsigned int count = local.getSupportedAmrRateCount();
    for (unsigned int i = 0; i < count; ++i) {
        // AmrRateNone and other values out of range turn into large numbers.
        const auto mode = static_cast<unsigned>(local.getSupportedAmrRate(i));
        listed |= mode <= AmrRate8 ? 1U << mode : 0U;
    }
    return listed;
}

// An empty list supports every mode of the band.
bool supportsMode(unsigned listed, BandType band, AmrRate rate) {
    return rate >= AmrRate0 && rate <= lastMode(band) &&
           (listed == 0 || (listed & (1U << static_cast<unsigned>(rate))) != 0);
}

// 0 when local supports no redundancy.
uint32_t localMaxRed(const AmrCodecCapabilities& local) {
    return static_cast<uint32_t>(std::clamp(local.getMaxSupportedRdcy(), 0, kMaxRedundancy));
}

// The offer's value, else local's, never above local's.
uint32_t answeredMaxRed(const AmrCodecCapabilities& local, const AmrParameters& offered) {
    return offered.maxRed ? std::min(*offered.maxRed, localMaxRed(local)) : localMaxRed(local);
}

}  // namespace

AmrModes advertisedModes(const AmrCodecCapabilities& local, BandType band) {
    const AmrRate last = lastMode(band);
    const unsigned everyMode = (2U << static_cast<unsigned>(last)) - 1;
    const unsigned listed = listedModes(local) & everyMode;
    AmrModes modes;
    // The usual local lists every mode: the bits tell without a list.
    if (listed == everyMode) {
        return modes;
    }
    for (int mode = AmrRate0; mode <= last; ++mode) {
        if ((listed & (1U << static_cast<unsigned>(mode))) != 0) {
            modes.add(static_cast<AmrRate>(mode));
        }
    }
    return modes;
}

bool acceptsAmr(const AmrCodecCapabilities& local, BandType band, const AmrParameters& offered) {
    if (local.getBandType() != band) {
        return false;
    }
    const unsigned listed = offered.modes.count > 0 ? listedModes(local) : 0;
    for (unsigned i = 0; i < offered.modes.count; ++i) {
        if (!supportsMode(listed, band, offered.modes.modes[i])) {
            return false;
        }
    }
    return (!offered.crc || local.isCrcModeSupported()) &&
           (!offered.robustSorting || local.isRobustSortingModeSupported()) &&
           (!offered.isInterleaved() || local.isInterleavingModeSupported()) &&
           (offered.isOctetAligned() || !local.isOctetAlignModeRequired());
}

AmrFmtpText answerFmtp(const AmrCodecCapabilities& local, BandType band,
                       const AmrParameters& offered) {
    AmrFmtpText fmtp;
    // What is agreed, not how the offer spells it.
    fmtp.modes = offered.modes.count > 0 ? offered.modes.ascending() : advertisedModes(local, band);
    fmtp.octetAlign = offered.octetAlignText;
    fmtp.modeChangeCapabilityTwo = announcesModeChangeCapability(local);
    fmtp.modeChangePeriodTwo = local.getModeChangePeriod() == ModeChangePeriodEveryOtherFrame &&
                               offered.modeChangeCapability == kEveryOtherFrame;
    fmtp.modeChangeNeighbor = local.isModeChangeNeighborRequired();
    fmtp.crc = offered.crcText;
    fmtp.robustSorting = offered.robustSortingText;
    fmtp.interleaving = offered.interleavingText;
    fmtp.maxRed = answeredMaxRed(local, offered);
    return fmtp;
}

void negotiateAmr(const AmrFmtpText& answered, const AmrParameters& offered, BandType band,
                  int payloadType, AmrCodecConfig& config) {
    AmrParameters agreed = offered;
    agreed.maxRed = answered.maxRed;
    configureAmr(agreed, agreedModes(answered.modes, offered.modes), band, payloadType, config);
}

const AmrModes& agreedModes(const AmrModes& answered, const AmrModes& offered) {
    return answered.count > 0 ? answered : offered;
}

bool announcesModeChangeCapability(const AmrCodecCapabilities& local) {
    return local.getModeChangeCapability() == ModeChangeCapabilityEveryOtherFrame;
}

AmrFmtpText offerFmtp(const AmrCodecCapabilities& local, bool octetAligned) {
    AmrFmtpText fmtp;
    fmtp.modes = advertisedModes(local, local.getBandType());
    if (octetAligned) {
        fmtp.octetAlign = "1";
    }
    fmtp.modeChangeCapabilityTwo = announcesModeChangeCapability(local);
    fmtp.modeChangePeriodTwo = local.getModeChangePeriod() == ModeChangePeriodEveryOtherFrame;
    fmtp.modeChangeNeighbor = local.isModeChangeNeighborRequired();
    fmtp.maxRed = localMaxRed(local);
    return fmtp;
}

bool keepsOffer(const AmrParameters& offered, const AmrParameters& answered) {
    // The same modes, in any order.
    if (offered.modes.count > 0 && answered.modes.listed != offered.modes.listed) {
        return false;
    }
    if (answered.modeChangePeriod == kEveryOtherFrame &&
        offered.modeChangeCapability != kEveryOtherFrame) {
        return false;
    }
    return answered.isOctetAligned() == offered.isOctetAligned() && answered.crc == offered.crc &&
           answered.robustSorting == offered.robustSorting &&
           answered.interleaving == offered.interleaving;
}

AmrFmtpText configuredFmtp(const AmrCodecConfig& amr) {
    AmrFmtpText fmtp;
    for (AmrRate rate : amr.getSupportedAmrRates()) {
        fmtp.modes.add(rate);
    }
    if (fmtp.modes.isEveryMode(amr.getBandType())) {
        fmtp.modes = AmrModes();
    }
    const std::string_view on = "1";
    if (amr.isOctetAlignModeEnabled()) {
        fmtp.octetAlign = on;
    }
    fmtp.modeChangePeriodTwo = amr.getModeChangePeriod() == ModeChangePeriodEveryOtherFrame;
    fmtp.modeChangeNeighbor = amr.isModeChangeNeighborEnabled();
    if (amr.isCrcModeEnabled()) {
        fmtp.crc = on;
    }
    if (amr.isRobustSortingModeEnabled()) {
        fmtp.robustSorting = on;
    }
    // The model keeps no group size.
    if (amr.isInterleavingModeEnabled()) {
        fmtp.interleaving = on;
    }
    fmtp.maxRed = amr.isRdcyModeEnabled() ? static_cast<uint32_t>(amr.getMaxRdcy()) : 0;
    return fmtp;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
