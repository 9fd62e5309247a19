#ifndef ALIDADE_VERSION_H
#define ALIDADE_VERSION_H

/// @file
/// Version of the headers, for the preprocessor. The build reads the three numbers from this file.

/// A new one when a result bit changes.
#define ALIDADE_VERSION_MAJOR 1
/// A new one when names are added.
#define ALIDADE_VERSION_MINOR 0
/// A new one for anything else.
#define ALIDADE_VERSION_PATCH 0

#endif
