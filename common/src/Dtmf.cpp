#include "Dtmf.h"

namespace tessel {
namespace rva {

std::map<char, Dtmf::Key>& Dtmf::initDtmfCharMap() noexcept {
    static std::map<char, Key> charMap;
    static const char characters[] = "0123456789*#ABCD";
    for (int key = Key0; key <= KeyD; ++key) {
        charMap[characters[key]] = static_cast<Key>(key);
    }
    return charMap;
}

std::map<char, Dtmf::Key>& Dtmf::_dtmfCharMap = Dtmf::initDtmfCharMap();

bool Dtmf::getDtmfKeyFromChar(char character, Key& key) {
    const std::map<char, Key>::const_iterator found = _dtmfCharMap.find(character);
    if (found == _dtmfCharMap.end()) {
        return false;
    }
    key = found->second;
    return true;
}

}  // namespace rva
}  // namespace tessel
