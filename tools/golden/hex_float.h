#ifndef ALIDADE_TOOLS_GOLDEN_HEX_FLOAT_H
#define ALIDADE_TOOLS_GOLDEN_HEX_FLOAT_H

#include <cstdint>
#include <string>

namespace golden {

// Bits of a double, every NaN as the one quiet positive NaN: sign and payload of a NaN differ between processors and
// are no part of the promise.
std::uint64_t canonical_bits(double v);

// Canonical text of a double: 0x1.8p+1, -0x0p+0, 0x0.0000000000001p-1022 (subnormal), inf, -inf, nan. Two doubles are
// the same result exactly when their texts are equal. Written and read with integer operations only, because the hex
// float conversions of C libraries differ (and some are wrong).
std::string to_text(double v);

// Inverse of to_text. Returns false when the text is not canonical.
bool from_text(const std::string& text, double& v);

}  // namespace golden

#endif
