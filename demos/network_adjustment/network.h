#ifndef NETWORK_ADJUSTMENT_NETWORK_H
#define NETWORK_ADJUSTMENT_NETWORK_H

// A GNSS network as observed: stations, groups of correlated vectors, and the published result where the file has one.

#include <alidade/coords.h>

#include <map>
#include <string>
#include <vector>

namespace network {

// Stands for "from" of an observed position, which has no second station.
constexpr int kNoStation = -1;

// One observed vector: the baseline to - from, or (from == kNoStation) the position of a station. Geocentric, metres.
struct ObservedVector {
  int from;
  int to;
  Coord value;
};

enum class GroupKind { kBaseline, kBaselineCluster, kPositionCluster };

// Vectors that share one covariance matrix. Row 3 k + c of the covariance belongs to component c of vector k.
struct VectorGroup {
  GroupKind kind;
  int line;  // where the group begins in the file
  std::vector<ObservedVector> vectors;
  std::vector<double> covariance;  // packed lower triangle, square metres, scale factor applied
  std::vector<double> weight;      // its inverse, packed

  int rows() const { return 3 * static_cast<int>(vectors.size()); }
};

struct PublishedStation {
  int station;
  double latitude_deg;
  double longitude_deg;
  double height;
  Coord position;
  double sd_east;
  double sd_north;
  double sd_up;
};

struct PublishedObservation {
  double adjusted;
  double correction;
  double sd_adjusted;
  double sd_correction;
  double normal_statistic;
};

// The independently published result: empty for a network that has none.
struct PublishedResult {
  std::map<std::string, double> statistics;
  std::vector<PublishedStation> stations;
  std::vector<PublishedObservation> observations;  // in the order of the observations: group, vector, component
};

struct Station {
  std::string name;
  int line;             // where the station is first observed
  bool fixed = false;   // held at a given position
  Coord position = {};  // of a fixed station
};

// Of latitudes, longitudes and heights.
struct ReferenceEllipsoid {
  std::string name = "WGS84";
  double a = 6378137;  // semi-major axis, metres
  double inverse_flattening = 298.257223563;
};

struct Network {
  ReferenceEllipsoid ellipsoid;
  std::vector<Station> stations;
  std::vector<VectorGroup> groups;
  PublishedResult published;
};

// Index of the station of that name, or kNoStation.
int find_station(const Network& network, const std::string& name);

}  // namespace network

#endif
