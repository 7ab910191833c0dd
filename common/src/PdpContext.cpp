#include "PdpContext.h"

namespace tessel {
namespace rva {

PdpContext::PdpContext() : primaryCID(1), secondaryCID(1) {}

bool PdpContext::operator==(const PdpContext& other) const {
    return primaryCID == other.primaryCID && secondaryCID == other.secondaryCID;
}

}  // namespace rva
}  // namespace tessel
