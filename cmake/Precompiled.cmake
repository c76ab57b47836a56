# Precompiled library headers. Reading Qt's headers took most of the time of a clean build.
add_library(quorin_precompiled OBJECT cmake/precompiled/Qt.cpp cmake/precompiled/Qt.h)
target_link_libraries(quorin_precompiled PRIVATE Qt5::Core quorin_options quorin_warnings)
# The include paths alone: g++ takes the header only where all its macros are defined, and a target
# that does not link Qt Charts lacks QT_CHARTS_LIB.
foreach(module Gui Widgets Multimedia Charts)
  target_include_directories(quorin_precompiled SYSTEM
    PRIVATE $<TARGET_PROPERTY:Qt5::${module},INTERFACE_INCLUDE_DIRECTORIES>)
endforeach()
target_precompile_headers(quorin_precompiled PRIVATE cmake/precompiled/Qt.h)
# What ccache needs to keep sources that are compiled with a precompiled header.
target_compile_options(quorin_precompiled PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)

# quorin_precompile(TARGET...): the targets read the precompiled headers.
function(quorin_precompile)
  foreach(target IN LISTS ARGN)
    target_precompile_headers(${target} REUSE_FROM quorin_precompiled)
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endforeach()
endfunction()
