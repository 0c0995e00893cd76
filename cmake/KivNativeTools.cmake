# The build's own tools run on this machine, so a Windows build takes them from the native build tree.
set(KIV_TOOLS_DIR ${CMAKE_SOURCE_DIR}/build/native/tools CACHE PATH "Folder of the native build's tools")
foreach(tool kiv-names kiv-pictures)
    if(NOT EXISTS ${KIV_TOOLS_DIR}/${tool})
        message(FATAL_ERROR "${KIV_TOOLS_DIR}/${tool} is missing. Build the native tools first: "
            "./kiv build does, or: cmake --preset native && cmake --build --preset native --target kiv-tools")
    endif()
endforeach()
