# The dialogs and icons, compiled and embedded, and the readers of their formats.
find_program(VESK_WINDRES NAMES x86_64-w64-mingw32-windres windres REQUIRED)
set(resource_dir ${CMAKE_SOURCE_DIR}/resources)
set(resource_file ${CMAKE_CURRENT_BINARY_DIR}/veskutil.res)
file(GLOB resource_icons CONFIGURE_DEPENDS ${resource_dir}/icons/*.ico)

add_custom_command(
    OUTPUT ${resource_file}
    COMMAND ${VESK_WINDRES} --preprocessor=${CMAKE_C_COMPILER} --preprocessor-arg=-E --preprocessor-arg=-xc
            --preprocessor-arg=-DRC_INVOKED -c 65001 -O res
            -I ${resource_dir} -I ${resource_dir}/include ${resource_dir}/veskutil.rc ${resource_file}
    DEPENDS ${resource_dir}/veskutil.rc ${resource_dir}/resource_ids.h ${resource_dir}/include/winresrc.h
            ${resource_icons}
    COMMENT "Compiling the dialogs and icons"
    VERBATIM)

add_library(vesk_resources STATIC
    byte_reader.cpp
    dialog_template.cpp
    embedded_resources.cpp
    icon_image.cpp
    resources.cpp)
target_include_directories(vesk_resources PUBLIC ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})
vesk_warnings(vesk_resources)
set_source_files_properties(embedded_resources.cpp PROPERTIES
    OBJECT_DEPENDS ${resource_file}
    COMPILE_DEFINITIONS "VESK_RESOURCE_FILE=\"${resource_file}\"")
