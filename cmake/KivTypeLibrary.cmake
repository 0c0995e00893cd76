# The published contract, made from framework/KivControls.idl by Wine's IDL compiler:
#   contract/KivControls.h    the interfaces as C++ sees them, included as <KivControls.h>
#   contract/KivControls.tlb  the type library that the resources embed; its path is KIV_TYPE_LIBRARY
# Link to kiv_contract to get the header and the identifiers (IID_…, CLSID_…, LIBID_KivControls).
find_program(KIV_WIDL widl DOC "Wine's IDL compiler")
find_path(KIV_WINE_IDL_DIR oaidl.idl PATHS /usr/include/wine/wine/windows
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH DOC "Folder of Wine's IDL files")
# Either architecture's stdole2.tlb gives the same result.
find_path(KIV_STDOLE_DIR stdole2.tlb
    PATHS /usr/lib/i386-linux-gnu/wine/i386-windows /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH DOC "Folder of the standard automation types' library")

foreach(need "KIV_WIDL|the IDL compiler widl|wine64-tools" "KIV_WINE_IDL_DIR|oaidl.idl|libwine-dev"
        "KIV_STDOLE_DIR|stdole2.tlb|libwine or libwine:i386")
    string(REPLACE "|" ";" need "${need}")
    list(GET need 0 variable)
    list(GET need 1 what)
    list(GET need 2 package)
    if(NOT ${variable})
        message(FATAL_ERROR "Cannot find ${what}. ./kiv setup installs it (Debian package ${package}); "
            "if it is elsewhere, configure with -D${variable}=…")
    endif()
endforeach()

set(contractDir ${CMAKE_BINARY_DIR}/contract)
set(contractIdl ${CMAKE_SOURCE_DIR}/framework/KivControls.idl)
set(contractNames ${CMAKE_SOURCE_DIR}/framework/KivControls.names)
set(KIV_TYPE_LIBRARY ${contractDir}/KivControls.tlb)
file(MAKE_DIRECTORY ${contractDir})

if(KIV_ARCH STREQUAL x64)
    set(widlMachine -m64 -DKIV_X64)
else()
    set(widlMachine -m32)
endif()
# A fixed time makes the output the same whenever it is built.
set(runWidl ${CMAKE_COMMAND} -E env WIDL_TIME_OVERRIDE=0 TZ=UTC
    ${KIV_WIDL} ${widlMachine} -I${KIV_WINE_IDL_DIR} -L${KIV_STDOLE_DIR})

add_custom_command(
    OUTPUT ${contractDir}/KivControls.h
    COMMAND ${runWidl} -h -o ${contractDir}/KivControls.h ${contractIdl}
    DEPENDS ${contractIdl}
    COMMENT "Compiling the contract's header" VERBATIM)
add_custom_command(
    OUTPUT ${KIV_TYPE_LIBRARY}
    COMMAND ${runWidl} -t -o ${contractDir}/compiled.tlb ${contractIdl}
    COMMAND ${KIV_TOOLS_DIR}/kiv-names ${contractDir}/compiled.tlb ${contractNames} ${KIV_TYPE_LIBRARY}
    DEPENDS ${contractIdl} ${contractNames} ${KIV_TOOLS_DIR}/kiv-names
    BYPRODUCTS ${contractDir}/compiled.tlb
    COMMENT "Compiling the contract's type library" VERBATIM)
add_custom_target(kiv_contract_files DEPENDS ${contractDir}/KivControls.h ${KIV_TYPE_LIBRARY})

# The header only declares its identifiers. The one source that defines them is a single include made here:
# __uuidof knows interfaces and classes, but not the library's own identifier.
file(CONFIGURE OUTPUT ${contractDir}/identifiers.cpp
    CONTENT "#include <initguid.h>\n\n#include <KivControls.h>\n" @ONLY)
add_library(kiv_contract_ids STATIC ${contractDir}/identifiers.cpp)
add_dependencies(kiv_contract_ids kiv_contract_files)
target_include_directories(kiv_contract_ids SYSTEM PRIVATE ${contractDir})

add_library(kiv_contract INTERFACE)
add_dependencies(kiv_contract kiv_contract_files)
target_include_directories(kiv_contract SYSTEM INTERFACE ${contractDir})
target_link_libraries(kiv_contract INTERFACE kiv_contract_ids)
