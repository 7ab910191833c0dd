#include "Dtmf.h"

#include <gtest/gtest.h>

namespace {

using tessel::rva::Dtmf;

TEST(DtmfTest, KeyCharactersMapToTheirEventCodesAndOthersLeaveTheKeyUntouched) {
    const char characters[] = "0123456789*#ABCD";
    for (int code = 0; code < 16; ++code) {
        Dtmf::Key key = static_cast<Dtmf::Key>(-1);
        EXPECT_TRUE(Dtmf::getDtmfKeyFromChar(characters[code], key)) << characters[code];
        EXPECT_EQ(code, key) << characters[code];
    }
    for (char character : {'a', 'd', 'E', ' ', '\0', ',', '\xff'}) {
        Dtmf::Key key = Dtmf::KeyHash;
        EXPECT_FALSE(Dtmf::getDtmfKeyFromChar(character, key)) << static_cast<int>(character);
        EXPECT_EQ(Dtmf::KeyHash, key);
    }
    EXPECT_EQ(&Dtmf::_dtmfCharMap, &Dtmf::initDtmfCharMap());  // rebuilding changes nothing
    EXPECT_EQ(16U, Dtmf::_dtmfCharMap.size());
}

}  // namespace
