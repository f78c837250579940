#include "AmrAnswer.h"

#include "syntax/SdpLine.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <string_view>
#include <vector>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

// The largest max-red an fmtp may carry, in ms.
const int kMaxRedundancy = 65535;

int lastMode(BandType band) {
    return band == BandTypeNb ? 7 : 8;
}

bool listsMode(const AmrCodecCapabilities& local, AmrRate rate) {
    for (unsigned int i = 0; i < local.getSupportedAmrRateCount(); ++i) {
        if (local.getSupportedAmrRate(i) == rate) {
            return true;
        }
    }
    return false;
}

// An empty list supports every mode of the band.
bool supportsMode(const AmrCodecCapabilities& local, BandType band, AmrRate rate) {
    return rate >= 0 && rate <= lastMode(band) &&
           (local.getSupportedAmrRateCount() == 0 || listsMode(local, rate));
}

// The modes of the band that local lists, ascending.
std::vector<AmrRate> localModes(const AmrCodecCapabilities& local, BandType band) {
    std::vector<AmrRate> modes;
    for (int mode = 0; mode <= lastMode(band); ++mode) {
        if (listsMode(local, static_cast<AmrRate>(mode))) {
            modes.push_back(static_cast<AmrRate>(mode));
        }
    }
    return modes;
}

// The last value written for name: the one the reader kept.
std::optional<std::string_view> offeredValue(const AmrParameters& offered, std::string_view name) {
    std::optional<std::string_view> value;
    for (const auto& [writtenName, writtenValue] : offered.written) {
        if (equalsIgnoreCase(writtenName, name)) {
            value = writtenValue;
        }
    }
    return value;
}

// The offer's value, else local's; 0 when local supports no redundancy.
uint32_t answeredMaxRed(const AmrCodecCapabilities& local, const AmrParameters& offered) {
    const auto localMax =
        static_cast<uint32_t>(std::clamp(local.getMaxSupportedRdcy(), 0, kMaxRedundancy));
    return offered.maxRed ? std::min(*offered.maxRed, localMax) : localMax;
}

}  // namespace

bool acceptsAmr(const AmrCodecCapabilities& local, const RemoteFormat& offered) {
    const AmrParameters& amr = offered.amr;
    if (local.getBandType() != offered.band) {
        return false;
    }
    if (amr.modeSet) {
        for (AmrRate rate : *amr.modeSet) {
            if (!supportsMode(local, offered.band, rate)) {
                return false;
            }
        }
    }
    return (!amr.crc || local.isCrcModeSupported()) &&
           (!amr.robustSorting || local.isRobustSortingModeSupported()) &&
           (!amr.isInterleaved() || local.isInterleavingModeSupported()) &&
           (amr.isOctetAligned() || !local.isOctetAlignModeRequired());
}

std::string answerAmrParameters(const AmrCodecCapabilities& local, const RemoteFormat& offered) {
    const AmrParameters& amr = offered.amr;
    std::ostringstream text;
    const auto echo = [&](std::string_view name) {
        if (const std::optional<std::string_view> value = offeredValue(amr, name)) {
            text << name << "=" << *value << "; ";
        }
    };
    if (amr.modeSet) {
        echo("mode-set");
    } else {
        const std::vector<AmrRate> modes = localModes(local, offered.band);
        if (!modes.empty() && static_cast<int>(modes.size()) != lastMode(offered.band) + 1) {
            text << "mode-set=";
            for (size_t i = 0; i < modes.size(); ++i) {
                text << (i == 0 ? "" : ",") << modes[i];
            }
            text << "; ";
        }
    }
    echo("octet-align");
    if (local.getModeChangeCapability() == ModeChangeCapabilityEveryOtherFrame) {
        text << "mode-change-capability=2; ";
    }
    if (local.getModeChangePeriod() == ModeChangePeriodEveryOtherFrame &&
        amr.modeChangeCapability == 2U) {
        text << "mode-change-period=2; ";
    }
    if (local.isModeChangeNeighborRequired()) {
        text << "mode-change-neighbor=1; ";
    }
    echo("crc");
    echo("robust-sorting");
    echo("interleaving");
    text << "max-red=" << answeredMaxRed(local, amr);
    return text.str();
}

AmrCodecConfig negotiateAmr(const AmrCodecCapabilities& local, const RemoteFormat& offered) {
    AmrParameters agreed = offered.amr;
    if (!agreed.modeSet) {
        std::vector<AmrRate> modes = localModes(local, offered.band);
        if (!modes.empty()) {
            agreed.modeSet = std::move(modes);
        }
    }
    agreed.maxRed = answeredMaxRed(local, offered.amr);
    return makeAmrCodecConfig(agreed, offered.band, offered.payloadType);
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
