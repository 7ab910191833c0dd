// The packet-data (PDP) contexts that carry a stream: primary and secondary context ids.
//
//   PdpContext pdp;             // 1 and 1
//   pdp.primaryCID = 5;
//   stream.setPdpContext(pdp);
#ifndef TESSEL_RVA_PDP_CONTEXT_H
#define TESSEL_RVA_PDP_CONTEXT_H

#include <cstdint>

#include "RvaExport.h"

namespace tessel {
namespace rva {

struct RVA_EXPORT PdpContext {
    PdpContext();

    bool operator==(const PdpContext& other) const;
    bool operator!=(const PdpContext& other) const { return !(*this == other); }

    std::int32_t primaryCID;
    std::int32_t secondaryCID;
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_PDP_CONTEXT_H
