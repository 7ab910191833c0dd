#include "CodecCapabilities.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "AmrCodecCapabilities.h"
#include "DtmfCodecCapabilities.h"
#include "ExpectAbort.h"

namespace {

using namespace tessel::rva;

// The base made concrete, so that any codec id and band reach its constructor.
struct PlainCodecCapabilities : CodecCapabilities {
    PlainCodecCapabilities(CodecId codecId, BandType bandType) : CodecCapabilities(codecId, bandType, 20, 240, 1) {}
    CodecCapabilities* clone() const noexcept override { return new PlainCodecCapabilities(*this); }
};

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsAValidCodecIdThenAValidBandType) {
    const char* const kBadCodec = "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)";
    EXPECT_ABORT(PlainCodecCapabilities(CodecId(2), BandTypeWb), kBadCodec);
    EXPECT_ABORT(PlainCodecCapabilities(CodecId(-1), BandType(2)), kBadCodec);
    EXPECT_ABORT(PlainCodecCapabilities(CodecIdDtmf, BandType(-1)),
                 "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)");
}

// The counts are read and set as 64-bit values on every ABI, 32-bit ones included.
typedef std::uint64_t (CodecCapabilities::*CountGetter)() const;
typedef void (CodecCapabilities::*CountSetter)(std::uint64_t);
static_assert(std::is_same_v<decltype(&CodecCapabilities::getPacketTime), CountGetter> &&
              std::is_same_v<decltype(&CodecCapabilities::getMaxPacketTime), CountGetter> &&
              std::is_same_v<decltype(&CodecCapabilities::getChannelCount), CountGetter> &&
              std::is_same_v<decltype(&CodecCapabilities::setPacketTime), CountSetter> &&
              std::is_same_v<decltype(&CodecCapabilities::setMaxPacketTime), CountSetter> &&
              std::is_same_v<decltype(&CodecCapabilities::setChannelCount), CountSetter>);

// Both concrete classes start from band 1, 20 ms, 240 ms and one channel; the codec id
// alone keeps them apart. The setters store without checks; the three counts keep their
// low 32 bits and read back sign-extended (18446744073709551615 when every bit is set). A clone
// carries every field.
TEST(CodecCapabilitiesTest, DtmfDiffersFromAmrByCodecAloneAndStoresUncheckedSignExtendedValues) {
    DtmfCodecCapabilities dtmf;
    EXPECT_TRUE(PlainCodecCapabilities(CodecIdDtmf, BandTypeWb) == dtmf);
    EXPECT_TRUE(PlainCodecCapabilities(CodecIdAmr, BandTypeWb) == AmrCodecCapabilities());
    EXPECT_FALSE(dtmf == AmrCodecCapabilities());

    dtmf.setBandType(BandType(2));
    EXPECT_EQ(2, dtmf.getBandType());
    const std::uint64_t setAndRead[][2] = {
        {2147483647U, 2147483647U}, {4294967295U, ~std::uint64_t{0}}, {8589934591U, ~std::uint64_t{0}}};
    for (const auto& value : setAndRead) {
        dtmf.setPacketTime(value[0]);
        dtmf.setMaxPacketTime(value[0]);
        dtmf.setChannelCount(value[0]);
        EXPECT_EQ(std::vector<std::uint64_t>(3, value[1]),
                  (std::vector<std::uint64_t>{dtmf.getPacketTime(), dtmf.getMaxPacketTime(), dtmf.getChannelCount()}));
    }
    EXPECT_TRUE(*std::unique_ptr<CodecCapabilities>(dtmf.clone()) == dtmf);
}

}  // namespace
