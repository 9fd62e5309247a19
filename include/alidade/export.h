#ifndef ALIDADE_EXPORT_H
#define ALIDADE_EXPORT_H

/// @file
/// How a name crosses the boundary of the library.
///
/// `ALIDADE_API` marks every exported class, function and constant. A program that links the static library defines
/// `ALIDADE_STATIC` (the CMake target and the pkg-config file do so); the library's own build defines
/// `ALIDADE_BUILDING`.

#if defined(ALIDADE_STATIC)
#define ALIDADE_API
#elif defined(_WIN32)
#if defined(ALIDADE_BUILDING)
#define ALIDADE_API __declspec(dllexport)
#else
#define ALIDADE_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define ALIDADE_API __attribute__((visibility("default")))
#else
/// Stands before every exported name.
#define ALIDADE_API
#endif

#endif
