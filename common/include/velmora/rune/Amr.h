// AMR and AMR-WB (RFC 4867): mode indexes, the negotiated codec configuration and the local
// capabilities.
//
//   AmrCodecConfig amr;                 // AMR-WB, payload type 98
//   amr.addAmrRate(2);
//   amr.addAmrRate(8);
//   if (amr.check().isSuccess()) engine.start(amr.getPreferedAmrRate());  // 2
#ifndef VELMORA_RUNE_AMR_H
#define VELMORA_RUNE_AMR_H

#include <velmora/rune/CodecCapabilities.h>
#include <velmora/rune/CodecConfig.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

// Codec mode index (RFC 4867 mode-set): 0-7 for AMR, 0-8 for AMR-WB; -1 stands for "no rate".
enum AmrRate : int32_t {
    AmrRateNone = -1,
    AmrRate0 = 0,
    AmrRate1 = 1,
    AmrRate2 = 2,
    AmrRate3 = 3,
    AmrRate4 = 4,
    AmrRate5 = 5,
    AmrRate6 = 6,
    AmrRate7 = 7,
    AmrRate8 = 8,
};

// Where mode changes may happen; SDP mode-change-period=1 or 2 (RFC 4867).
enum ModeChangePeriod : int32_t {
    ModeChangePeriodAnyFrame = 0,
    ModeChangePeriodEveryOtherFrame = 1,
};

// Whether this side can restrict its mode changes to every other frame; SDP
// mode-change-capability=1 or 2 (RFC 4867).
enum ModeChangeCapability : int32_t {
    ModeChangeCapabilityAnyFrameOnly = 0,
    ModeChangeCapabilityEveryOtherFrame = 1,
};

bool isAmrRateValid(AmrRate rate);
bool isModeChangePeriodValid(ModeChangePeriod period);
bool isModeChangeCapabilityValid(ModeChangeCapability capability);

class AmrCodecConfig : public CodecConfig {
  public:
    // Orders rates by this library's preference for the band, best first.
    template <BandType Band>
    class AmrRatePreferenceComparator {
      public:
        AmrRatePreferenceComparator();
        static std::map<AmrRate, unsigned int> initRatesRanks();
        // Aborts the process for a rate the band does not rank.
        bool operator()(const AmrRate& lhs, const AmrRate& rhs) const;

      private:
        // Rank 0 is the most preferred.
        std::map<AmrRate, unsigned int> mRatesRanks;
    };

    static const bool DEFAULT_OCTET_ALIGN_ENABLED;
    static const bool DEFAULT_DTX_MODE_ENABLED;
    static const bool DEFAULT_RDCY_ENABLED;
    static const int DEFAULT_MAX_RDCY;
    static const bool DEFAULT_CRC_ENABLED;
    static const bool DEFAULT_ROBUST_SORTING_ENABLED;
    static const bool DEFAULT_INTERLEAVING_ENABLED;
    static const bool DEFAULT_MODE_CHANGE_NEIGHBOR_ENABLED;
    static const ModeChangePeriod DEFAULT_MODE_CHANGE_PERIOD;
    static const int DEFAULT_PAYLOAD_TYPE;
    static const unsigned DEFAULT_PACKET_TIME;
    static const unsigned DEFAULT_MAX_PACKET_TIME;
    static const BandType DEFAULT_BAND_TYPE;

    AmrCodecConfig();
    AmrCodecConfig(const AmrCodecConfig& other);
    AmrCodecConfig& operator=(const AmrCodecConfig& other);
    ~AmrCodecConfig() override;

    bool isSupportedBandType(BandType bandType) const override;
    // The packet times first, then the rates: the first failure is returned.
    [[nodiscard]] Result check() const override;
    AmrCodecConfig* clone() const override;
    // Codec, band, payload type, octet-align, DTX, redundancy, max redundancy, CRC, robust
    // sorting and interleaving. Differing rate lists only log a warning.
    bool operator==(const CodecConfig& other) const override;
    // The base's five lines, then eleven AMR lines.
    std::string toString() const override;

    // Copies the AMR fields only; the base is left alone.
    void copyFrom(const AmrCodecConfig& other);

    // RFC 4867 octet-align.
    void setOctetAlignMode(bool enabled) { mOctetAlignMode = enabled; }
    bool isOctetAlignModeEnabled() const { return mOctetAlignMode; }
    void setDTXMode(bool enabled) { mDtxMode = enabled; }
    bool isDTXModeEnabled() const { return mDtxMode; }
    void setRdcyMode(bool enabled) { mRdcyMode = enabled; }
    bool isRdcyModeEnabled() const { return mRdcyMode; }
    // RFC 4867 max-red.
    void setMaxRdcy(int maxRdcy) { mMaxRdcy = maxRdcy; }
    int getMaxRdcy() const { return mMaxRdcy; }
    void setCrcMode(bool enabled) { mCrcMode = enabled; }
    bool isCrcModeEnabled() const { return mCrcMode; }
    void setRobustSortingMode(bool enabled) { mRobustSortingMode = enabled; }
    bool isRobustSortingModeEnabled() const { return mRobustSortingMode; }
    void setInterleavingMode(bool enabled) { mInterleavingMode = enabled; }
    bool isInterleavingModeEnabled() const { return mInterleavingMode; }
    void setModeChangeNeighbor(bool enabled) { mModeChangeNeighbor = enabled; }
    bool isModeChangeNeighborEnabled() const { return mModeChangeNeighbor; }
    void setModeChangePeriod(ModeChangePeriod period) { mModeChangePeriod = period; }
    ModeChangePeriod getModeChangePeriod() const { return mModeChangePeriod; }

    // Refuses (1002) an invalid rate; a rate already listed is a silent success.
    Result addAmrRate(AmrRate rate);
    unsigned int getAmrRateCount() const;
    // -1 when index is out of range.
    AmrRate getAmrRate(unsigned int index) const;
    const std::vector<AmrRate>& getSupportedAmrRates() const { return mAmrRates; }
    bool containAmrRate(AmrRate rate) const;
    void clearAmrRateVector() { mAmrRates.clear(); }
    // The best-ranked rate of the list for the band; -1 for an empty list. Aborts on a rate the
    // band does not rank (8 on the narrow band): run check() first.
    AmrRate getPreferedAmrRate() const;

  private:
    // RFC 4867 octet-align.
    bool mOctetAlignMode;
    // Discontinuous transmission.
    bool mDtxMode;
    // Redundancy.
    bool mRdcyMode;
    // RFC 4867 max-red.
    int mMaxRdcy;
    // RFC 4867 mode-set, in the order added.
    std::vector<AmrRate> mAmrRates;
    // RFC 4867 crc.
    bool mCrcMode;
    // RFC 4867 robust-sorting.
    bool mRobustSortingMode;
    // RFC 4867 interleaving.
    bool mInterleavingMode;
    // RFC 4867 mode-change-neighbor.
    bool mModeChangeNeighbor;
    // RFC 4867 mode-change-period.
    ModeChangePeriod mModeChangePeriod;
};

class AmrCodecCapabilities : public CodecCapabilities {
  public:
    AmrCodecCapabilities();
    AmrCodecCapabilities(const AmrCodecCapabilities& other);
    AmrCodecCapabilities& operator=(const AmrCodecCapabilities& other);
    ~AmrCodecCapabilities() override;

    // The base, then every AMR field; the rate lists in order.
    bool operator==(const CodecCapabilities& other) const override;
    AmrCodecCapabilities* clone() const override;

    // Copies the AMR fields only; the base is left alone.
    void copyFrom(const AmrCodecCapabilities& other);

    void setOctetAlignModeRequired(bool required) { mOctetAlignModeRequired = required; }
    bool isOctetAlignModeRequired() const { return mOctetAlignModeRequired; }
    void setDTXModeSupport(bool supported) { mDtxModeSupport = supported; }
    bool isDTXModeSupported() const { return mDtxModeSupport; }
    void setRdcyModeSupport(bool supported) { mRdcyModeSupport = supported; }
    bool isRdcyModeSupported() const { return mRdcyModeSupport; }
    void setMaxSupportedRdcy(int maxRdcy) { mMaxSupportedRdcy = maxRdcy; }
    // -1 while redundancy is not supported.
    int getMaxSupportedRdcy() const;
    void setModeChangeNeighborRequired(bool required) { mModeChangeNeighborRequired = required; }
    bool isModeChangeNeighborRequired() const { return mModeChangeNeighborRequired; }
    void setRateAdaptationModeSupport(bool supported) { mRateAdaptationModeSupport = supported; }
    bool isRateAdaptationModeSupported() const { return mRateAdaptationModeSupport; }
    void setCrcModeSupport(bool supported) { mCrcModeSupport = supported; }
    bool isCrcModeSupported() const { return mCrcModeSupport; }
    void setRobustSortingModeSupport(bool supported) { mRobustSortingModeSupport = supported; }
    bool isRobustSortingModeSupported() const { return mRobustSortingModeSupport; }
    void setInterleavingModeSupport(bool supported) { mInterleavingModeSupport = supported; }
    bool isInterleavingModeSupported() const { return mInterleavingModeSupport; }
    ModeChangePeriod getModeChangePeriod() const { return mModeChangePeriod; }
    ModeChangeCapability getModeChangeCapability() const { return mModeChangeCapability; }

    // Refuse (1002) values other than 0 and 1, keeping the stored one.
    Result setModeChangePeriod(ModeChangePeriod period);
    Result setModeChangeCapability(ModeChangeCapability capability);

    // Refuses (1002) an invalid rate; a rate already listed is a silent success.
    Result addSupportedAmrRate(AmrRate rate);
    unsigned int getSupportedAmrRateCount() const;
    // -1 when index is out of range.
    AmrRate getSupportedAmrRate(unsigned int index) const;
    void clearSupportedAmrRateVector() { mSupportedAmrRates.clear(); }

  private:
    bool mOctetAlignModeRequired;
    bool mDtxModeSupport;
    bool mRdcyModeSupport;
    // RFC 4867 max-red, in ms.
    int mMaxSupportedRdcy;
    // Mode indexes, in the order added.
    std::vector<AmrRate> mSupportedAmrRates;
    bool mRateAdaptationModeSupport;
    ModeChangePeriod mModeChangePeriod;
    ModeChangeCapability mModeChangeCapability;
    bool mModeChangeNeighborRequired;
    bool mCrcModeSupport;
    bool mRobustSortingModeSupport;
    bool mInterleavingModeSupport;
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_AMR_H
