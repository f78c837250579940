#include "amr/AmrFmtp.h"

#include "syntax/SdpLine.h"

#include <limits>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const uint32_t kMaxRedundancy = 65535;

bool readNumber(std::string_view value, uint32_t min, uint32_t max, uint32_t& number) {
    uint64_t parsed;
    if (!parseDecimal(value, max, parsed) || parsed < min) {
        return false;
    }
    number = static_cast<uint32_t>(parsed);
    return true;
}

bool readFlag(std::string_view value, bool& flag) {
    uint32_t number;
    if (!readNumber(value, 0, 1, number)) {
        return false;
    }
    flag = number == 1;
    return true;
}

StreamConfig::Result badValue(const Line& line, std::string_view name, std::string_view value) {
    return refusalAt(line, StreamConfig::InvalidParam, "Bad fmtp value: ", name, "=", value);
}

// Each element a decimal number and a mode of the band; the model's words for other numbers.
StreamConfig::Result readModeSet(std::string_view name, std::string_view value, const Line& line,
                                 BandType band, AmrModes& modes) {
    PieceCursor elements(value, ',');
    std::string_view element;
    while (elements.next(element)) {
        element = trim(element);
        if (element.empty() || leadingDigits(element).size() != element.size()) {
            return badValue(line, name, value);
        }
        uint64_t number;
        if (!parseDecimal(element, static_cast<uint64_t>(lastMode(band)), number)) {
            const size_t significant = element.find_first_not_of('0');
            return refusalAt(line, StreamConfig::InvalidParam,
                             "Bad amr rate: ", element.substr(significant));
        }
        modes.add(static_cast<AmrRate>(number));
    }
    return successResult();
}

// A default configuration of band with every mode of the band, ascending.
AmrCodecConfig everyModeConfig(BandType band) {
    AmrCodecConfig config;
    (void)config.setBandType(band);
    for (int mode = AmrRate0; mode <= lastMode(band); ++mode) {
        (void)config.addAmrRate(static_cast<AmrRate>(mode));
    }
    return config;
}

}  // namespace

AmrRate lastMode(BandType band) {
    return band == BandTypeNb ? AmrRate7 : AmrRate8;
}

void AmrModes::add(AmrRate mode) {
    if (!contains(mode) && count < modes.size()) {
        modes[count++] = mode;
        listed |= 1U << static_cast<unsigned>(mode);
    }
}

AmrModes AmrModes::ascending() const {
    AmrModes sorted;
    for (int mode = AmrRate0; mode <= AmrRate8; ++mode) {
        if (contains(static_cast<AmrRate>(mode))) {
            sorted.add(static_cast<AmrRate>(mode));
        }
    }
    return sorted;
}

bool AmrModes::isEveryMode(BandType band) const {
    if (count != static_cast<unsigned>(lastMode(band)) + 1) {
        return false;
    }
    for (unsigned i = 0; i < count; ++i) {
        if (modes[i] != static_cast<AmrRate>(i)) {
            return false;
        }
    }
    return true;
}

StreamConfig::Result readAmrParameters(std::string_view text, const Line& line, BandType band,
                                       AmrParameters& out) {
    PieceCursor pieces(text, ';');
    std::string_view parameter;
    while (pieces.next(parameter)) {
        parameter = trim(parameter);
        if (parameter.empty()) {
            continue;
        }
        // The parameter is trimmed: the name can only end in blanks, the value only start so.
        const size_t equals = parameter.find('=');
        const std::string_view name = trimEnd(parameter.substr(0, equals));
        const std::string_view value = equals == std::string_view::npos
                                           ? std::string_view()
                                           : trimStart(parameter.substr(equals + 1));
        bool valid = true;
        uint32_t number = 0;
        // The known names differ in length: one comparison finds the name.
        switch (name.size()) {
            case 8:
                if (equalsIgnoreCase(name, "mode-set")) {
                    AmrModes modes;
                    StreamConfig::Result result = readModeSet(name, value, line, band, modes);
                    if (result.isFailure()) {
                        return result;
                    }
                    out.modes = modes;
                }
                break;
            case 11:
                if (equalsIgnoreCase(name, "octet-align")) {
                    valid = readFlag(value, out.octetAlign);
                    out.octetAlignText = value;
                }
                break;
            case 18:
                if (equalsIgnoreCase(name, "mode-change-period")) {
                    valid = readNumber(value, 1, 2, number);
                    out.modeChangePeriod = number;
                }
                break;
            case 22:
                if (equalsIgnoreCase(name, "mode-change-capability")) {
                    out.modeChangeCapability.reset();
                    if (readNumber(value, 0, std::numeric_limits<uint32_t>::max(), number)) {
                        out.modeChangeCapability = number;
                    }
                }
                break;
            case 20:
                if (equalsIgnoreCase(name, "mode-change-neighbor")) {
                    valid = readFlag(value, out.modeChangeNeighbor);
                }
                break;
            case 7:
                if (equalsIgnoreCase(name, "max-red")) {
                    valid = readNumber(value, 0, kMaxRedundancy, number);
                    out.maxRed = number;
                }
                break;
            case 3:
                if (equalsIgnoreCase(name, "crc")) {
                    valid = readFlag(value, out.crc);
                    out.crcText = value;
                }
                break;
            case 14:
                if (equalsIgnoreCase(name, "robust-sorting")) {
                    valid = readFlag(value, out.robustSorting);
                    out.robustSortingText = value;
                }
                break;
            case 12:
                if (equalsIgnoreCase(name, "interleaving")) {
                    valid = readNumber(value, 0, std::numeric_limits<uint32_t>::max(),
                                       out.interleaving);
                    out.interleavingText = value;
                }
                break;
            default:
                break;
        }
        if (!valid) {
            return badValue(line, name, value);
        }
    }
    return successResult();
}

void configureAmr(const AmrParameters& parameters, const AmrModes& modes, BandType band,
                  int payloadType, AmrCodecConfig& config) {
    // Copying a configuration of every mode costs less than adding the modes one by one.
    static const AmrCodecConfig narrow = everyModeConfig(BandTypeNb);
    static const AmrCodecConfig wide = everyModeConfig(BandTypeWb);
    config = band == BandTypeNb ? narrow : wide;
    config.setPayloadType(payloadType);
    if (modes.count > 0 && !modes.isEveryMode(band)) {
        config.clearAmrRateVector();
        for (unsigned i = 0; i < modes.count; ++i) {
            (void)config.addAmrRate(modes.modes[i]);
        }
    }
    config.setOctetAlignMode(parameters.isOctetAligned());
    if (parameters.modeChangePeriod) {
        // RFC 4867 counts frames (1 or 2); the model keeps 0 or 1.
        config.setModeChangePeriod(static_cast<ModeChangePeriod>(*parameters.modeChangePeriod - 1));
    }
    config.setModeChangeNeighbor(parameters.modeChangeNeighbor);
    if (parameters.maxRed) {
        config.setRdcyMode(*parameters.maxRed > 0);
        if (*parameters.maxRed > 0) {
            config.setMaxRdcy(static_cast<int>(*parameters.maxRed));
        }
    }
    config.setCrcMode(parameters.crc);
    config.setRobustSortingMode(parameters.robustSorting);
    config.setInterleavingMode(parameters.isInterleaved());
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
