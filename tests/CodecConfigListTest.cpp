#include <gtest/gtest.h>

#include "AmrCodecConfig.h"
#include "Counted.h"
#include "DtmfCodecConfig.h"
#include "StreamConfig.h"

namespace tessel::rva::tests {

typedef rvatest::Counted<DtmfCodecConfig, CodecConfig> CountedCodec;

// A list deletes what it holds exactly once, first to last: when cleared, when cloned
// over, and with its stream, the downlink list before the uplink one.
TEST(CodecConfigListTest, OwnsOnlyWhatItAcceptsAndDeletesEachCodecOnceInOrder) {
    CountedCodec::deleted.clear();
    StreamConfig::CodecConfigList list, copy;
    CountedCodec rival;
    rival.setPayloadType(97);
    CountedCodec* held = new CountedCodec(rival);
    EXPECT_EQ("Invalid Param (Code 1002): Null pointer", list.add(nullptr).format());
    ASSERT_TRUE(list.add(new AmrCodecConfig).isSuccess() && list.add(held).isSuccess());
    EXPECT_EQ("Invalid Param (Code 1002): A codec with the same payload type 97 is already present",
              list.add(&rival).format());
    // Identity is tested before the payload type, and not only at the first element.
    EXPECT_EQ("Invalid Param (Code 1002): Already present", list.add(held).format());
    copy.cloneContentFrom(list);
    copy.cloneContentFrom(copy);
    for (size_t i = 0; i < 2; ++i) rvatest::expectClone(list.get(i), copy.get(i));
    std::vector<int> deleted = {held->mId, dynamic_cast<const CountedCodec&>(*copy.get(1)).mId};
    {
        StreamConfig stream;
        for (int payloadType : {1, 2, 3, 4}) {  // the downlink ones first
            rival.setPayloadType(payloadType);
            ASSERT_TRUE((payloadType > 2 ? stream.addUplinkCodec(rival) : stream.addDownlinkCodec(rival)).isSuccess());
            deleted.push_back(CountedCodec::lastId);  // the clone just taken
        }
        list.clear();
        copy.cloneContentFrom(list);
        copy.clear();
    }
    EXPECT_EQ(deleted, CountedCodec::deleted);
}

}  // namespace tessel::rva::tests
