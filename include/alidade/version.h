#ifndef ALIDADE_VERSION_H
#define ALIDADE_VERSION_H

/// @file
/// Version of the headers, for the preprocessor. The build reads the three numbers from this file.

#define ALIDADE_VERSION_MAJOR 1
#define ALIDADE_VERSION_MINOR 0
#define ALIDADE_VERSION_PATCH 0

#endif
