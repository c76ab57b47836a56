# quorin_add_fuzzer(NAME SOURCE [LIBRARIES target...])
#
# Adds the libFuzzer program fuzz_NAME, made from SOURCE, to the target fuzzers. `./check fuzz` runs
# every tests/fuzz/fuzz_NAME.cpp, starting from the inputs kept in tests/fuzz/corpus/NAME.
function(quorin_add_fuzzer name source)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "LIBRARIES")
  set(target "fuzz_${name}")
  add_executable(${target} ${source})
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${target} PRIVATE ${arg_LIBRARIES} quorin_warnings)
  target_link_options(${target} PRIVATE -fsanitize=fuzzer)

  if(NOT TARGET fuzzers)
    add_custom_target(fuzzers)
  endif()
  add_dependencies(fuzzers ${target})
endfunction()
