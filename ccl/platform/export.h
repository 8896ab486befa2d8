/// @file
/// Defines the macro that marks exported declarations.

#ifndef CCL_PLATFORM_EXPORT_H
#define CCL_PLATFORM_EXPORT_H

/// Makes a declaration visible outside the platform library, and replaceable: a program or another platform library may
/// define the same function, and the dynamic linker then uses that one.
#define CCL_PLATFORM_EXPORT __attribute__((visibility("default")))

#endif
