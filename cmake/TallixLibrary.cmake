# tallix_library(NAME): makes the library target tallix_NAME one that other projects can use, as Tallix::NAME of the
# package Tallix. Its headers are those of the folder it is called from.
function(tallix_library name)
    target_include_directories(tallix_${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tallix>)
    target_compile_features(tallix_${name} PUBLIC cxx_std_20)
    # How the project itself is compiled is nobody else's business.
    target_link_libraries(tallix_${name} PRIVATE $<BUILD_INTERFACE:tallix_options>)
    set_target_properties(tallix_${name} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS tallix_${name} EXPORT TallixTargets COMPONENT development)
    install(DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tallix COMPONENT development
        FILES_MATCHING PATTERN *.h)
endfunction()
