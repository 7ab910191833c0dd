// The RTCP parameters of one stream: report interval, the receiver (RR), sender (RS) and
// session (AS) bandwidth figures, and whether reduced-size RTCP is allowed.
//
// A plain value: every number is accepted, stored, copied and compared, never
// interpreted. The receiver figure defaults to 0 while the sender figure defaults to
// 800: intended.
//
//   RtcpConfig rtcp;                                   // 5000, 0, 800, 64, false
//   rtcp.setInterval(2500);
//   bool off = (rtcp == RtcpConfig::disabledRtcpConfig);
#ifndef TESSEL_RVA_RTCP_CONFIG_H
#define TESSEL_RVA_RTCP_CONFIG_H

#include "RvaExport.h"

namespace tessel {
namespace rva {

class RVA_EXPORT RtcpConfig {
public:
    static const unsigned int DEFAULT_INTERVAL;
    static const unsigned int DEFAULT_RR;
    static const unsigned int DEFAULT_RS;
    static const unsigned int DEFAULT_AS;
    static const bool DEFAULT_REDUCED_SIZE_MODE;

    // All zeros: stands for disabled RTCP. Set when the library is loaded.
    static RtcpConfig disabledRtcpConfig;

    RtcpConfig();
    RtcpConfig(unsigned int interval, unsigned int rr, unsigned int rs, unsigned int as, bool reducedSizeMode);

    bool operator==(const RtcpConfig& other) const;
    bool operator!=(const RtcpConfig& other) const { return !(*this == other); }

    unsigned int getInterval() const { return mInterval; }
    void setInterval(unsigned int interval) { mInterval = interval; }
    unsigned int getRr() const { return mRr; }
    void setRr(unsigned int rr) { mRr = rr; }
    unsigned int getRs() const { return mRs; }
    void setRs(unsigned int rs) { mRs = rs; }
    unsigned int getAs() const { return mAs; }
    void setAs(unsigned int as) { mAs = as; }
    bool isReducedSizeMode() const { return mReducedSizeMode; }
    void setReducedSizeMode(bool reducedSizeMode) { mReducedSizeMode = reducedSizeMode; }

private:
    unsigned int mInterval;
    unsigned int mRr;
    unsigned int mRs;
    unsigned int mAs;
    bool mReducedSizeMode;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_RTCP_CONFIG_H
