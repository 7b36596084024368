# find_package(Tallix): the targets Tallix::engine and Tallix::format.
include(${CMAKE_CURRENT_LIST_DIR}/TallixTargets.cmake)
