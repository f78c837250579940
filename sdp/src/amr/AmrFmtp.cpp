#include "amr/AmrFmtp.h"

#include "syntax/SdpLine.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <utility>

namespace velmora {
namespace rune {
namespace sdp {

namespace {

const uint32_t kMaxRedundancy = 65535;

// Inline: read once a parameter, each call with bounds known when compiling.
inline bool readNumber(std::string_view value, uint32_t min, uint32_t max, uint32_t& number) {
    uint64_t parsed;
    if (!parseDecimal(value, max, parsed) || parsed < min) {
        return false;
    }
    number = static_cast<uint32_t>(parsed);
    return true;
}

inline bool readFlag(std::string_view value, bool& flag) {
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

size_t toSize(std::ptrdiff_t length) {
    return static_cast<size_t>(length);
}

enum class AmrName {
    ModeSet,
    OctetAlign,
    ModeChangePeriod,
    ModeChangeCapability,
    ModeChangeNeighbor,
    MaxRed,
    Crc,
    RobustSorting,
    Interleaving,
    Other
};

// The known names differ in length: one comparison finds the name.
AmrName amrName(std::string_view name) {
    switch (name.size()) {
        case 8:
            return equalsIgnoreCase(name, "mode-set") ? AmrName::ModeSet : AmrName::Other;
        case 11:
            return equalsIgnoreCase(name, "octet-align") ? AmrName::OctetAlign : AmrName::Other;
        case 18:
            return equalsIgnoreCase(name, "mode-change-period") ? AmrName::ModeChangePeriod
                                                                : AmrName::Other;
        case 22:
            return equalsIgnoreCase(name, "mode-change-capability") ? AmrName::ModeChangeCapability
                                                                    : AmrName::Other;
        case 20:
            return equalsIgnoreCase(name, "mode-change-neighbor") ? AmrName::ModeChangeNeighbor
                                                                  : AmrName::Other;
        case 7:
            return equalsIgnoreCase(name, "max-red") ? AmrName::MaxRed : AmrName::Other;
        case 3:
            return equalsIgnoreCase(name, "crc") ? AmrName::Crc : AmrName::Other;
        case 14:
            return equalsIgnoreCase(name, "robust-sorting") ? AmrName::RobustSorting
                                                            : AmrName::Other;
        case 12:
            return equalsIgnoreCase(name, "interleaving") ? AmrName::Interleaving : AmrName::Other;
        default:
            return AmrName::Other;
    }
}

// The name of a parameter in its usual spelling, lower case with '=' right after it, told by its
// first letter and a comparison of a known length; Other for any other spelling.
AmrName usualName(const char* at, const char* end, std::string_view& name) {
    const auto is = [at, end, &name](const auto& spelling) {
        // With its '='.
        const size_t size = sizeof(spelling) - 1;
        if (toSize(end - at) < size || std::memcmp(at, spelling, size) != 0) {
            return false;
        }
        name = std::string_view(at, size - 1);
        return true;
    };
    switch (at == end ? '\0' : *at) {
        case 'm':
            return is("mode-change-capability=") ? AmrName::ModeChangeCapability
                   : is("max-red=")              ? AmrName::MaxRed
                   : is("mode-set=")             ? AmrName::ModeSet
                   : is("mode-change-period=")   ? AmrName::ModeChangePeriod
                   : is("mode-change-neighbor=") ? AmrName::ModeChangeNeighbor
                                                 : AmrName::Other;
        case 'o':
            return is("octet-align=") ? AmrName::OctetAlign : AmrName::Other;
        case 'c':
            return is("crc=") ? AmrName::Crc : AmrName::Other;
        case 'r':
            return is("robust-sorting=") ? AmrName::RobustSorting : AmrName::Other;
        case 'i':
            return is("interleaving=") ? AmrName::Interleaving : AmrName::Other;
        default:
            return AmrName::Other;
    }
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

bool readAmrParameters(std::string_view text, const Line& line, BandType band, AmrParameters& out,
                       StreamConfig::Result& refusal) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (true) {
        while (at != end && isBlank(*at)) {
            ++at;
        }
        std::string_view name;
        AmrName known = usualName(at, end, name);
        const char* equals = known != AmrName::Other ? at + name.size() : nullptr;
        // A known name holds no ';': when the text up to the next '=' is one, that '=' is this
        // parameter's and its end needs no search of its own.
        if (known == AmrName::Other) {
            equals = static_cast<const char*>(std::memchr(at, '=', toSize(end - at)));
        }
        if (known == AmrName::Other && equals != nullptr) {
            name = trimEnd(std::string_view(at, toSize(equals - at)));
            known = amrName(name);
        }
        if (known == AmrName::Other) {
            const auto* semicolon =
                static_cast<const char*>(std::memchr(at, ';', toSize(end - at)));
            const char* const stop = semicolon != nullptr ? semicolon : end;
            if (equals == nullptr || equals > stop) {
                // No value: the whole parameter is its name.
                name = trimEnd(std::string_view(at, toSize(stop - at)));
                known = amrName(name);
                equals = nullptr;
            }
            if (known == AmrName::Other) {
                if (stop == end) {
                    break;
                }
                at = stop + 1;
                continue;
            }
        }
        const char* stop = equals != nullptr ? equals + 1 : at;
        const char* const valueStart = stop;
        while (stop != end && *stop != ';') {
            ++stop;
        }
        const std::string_view value =
            equals != nullptr ? trim(std::string_view(valueStart, toSize(stop - valueStart)))
                              : std::string_view();
        bool valid = true;
        uint32_t number = 0;
        switch (known) {
            case AmrName::ModeSet: {
                AmrModes modes;
                StreamConfig::Result result = readModeSet(name, value, line, band, modes);
                if (result.isFailure()) {
                    refusal = std::move(result);
                    return false;
                }
                out.modes = modes;
                break;
            }
            case AmrName::OctetAlign:
                valid = readFlag(value, out.octetAlign);
                out.octetAlignText = value;
                break;
            case AmrName::ModeChangePeriod:
                valid = readNumber(value, 1, 2, number);
                out.modeChangePeriod = number;
                break;
            case AmrName::ModeChangeCapability:
                out.modeChangeCapability.reset();
                if (readNumber(value, 0, std::numeric_limits<uint32_t>::max(), number)) {
                    out.modeChangeCapability = number;
                }
                break;
            case AmrName::ModeChangeNeighbor:
                valid = readFlag(value, out.modeChangeNeighbor);
                break;
            case AmrName::MaxRed:
                valid = readNumber(value, 0, kMaxRedundancy, number);
                out.maxRed = number;
                break;
            case AmrName::Crc:
                valid = readFlag(value, out.crc);
                out.crcText = value;
                break;
            case AmrName::RobustSorting:
                valid = readFlag(value, out.robustSorting);
                out.robustSortingText = value;
                break;
            case AmrName::Interleaving:
                valid =
                    readNumber(value, 0, std::numeric_limits<uint32_t>::max(), out.interleaving);
                out.interleavingText = value;
                break;
            case AmrName::Other:
                break;
        }
        if (!valid) {
            refusal = badValue(line, name, value);
            return false;
        }
        if (stop == end) {
            break;
        }
        at = stop + 1;
    }
    return true;
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
