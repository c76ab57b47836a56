# What every target of ours is compiled with, as the interface target quorin_options.
add_library(quorin_options INTERFACE)

# The order and the rounding of floating-point operations are behaviour: no contraction into fused
# operations, and never fast-math.
target_compile_options(quorin_options INTERFACE -ffp-contract=off)

# 0x050e00 keeps every deprecation warning but the ones on qrand and qsrand, which this program needs.
target_compile_definitions(quorin_options INTERFACE
  QT_DEPRECATED_WARNINGS
  QT_DEPRECATED_WARNINGS_SINCE=0x050e00
  QT_NO_CAST_TO_ASCII
  QT_NO_FOREACH
  QT_STRICT_ITERATORS
)

if(QUORIN_SANITIZE)
  # float-divide-by-zero and float-cast-overflow stay off: quotients of zeros are results here.
  target_compile_options(quorin_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_compile_definitions(quorin_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(quorin_options INTERFACE -fsanitize=address,undefined)
endif()

if(QUORIN_BUILD_FUZZERS)
  # All of our own code tells the fuzzer which of its branches were taken.
  target_compile_options(quorin_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(QUORIN_COVERAGE)
  # Counted atomically: the simulator has threads.
  target_compile_options(quorin_options INTERFACE
    --coverage -fprofile-abs-path -fprofile-update=atomic)
  target_link_options(quorin_options INTERFACE --coverage)
endif()
