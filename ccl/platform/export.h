/// @file
/// The mark of what the platform library offers to others.

#ifndef CCL_PLATFORM_EXPORT_H
#define CCL_PLATFORM_EXPORT_H

/// Visible outside the platform library, and replaceable: a program or another platform library may define the same
/// function, and the dynamic linker then takes that one.
#define CCL_PLATFORM_EXPORT __attribute__((visibility("default")))

#endif
