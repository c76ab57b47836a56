# The files beside the programs, and the Debian package: cpack --preset release.

set(docs "${PROJECT_SOURCE_DIR}/docs")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
install(FILES "${packaging}/quorin-lab.desktop"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${packaging}/quorin-lab.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
install(FILES "${packaging}/org.example.quorin_lab.metainfo.xml"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${docs}/man/quorin-lab.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${docs}/user-guide.md" "${docs}/timing.md" "${docs}/glossary.md"
    "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${packaging}/copyright" "${packaging}/changelog"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY "${docs}/images" DESTINATION "${CMAKE_INSTALL_DOCDIR}"
  FILES_MATCHING PATTERN "guide-*.png")
install(DIRECTORY "${docs}/examples" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorin-lab)
set(CPACK_PACKAGE_CONTACT "Quorin Lab developers <quorin-lab@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "listening experiments for psychoacoustics")
set(CPACK_PACKAGE_DESCRIPTION
"Quorin Lab measures how small a difference of frequency and how shallow an
amplitude modulation a listener can hear. Every trial plays four sounds, the
second or third of which differs; a weighted up-down staircase follows the
listener's answers to the threshold.
.
With it come quorin-simulate, which tells what a choice of settings will give
before a listener is invited, and quorin-report, which reads the results files.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${packaging}/compress-documents.cmake")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://example.org/quorin-lab")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The sound backends are loaded at run time: without them there is silence.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt5multimedia5-plugins)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pulseaudio | pipewire-pulse")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)

# What is delivered, without the tests.
add_custom_target(programs)
add_dependencies(programs quorin-lab quorin-simulate quorin-report)
