// The telephone-event codec (RFC 4733) of a stream, and the map from dialled characters to the
// DTMF event codes it carries.
//
//   Dtmf::Key key;
//   if (Dtmf::getDtmfKeyFromChar('#', key)) sendEvent(key);  // KeyPound, 11
#ifndef VELMORA_RUNE_DTMF_H
#define VELMORA_RUNE_DTMF_H

#include <velmora/rune/CodecCapabilities.h>
#include <velmora/rune/CodecConfig.h>

#include <cstdint>
#include <map>

// The library exports what its public headers declare and hides the rest.
#pragma GCC visibility push(default)

namespace velmora {
namespace rune {

class DtmfCodecConfig : public CodecConfig {
  public:
    static const BandType DEFAULT_BAND_TYPE;
    static const int DEFAULT_PAYLOAD_TYPE;
    static const unsigned DEFAULT_PACKET_TIME;
    static const unsigned DEFAULT_MAX_PACKET_TIME;

    DtmfCodecConfig();
    DtmfCodecConfig(const DtmfCodecConfig& other);
    DtmfCodecConfig& operator=(const DtmfCodecConfig& other);
    ~DtmfCodecConfig() override;

    // Both bands.
    bool isSupportedBandType(BandType bandType) const override;
    CodecConfig* clone() const override;
};

class DtmfCodecCapabilities : public CodecCapabilities {
  public:
    DtmfCodecCapabilities();
    DtmfCodecCapabilities(const DtmfCodecCapabilities& other);
    DtmfCodecCapabilities& operator=(const DtmfCodecCapabilities& other);
    ~DtmfCodecCapabilities() override;

    CodecCapabilities* clone() const override;
};

class Dtmf {
  public:
    // RFC 4733 event codes.
    enum Key : int32_t {
        Key0 = 0,
        Key1 = 1,
        Key2 = 2,
        Key3 = 3,
        Key4 = 4,
        Key5 = 5,
        Key6 = 6,
        Key7 = 7,
        Key8 = 8,
        Key9 = 9,
        KeyStar = 10,
        KeyPound = 11,
        KeyA = 12,
        KeyB = 13,
        KeyC = 14,
        KeyD = 15,
    };

    // The sixteen keys, '0'-'9', '*', '#' and upper-case 'A'-'D'; built when the library loads.
    static const std::map<char, Key>& initDtmfCharMap();
    // False, leaving key untouched, for any other character.
    static bool getDtmfKeyFromChar(char c, Key& key);

  private:
    static const std::map<char, Key>& _dtmfCharMap;
};

}  // namespace rune
}  // namespace velmora

#pragma GCC visibility pop

#endif  // VELMORA_RUNE_DTMF_H
