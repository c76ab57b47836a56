# Warnings for our own code only, as the interface target quorin_warnings: link it PRIVATE.
add_library(quorin_warnings INTERFACE)

# Not -Wnull-dereference: at -O3 it blames Qt's own inlined code.
set(common_warnings
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-align
  -Woverloaded-virtual -Wconversion -Wsign-conversion -Wdouble-promotion -Wformat=2
  -Wimplicit-fallthrough -Wundef
)
set(gcc_warnings -Wduplicated-cond -Wduplicated-branches -Wlogical-op -Wsuggest-override)

target_compile_options(quorin_warnings INTERFACE
  ${common_warnings}
  $<$<CXX_COMPILER_ID:GNU>:${gcc_warnings}>
  $<$<BOOL:${QUORIN_WARNINGS_AS_ERRORS}>:-Werror>
)
