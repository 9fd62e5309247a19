#include "reference/stats.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace reference {
namespace {

// The tables cell by cell as bit patterns of floats, each beside the decimal that is printed. The 36.72 of kUpper99,
// for 17 degrees of freedom, is a misprint (35.72) that belongs to the table.
// clang-format off
const std::uint32_t kOneSided95[30] = {
    0x4075C28F, /* 3.84 */ 0x40BFAE14, /* 5.99 */ 0x40F9EB85, /* 7.81 */ 0x4117D70A, /* 9.49 */ 0x41311EB8, /* 11.07 */
    0x414970A4, /* 12.59 */ 0x41611EB8, /* 14.07 */ 0x417828F6, /* 15.51 */ 0x41875C29, /* 16.92 */ 0x41927AE1, /* 18.31 */
    0x419D70A4, /* 19.68 */ 0x41A83D71, /* 21.03 */ 0x41B2E148, /* 22.36 */ 0x41BD70A4, /* 23.68 */ 0x41C80000, /* 25.0 */
    0x41D26666, /* 26.3 */ 0x41DCB852, /* 27.59 */ 0x41E6F5C3, /* 28.87 */ 0x41F11EB8, /* 30.14 */ 0x41FB47AE, /* 31.41 */
    0x4202AE14, /* 32.67 */ 0x4207AE14, /* 33.92 */ 0x420CAE14, /* 35.17 */ 0x4211AE14, /* 36.42 */ 0x4216999A, /* 37.65 */
    0x421B851F, /* 38.88 */ 0x422070A4, /* 40.11 */ 0x42255C29, /* 41.34 */ 0x422A3D71, /* 42.56 */ 0x422F147B, /* 43.77 */
};

const std::uint32_t kOneSided99[30] = {
    0x40D428F6, /* 6.63 */ 0x41135C29, /* 9.21 */ 0x413570A4, /* 11.34 */ 0x41547AE1, /* 13.28 */ 0x417170A4, /* 15.09 */
    0x41867AE1, /* 16.81 */ 0x4193D70A, /* 18.48 */ 0x41A0B852, /* 20.09 */ 0x41AD5C29, /* 21.67 */ 0x41B9AE14, /* 23.21 */
    0x41C5D70A, /* 24.73 */ 0x41D1C28F, /* 26.22 */ 0x41DD851F, /* 27.69 */ 0x41E91EB8, /* 29.14 */ 0x41F4A3D7, /* 30.58 */
    0x42000000, /* 32.0 */ 0x4205A3D7, /* 33.41 */ 0x420B3D71, /* 34.81 */ 0x4210C28F, /* 36.19 */ 0x421647AE, /* 37.57 */
    0x421BB852, /* 38.93 */ 0x422128F6, /* 40.29 */ 0x42268F5C, /* 41.64 */ 0x422BEB85, /* 42.98 */ 0x42313D71, /* 44.31 */
    0x42368F5C, /* 45.64 */ 0x423BD70A, /* 46.96 */ 0x42411EB8, /* 48.28 */ 0x42465C29, /* 49.59 */ 0x424B8F5C, /* 50.89 */
};

const std::uint32_t kLower68[30] = {
    0x3D27EF9E, /* 0.041 */ 0x3EB33333, /* 0.35 */ 0x3F570A3D, /* 0.84 */ 0x3FB5C28F, /* 1.42 */ 0x40047AE1, /* 2.07 */
    0x40300000, /* 2.75 */ 0x405CCCCD, /* 3.45 */ 0x4086147B, /* 4.19 */ 0x409DC28F, /* 4.93 */ 0x40B66666, /* 5.7 */
    0x40CF0A3D, /* 6.47 */ 0x40E851EC, /* 7.26 */ 0x4100CCCD, /* 8.05 */ 0x410DC28F, /* 8.86 */ 0x411AB852, /* 9.67 */
    0x4127D70A, /* 10.49 */ 0x4134F5C3, /* 11.31 */ 0x41423D71, /* 12.14 */ 0x414F851F, /* 12.97 */ 0x415CF5C3, /* 13.81 */
    0x416A6666, /* 14.65 */ 0x41780000, /* 15.5 */ 0x4182CCCD, /* 16.35 */ 0x4189999A, /* 17.2 */ 0x41907AE1, /* 18.06 */
    0x419747AE, /* 18.91 */ 0x419E3D71, /* 19.78 */ 0x41A51EB8, /* 20.64 */ 0x41AC147B, /* 21.51 */ 0x41B30A3D, /* 22.38 */
};

const std::uint32_t kUpper68[30] = {
    0x3FFC28F6, /* 1.97 */ 0x406AE148, /* 3.67 */ 0x40A570A4, /* 5.17 */ 0x40D28F5C, /* 6.58 */ 0x40FDC28F, /* 7.93 */
    0x41140000, /* 9.25 */ 0x4128A3D7, /* 10.54 */ 0x413CF5C3, /* 11.81 */ 0x4150F5C3, /* 13.06 */ 0x4164A3D7, /* 14.29 */
    0x417851EC, /* 15.52 */ 0x4185D70A, /* 16.73 */ 0x418F851F, /* 17.94 */ 0x41990A3D, /* 19.13 */ 0x41A28F5C, /* 20.32 */
    0x41AC0000, /* 21.5 */ 0x41B570A4, /* 22.68 */ 0x41BECCCD, /* 23.85 */ 0x41C828F6, /* 25.02 */ 0x41D170A4, /* 26.18 */
    0x41DAB852, /* 27.34 */ 0x41E3EB85, /* 28.49 */ 0x41ED1EB8, /* 29.64 */ 0x41F651EC, /* 30.79 */ 0x41FF70A4, /* 31.93 */
    0x420447AE, /* 33.07 */ 0x4208D70A, /* 34.21 */ 0x420D6666, /* 35.35 */ 0x4211EB85, /* 36.48 */ 0x421670A4, /* 37.61 */
};

const std::uint32_t kLower95[30] = {
    0x3A807358, /* 0.00098 */ 0x3D4F41F2, /* 0.0506 */ 0x3E5D2F1B, /* 0.216 */ 0x3EF7CED9, /* 0.484 */ 0x3F54BC6A, /* 0.831 */
    0x3F9EB852, /* 1.24 */ 0x3FD851EC, /* 1.69 */ 0x400B851F, /* 2.18 */ 0x402CCCCD, /* 2.7 */ 0x40500000, /* 3.25 */
    0x40747AE1, /* 3.82 */ 0x408CCCCD, /* 4.4 */ 0x40A051EC, /* 5.01 */ 0x40B428F6, /* 5.63 */ 0x40C851EC, /* 6.26 */
    0x40DD1EB8, /* 6.91 */ 0x40F1EB85, /* 7.56 */ 0x4103AE14, /* 8.23 */ 0x410E8F5C, /* 8.91 */ 0x411970A4, /* 9.59 */
    0x41247AE1, /* 10.28 */ 0x412FAE14, /* 10.98 */ 0x413B0A3D, /* 11.69 */ 0x41466666, /* 12.4 */ 0x4151EB85, /* 13.12 */
    0x415D70A4, /* 13.84 */ 0x41691EB8, /* 14.57 */ 0x4174F5C3, /* 15.31 */ 0x41806666, /* 16.05 */ 0x418651EC, /* 16.79 */
};

const std::uint32_t kUpper95[30] = {
    0x40A0A3D7, /* 5.02 */ 0x40EC28F6, /* 7.38 */ 0x4115C28F, /* 9.36 */ 0x41323D71, /* 11.14 */ 0x414D47AE, /* 12.83 */
    0x41673333, /* 14.45 */ 0x4180147B, /* 16.01 */ 0x418C3D71, /* 17.53 */ 0x419828F6, /* 19.02 */ 0x41A3D70A, /* 20.48 */
    0x41AF5C29, /* 21.92 */ 0x41BAB852, /* 23.34 */ 0x41C5EB85, /* 24.74 */ 0x41D0F5C3, /* 26.12 */ 0x41DBEB85, /* 27.49 */
    0x41E6CCCD, /* 28.85 */ 0x41F1851F, /* 30.19 */ 0x41FC3D71, /* 31.53 */ 0x42036666, /* 32.85 */ 0x4208AE14, /* 34.17 */
    0x420DEB85, /* 35.48 */ 0x42131EB8, /* 36.78 */ 0x421851EC, /* 38.08 */ 0x421D70A4, /* 39.36 */ 0x4222999A, /* 40.65 */
    0x4227AE14, /* 41.92 */ 0x422CC28F, /* 43.19 */ 0x4231D70A, /* 44.46 */ 0x4236E148, /* 45.72 */ 0x423BEB85, /* 46.98 */
};

const std::uint32_t kLower99[30] = {
    0x382393EE, /* 0.000039 */ 0x3C23D70A, /* 0.01 */ 0x3D92D773, /* 0.0717 */ 0x3E53F7CF, /* 0.207 */ 0x3ED2F1AA, /* 0.412 */
    0x3F2D0E56, /* 0.676 */ 0x3F7D2F1B, /* 0.989 */ 0x3FAB851F, /* 1.34 */ 0x3FDD70A4, /* 1.73 */ 0x400A3D71, /* 2.16 */
    0x40266666, /* 2.6 */ 0x40447AE1, /* 3.07 */ 0x40647AE1, /* 3.57 */ 0x40823D71, /* 4.07 */ 0x40933333, /* 4.6 */
    0x40A47AE1, /* 5.14 */ 0x40B66666, /* 5.7 */ 0x40C851EC, /* 6.26 */ 0x40DAE148, /* 6.84 */ 0x40EDC28F, /* 7.43 */
    0x41007AE1, /* 8.03 */ 0x410A3D71, /* 8.64 */ 0x411428F6, /* 9.26 */ 0x411E3D71, /* 9.89 */ 0x412851EC, /* 10.52 */
    0x41328F5C, /* 11.16 */ 0x413CF5C3, /* 11.81 */ 0x41475C29, /* 12.46 */ 0x4151EB85, /* 13.12 */ 0x415CA3D7, /* 13.79 */
};

const std::uint32_t kUpper99[30] = {
    0x40FC28F6, /* 7.88 */ 0x4129999A, /* 10.6 */ 0x414D70A4, /* 12.84 */ 0x416DC28F, /* 14.86 */ 0x41860000, /* 16.75 */
    0x41946666, /* 18.55 */ 0x41A23D71, /* 20.28 */ 0x41AFAE14, /* 21.96 */ 0x41BCB852, /* 23.59 */ 0x41C9851F, /* 25.19 */
    0x41D6147B, /* 26.76 */ 0x41E26666, /* 28.3 */ 0x41EE8F5C, /* 29.82 */ 0x41FA8F5C, /* 31.32 */ 0x42033333, /* 32.8 */
    0x4209147B, /* 34.27 */ 0x4212E148, /* 36.72 */ 0x4214A3D7, /* 37.16 */ 0x421A51EC, /* 38.58 */ 0x42200000, /* 40.0 */
    0x4225999A, /* 41.4 */ 0x422B3333, /* 42.8 */ 0x4230B852, /* 44.18 */ 0x42363D71, /* 45.56 */ 0x423BB852, /* 46.93 */
    0x424128F6, /* 48.29 */ 0x42468F5C, /* 49.64 */ 0x424BF5C3, /* 50.99 */ 0x42515C29, /* 52.34 */ 0x4256AE14, /* 53.67 */
};
// clang-format on

float cell(const std::uint32_t* table, int df) {
  float v = 0;
  std::memcpy(&v, table + (df - 1), sizeof v);
  return v;
}

}  // namespace

float chi_one_sided(int level, int df) {
  if (df < 1) {
    return 0.0F;
  }
  if (df <= 30) {
    return cell(level == 99 ? kOneSided99 : kOneSided95, df);
  }
  const double n = df;
  const double h = 0.2222222222222222 / n;
  double z = 1.64;
  if (level == 99) {
    z = 2.33;
  }
  const double w = z * std::sqrt(h) + (1 - h);
  double result = n;
  for (int i = 0; i < 3; ++i) {
    result = result * w;
  }
  return static_cast<float>(result);
}

void chi_two_sided(int level, int df, float out[2]) {
  out[0] = 0.0F;
  out[1] = 0.0F;
  if (df < 1) {
    return;
  }
  if (df <= 30) {
    const std::uint32_t* lower = kLower95;
    const std::uint32_t* upper = kUpper95;
    if (level == 68) {
      lower = kLower68;
      upper = kUpper68;
    }
    if (level == 99) {
      lower = kLower99;
      upper = kUpper99;
    }
    out[0] = cell(lower, df);
    out[1] = cell(upper, df);
    return;
  }
  const double n = df;
  const double h = 0.2222222222222222 / n;
  double z = 0.99;
  if (level == 99) {
    z = 2.58;
  } else if (level == 95) {
    z = 1.96;
  }
  const double s = z * std::sqrt(h);
  const double above = 1 - h + s;
  const double below = 1 - h - s;
  double upper = n;
  double lower = n;
  for (int i = 0; i < 3; ++i) {
    upper = upper * above;
    lower = lower * below;
  }
  out[0] = static_cast<float>(lower);
  out[1] = static_cast<float>(upper);
}

double tau(int n_int, int f_int, double alpha) {
  const double n = n_int;
  const double f = f_int;
  if (alpha <= 0) {
    return std::sqrt(f);
  }
  if (alpha > 1) {
    return 0;
  }

  double alpha1 = 0;
  if (alpha <= 0.5) {
    double term = alpha / n;
    double sum = term;
    double k = 1;
    while (k <= 100) {
      const double x = (n * k - 1) * alpha;
      const double y = (k + 1) * n;
      term = (term * x) / y;
      if (term < 1e-14) {
        break;
      }
      sum = sum + term;
      k = k + 1;
    }
    alpha1 = sum;
  } else {
    alpha1 = 1 - std::pow(1 - alpha, 1 / n);
  }
  const double p = 1 - alpha1;
  if (f_int <= 2) {
    return std::sin(p * 1.5707963267948966) * 1.4142135623730951;
  }

  const double v = 1.3862943611199 - 2 * std::log(alpha1);
  const double t = std::sqrt(v);
  const double numerator = (v * 0.010328 + t * 0.802853) + 2.515517;
  const double denominator = ((t * 0.001308 + 0.189269) * v + t * 1.432788) + 1.0;
  const double z = t - numerator / denominator;

  const double nu = f - 1;
  const double g = z * z;
  double poly = 79 * g + 776;
  poly = poly * g + 1482;
  poly = poly * g - 1920;
  poly = poly * g - 945;
  const double c4 = poly * z * 1.0850694444444445e-5;
  poly = 3 * g + 19;
  poly = poly * g + 17;
  poly = poly * g - 15;
  const double c3 = poly * z * 0.0026041666666666665;
  poly = 5 * g + 16;
  poly = poly * g + 3;
  const double c2 = poly * z * 0.010416666666666666;
  const double c1 = (g + 1) * z * 0.25;
  double student = c4 / nu + c3;
  student = student / nu + c2;
  student = student / nu + c1;
  student = student / nu + z;

  const double r2 = student * student / (student * student + nu);
  double r = std::sqrt(r2);
  double q = 1 - r2;
  const double half = nu * 0.5;
  const double m = std::floor(half);
  double d = 1.0;
  int counter = 1;
  for (;;) {
    const double w = nu / q;
    double sum = 0.0;
    double step = 0.0;
    if (half == m) {
      double term = 1.0;
      for (double k = 1; k <= m; k = k + 1) {
        sum = sum + term;
        term = ((k - 0.5) / k) * term;
        term = term * q;
      }
      step = (p - sum * r) / (term * w);
    } else {
      double term = std::sqrt(q);
      for (double k = 1; k <= m; k = k + 1) {
        sum = sum + term;
        term = (k / (k + 0.5)) * term;
        term = term * q;
      }
      const double theta = std::atan(r / std::sqrt(q));
      step = (p - (sum * r + theta) * 0.6366197723675814) / ((term * w) * 0.6366197723675814);
    }
    if (std::fabs(step) < 1e-10) {
      break;
    }
    if (std::fabs(step / d) > 0.5) {
      break;
    }
    d = step;
    r = r + step;
    q = 1 - r * r;
    counter = counter + 1;
    if (counter > 50) {
      break;
    }
  }
  return r * std::sqrt(f);
}

int accuracy_class(double rms) {
  const double thresholds[8] = {0.01, 0.05, 0.1, 0.5, 1.0, 5.0, 10.0, 200.0};
  int result = 1;
  for (int i = 0; i < 8; ++i) {
    if (rms > thresholds[i]) {
      result = i + 2;
    }
  }
  return result;
}

}  // namespace reference
