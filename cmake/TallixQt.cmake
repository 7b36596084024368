# tallix_qt_target(TARGET LIBRARIES...): a target whose sources use Qt. Meta objects and the layouts of Qt Designer are
# made from what is listed among its sources; the libraries are components of Qt (Widgets, PrintSupport, ...).
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets PrintSupport)

function(tallix_qt_target target)
    set_target_properties(${target} PROPERTIES AUTOMOC ON AUTOUIC ON AUTORCC ON)
    target_compile_definitions(${target} PRIVATE QT_NO_FOREACH QT_NO_CAST_TO_ASCII QT_DISABLE_DEPRECATED_BEFORE=0x060400)
    foreach(component IN LISTS ARGN)
        target_link_libraries(${target} PUBLIC Qt6::${component})
    endforeach()
    # What moc writes is not ours to mend.
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/mocs_compilation.cpp
        PROPERTIES COMPILE_OPTIONS -w)
endfunction()
