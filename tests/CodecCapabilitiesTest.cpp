#include "CodecCapabilities.h"

#include <gtest/gtest.h>

#include "AmrCodecCapabilities.h"
#include "DtmfCodecCapabilities.h"
#include "ExpectAbort.h"

namespace tessel::rva::tests {

// The base made concrete, so that any codec id and band reach its constructor.
struct PlainCaps : CodecCapabilities {
    PlainCaps(CodecId codecId, BandType bandType) : CodecCapabilities(codecId, bandType, 20, 240, 1) {}
    CodecCapabilities* clone() const noexcept override { return new PlainCaps(*this); }
};

// Both concrete classes start from band 1, 20 ms, 240 ms and one channel: the codec id
// alone keeps them apart.
TEST(CodecCapabilitiesTest, ConcreteClassesDifferByTheirCodecIdAlone) {
    EXPECT_TRUE(PlainCaps(CodecIdAmr, BandTypeWb) == AmrCodecCapabilities() &&
                PlainCaps(CodecIdDtmf, BandTypeWb) == DtmfCodecCapabilities());
    EXPECT_TRUE(DtmfCodecCapabilities() != AmrCodecCapabilities());
}

TEST(CodecCapabilitiesDeathTest, ConstructorAssertsAValidCodecIdThenAValidBandType) {
    EXPECT_ABORT(PlainCaps(CodecId(2), BandType(2)), "KARDU.*Assertion failed: isCodecIdValid\\(mCodecId\\)");
    EXPECT_ABORT(PlainCaps(CodecIdDtmf, BandType(-1)), "KARDU.*Assertion failed: isBandTypeValid\\(mBandType\\)");
}

}  // namespace tessel::rva::tests
