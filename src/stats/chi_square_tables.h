#ifndef ALIDADE_SRC_STATS_CHI_SQUARE_TABLES_H
#define ALIDADE_SRC_STATS_CHI_SQUARE_TABLES_H

#include "strict_arithmetic.h"

// Quantiles of the chi-square distribution for 1 to 30 degrees of freedom, entry df - 1: the figures of the printed
// tables (two to four significant digits), each the float nearest to its decimal. No unit. The bit pattern of every
// cell is checked by a test.

namespace alidade {

constexpr int kTableSize = 30;

// Upper 95 % quantile.
constexpr float kOneSided95[kTableSize] = {3.84F,  5.99F,  7.81F,  9.49F,  11.07F, 12.59F, 14.07F, 15.51F,
                                           16.92F, 18.31F, 19.68F, 21.03F, 22.36F, 23.68F, 25.0F,  26.3F,
                                           27.59F, 28.87F, 30.14F, 31.41F, 32.67F, 33.92F, 35.17F, 36.42F,
                                           37.65F, 38.88F, 40.11F, 41.34F, 42.56F, 43.77F};

// Upper 99 % quantile.
constexpr float kOneSided99[kTableSize] = {6.63F,  9.21F,  11.34F, 13.28F, 15.09F, 16.81F, 18.48F, 20.09F,
                                           21.67F, 23.21F, 24.73F, 26.22F, 27.69F, 29.14F, 30.58F, 32.0F,
                                           33.41F, 34.81F, 36.19F, 37.57F, 38.93F, 40.29F, 41.64F, 42.98F,
                                           44.31F, 45.64F, 46.96F, 48.28F, 49.59F, 50.89F};

// 16 % and 84 % quantiles.
constexpr float kLower68[kTableSize] = {0.041F, 0.35F, 0.84F,  1.42F, 2.07F,  2.75F,  3.45F,  4.19F,  4.93F,  5.7F,
                                        6.47F,  7.26F, 8.05F,  8.86F, 9.67F,  10.49F, 11.31F, 12.14F, 12.97F, 13.81F,
                                        14.65F, 15.5F, 16.35F, 17.2F, 18.06F, 18.91F, 19.78F, 20.64F, 21.51F, 22.38F};
constexpr float kUpper68[kTableSize] = {1.97F,  3.67F,  5.17F,  6.58F,  7.93F,  9.25F,  10.54F, 11.81F, 13.06F, 14.29F,
                                        15.52F, 16.73F, 17.94F, 19.13F, 20.32F, 21.5F,  22.68F, 23.85F, 25.02F, 26.18F,
                                        27.34F, 28.49F, 29.64F, 30.79F, 31.93F, 33.07F, 34.21F, 35.35F, 36.48F, 37.61F};

// 2.5 % and 97.5 % quantiles.
constexpr float kLower95[kTableSize] = {0.00098F, 0.0506F, 0.216F, 0.484F, 0.831F, 1.24F,  1.69F,  2.18F,
                                        2.7F,     3.25F,   3.82F,  4.4F,   5.01F,  5.63F,  6.26F,  6.91F,
                                        7.56F,    8.23F,   8.91F,  9.59F,  10.28F, 10.98F, 11.69F, 12.4F,
                                        13.12F,   13.84F,  14.57F, 15.31F, 16.05F, 16.79F};
constexpr float kUpper95[kTableSize] = {5.02F,  7.38F,  9.36F,  11.14F, 12.83F, 14.45F, 16.01F, 17.53F, 19.02F, 20.48F,
                                        21.92F, 23.34F, 24.74F, 26.12F, 27.49F, 28.85F, 30.19F, 31.53F, 32.85F, 34.17F,
                                        35.48F, 36.78F, 38.08F, 39.36F, 40.65F, 41.92F, 43.19F, 44.46F, 45.72F, 46.98F};

// 0.5 % and 99.5 % quantiles. The upper bound for 17 degrees of freedom is one more than that of the distribution
// (35.72): a misprint of long standing that is part of the table and is kept.
constexpr float kLower99[kTableSize] = {0.000039F, 0.01F,  0.0717F, 0.207F, 0.412F, 0.676F, 0.989F, 1.34F,
                                        1.73F,     2.16F,  2.6F,    3.07F,  3.57F,  4.07F,  4.6F,   5.14F,
                                        5.7F,      6.26F,  6.84F,   7.43F,  8.03F,  8.64F,  9.26F,  9.89F,
                                        10.52F,    11.16F, 11.81F,  12.46F, 13.12F, 13.79F};
constexpr float kUpper99[kTableSize] = {7.88F,  10.6F, 12.84F, 14.86F, 16.75F, 18.55F, 20.28F, 21.96F, 23.59F, 25.19F,
                                        26.76F, 28.3F, 29.82F, 31.32F, 32.8F,  34.27F, 36.72F, 37.16F, 38.58F, 40.0F,
                                        41.4F,  42.8F, 44.18F, 45.56F, 46.93F, 48.29F, 49.64F, 50.99F, 52.34F, 53.67F};

}  // namespace alidade

#endif
