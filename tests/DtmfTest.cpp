#include "Dtmf.h"

#include <gtest/gtest.h>

namespace tessel::rva::tests {

// The key of each character is the telephone-event code a caller sends on the wire.
TEST(DtmfTest, DtmfKeyCharactersGiveTheirEventCodesAndOthersLeaveTheKeyUntouched) {
    const char characters[] = "0123456789*#ABCD";
    const Dtmf::Key keys[] = {Dtmf::Key0, Dtmf::Key1, Dtmf::Key2, Dtmf::Key3, Dtmf::Key4,    Dtmf::Key5,
                              Dtmf::Key6, Dtmf::Key7, Dtmf::Key8, Dtmf::Key9, Dtmf::KeyStar, Dtmf::KeyHash,
                              Dtmf::KeyA, Dtmf::KeyB, Dtmf::KeyC, Dtmf::KeyD};
    for (int code = 0; code < 16; ++code) {
        Dtmf::Key key = static_cast<Dtmf::Key>(-1);
        EXPECT_TRUE(Dtmf::getDtmfKeyFromChar(characters[code], key)) << characters[code];
        EXPECT_TRUE(key == code && keys[code] == code) << characters[code];
    }
    for (char character : {'a', 'd', 'E', '\0', '\xff'}) {
        Dtmf::Key key = Dtmf::KeyHash;
        EXPECT_FALSE(Dtmf::getDtmfKeyFromChar(character, key) || key != Dtmf::KeyHash) << static_cast<int>(character);
    }
}

}  // namespace tessel::rva::tests
