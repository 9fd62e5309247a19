#ifndef ALIDADE_STATS_H
#define ALIDADE_STATS_H

/// @file
/// Chi-square and tau quantiles, and the accuracy class of an RMS figure.

#include <alidade/export.h>

ALIDADE_API float CHI_1SDE(int level, int df);
ALIDADE_API void CHI_2SDE(int level, int df, float* const out);
ALIDADE_API double TAU(int n, int f, double alpha);
ALIDADE_API char RmsToKnown(double rms);

#endif
