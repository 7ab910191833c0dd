// Internal: the string stream that the records print themselves into.
#ifndef TESSEL_RVA_TEXT_STREAM_H
#define TESSEL_RVA_TEXT_STREAM_H

#include <ios>
#include <sstream>

namespace tessel {
namespace rva {

// A plain output string stream turns an allocation failure into a bad state and goes on,
// which would hand back a truncated text. This one lets the failure through, to the
// noexcept operation that prints, so that memory exhaustion ends the process.
class TextStream : public std::ostringstream {
public:
    TextStream() { exceptions(std::ios::badbit); }
};

}  // namespace rva
}  // namespace tessel

#endif  // TESSEL_RVA_TEXT_STREAM_H
