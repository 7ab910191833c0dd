#include "AmrParameters.h"

#include <gtest/gtest.h>

#include <string>

namespace tessel::rva::sdp {
namespace {

// Accepted texts, the canonical text they write (which reads back equal), and whether they
// mean octet-aligned operation: crc, robust-sorting and interleaving imply it (RFC 4867
// section 8.1) though octet-align stays as written.
TEST(AmrParametersTest, ReadsPublishedVariantsAndWritesThemCanonically) {
    const struct {
        const char* fmtp;
        BandType band;
        const char* written;
        bool octetAligned;
    } cases[] = {
        {"", BandTypeNb, "", false},
        {" ; ;", BandTypeNb, "", false},
        {"mode-set=0,2,4,7", BandTypeNb, "mode-set=0,2,4,7", false},
        {"mode-set=8,0", BandTypeWb, "mode-set=8,0", false},
        {"mode-set = 2 , 2,1 ,2", BandTypeNb, "mode-set=2,1", false},
        {"max-red=220;mode-change-capability=2 ; octet-align=1", BandTypeWb,
         "octet-align=1; mode-change-capability=2; max-red=220", true},
        {"mode-set=0,1, mode-change-period =2, mode-change-neighbor=1", BandTypeNb,
         "mode-set=0,1; mode-change-period=2; mode-change-neighbor=1", false},
        {"MODE-SET=1;Octet-Align=0;CRC=1;robust-sorting=1;interleaving=65535;max-red=0", BandTypeNb,
         "mode-set=1; octet-align=0; crc=1; robust-sorting=1; interleaving=65535; max-red=0", true},
        {"channels=1; ptime=20; br=5.9-24.4, bw=nb-swb; mode-change-capability=1", BandTypeNb,
         "mode-change-capability=1", false},
        {"octet-align=1; octet-align=0; mode-set=1; mode-set=2", BandTypeNb, "mode-set=1; octet-align=1", true},
        {"octet-align=01", BandTypeNb, "octet-align=1", true},
        {"octet-align=0; crc=0; robust-sorting=0", BandTypeNb, "octet-align=0; crc=0; robust-sorting=0", false},
        {"crc=1", BandTypeNb, "crc=1", true},
        {"robust-sorting=1", BandTypeNb, "robust-sorting=1", true},
        {"interleaving=1", BandTypeNb, "interleaving=1", true},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.fmtp);
        AmrParameters parameters;
        const Result result = AmrParameters::parse(row.fmtp, row.band, parameters);
        ASSERT_TRUE(result.isSuccess()) << result.format();
        EXPECT_EQ(row.written, parameters.toString());
        EXPECT_EQ(*row.written == '\0', parameters == AmrParameters());
        EXPECT_EQ(row.octetAligned, parameters.isOctetAligned());
        AmrParameters again;
        ASSERT_TRUE(AmrParameters::parse(parameters.toString(), row.band, again).isSuccess());
        EXPECT_EQ(parameters, again);
    }
}

// Each refusal names the parameter and leaves the output as it was.
TEST(AmrParametersTest, RefusesBadParametersNamingThem) {
    const struct {
        const char* fmtp;
        BandType band;
        const char* message;
    } cases[] = {
        {"mode-set=8", BandTypeNb, "invalid value of fmtp parameter \"mode-set\": \"8\""},
        {"mode-set=9", BandTypeWb, "invalid value of fmtp parameter \"mode-set\": \"9\""},
        {"mode-set=", BandTypeWb, "invalid value of fmtp parameter \"mode-set\": \"\""},
        {"mode-set=1,,2", BandTypeWb, "invalid value of fmtp parameter \"mode-set\": \"1,,2\""},
        {"mode-set=1,x; crc=1", BandTypeWb, "invalid value of fmtp parameter \"mode-set\": \"1,x\""},
        {"mode-set=1,2=3", BandTypeWb, "invalid value of fmtp parameter \"mode-set\": \"1,2=3\""},
        {"mode-set=-1", BandTypeWb, "invalid value of fmtp parameter \"mode-set\": \"-1\""},
        {"octet-align=2", BandTypeNb, "invalid value of fmtp parameter \"octet-align\": \"2\""},
        {"Mode-Change-Period=0", BandTypeNb, "invalid value of fmtp parameter \"Mode-Change-Period\": \"0\""},
        {"mode-change-capability=3", BandTypeNb, "invalid value of fmtp parameter \"mode-change-capability\": \"3\""},
        {"mode-change-neighbor=yes", BandTypeNb, "invalid value of fmtp parameter \"mode-change-neighbor\": \"yes\""},
        {"crc=", BandTypeNb, "invalid value of fmtp parameter \"crc\": \"\""},
        {"robust-sorting=-0", BandTypeNb, "invalid value of fmtp parameter \"robust-sorting\": \"-0\""},
        {"interleaving=0", BandTypeNb, "invalid value of fmtp parameter \"interleaving\": \"0\""},
        {"max-red=65536", BandTypeNb, "invalid value of fmtp parameter \"max-red\": \"65536\""},
        {"max-red=4294967296", BandTypeNb, "invalid value of fmtp parameter \"max-red\": \"4294967296\""},
        {"octet-align=1; octet-align=7", BandTypeNb, "invalid value of fmtp parameter \"octet-align\": \"7\""},
        {"octet-align=1; crc", BandTypeNb, "fmtp parameter without '=': \"crc\""},
        {"0-15", BandTypeNb, "fmtp parameter without '=': \"0-15\""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.fmtp);
        AmrParameters parameters;
        parameters.maxRed = 100;
        const Result result = AmrParameters::parse(row.fmtp, row.band, parameters);
        EXPECT_EQ(std::string("Malformed description (Code 1004): ") + row.message, result.format());
        EXPECT_EQ(100, parameters.maxRed);
    }
    AmrParameters parameters;
    EXPECT_EQ("Invalid Param (Code 1002): Invalid band: 2",
              AmrParameters::parse("", static_cast<BandType>(2), parameters).format());
}

}  // namespace
}  // namespace tessel::rva::sdp
