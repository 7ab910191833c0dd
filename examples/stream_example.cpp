// Prints the media vocabulary of the library.
#include <cstdio>

#include "MediaTypes.h"

int main() {
    using namespace tessel::rva;
    std::printf("Codecs: %s, %s\n", getCodecIdDescription(CodecIdAmr), getCodecIdDescription(CodecIdDtmf));
    std::printf("Bands: %s (%u Hz), %s (%u Hz)\n", getBandTypeDescription(BandTypeNb),
                getBandTypeSamplingRate(BandTypeNb), getBandTypeDescription(BandTypeWb),
                getBandTypeSamplingRate(BandTypeWb));
    return 0;
}
