/// @file
/// The cases, by the source file that holds them.

#ifndef CCL_TESTS_FAULTS_CASES_H
#define CCL_TESTS_FAULTS_CASES_H

class scratch_tree;

// full_disk.cpp
void copies_to_a_full_disk(scratch_tree const& tree);
void targets_on_a_full_disk(scratch_tree const& tree);
void many_files_to_a_full_disk(scratch_tree const& tree);
void other_work_on_a_full_disk(scratch_tree const& tree);

// inodes.cpp
void no_inode_left(scratch_tree const& tree);
void few_inodes_left(scratch_tree const& tree);
void temporary_files_without_an_inode_left(scratch_tree const& tree);

// read_only.cpp
void read_only_disk(scratch_tree const& tree);
void copies_to_a_read_only_disk(scratch_tree const& tree);
void disk_that_becomes_read_only_during_a_walk(scratch_tree const& tree);

// across_devices.cpp
void renaming_across_devices(scratch_tree const& tree);
void renaming_across_mounts_of_one_device(scratch_tree const& tree);
void renaming_on_an_overlay(scratch_tree const& tree);
void removing_on_an_overlay(scratch_tree const& tree);

// removed_current_directory.cpp
void paths_in_a_removed_directory(scratch_tree const& tree);
void work_in_a_removed_directory(scratch_tree const& tree);
void search_in_a_removed_directory(scratch_tree const& tree);

// replaced_directory.cpp
void removal_of_a_directory_that_became_a_link(scratch_tree const& tree);
void removal_of_a_directory_that_becomes_a_link(scratch_tree const& tree);
void removal_of_a_link_upwards(scratch_tree const& tree);
void walks_of_a_directory_that_became_a_link(scratch_tree const& tree);
void copy_of_a_directory_that_became_a_link(scratch_tree const& tree);
void other_removals_of_what_became_a_link(scratch_tree const& tree);

// races.cpp
void removal_in_a_race_with_links(scratch_tree const& tree);
void removals_in_a_race_with_each_other(scratch_tree const& tree);

// many_names.cpp
void walks_over_many_names(scratch_tree const& tree);
void removal_of_many_names(scratch_tree const& tree);

// longest_paths.cpp
void directories_of_the_longest_path(scratch_tree const& tree);
void files_of_the_longest_path(scratch_tree const& tree);
void walks_at_the_longest_path(scratch_tree const& tree);
void removal_at_the_longest_path(scratch_tree const& tree);
void removal_beyond_the_longest_path(scratch_tree const& tree);
void iteration_beyond_the_longest_path(scratch_tree const& tree);
void copy_at_the_longest_path(scratch_tree const& tree);
void current_directory_of_the_longest_path(scratch_tree const& tree);

// every_byte.cpp
void every_byte_in_the_name_of_a_file(scratch_tree const& tree);
void every_byte_in_a_name_to_be_made(scratch_tree const& tree);
void every_byte_in_a_name_that_is_searched(scratch_tree const& tree);
void every_byte_in_the_name_of_a_directory(scratch_tree const& tree);
void every_byte_in_a_search_path(scratch_tree const& tree);

// entry_types.cpp
void directory_stream_without_types(scratch_tree const& tree);
void file_system_without_types(scratch_tree const& tree);
void pipes_and_sockets(scratch_tree const& tree);
void copies_of_pipes_and_sockets(scratch_tree const& tree);
void device_nodes(scratch_tree const& tree);

// permissions.cpp
void directories_without_permissions(scratch_tree const& tree);
void removal_without_permissions(scratch_tree const& tree);
void files_without_permissions(scratch_tree const& tree);

// changing_source.cpp
void source_that_changes_during_a_copy(scratch_tree const& tree);
void source_that_shrinks_in_a_race(scratch_tree const& tree);
void source_that_cannot_be_read(scratch_tree const& tree);

// limits.cpp
void files_of_limited_size(scratch_tree const& tree);
void no_descriptor_left(scratch_tree const& tree);
void few_descriptors_left(scratch_tree const& tree);

#endif
