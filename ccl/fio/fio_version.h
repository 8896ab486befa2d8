/// @file
/// Defines the version of the headers that a program is compiled against.
///
///     #if CCL_FIO_VERSION >= 200   // 0.2.0 or later
///
/// The package has the same version, and the file name of the shared library contains it. Libraries whose first two
/// numbers differ do not replace each other.

#ifndef CCL_FIO_FIO_VERSION_H
#define CCL_FIO_FIO_VERSION_H

// The one place of the version: CMakeLists.txt reads these three lines.
#define CCL_FIO_VERSION_MAJOR 0 ///< Expands to the first number.
#define CCL_FIO_VERSION_MINOR 1 ///< Expands to the second number.
#define CCL_FIO_VERSION_PATCH 0 ///< Expands to the third number.

/// Expands to the version as one number, with two decimal digits each for the second and the third: 100 for 0.1.0.
#define CCL_FIO_VERSION (CCL_FIO_VERSION_MAJOR * 10000 + CCL_FIO_VERSION_MINOR * 100 + CCL_FIO_VERSION_PATCH)

/// @cond
#define CCL_FIO_JOIN_QUOTED(major, minor, patch) #major "." #minor "." #patch
#define CCL_FIO_QUOTE(major, minor, patch) CCL_FIO_JOIN_QUOTED(major, minor, patch)
/// @endcond

/// Expands to the version as a string literal: "0.1.0".
#define CCL_FIO_VERSION_STRING CCL_FIO_QUOTE(CCL_FIO_VERSION_MAJOR, CCL_FIO_VERSION_MINOR, CCL_FIO_VERSION_PATCH)

#endif
