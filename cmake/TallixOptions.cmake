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

# What users run is hardened: checked memory functions and stack, tables of addresses that nobody writes once the program
# has started, a program at any place in memory. Checks cost where nothing is optimised, and the sanitizers have their own.
string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
if(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$"
   AND NOT "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${build_type}}" MATCHES "-fsanitize=|-O0")
    set(hardened ON)
else()
    set(hardened OFF)
endif()
option(TALLIX_HARDENED "Harden the programs against errors in memory" ${hardened})

if(TALLIX_HARDENED AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
    # Level 3 also knows sizes that are computed. Compilers and C libraries without it take what level 2 is to them.
    include(CheckCXXSourceCompiles)
    set(CMAKE_REQUIRED_FLAGS "-O2 -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3")
    check_cxx_source_compiles("
        #include <cstdlib>
        #if !defined __USE_FORTIFY_LEVEL || __USE_FORTIFY_LEVEL < 3
        #error
        #endif
        int main() {}" TALLIX_FORTIFIES_COMPUTED_SIZES)
    unset(CMAKE_REQUIRED_FLAGS)
    set(fortify_level 2)
    if(TALLIX_FORTIFIES_COMPUTED_SIZES)
        set(fortify_level 3)
    endif()
    # A level that the builder chose stands; one that is built into the compiler gives way. Without optimisation, some C
    # libraries warn that they check nothing: TALLIX_UNOPTIMIZED is set for such targets.
    if(NOT "${CMAKE_CXX_FLAGS}" MATCHES "_FORTIFY_SOURCE")
        set(fortified -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortify_level})
    endif()
    # First, since Qt asks for more, code that fits libraries too, and the last word counts.
    add_compile_options(-fPIE)
    target_compile_options(tallix_options INTERFACE
        "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:TALLIX_UNOPTIMIZED>>>:${fortified}>"
        -fstack-protector-strong
    )
    target_link_options(tallix_options INTERFACE
        $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>
        LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack
    )
endif()
