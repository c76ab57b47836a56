# SPDX-License-Identifier: GPL-3.0-or-later
#
# Run by CPack on the staged files: man pages and the changelog go into a Debian package compressed,
# at the highest level and without time stamps.
file(GLOB documents
  "${CPACK_TEMPORARY_DIRECTORY}/usr/share/man/man*/*.[1-9]"
  "${CPACK_TEMPORARY_DIRECTORY}/usr/share/doc/quorin-lab/changelog")
foreach(document IN LISTS documents)
  execute_process(COMMAND gzip -9n "${document}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
