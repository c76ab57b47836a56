# quorin_add_to_group(GROUP TARGET): building the group builds the target.
function(quorin_add_to_group group target)
  if(NOT TARGET ${group})
    add_custom_target(${group})
  endif()
  add_dependencies(${group} ${target})
endfunction()

# quorin_test_program(PROGRAM): makes the program tst_PROGRAM, whose sources are tests, unless it exists.
function(quorin_test_program program)
  set(target "tst_${program}")
  if(TARGET ${target})
    return()
  endif()
  add_executable(${target})
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON
    RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  target_link_libraries(${target} PRIVATE quorin_test_support quorin_warnings)
  target_precompile_headers(${target} REUSE_FROM quorin_test_support)
endfunction()

# quorin_add_test(NAME SOURCE [ALONE] [LABELS label...] [LIBRARIES target...] [TIMEOUT seconds]
#   [PROGRAM program])
#
# Adds the test NAME: `tst_PROGRAM TEST`, where SOURCE is tst_TEST.cpp. The tests of a folder of
# tests/ and of those inside it share the program of the folder's name unless PROGRAM is given. A
# test runs offscreen, in the C.UTF-8 locale, with a home and a runtime folder of its own inside the
# build folder. One that a busy machine could make fail is ALONE: it runs while no other test does.
# So do those labelled audio, which play real sound, in their long forms and in the sanitizer build.
# An emulator and QUORIN_TEST_LAUNCHER are put before the command; under them and in the sanitizer
# build, tests may take longer.
function(quorin_add_test name source)
  cmake_parse_arguments(PARSE_ARGV 2 arg "ALONE" "TIMEOUT;PROGRAM" "LABELS;LIBRARIES")
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 120)
  endif()
  if(QUORIN_TEST_LAUNCHER OR CMAKE_CROSSCOMPILING_EMULATOR)
    math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 20")
  elseif(QUORIN_SANITIZE)
    math(EXPR arg_TIMEOUT "${arg_TIMEOUT} * 4")
  endif()

  if(NOT arg_PROGRAM)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR
      BASE_DIRECTORY "${PROJECT_SOURCE_DIR}/tests" OUTPUT_VARIABLE folder)
    string(REGEX REPLACE "/.*" "" arg_PROGRAM "${folder}")
  endif()
  quorin_test_program(${arg_PROGRAM})
  set(target "tst_${arg_PROGRAM}")
  get_target_property(sources ${target} SOURCES)
  if(NOT "${CMAKE_CURRENT_SOURCE_DIR}/${source}" IN_LIST sources)
    target_sources(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}/${source}")
    target_link_libraries(${target} PRIVATE ${arg_LIBRARIES})
  endif()
  string(REGEX REPLACE "^tst_(.*)\\.cpp$" "\\1" test "${source}")

  set(home "${CMAKE_BINARY_DIR}/test-homes/${name}")
  file(MAKE_DIRECTORY "${home}/Desktop" "${home}/runtime")
  file(CHMOD "${home}/runtime" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)

  set(environment
    "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8" "HOME=${home}" "XDG_RUNTIME_DIR=${home}/runtime"
    "PULSE_SERVER=unix:${home}/runtime/none"
    "QT_LOGGING_RULES=*.debug=true\\;qt.*.debug=false"
    "QTEST_FUNCTION_TIMEOUT=3600000") # its rows share QtTest's own limit: CTest's is what holds
  if(QUORIN_SANITIZE)
    # Stacks are short and end where Qt's libraries have no frame pointers; whole ones take three
    # times as long. For the stack of one report: fast_unwind_on_malloc=0:malloc_context_size=30.
    list(APPEND environment
      "ASAN_OPTIONS=detect_leaks=1:malloc_context_size=6"
      "LSAN_OPTIONS=suppressions='${PROJECT_SOURCE_DIR}/tools/sanitizers/lsan.supp':print_suppressions=0"
      "UBSAN_OPTIONS=print_stacktrace=1")
  endif()

  # The programs of the tests that run under valgrind, and of those that count the lines of src, are
  # built without the others.
  if(arg_LABELS MATCHES "(^|;)(unit|valgrind)(;|$)")
    quorin_add_to_group(valgrind_tests ${target})
  endif()
  if(NOT arg_LABELS MATCHES "(^|;)(slow|nightly|audio|hostile|companions|tools)(;|$)")
    quorin_add_to_group(coverage_tests ${target})
  endif()

  set(alone ${arg_ALONE})
  if("audio" IN_LIST arg_LABELS AND (QUORIN_SANITIZE OR arg_LABELS MATCHES "(^|;)(slow|nightly)(;|$)"))
    set(alone ON)
  endif()

  set(command ${CMAKE_CROSSCOMPILING_EMULATOR} ${QUORIN_TEST_LAUNCHER} $<TARGET_FILE:${target}> ${test})
  set_property(GLOBAL PROPERTY quorin_command_of_${name} "${command}")
  add_test(NAME ${name} COMMAND ${command})
  set_tests_properties(${name} PROPERTIES
    LABELS "${arg_LABELS}"
    TIMEOUT ${arg_TIMEOUT}
    RUN_SERIAL ${alone}
    WORKING_DIRECTORY "${home}"
    ENVIRONMENT "${environment}"
  )
endfunction()

# quorin_repeat_test(NAME ORIGINAL VARIABLE=VALUE...)
#
# Adds the test NAME: the test ORIGINAL, of the same folder, in an environment with other or more
# variables.
function(quorin_repeat_test name original)
  get_property(command GLOBAL PROPERTY quorin_command_of_${original})
  add_test(NAME ${name} COMMAND ${command})
  foreach(property LABELS TIMEOUT RUN_SERIAL WORKING_DIRECTORY ENVIRONMENT)
    get_property(value TEST ${original} PROPERTY ${property})
    set_property(TEST ${name} PROPERTY ${property} "${value}")
  endforeach()
  set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT ${ARGN})
endfunction()
