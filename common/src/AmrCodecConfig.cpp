#include <velmora/rune/Amr.h>

#include "internal/Log.h"
#include "internal/Results.h"
#include "internal/Text.h"

#include <algorithm>
#include <array>

namespace velmora {
namespace rune {

const bool AmrCodecConfig::DEFAULT_OCTET_ALIGN_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_DTX_MODE_ENABLED = true;
const bool AmrCodecConfig::DEFAULT_RDCY_ENABLED = false;
const int AmrCodecConfig::DEFAULT_MAX_RDCY = 1;
const bool AmrCodecConfig::DEFAULT_CRC_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_ROBUST_SORTING_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_INTERLEAVING_ENABLED = false;
const bool AmrCodecConfig::DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED = false;
const ModeChangePeriod AmrCodecConfig::DEFAULT_MODE_CHANGE_PERIOD = ModeChangePeriodAnyFrame;
const int AmrCodecConfig::DEFAULT_PAYLOAD_TYPE = 98;
const unsigned AmrCodecConfig::DEFAULT_PACKET_TIME = 20;
const unsigned AmrCodecConfig::DEFAULT_MAX_PACKET_TIME = 240;
const BandType AmrCodecConfig::DEFAULT_BAND_TYPE = BandTypeWb;

namespace {

// A band's rates, most preferred first: a rate's rank is its position. The narrow band has no
// mode 8, so it has no rank there.
template <BandType Band>
struct Preference;

template <>
struct Preference<BandTypeNb> {
    static constexpr std::array<AmrRate, 8> kRates = {AmrRate7, AmrRate4, AmrRate2, AmrRate0,
                                                      AmrRate1, AmrRate3, AmrRate5, AmrRate6};
};

template <>
struct Preference<BandTypeWb> {
    static constexpr std::array<AmrRate, 9> kRates = {
        AmrRate2, AmrRate1, AmrRate0, AmrRate3, AmrRate4, AmrRate5, AmrRate6, AmrRate7, AmrRate8};
};

// The comparators' ranks, read from the table itself: media engines ask for the preferred rate
// while adapting rates during a call, where nothing may be allocated.
template <BandType Band>
class TableRanks {
  public:
    unsigned int rankOf(AmrRate rate) const {
        const auto it = std::find(mRatesRanks.begin(), mRatesRanks.end(), rate);
        VELMORA_ASSERT(it != mRatesRanks.end(),
                       "Invalid AMR mode:" << rate << " for band " << getBandTypeDescription(Band));
        return static_cast<unsigned int>(it - mRatesRanks.begin());
    }

  private:
    const decltype(Preference<Band>::kRates)& mRatesRanks = Preference<Band>::kRates;
};

// Every rate is ranked, so an unranked one aborts even when it is alone in the list.
template <BandType Band>
AmrRate mostPreferred(const std::vector<AmrRate>& rates) {
    const TableRanks<Band> ranks;
    AmrRate best = AmrRateNone;
    unsigned int bestRank = 0;
    for (AmrRate rate : rates) {
        const unsigned int rank = ranks.rankOf(rate);
        if (best == AmrRateNone || rank < bestRank) {
            best = rate;
            bestRank = rank;
        }
    }
    return best;
}

// Each line is a message of its own.
void warnRatesMismatch(const std::vector<AmrRate>& input, const std::vector<AmrRate>& expected) {
    {
        WarningStream line("ORLA");
        line << "Input AMR rates do not match; You may experience some wrong behaviour";
    }
    {
        WarningStream line("ORLA");
        line << "Input rates are: ";
        for (AmrRate rate : input) {
            line << rate << " ";
        }
    }
    {
        WarningStream line("ORLA");
        line << "Expected rates are: ";
        for (AmrRate rate : expected) {
            line << rate << " ";
        }
    }
}

}  // namespace

template <BandType Band>
AmrCodecConfig::AmrRatePreferenceComparator<Band>::AmrRatePreferenceComparator()
    : mRatesRanks(initRatesRanks()) {}

template <BandType Band>
std::map<AmrRate, unsigned int>
AmrCodecConfig::AmrRatePreferenceComparator<Band>::initRatesRanks() {
    std::map<AmrRate, unsigned int> ranks;
    const auto& rates = Preference<Band>::kRates;
    for (unsigned int rank = 0; rank < rates.size(); ++rank) {
        ranks.insert_or_assign(rates[rank], rank);
    }
    return ranks;
}

template <BandType Band>
bool AmrCodecConfig::AmrRatePreferenceComparator<Band>::operator()(const AmrRate& lhs,
                                                                   const AmrRate& rhs) const {
    auto it = mRatesRanks.find(lhs);
    VELMORA_ASSERT(it != mRatesRanks.end(),
                   "Invalid AMR mode:" << lhs << " for band " << getBandTypeDescription(Band));
    const unsigned int lhsRank = it->second;
    it = mRatesRanks.find(rhs);
    VELMORA_ASSERT(it != mRatesRanks.end(),
                   "Invalid AMR mode:" << rhs << " for band " << getBandTypeDescription(Band));
    return lhsRank < it->second;
}

// Clients order rates with these two.
template class AmrCodecConfig::AmrRatePreferenceComparator<BandTypeNb>;
template class AmrCodecConfig::AmrRatePreferenceComparator<BandTypeWb>;

AmrCodecConfig::AmrCodecConfig()
    : CodecConfig(CodecIdAmr, DEFAULT_BAND_TYPE, DEFAULT_PAYLOAD_TYPE, DEFAULT_PACKET_TIME,
                  DEFAULT_MAX_PACKET_TIME),
      mOctetAlignMode(DEFAULT_OCTET_ALIGN_ENABLED),
      mDtxMode(DEFAULT_DTX_MODE_ENABLED),
      mRdcyMode(DEFAULT_RDCY_ENABLED),
      mMaxRdcy(DEFAULT_MAX_RDCY),
      mCrcMode(DEFAULT_CRC_ENABLED),
      mRobustSortingMode(DEFAULT_ROBUST_SORTING_ENABLED),
      mInterleavingMode(DEFAULT_INTERLEAVING_ENABLED),
      mModeChangeNeighbor(DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED),
      mModeChangePeriod(DEFAULT_MODE_CHANGE_PERIOD) {}

// Member by member: the rates are copied into a vector made to size, not assigned to an empty one.
AmrCodecConfig::AmrCodecConfig(const AmrCodecConfig& other) = default;

AmrCodecConfig& AmrCodecConfig::operator=(const AmrCodecConfig& other) {
    CodecConfig::operator=(other);
    copyFrom(other);
    return *this;
}

AmrCodecConfig::~AmrCodecConfig() = default;

void AmrCodecConfig::copyFrom(const AmrCodecConfig& other) {
    mOctetAlignMode = other.mOctetAlignMode;
    mDtxMode = other.mDtxMode;
    mRdcyMode = other.mRdcyMode;
    mMaxRdcy = other.mMaxRdcy;
    if (&other != this) {
        mAmrRates = other.mAmrRates;
    }
    mCrcMode = other.mCrcMode;
    mRobustSortingMode = other.mRobustSortingMode;
    mInterleavingMode = other.mInterleavingMode;
    mModeChangeNeighbor = other.mModeChangeNeighbor;
    mModeChangePeriod = other.mModeChangePeriod;
}

bool AmrCodecConfig::isSupportedBandType(BandType bandType) const {
    return isBandTypeValid(bandType);
}

AmrCodecConfig::Result AmrCodecConfig::check() const {
    Result base = CodecConfig::check();
    if (base.isFailure()) {
        return base;
    }
    if (mAmrRates.empty()) {
        return makeResult<ResultTrait>(InvalidConfiguration, "Amr rate list is empty.");
    }
    for (AmrRate rate : mAmrRates) {
        if (!isAmrRateValid(rate) || (rate == AmrRate8 && mBandType == BandTypeNb)) {
            return makeResult<ResultTrait>(InvalidConfiguration, "Invalid rate: ", rate);
        }
    }
    return successResult<ResultTrait>();
}

AmrCodecConfig* AmrCodecConfig::clone() const {
    return new AmrCodecConfig(*this);
}

bool AmrCodecConfig::operator==(const CodecConfig& other) const {
    // The codec id is compared before other is read as AMR.
    if (!CodecConfig::operator==(other)) {
        return false;
    }
    const auto& amr = static_cast<const AmrCodecConfig&>(other);
    const bool equal = mOctetAlignMode == amr.mOctetAlignMode && mDtxMode == amr.mDtxMode &&
                       mRdcyMode == amr.mRdcyMode && mMaxRdcy == amr.mMaxRdcy &&
                       mCrcMode == amr.mCrcMode && mRobustSortingMode == amr.mRobustSortingMode &&
                       mInterleavingMode == amr.mInterleavingMode;
    // The negotiated rates may legitimately differ from the ones expected; only say so.
    if (mAmrRates != amr.mAmrRates) {
        warnRatesMismatch(amr.mAmrRates, mAmrRates);
    }
    return equal;
}

std::string AmrCodecConfig::toString() const {
    std::string text;
    text.reserve(kAmrCodecConfigTextSize);
    appendAmrCodecConfigText(text, *this);
    return text;
}

void appendAmrCodecConfigText(std::string& text, const AmrCodecConfig& amr) {
    appendCodecConfigText(text, amr);
    appendLine(text, "    OctetAlignEnabled: ", amr.isOctetAlignModeEnabled());
    appendLine(text, "    DtxModeEnabled: ", amr.isDTXModeEnabled());
    appendLine(text, "    RdcyEnabled: ", amr.isRdcyModeEnabled());
    appendLine(text, "    MaxRdcy: ", amr.getMaxRdcy());
    appendLine(text, "    RateCount: ", amr.getAmrRateCount());
    appendLiteral(text, "    Rates: ");
    for (AmrRate rate : amr.getSupportedAmrRates()) {
        appendNumber(text, rate);
        text += ' ';
    }
    text += '\n';
    appendLine(text, "    CrcEnabled: ", amr.isCrcModeEnabled());
    appendLine(text, "    RobustSortingEnabled: ", amr.isRobustSortingModeEnabled());
    appendLine(text, "    InterleavingEnabled: ", amr.isInterleavingModeEnabled());
    appendLine(text, "    ModeChangeNeighborEnabled: ", amr.isModeChangeNeighborEnabled());
    appendLine(text, "    ModeChangePeriod: ", amr.getModeChangePeriod());
}

AmrCodecConfig::Result AmrCodecConfig::addAmrRate(AmrRate rate) {
    if (!isAmrRateValid(rate)) {
        return makeResult<ResultTrait>(InvalidParam, "Bad amr rate: ", rate);
    }
    if (!containAmrRate(rate)) {
        mAmrRates.push_back(rate);
    }
    // The trait's shared success value: using it keeps it exported, as the library's ABI has it.
    return Result::success();
}

unsigned int AmrCodecConfig::getAmrRateCount() const {
    return static_cast<unsigned int>(mAmrRates.size());
}

AmrRate AmrCodecConfig::getAmrRate(unsigned int index) const {
    return index < mAmrRates.size() ? mAmrRates[index] : AmrRateNone;
}

bool AmrCodecConfig::containAmrRate(AmrRate rate) const {
    return std::find(mAmrRates.begin(), mAmrRates.end(), rate) != mAmrRates.end();
}

AmrRate AmrCodecConfig::getPreferedAmrRate() const {
    if (getBandType() == BandTypeNb) {
        return mostPreferred<BandTypeNb>(mAmrRates);
    }
    return mostPreferred<BandTypeWb>(mAmrRates);
}

}  // namespace rune
}  // namespace velmora
