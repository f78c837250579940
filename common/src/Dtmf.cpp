#include <velmora/rune/Dtmf.h>

namespace velmora {
namespace rune {

// Bound while the library loads, so lookups never race to build the map.
const std::map<char, Dtmf::Key>& Dtmf::_dtmfCharMap = Dtmf::initDtmfCharMap();

const std::map<char, Dtmf::Key>& Dtmf::initDtmfCharMap() {
    static std::map<char, Key> charMap;
    charMap['0'] = Key0;
    charMap['1'] = Key1;
    charMap['2'] = Key2;
    charMap['3'] = Key3;
    charMap['4'] = Key4;
    charMap['5'] = Key5;
    charMap['6'] = Key6;
    charMap['7'] = Key7;
    charMap['8'] = Key8;
    charMap['9'] = Key9;
    charMap['*'] = KeyStar;
    charMap['#'] = KeyPound;
    charMap['A'] = KeyA;
    charMap['B'] = KeyB;
    charMap['C'] = KeyC;
    charMap['D'] = KeyD;
    return charMap;
}

bool Dtmf::getDtmfKeyFromChar(char c, Key& key) {
    const auto it = _dtmfCharMap.find(c);
    if (it == _dtmfCharMap.end()) {
        return false;
    }
    key = it->second;
    return true;
}

}  // namespace rune
}  // namespace velmora
