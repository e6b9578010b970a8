# The editor's icons are drawn as SVG in icons/ and rendered by iconrender
# (tools/iconrender) into the image files the editor loads. The resource file
# that lists them and the style sheet is written here; rcc compiles it into
# the library.
#
# Tool bar and dock icons are drawn on a 16 unit grid and rendered at 32
# pixels, so that Qt's smooth down-scaling gives clean 16 and 24 pixel views;
# .ico files carry separate 16, 24 and 32 pixel images. The table cell icons
# under General/ are used at their native 16 pixels, so they are rendered at
# that size.
set(mx_resources_dir ${CMAKE_CURRENT_BINARY_DIR}/resources)
set(mx_resources_qrc ${mx_resources_dir}/camdesignerresources.qrc)
set(mx_resources_icons
    Movementplan.png Scaling.png CalculatedTable.png DeltaTable.png AxisTable.png CamView.png
    saveParameters.png exportMotionplan.png importParameterExtern.png exportGridPointsText.png deleteGrid.png
    importMotionplanProject.png importMotionplanExternal.png
    undo.ico redo.ico showUndo.png
    Position.png Velocity.png acceleration.png jerk.png CurveReport.png measure.png)
set(mx_resources_cell_icons General/Error_16x16.png General/Empty_16x16.png)

set(mx_resources_qrc_entries "")
set(mx_resources_files "")
foreach(mx_icon IN LISTS mx_resources_icons mx_resources_cell_icons)
    set(mx_icon_size 32)
    if(mx_icon IN_LIST mx_resources_cell_icons)
        set(mx_icon_size 16)
    endif()
    string(REGEX REPLACE "\\.[a-z]+$" ".svg" mx_icon_source ${CMAKE_CURRENT_LIST_DIR}/icons/${mx_icon})
    set(mx_icon_output ${mx_resources_dir}/${mx_icon})
    get_filename_component(mx_icon_output_dir ${mx_icon_output} DIRECTORY)
    # The renderer may be built with the sanitizers; Qt's own start-up
    # allocations are not this build's leaks.
    add_custom_command(OUTPUT ${mx_icon_output}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${mx_icon_output_dir}
        COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
                $<TARGET_FILE:iconrender> render ${mx_icon_size} ${mx_icon_source} ${mx_icon_output}
        DEPENDS iconrender ${mx_icon_source}
        VERBATIM)
    string(APPEND mx_resources_qrc_entries "        <file alias=\"${mx_icon}\">${mx_icon_output}</file>\n")
    list(APPEND mx_resources_files ${mx_icon_output})
endforeach()
string(APPEND mx_resources_qrc_entries
    "        <file alias=\"CamDesigner.qss\">${CMAKE_CURRENT_LIST_DIR}/CamDesigner.qss</file>\n")

# configure_file leaves an unchanged resource file alone, so that rcc does not
# run again on every configuration.
file(WRITE ${mx_resources_qrc}.in
    "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n    <qresource prefix=\"/Resources\">\n"
    "${mx_resources_qrc_entries}"
    "    </qresource>\n</RCC>\n")
configure_file(${mx_resources_qrc}.in
    ${mx_resources_qrc} COPYONLY)
qt5_add_resources(mx_resources_sources ${mx_resources_qrc})

target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerresources.h
    ${CMAKE_CURRENT_LIST_DIR}/camdesignerresources.cpp
    ${mx_resources_sources}
)

# Review aid, not part of the build: every icon at 16, 24 and 32 pixels on a
# light and a dark background, twice enlarged, in resources/contactsheet.png.
add_custom_target(iconsheet
    COMMAND ${CMAKE_COMMAND} -E env ASAN_OPTIONS=detect_leaks=0
            $<TARGET_FILE:iconrender> sheet --zoom 2 ${mx_resources_dir}/contactsheet.png ${mx_resources_files}
    DEPENDS ${mx_resources_files}
    VERBATIM)

include(${CMAKE_CURRENT_LIST_DIR}/translations.cmake)
