#ifndef ALIDADE_STATS_H
#define ALIDADE_STATS_H

/// @file
/// Chi-square and tau quantiles, and the accuracy class of an RMS figure.
///
/// The level comes first and the degrees of freedom second; levels of the chi-square functions are whole percentages of
/// confidence (95), that of `TAU` is a significance as a fraction (0.05).

#include <alidade/export.h>

/// Upper one-sided quantile of the chi-square distribution.
///
/// @param level  confidence in per cent: 99 is 99 %, **any other value is 95 %**
/// @param df     degrees of freedom, 1 or more
/// @return the quantile; 0 for df below 1
///
/// Up to 30 degrees of freedom the figures of a printed table, two decimals. Above, Wilson and Hilferty's (1931)
/// approximation df*w^3, w = z*sqrt(h) + (1 - h), h = 2/(9 df), with the normal quantile z to two decimals
/// (1.64, 2.33).
///
/// Accuracy: half a unit of the last printed digit, but for two entries rounded the wrong way (95 %, df 26: 38.88 for
/// 38.885; 99 %, df 11: 24.73 for 24.72497), which are kept. Above 30 the deviate is off by up to 0.005 + 0.3/df, which
/// in the quantile is less than 0.17 at df = 31 and grows with the root of df. Bits: class A.
ALIDADE_API float CHI_1SDE(int level, int df);

/// Two-sided interval of the chi-square distribution.
///
/// @param level  confidence in per cent: 68, 95 or 99; see below for others
/// @param df     degrees of freedom
/// @param out    receives out[0], the lower, and out[1], the upper bound; both 0 for df below 1
///
/// The bounds leave 16, 2.5 or 0.5 % on either side. Up to 30 degrees of freedom they are the figures of a printed
/// table; above, Wilson and Hilferty's approximation with the normal quantiles 0.99, 1.96 and 2.58.
///
/// **Any other level** means 95 % up to 30 degrees of freedom but 68 % above: deliberate, and a reason to pass nothing
/// but the three.
///
/// Two entries of the table are misprints that are kept: level 99, df 17, upper bound 36.72 (the distribution
/// has 35.72) and level 95, df 3, upper bound 9.36 (9.35). One is rounded the wrong way: level 99, df 8, upper
/// bound 21.96 for 21.95496. All others are right to half a unit of the last printed digit. Above 30 the accuracy is
/// that of `CHI_1SDE`. Bits: class A.
ALIDADE_API void CHI_2SDE(int level, int df, float* const out);  // NOLINT(readability-avoid-const-params-in-decls)

/// Critical value of the tau distribution for the test of residuals against outliers.
///
/// @param n      number of residuals tested together, 1 or more: the level of each is 1 - (1 - alpha)^(1/n)
/// @param f      redundancy of the adjustment, 2 or more
/// @param alpha  significance of the whole test, a fraction such as 0.05
/// @return the tau that a residual, divided by its standard deviation a posteriori, exceeds with that probability: 0 to
///         sqrt(f) up to rounding. sqrt(f) for alpha <= 0, 0 for alpha > 1
///
/// - (1) For alpha = 1, where 0 is exact, the result is within 1e-20 of it on either side: TAU(10, 5, 1.0) is -2.5e-22.
/// - (2) With alpha > 0 an f below 2, zero and negative ones too, gives what f = 2 gives, up to sqrt(2); with
///   alpha <= 0 the square root of a negative f is a NaN.
/// - (3) n below 1 is not guarded: NaN, or a number without meaning.
///
/// To apply Bonferroni's alpha/n pass n = 1 and alpha/n. Time grows with f, up to 50 sums of f/2 terms.
///
/// Method: A. J. Pope (1976), The statistics of residuals and the detection of outliers, NOAA Technical Report NOS 65
/// NGS 1: tau = sqrt(f) r, r = t/sqrt(t^2 + f - 1), t the two-sided Student quantile with f - 1 degrees of freedom. t
/// is started from Abramowitz and Stegun (1964) 26.2.23 and 26.7.5, r refined by Newton's method on the closed
/// distribution, 26.7.3 and 26.7.4. The last Newton step, below 1e-10, is not applied, nor one that is more than half
/// of the step before: the iteration then diverges or has reached the rounding. For f <= 2: sqrt(2) sin(pi P/2), P the
/// confidence of one test.
///
/// Accuracy: sqrt(f) (1e-10 + (2e-14 + (f/2 + 10) 2^-52)/D) with D the density of r, as long as the level of one test
/// is 1e-9 or more; below 1e-8 for alpha from 0.001, n up to 1000 and f up to 3000. Smaller levels cost digits: for f
/// up to 3000 the error is below 2e-6 down to a level of 1e-9, 2e-5 to 1e-10, 3e-4 to 1e-11 and 2e-3 to 1e-12 (as
/// measured). Below that the function is of no use: the confidence rounds to 1, the refinement stops anywhere and may
/// give NaN. Bits: class B (log, atan, sin, pow).
ALIDADE_API double TAU(int n, int f, double alpha);

/// Accuracy class of an RMS figure.
///
/// @param rms  the figure; the classes are decades of a unit that the caller chooses, and the figure must be in it
/// @return 1 to 9: a small number, not the character of a digit
///
/// | above | 200 | 10 | 5 | 1 | 0.5 | 0.1 | 0.05 | 0.01 | else |
/// |---|---|---|---|---|---|---|---|---|---|
/// | class | 9 | 8 | 7 | 6 | 5 | 4 | 3 | 2 | 1 |
///
/// A figure on a threshold belongs to the finer class; NaN and negative figures give 1. Bits: class A.
ALIDADE_API char RmsToKnown(double rms);

#endif
