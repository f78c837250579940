#include <velmora/rune/Amr.h>

#include "internal/Results.h"

#include <algorithm>

namespace velmora {
namespace rune {

namespace {

// Packet times in ms.
const int kPacketTime = 20;
const int kMaxPacketTime = 240;
const int kChannelCount = 1;
const int kMaxSupportedRdcy = 220;

}  // namespace

AmrCodecCapabilities::AmrCodecCapabilities()
    : CodecCapabilities(CodecIdAmr, BandTypeWb, kPacketTime, kMaxPacketTime, kChannelCount),
      mOctetAlignModeRequired(false),
      mDtxModeSupport(true),
      // Unlike a configuration, a capability offers redundancy by default.
      mRdcyModeSupport(true),
      mMaxSupportedRdcy(kMaxSupportedRdcy),
      mRateAdaptationModeSupport(false),
      mModeChangePeriod(ModeChangePeriodAnyFrame),
      mModeChangeCapability(ModeChangeCapabilityEveryOtherFrame),
      mModeChangeNeighborRequired(false),
      mCrcModeSupport(false),
      mRobustSortingModeSupport(false),
      mInterleavingModeSupport(false) {}

AmrCodecCapabilities::AmrCodecCapabilities(const AmrCodecCapabilities& other)
    : CodecCapabilities(other) {
    copyFrom(other);
}

AmrCodecCapabilities& AmrCodecCapabilities::operator=(const AmrCodecCapabilities& other) {
    CodecCapabilities::operator=(other);
    copyFrom(other);
    return *this;
}

AmrCodecCapabilities::~AmrCodecCapabilities() = default;

void AmrCodecCapabilities::copyFrom(const AmrCodecCapabilities& other) {
    mOctetAlignModeRequired = other.mOctetAlignModeRequired;
    mDtxModeSupport = other.mDtxModeSupport;
    mRdcyModeSupport = other.mRdcyModeSupport;
    mMaxSupportedRdcy = other.mMaxSupportedRdcy;
    if (&other != this) {
        mSupportedAmrRates = other.mSupportedAmrRates;
    }
    mRateAdaptationModeSupport = other.mRateAdaptationModeSupport;
    mModeChangePeriod = other.mModeChangePeriod;
    mModeChangeCapability = other.mModeChangeCapability;
    mModeChangeNeighborRequired = other.mModeChangeNeighborRequired;
    mCrcModeSupport = other.mCrcModeSupport;
    mRobustSortingModeSupport = other.mRobustSortingModeSupport;
    mInterleavingModeSupport = other.mInterleavingModeSupport;
}

AmrCodecCapabilities* AmrCodecCapabilities::clone() const {
    return new AmrCodecCapabilities(*this);
}

bool AmrCodecCapabilities::operator==(const CodecCapabilities& other) const {
    // The codec id is compared before other is read as AMR.
    if (!CodecCapabilities::operator==(other)) {
        return false;
    }
    const auto& amr = static_cast<const AmrCodecCapabilities&>(other);
    // The stored maximum, not getMaxSupportedRdcy(): it comes back when redundancy does.
    return mOctetAlignModeRequired == amr.mOctetAlignModeRequired &&
           mDtxModeSupport == amr.mDtxModeSupport && mRdcyModeSupport == amr.mRdcyModeSupport &&
           mMaxSupportedRdcy == amr.mMaxSupportedRdcy &&
           mSupportedAmrRates == amr.mSupportedAmrRates &&
           mRateAdaptationModeSupport == amr.mRateAdaptationModeSupport &&
           mModeChangePeriod == amr.mModeChangePeriod &&
           mModeChangeCapability == amr.mModeChangeCapability &&
           mModeChangeNeighborRequired == amr.mModeChangeNeighborRequired &&
           mCrcModeSupport == amr.mCrcModeSupport &&
           mRobustSortingModeSupport == amr.mRobustSortingModeSupport &&
           mInterleavingModeSupport == amr.mInterleavingModeSupport;
}

int AmrCodecCapabilities::getMaxSupportedRdcy() const {
    return mRdcyModeSupport ? mMaxSupportedRdcy : -1;
}

AmrCodecCapabilities::Result AmrCodecCapabilities::setModeChangePeriod(ModeChangePeriod period) {
    if (!isModeChangePeriodValid(period)) {
        return makeResult<ResultTrait>(InvalidParam, "Bad mode change period: ", period);
    }
    mModeChangePeriod = period;
    return Result::success();
}

AmrCodecCapabilities::Result AmrCodecCapabilities::setModeChangeCapability(
    ModeChangeCapability capability) {
    if (!isModeChangeCapabilityValid(capability)) {
        return makeResult<ResultTrait>(InvalidParam, "Bad mode change capability: ", capability);
    }
    mModeChangeCapability = capability;
    return Result::success();
}

AmrCodecCapabilities::Result AmrCodecCapabilities::addSupportedAmrRate(AmrRate rate) {
    if (!isAmrRateValid(rate)) {
        return makeResult<ResultTrait>(InvalidParam, "Bad amr rate: ", rate);
    }
    if (std::find(mSupportedAmrRates.begin(), mSupportedAmrRates.end(), rate) ==
        mSupportedAmrRates.end()) {
        mSupportedAmrRates.push_back(rate);
    }
    return Result::success();
}

unsigned int AmrCodecCapabilities::getSupportedAmrRateCount() const {
    return static_cast<unsigned int>(mSupportedAmrRates.size());
}

AmrRate AmrCodecCapabilities::getSupportedAmrRate(unsigned int index) const {
    return index < mSupportedAmrRates.size() ? mSupportedAmrRates[index] : AmrRateNone;
}

}  // namespace rune
}  // namespace velmora
