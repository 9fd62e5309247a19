#include "small_networks.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "network_adjustment/matrix_views.h"
#include "network_adjustment/weight.h"

namespace small_networks {
namespace {

std::size_t at(int i) { return static_cast<std::size_t>(i); }

// Defect of a free network: heights can shift; a plane network can shift both ways and turn.
int free_defect(const SmallNetwork& net) { return net.width == 1 ? 1 : 3; }

class Fields {
public:
  Fields(const std::string& file, const std::string& line) : file_(file), line_(line), stream_(line) {}
  std::string text() {
    std::string word;
    if (!(stream_ >> word)) {
      throw std::runtime_error(file_ + ": field missing in " + line_);
    }
    return word;
  }
  double number() { return std::stod(text()); }

private:
  std::string file_;
  std::string line_;
  std::istringstream stream_;
};

}  // namespace

int SmallNetwork::find(const std::string& name) const {
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end()) {
    throw std::runtime_error("no point " + name);
  }
  return static_cast<int>(found - names.begin());
}

SmallNetwork read(const std::string& file) {
  std::ifstream input(ALIDADE_TEST_DATA "/" + file);
  if (!input) {
    throw std::runtime_error(file + ": cannot be opened");
  }
  SmallNetwork net;
  net.width = file.rfind("levelling", 0) == 0 ? 1 : 2;
  for (std::string line; std::getline(input, line);) {
    if (line.empty() || line[0] == '#') {
      continue;
    }
    Fields fields(file, line);
    const std::string type = fields.text();
    if (type == "SIGMA0") {
      net.sigma0 = fields.number();
    } else if (type == "PT") {
      net.names.push_back(fields.text());
      for (int c = 0; c < net.width; ++c) {
        net.approximate.push_back(fields.number());
      }
      net.fixed.push_back(0);
      net.datum.push_back(0);
    } else if (type == "FIX") {
      net.fixed[at(net.find(fields.text()))] = 1;
    } else if (type == "FREE") {
      net.datum[at(net.find(fields.text()))] = 1;
    } else if (type == "DH" || type == "DIST") {
      Measurement m{};
      m.from = net.find(fields.text());
      m.to = net.find(fields.text());
      m.value = fields.number();
      if (type == "DH") {
        const double length = fields.number();
        m.sd = fields.number() * std::sqrt(length / 1000);
      } else {
        m.sd = fields.number();
      }
      net.measurements.push_back(m);
    } else if (type == "ADJ") {
      PublishedPoint point{net.find(fields.text()), {}, {}, {}};
      const double unit = net.width == 1 ? 1e-3 : 1e-2;  // millimetres, centimetres
      for (int c = 0; c < net.width; ++c) {
        point.coordinates.push_back(fields.number());
        point.corrections.push_back(unit * fields.number());
        point.sd.push_back(unit * fields.number());
      }
      net.published.push_back(point);
    } else {
      throw std::runtime_error(file + ": unknown record " + type);
    }
  }
  return net;
}

std::vector<network::ObservationGroup> linearise(const SmallNetwork& net, const std::vector<double>& coordinates,
                                                 std::vector<int>& parameter_point) {
  parameter_point.clear();
  std::vector<int> parameter(at(net.points()), -1);
  for (int point = 0; point < net.points(); ++point) {
    if (net.fixed[at(point)] == 0) {
      parameter[at(point)] = static_cast<int>(parameter_point.size());
      parameter_point.push_back(point);
    }
  }
  std::vector<network::ObservationGroup> groups;
  for (const Measurement& m : net.measurements) {
    network::ObservationGroup group;
    // Derivatives of the computed value with respect to "to"; those for "from" are the negated ones.
    std::vector<double> direction(at(net.width));
    double computed = 0;
    for (int c = 0; c < net.width; ++c) {
      direction[at(c)] = coordinates[at(net.width * m.to + c)] - coordinates[at(net.width * m.from + c)];
    }
    if (net.width == 1) {
      computed = direction[0];
      direction[0] = 1;
    } else {
      computed = std::hypot(direction[0], direction[1]);
      direction[0] /= computed;
      direction[1] /= computed;
    }
    for (const int end : {m.from, m.to}) {
      if (parameter[at(end)] >= 0) {
        group.points.push_back(parameter[at(end)]);
        for (const double d : direction) {
          group.design.push_back(end == m.to ? d : -d);
        }
      }
    }
    group.misclosure = {m.value - computed};
    group.covariance = {m.sd / net.sigma0 * (m.sd / net.sigma0)};
    if (!network::invert_covariance(group.covariance, 1, group.weight)) {
      throw std::runtime_error("covariance not positive");
    }
    groups.push_back(group);
  }
  return groups;
}

void regular_inverse(const SmallNetwork& /*net*/, TSMatrix& normal) {
  if (RareInversion(normal, nullptr, 0) != 0) {
    throw std::runtime_error("normal matrix not positive definite");
  }
}

// PseudoInversion expects the inverse of the leading block (the solution with the last parameters held fixed) beside
// the untouched coupling block of the normal matrix.
int moore_penrose_inverse(TSMatrix& normal, int defect) {
  const int order = normal.GetDim1();
  normal.SetDim1(order - defect);
  const int failed = RareInversion(normal, nullptr, 0);
  normal.SetDim1(order);
  return failed != 0 ? failed : PseudoInversion(normal, defect);
}

void free_inverse(const SmallNetwork& net, TSMatrix& normal) {
  if (moore_penrose_inverse(normal, free_defect(net)) != 0) {
    throw std::runtime_error("normal matrix has another defect");
  }
}

// S-transformation (Baarda, S-Transformations and Criterion Matrices, 1973): Q = S N+ S', S = I - G (B' G)^-1 B', with
// G the common shift of all heights and B the shift of the datum points.
void datum_inverse(const SmallNetwork& net, TSMatrix& normal) {
  free_inverse(net, normal);
  const int n = net.points();
  const double share = 1.0 / static_cast<double>(std::count(net.datum.begin(), net.datum.end(), 1));
  TMatrix s(n, n, 0);
  for (int j = 0; j < n; ++j) {
    for (int i = 0; i < n; ++i) {
      s[s.Index(i, j)] = (i == j ? 1.0 : 0.0) - (net.datum[at(j)] != 0 ? share : 0.0);
    }
  }
  TSMatrix transformed(n, 0);
  SMATRopR_S_Rt(transformed, '=', s, normal);
  normal.BlockOper(0, '=', transformed);
}

SmallResult adjust(const SmallNetwork& net, Inversion invert, int defect) {
  SmallResult result;
  result.coordinates = net.approximate;
  for (int step = 0; step < 20; ++step) {
    const auto groups = linearise(net, result.coordinates, result.parameter_point);
    const int points = static_cast<int>(result.parameter_point.size());
    network::NormalEquations normal(points, net.width);
    for (const auto& group : groups) {
      normal.add(group);
    }
    invert(net, normal.matrix());
    const std::vector<double> correction = normal.solution();
    double largest = 0;
    for (int k = 0; k < net.width * points; ++k) {
      const int point = result.parameter_point[at(k / net.width)];
      result.coordinates[at(net.width * point + k % net.width)] += correction[at(k)];
      largest = std::max(largest, std::fabs(correction[at(k)]));
    }
    if (largest < 1e-7) {
      for (const auto& group : groups) {
        result.groups.push_back(network::evaluate(group, net.width, normal.matrix(), correction));
        result.weighted_square += result.groups.back().weighted_square;
      }
      result.redundancy = static_cast<int>(groups.size()) - net.width * points + defect;
      result.cofactor = normal.take_matrix();
      return result;
    }
    if (net.width == 1 && step > 1) {
      throw std::runtime_error("a linear problem needs one step");
    }
  }
  throw std::runtime_error("no convergence");
}

}  // namespace small_networks
