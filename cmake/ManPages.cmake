# quorin_install_man_page(NAME)
#
# Installs docs/man/NAME.1 with the date of the build in it, or of SOURCE_DATE_EPOCH.
string(TIMESTAMP QUORIN_BUILD_DATE "%Y-%m-%d" UTC)
function(quorin_install_man_page name)
  set(page "${PROJECT_BINARY_DIR}/man/${name}.1")
  configure_file("${PROJECT_SOURCE_DIR}/docs/man/${name}.1" "${page}" @ONLY)
  install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endfunction()
