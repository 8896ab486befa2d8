/// @file
/// The peers: other libraries that have the operations. Each is a source of its own, which is part of the program where
/// that library is installed.

#ifndef CCL_BENCHMARKS_PEERS_PEERS_H
#define CCL_BENCHMARKS_PEERS_PEERS_H

namespace bench {

/// All that were found. The build writes the definition.
void add_peers();

void add_std();
void add_boost();
void add_poco();
void add_llvm();
void add_qt();
void add_apr();
void add_glib();

} // namespace bench

#endif
