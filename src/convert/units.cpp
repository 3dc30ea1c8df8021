#include <quorkit/GQuorConvert.h>

#include "runtime/convert.h"

namespace quorkit {
namespace {

constexpr Double kTwipsPerPixel = 1440.0 / 96;  // twips per inch / dots per inch

Long toPixels(Long twips) {
    return runtime::roundToLong(twips / kTwipsPerPixel);
}

Long toTwips(Long pixels) {
    return runtime::roundToLong(pixels * kTwipsPerPixel);
}

}  // namespace

Long GQuorConvert::TwipsToPixelsX(Long lTwips) {
    return toPixels(lTwips);
}

Long GQuorConvert::PixelsToTwipsX(Long lPixels) {
    return toTwips(lPixels);
}

Long GQuorConvert::TwipsToPixelsY(Long lTwips) {
    return toPixels(lTwips);
}

Long GQuorConvert::PixelsToTwipsY(Long lPixels) {
    return toTwips(lPixels);
}

}  // namespace quorkit
