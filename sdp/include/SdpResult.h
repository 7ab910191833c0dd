// Result codes of the SDP layer: every operation that reads, writes, maps or negotiates a
// description returns a Result whose code is one of these.
//
//   SessionDescription description;
//   Result r = SessionDescription::parse(text, description);
//   if (r.getCode() == Malformed) log(r.format());  // "Malformed description (Code 1004): line 3: ..."
#ifndef TESSEL_RVA_SDP_SDP_RESULT_H
#define TESSEL_RVA_SDP_SDP_RESULT_H

#include <cstdint>

#include "Result.h"
#include "RvaExport.h"

namespace tessel {
namespace rva {
namespace sdp {

enum ResultCode : std::int32_t {
    Success = 1000,               // "Success"
    UnknownError = 1001,          // "Unknown error"
    InvalidParam = 1002,          // "Invalid Param": a caller's argument is refused
    InvalidConfiguration = 1003,  // "Invalid Configuration": the filled StreamConfig fails check()
    Malformed = 1004,             // "Malformed description": the text is not usable SDP
    Unsupported = 1005,           // "Unsupported": valid SDP that the records cannot hold
    Rejected = 1006,              // "Rejected": the stream is disabled or has no common format
};

// Describes the codes above; any other value is "Invalid error (Unreachable)".
struct RVA_EXPORT ResultTrait {
    typedef ResultCode Code;
    static constexpr Code SuccessCode = Success;
    static const char* describe(Code code) {
        switch (code) {
            case Success: return "Success";
            case UnknownError: return "Unknown error";
            case InvalidParam: return "Invalid Param";
            case InvalidConfiguration: return "Invalid Configuration";
            case Malformed: return "Malformed description";
            case Unsupported: return "Unsupported";
            case Rejected: return "Rejected";
        }
        return "Invalid error (Unreachable)";
    }
};

typedef utilities::result::Result<ResultTrait> Result;

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_SDP_RESULT_H
