# quorin_add_test(NAME SOURCE [LABELS label...] [LIBRARIES target...] [TIMEOUT seconds])
#
# Adds the program tst_NAME, made from SOURCE, as the test NAME. It runs offscreen, in the C.UTF-8
# locale, with a home and a runtime folder of its own inside the build folder.
function(quorin_add_test name source)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "TIMEOUT" "LABELS;LIBRARIES")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()

  set(target "tst_${name}")
  add_executable(${target} ${source})
  set_target_properties(${target} PROPERTIES AUTOMOC ON)
  target_link_libraries(${target} PRIVATE quorin_test_support ${arg_LIBRARIES} quorin_warnings)

  set(home "${CMAKE_BINARY_DIR}/test-homes/${name}")
  file(MAKE_DIRECTORY "${home}/Desktop" "${home}/runtime")
  file(CHMOD "${home}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

  add_test(NAME ${name} COMMAND ${target})
  set_tests_properties(${name} PROPERTIES
    LABELS "${arg_LABELS}"
    TIMEOUT ${arg_TIMEOUT}
    WORKING_DIRECTORY "${home}"
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;HOME=${home};XDG_RUNTIME_DIR=${home}/runtime;PULSE_SERVER=unix:${home}/runtime/none;QT_LOGGING_RULES=*.debug=true\\;qt.*.debug=false"
  )
endfunction()
