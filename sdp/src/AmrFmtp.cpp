#include "AmrFmtp.h"

#include "Refusal.h"
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

// Each element a decimal number, and a mode the model accepts.
StreamConfig::Result readModeSet(std::string_view name, std::string_view value, const Line& line,
                                 std::vector<AmrRate>& rates) {
    for (std::string_view element : split(value, ',')) {
        element = trim(element);
        if (element.empty() || leadingDigits(element).size() != element.size()) {
            return badValue(line, name, value);
        }
        uint64_t number;
        if (!parseDecimal(element, std::numeric_limits<int32_t>::max(), number)) {
            // Too large for a mode index: the model's words, without asking the model.
            const size_t significant = element.find_first_not_of('0');
            return refusalAt(line, StreamConfig::InvalidParam,
                             "Bad amr rate: ", element.substr(significant));
        }
        const auto rate = static_cast<AmrRate>(number);
        AmrCodecConfig probe;
        const CodecConfig::Result accepted = probe.addAmrRate(rate);
        if (accepted.isFailure()) {
            return atLine(line, accepted);
        }
        rates.push_back(rate);
    }
    return StreamConfig::Result::success();
}

}  // namespace

bool AmrParameters::isOctetAligned() const {
    return octetAlign || crc || robustSorting || isInterleaved();
}

StreamConfig::Result readAmrParameters(std::string_view text, const Line& line,
                                       AmrParameters& out) {
    AmrParameters parameters;
    for (std::string_view parameter : split(text, ';')) {
        parameter = trim(parameter);
        if (parameter.empty()) {
            continue;
        }
        const size_t equals = parameter.find('=');
        const std::string_view name = trim(parameter.substr(0, equals));
        const std::string_view value = equals == std::string_view::npos
                                           ? std::string_view()
                                           : trim(parameter.substr(equals + 1));
        parameters.written.emplace_back(name, value);

        bool valid = true;
        uint32_t number;
        if (equalsIgnoreCase(name, "mode-set")) {
            std::vector<AmrRate> rates;
            StreamConfig::Result result = readModeSet(name, value, line, rates);
            if (result.isFailure()) {
                return result;
            }
            parameters.modeSet = std::move(rates);
        } else if (equalsIgnoreCase(name, "octet-align")) {
            valid = readFlag(value, parameters.octetAlign);
        } else if (equalsIgnoreCase(name, "mode-change-period")) {
            valid = readNumber(value, 1, 2, number);
            if (valid) {
                parameters.modeChangePeriod = number;
            }
        } else if (equalsIgnoreCase(name, "mode-change-capability")) {
            if (readNumber(value, 0, std::numeric_limits<uint32_t>::max(), number)) {
                parameters.modeChangeCapability = number;
            }
        } else if (equalsIgnoreCase(name, "mode-change-neighbor")) {
            valid = readFlag(value, parameters.modeChangeNeighbor);
        } else if (equalsIgnoreCase(name, "max-red")) {
            valid = readNumber(value, 0, kMaxRedundancy, number);
            if (valid) {
                parameters.maxRed = number;
            }
        } else if (equalsIgnoreCase(name, "crc")) {
            valid = readFlag(value, parameters.crc);
        } else if (equalsIgnoreCase(name, "robust-sorting")) {
            valid = readFlag(value, parameters.robustSorting);
        } else if (equalsIgnoreCase(name, "interleaving")) {
            valid = readNumber(value, 0, std::numeric_limits<uint32_t>::max(), number);
            if (valid) {
                parameters.interleaving = number;
            }
        }
        if (!valid) {
            return badValue(line, name, value);
        }
    }
    out = std::move(parameters);
    return StreamConfig::Result::success();
}

AmrCodecConfig makeAmrCodecConfig(const AmrParameters& parameters, BandType band, int payloadType) {
    AmrCodecConfig config;
    (void)config.setBandType(band);
    config.setPayloadType(payloadType);
    if (parameters.modeSet) {
        for (AmrRate rate : *parameters.modeSet) {
            (void)config.addAmrRate(rate);
        }
    } else {
        const int lastMode = band == BandTypeNb ? 7 : 8;
        for (int rate = 0; rate <= lastMode; ++rate) {
            (void)config.addAmrRate(static_cast<AmrRate>(rate));
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
    return config;
}

}  // namespace sdp
}  // namespace rune
}  // namespace velmora
