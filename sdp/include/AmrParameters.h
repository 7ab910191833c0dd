// The format parameters of one AMR or AMR-WB payload type (RFC 4867 section 8.1): the
// text of its a=fmtp line after the payload type, read and written.
//
//   AmrParameters p;
//   AmrParameters::parse("mode-set=0,2,4,7; mode-change-period=2, octet-align=1", BandTypeNb, p);
//   *p.modeSet;        // {0, 2, 4, 7}
//   p.toString();      // "mode-set=0,2,4,7; octet-align=1; mode-change-period=2"
//
// Reading. Parameters are separated by ';' with optional blanks. A comma followed by
// optional blanks and "<name>=" also separates two parameters (a slip found in published
// offers: "mode-change-period=2, mode-change-neighbor=1"); inside mode-set, commas separate
// modes. Blanks around '=' and around the commas of mode-set are allowed, and so are empty
// parameters (a trailing ';'). Names compare case-insensitively. Values:
//   octet-align, mode-change-neighbor, crc, robust-sorting   0 or 1
//   mode-change-period, mode-change-capability               1 or 2
//   interleaving                                             1..65535
//   max-red                                                  0..65535 (milliseconds)
//   mode-set                          modes 0..7 (narrow band) or 0..8 (wide band), at least one
// in decimal digits. A value outside these, or a parameter without '=', is 1004 naming the
// parameter. Unknown parameters (channels, ptime, EVS parameters...) are skipped. When a
// parameter is given twice, the first counts (both are checked).
//
// What was written is recorded as written: crc=1, robust-sorting=1 or interleaving imply
// octet-aligned operation (RFC 4867 section 8.1), but octetAlign stays absent here; the
// mapping and offer/answer apply that rule.
#ifndef TESSEL_RVA_SDP_AMR_PARAMETERS_H
#define TESSEL_RVA_SDP_AMR_PARAMETERS_H

#include <optional>
#include <string>
#include <vector>

#include "MediaTypes.h"
#include "RvaExport.h"
#include "SdpResult.h"

namespace tessel {
namespace rva {
namespace sdp {

struct RVA_EXPORT AmrParameters {
    std::optional<std::vector<int>> modeSet;  // as listed, duplicates dropped
    std::optional<int> octetAlign, modeChangePeriod, modeChangeCapability, modeChangeNeighbor, crc,
        robustSorting, interleaving, maxRed;

    // Parses the text after "a=fmtp:<pt> " for the given band. Replaces `out` on success;
    // on failure `out` is unchanged: 1004 for bad syntax or a bad value, 1002 for a band
    // other than BandTypeNb and BandTypeWb.
    static Result parse(const std::string& fmtp, BandType band, AmrParameters& out) noexcept;

    // The present parameters joined by "; " in this order: mode-set (modes joined by ','),
    // octet-align, mode-change-period, mode-change-capability, mode-change-neighbor, crc,
    // robust-sorting, interleaving, max-red. "" when none is present.
    std::string toString() const noexcept;

    // True when the payload format is octet-aligned: octet-align=1, or crc=1,
    // robust-sorting=1 or any interleaving (RFC 4867 section 8.1).
    bool isOctetAligned() const noexcept;

    bool operator==(const AmrParameters& other) const noexcept;
    bool operator!=(const AmrParameters& other) const noexcept { return !(*this == other); }
};

}  // namespace sdp
}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_SDP_AMR_PARAMETERS_H
