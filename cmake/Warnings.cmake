# Warnings for our own code only, as the interface target quorin_warnings: link it PRIVATE.
add_library(quorin_warnings INTERFACE)

# Not -Wnull-dereference: at -O3 it blames Qt's own inlined code.
set(common_warnings
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
  -Woverloaded-virtual -Wconversion -Wsign-conversion -Wdouble-promotion -Wformat=2
  -Wimplicit-fallthrough -Wundef
)
# clang++ takes what Qt's qCDebug makes of its arguments for an extension, and a float that becomes
# the value of a double variable for a promotion.
set(clang_warnings -Wno-gnu-zero-variadic-macro-arguments -Wno-double-promotion)
# g++ takes the sources that are compiled together for headers, whose types others could see.
set(unity_warnings -Wno-subobject-linkage)
set(gcc_warnings -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)

target_compile_options(quorin_warnings INTERFACE
  ${common_warnings}
  $<$<CXX_COMPILER_ID:GNU>:${gcc_warnings}>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<BOOL:${CMAKE_UNITY_BUILD}>>:${unity_warnings}>
  $<$<CXX_COMPILER_ID:Clang>:${clang_warnings}>
  $<$<BOOL:${QUORIN_WARNINGS_AS_ERRORS}>:-Werror>
)
