# Widgets and dialogs shared by the editor's subsystems. They depend on Qt
# only, so that parameters, import, plots and views can all use them without
# reaching into one another. The message box and file dialog seams live one
# level lower still, in the host suite, so that a handler the host installs
# answers the editor's boxes as well.
target_sources(MxCamDesignerObjects PRIVATE
    ${CMAKE_CURRENT_LIST_DIR}/tableclipboard.h
    ${CMAKE_CURRENT_LIST_DIR}/tableclipboard.cpp
)
