# tallix_options: how every target of the project is compiled. Link it PRIVATE.

# Other compilers, and other versions of these two, warn about other things: there a warning stays a
# warning, so that a newer compiler does not stop somebody's build.
set(known_compiler OFF)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12
   AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    set(known_compiler ON)
elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 14
       AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 15)
    set(known_compiler ON)
endif()
option(TALLIX_WARNINGS_AS_ERRORS "Stop at the first warning" ${known_compiler})

add_library(tallix_options INTERFACE)
target_compile_features(tallix_options INTERFACE cxx_std_20)
target_include_directories(tallix_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(tallix_options INTERFACE
    -Wall
    -Wextra
    -Wpedantic
    -Wcast-align
    -Wconversion
    -Wdouble-promotion
    -Wextra-semi
    -Wformat=2
    -Wimplicit-fallthrough
    -Wnon-virtual-dtor
    -Wold-style-cast
    -Woverloaded-virtual
    -Wshadow
    -Wsign-conversion
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-cond>
    $<$<CXX_COMPILER_ID:GNU>:-Wlogical-op>
    $<$<CXX_COMPILER_ID:GNU>:-Wuseless-cast>
    $<$<BOOL:${TALLIX_WARNINGS_AS_ERRORS}>:-Werror>
    # A fused multiply-add rounds once where the written operations round twice: the same line would
    # have another answer on another processor.
    -ffp-contract=off
)
