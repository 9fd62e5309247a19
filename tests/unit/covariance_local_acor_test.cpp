// Published covariances in the geocentric and in the local frame: V' = M V M' must turn one into the other. Source: see
// the head of the data file.

#include <alidade/linalg3.h>

#include <array>
#include <cmath>
#include <fstream>
#include <sstream>
#include <string>

#include "support/bits.h"

namespace {

constexpr double kRadiansPerDegree = 0.017453292519943295;

// Rows north, east, up of the rotation from geocentric axes.
matr3_3 local_frame(double latitude, double longitude) {
  const double sin_b = std::sin(latitude);
  const double cos_b = std::cos(latitude);
  const double sin_l = std::sin(longitude);
  const double cos_l = std::cos(longitude);
  const double rows[3][3] = {{-sin_b * cos_l, -sin_b * sin_l, cos_b},  //
                             {-sin_l, cos_l, 0.0},
                             {cos_b * cos_l, cos_b * sin_l, sin_b}};
  matr3_3 m(0);
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      m[matr3_3::Index(i, j)] = rows[i][j];
    }
  }
  return m;
}

// From three standard deviations and the correlations 1-2, 1-3, 2-3.
covar covariance(const double* s, const double* r) {
  return {s[0] * s[0], r[0] * s[0] * s[1], s[1] * s[1], r[1] * s[0] * s[2], r[2] * s[1] * s[2], s[2] * s[2]};
}

TEST(CovarianceLocalAcor, GeocentricCovariancesBecomeThePublishedLocalOnes) {
  std::ifstream file(ALIDADE_TEST_DATA "/covariance_local_acor.txt");
  ASSERT_TRUE(file);
  int records = 0;
  std::string line;
  while (std::getline(file, line)) {
    std::istringstream fields(line);
    std::string type, station, date;
    if (!(fields >> type) || type != "POS") {
      continue;
    }
    // mjd, X Y Z, sX sY sZ, rXY rXZ rYZ, latitude, longitude, height, sN sE sU, rNE rNU rEU
    std::array<double, 19> x{};
    fields >> station >> date;
    for (double& value : x) {
      ASSERT_TRUE(fields >> value) << line;
    }
    const covar geocentric = covariance(&x[4], &x[7]);
    const covar local = local_frame(x[10] * kRadiansPerDegree, x[11] * kRadiansPerDegree) & geocentric;
    triad deviation(local[0], local[2], local[5]);
    deviation.sqrt();
    // Rounding of the file: 5e-6 m in three deviations (sqrt(3) of that after rotation) and 5e-4 in the correlations
    // (1.4e-6 m in a deviation), 5e-6 m in the published result. A correlation is a quotient by deviations near 0.7 mm.
    for (int i = 0; i < 3; ++i) {
      EXPECT_NEAR(deviation[i], x[13 + static_cast<std::size_t>(i)], 2e-5) << date << ' ' << i;
    }
    EXPECT_NEAR(local[1] / (deviation[0] * deviation[1]), x[16], 0.02) << date;
    EXPECT_NEAR(local[3] / (deviation[0] * deviation[2]), x[17], 0.02) << date;
    EXPECT_NEAR(local[4] / (deviation[1] * deviation[2]), x[18], 0.02) << date;
    ++records;
  }
  EXPECT_EQ(records, 7);
}

}  // namespace
