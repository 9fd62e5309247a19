#include "network.h"

#include <algorithm>

namespace network {

int find_station(const Network& network, const std::string& name) {
  const auto found = std::find_if(network.stations.begin(), network.stations.end(),
                                  [&name](const Station& station) { return station.name == name; });
  return found == network.stations.end() ? kNoStation : static_cast<int>(found - network.stations.begin());
}

}  // namespace network
