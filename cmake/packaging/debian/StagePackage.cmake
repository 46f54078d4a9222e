# SPDX-License-Identifier: BSL-1.0
# Run by CPack on the files of packages before they are packed: man pages as Debian wants them, and
# times that do not depend on when it was built.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*.1)
list(FILTER pages INCLUDE REGEX "/man1/[^/]*$")
foreach(page IN LISTS pages)
  execute_process(COMMAND gzip -9 --no-name ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  execute_process(COMMAND find ${CPACK_TEMPORARY_DIRECTORY} -exec
    touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} {} +
    COMMAND_ERROR_IS_FATAL ANY)
endif()
