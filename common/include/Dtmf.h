// DTMF keys and the translation of a dialled character into its key.
//
// Key values are the telephone-event codes: digits 0..9, then star (10), hash (11) and
// A..D (12..15). Only upper-case A..D are keys. The character map is built when the
// library is loaded and is read-only afterwards.
//
//   Dtmf::Key key = Dtmf::Key0;
//   if (Dtmf::getDtmfKeyFromChar('#', key)) { /* key == Dtmf::KeyHash */ }
#ifndef TESSEL_RVA_DTMF_H
#define TESSEL_RVA_DTMF_H

#include <cstdint>
#include <map>

#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT Dtmf {
public:
    enum Key : std::int32_t {
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
        KeyHash = 11,
        KeyA = 12,
        KeyB = 13,
        KeyC = 14,
        KeyD = 15
    };

    // The map of the sixteen key characters, built on the first call; later calls set
    // the same entries again and change nothing.
    static std::map<char, Key>& initDtmfCharMap() noexcept;

    // Writes the key of `character` into `key` and returns true; for any other character
    // (lower-case 'a'..'d' included) returns false and leaves `key` untouched.
    static bool getDtmfKeyFromChar(char character, Key& key);

    // The character map, set up at library load; every look-up goes through it.
    static std::map<char, Key>& _dtmfCharMap;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_DTMF_H
