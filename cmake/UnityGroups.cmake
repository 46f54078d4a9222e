# SPDX-License-Identifier: BSL-1.0
# The sources of a folder compiled as one: most of the time of a build goes into reading the same
# headers again. Names in anonymous namespaces are therefore unique within a group. The presets
# `dev` and `threads` compile each source alone, so that none lives on what another includes.

option(CALCULATIONS_UNITY "Compile the sources of a folder as one" OFF)

function(group_sources_by_folder target)
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ${CALCULATIONS_UNITY}
    UNITY_BUILD_MODE GROUP
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    get_filename_component(folder ${source} DIRECTORY)
    string(MAKE_C_IDENTIFIER "${folder}" group)
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${group}")
  endforeach()
endfunction()

# Sources of these folders, and of those in them, as one: more than half of a small group is headers.
function(join_folders target group)
  get_target_property(sources ${target} SOURCES)
  foreach(folder IN LISTS ARGN)
    set(members ${sources})
    list(FILTER members INCLUDE REGEX "^${folder}/")
    set_source_files_properties(${members} PROPERTIES UNITY_GROUP ${group})
  endforeach()
endfunction()
