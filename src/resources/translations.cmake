# The editor's translations: each committed Qt Linguist file is compiled by
# lrelease and embedded under :/translations, where
# CamDesigner::installTranslator looks for "mxcamdesigner_<language>.qm".
# The source texts are German, so German needs no file.
find_package(Qt5 5.15 REQUIRED COMPONENTS LinguistTools)

set(mx_translations_dir ${CMAKE_CURRENT_BINARY_DIR}/translations)
set(mx_translations_ts ${CMAKE_CURRENT_LIST_DIR}/translations/mxcamdesigner_en.ts)
set_source_files_properties(${mx_translations_ts} PROPERTIES OUTPUT_LOCATION ${mx_translations_dir})
qt5_add_translation(mx_translations_qm ${mx_translations_ts} OPTIONS -silent)

set(mx_translations_qrc_entries "")
foreach(mx_qm IN LISTS mx_translations_qm)
    get_filename_component(mx_qm_name ${mx_qm} NAME)
    string(APPEND mx_translations_qrc_entries "        <file alias=\"${mx_qm_name}\">${mx_qm}</file>\n")
endforeach()
set(mx_translations_qrc ${mx_translations_dir}/camdesignertranslations.qrc)
file(WRITE ${mx_translations_qrc}.in
    "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n    <qresource prefix=\"/translations\">\n"
    "${mx_translations_qrc_entries}"
    "    </qresource>\n</RCC>\n")
configure_file(${mx_translations_qrc}.in ${mx_translations_qrc} COPYONLY)
qt5_add_resources(mx_translations_sources ${mx_translations_qrc})
target_sources(MxCamDesignerObjects PRIVATE ${mx_translations_sources})

# Brings the Linguist files up to date with the library's texts (new texts
# come in unfinished, vanished ones go); translate them in linguist, then
# build again.
add_custom_target(update_translations
    COMMAND Qt5::lupdate -no-obsolete -locations none -source-language de -target-language en
            src -ts ${mx_translations_ts}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    VERBATIM)
