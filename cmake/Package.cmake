# The files beside the programs, and the Debian package: cpack --preset release.

set(docs "${PROJECT_SOURCE_DIR}/docs")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
install(FILES "${packaging}/quorin-lab.desktop" "${packaging}/quorin-session.desktop"
    "${packaging}/quorin-lab-guide.desktop"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${packaging}/quorin-lab.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
install(FILES "${packaging}/quorin-lab.metainfo.xml"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
# A setting that its owner may change or remove, read from there alone: of two files of one name,
# PipeWire 0.3 takes the user's and 1.4 the one in /usr/share.
install(FILES "${packaging}/quorin-lab.pipewire-pulse.conf"
  DESTINATION /etc/pipewire/pipewire-pulse.conf.d
  RENAME quorin-lab.conf)
quorin_install_man_page(quorin-lab)
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/CITATION.cff"
    "${packaging}/copyright" "${packaging}/changelog"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(FILES "${docs}/protocols.md" "${docs}/session-records.md"
    "${docs}/session-record.schema.json" "${docs}/calibration-note.schema.json"
  DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY "${docs}/examples" DESTINATION "${CMAKE_INSTALL_DOCDIR}")

# The guide for the browser and on paper: made by the target programs where pandoc and weasyprint
# are installed, and left out elsewhere.
find_program(PANDOC pandoc)
find_program(WEASYPRINT weasyprint)
if(PANDOC AND WEASYPRINT)
  file(GLOB guide_pictures CONFIGURE_DEPENDS "${docs}/images/guide-*.png")
  add_custom_command(
    OUTPUT "${PROJECT_BINARY_DIR}/guide/guide.html" "${PROJECT_BINARY_DIR}/guide/guide.pdf"
    COMMAND "${PROJECT_SOURCE_DIR}/tools/make-guide" "${PROJECT_BINARY_DIR}/guide"
      "${PROJECT_VERSION}"
    DEPENDS "${docs}/user-guide.md" "${docs}/timing.md" "${docs}/glossary.md" ${guide_pictures}
      "${packaging}/guide/guide.css" "${packaging}/guide/one-document.lua"
      "${PROJECT_SOURCE_DIR}/tools/make-guide"
    COMMENT "Making the guide"
    VERBATIM)
  add_custom_target(guide DEPENDS "${PROJECT_BINARY_DIR}/guide/guide.html")
  install(FILES "${PROJECT_BINARY_DIR}/guide/guide.html" "${PROJECT_BINARY_DIR}/guide/guide.pdf"
    DESTINATION "${CMAKE_INSTALL_DOCDIR}")
  install(FILES "${packaging}/quorin-lab-guide.doc-base"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc-base" RENAME quorin-lab.guide)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorin-lab)
set(CPACK_PACKAGE_CONTACT "The Quorin Lab developers") # there is no address of theirs
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "listening experiments for psychoacoustics")
set(CPACK_PACKAGE_DESCRIPTION
"Quorin Lab measures how small a difference of frequency and how shallow an
amplitude modulation a listener can hear. Every trial plays four sounds, the
second or third of which differs; a weighted up-down staircase follows the
listener's answers to the threshold.
.
With it come quorin-simulate, which tells what a choice of settings will give
before a listener is invited, quorin-report, which reads the results files,
quorin-session, which records every event of every run, and quorin-sound, which
asks the sound server what becomes of sounds and writes them as files.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${packaging}/compress-documents.cmake")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The sound backends are loaded at run time: without them there is silence.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt5multimedia5-plugins)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "pulseaudio | pipewire-pulse, pulseaudio-utils, sensible-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${packaging}/conffiles")
include(CPack)

# What is delivered, without the tests.
add_custom_target(programs)
add_dependencies(programs quorin-lab quorin-simulate quorin-report quorin-session quorin-sound)
if(TARGET guide)
  add_dependencies(programs guide)
endif()
