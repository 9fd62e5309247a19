#ifndef NETWORK_ADJUSTMENT_REPORT_H
#define NETWORK_ADJUSTMENT_REPORT_H

#include <string>
#include <vector>

#include "adjustment.h"
#include "network.h"
#include "reduction.h"
#include "station_result.h"
#include "statistical_tests.h"

namespace network {

// Everything that is printed.
struct Results {
  std::vector<StationResult> stations;  // in the order of Network::stations
  VarianceTest variance;                // redundancy 0: no test
  ObservationTests tests;
  std::vector<Reduction> reductions;
};

Results evaluate_network(const Network& network, const AdjustedNetwork& adjusted, int base,
                         const std::vector<int>& rovers);

std::string report(const Network& network, const AdjustedNetwork& adjusted, const Results& results);

}  // namespace network

#endif
