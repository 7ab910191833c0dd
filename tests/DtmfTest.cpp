#include "Dtmf.h"

#include <gtest/gtest.h>

namespace {

using tessel::rva::Dtmf;

TEST(DtmfTest, EachKeyCharacterMapsToItsEventCode) {
    const char characters[] = "0123456789*#ABCD";
    for (int code = 0; code < 16; ++code) {
        SCOPED_TRACE(characters[code]);
        Dtmf::Key key = static_cast<Dtmf::Key>(-1);
        EXPECT_TRUE(Dtmf::getDtmfKeyFromChar(characters[code], key));
        EXPECT_EQ(code, key);
    }
    EXPECT_EQ(16U, Dtmf::_dtmfCharMap.size());
    EXPECT_EQ(Dtmf::KeyStar, Dtmf::_dtmfCharMap.at('*'));
    EXPECT_EQ(Dtmf::KeyD, Dtmf::_dtmfCharMap.at('D'));
}

TEST(DtmfTest, OtherCharactersLeaveTheKeyUntouched) {
    for (char character : {'a', 'd', 'E', ' ', '\0', ',', 'p', '\xff'}) {
        SCOPED_TRACE(static_cast<int>(character));
        Dtmf::Key key = Dtmf::KeyHash;
        EXPECT_FALSE(Dtmf::getDtmfKeyFromChar(character, key));
        EXPECT_EQ(Dtmf::KeyHash, key);
    }
}

TEST(DtmfTest, RebuildingTheMapChangesNothing) {
    std::map<char, Dtmf::Key>& again = Dtmf::initDtmfCharMap();
    EXPECT_EQ(&Dtmf::_dtmfCharMap, &again);
    EXPECT_EQ(16U, again.size());
}

}  // namespace
