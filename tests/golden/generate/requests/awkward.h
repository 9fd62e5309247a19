#ifndef ALIDADE_TESTS_GOLDEN_GENERATE_REQUESTS_AWKWARD_H
#define ALIDADE_TESTS_GOLDEN_GENERATE_REQUESTS_AWKWARD_H

// Requests at which formulas branch, cancel or break. There are many of them, so that the golden files, those of round
// 0, hold none: they are for the comparison of library and reference on fresh numbers.

#include "golden/generate/requests.h"

namespace generate {

void add_awkward_conversions(Requests& r, std::uint64_t round);
void add_awkward_local_frames(Requests& r, std::uint64_t round);
void add_awkward_angles(Requests& r, std::uint64_t round);
void add_awkward_points(Requests& r, std::uint64_t round);
void add_awkward_lines(Requests& r, std::uint64_t round);
void add_awkward_arcs(Requests& r, std::uint64_t round);
void add_awkward_covariances(Requests& r, std::uint64_t round);
void add_awkward_scalars(Requests& r, std::uint64_t round);
void add_awkward_levels(Requests& r, std::uint64_t round);
void add_awkward_quantiles(Requests& r, std::uint64_t round);

}  // namespace generate

#endif
