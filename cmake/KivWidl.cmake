# Wine's IDL compiler and what it reads.
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

set(KIV_CONTRACT_IDL ${CMAKE_SOURCE_DIR}/framework/contract/KivControls.idl)
# Its parts, by family of controls.
file(GLOB KIV_CONTRACT_PARTS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/framework/contract/[a-z]*.idl)
set(KIV_CONTRACT_NAMES ${CMAKE_SOURCE_DIR}/framework/contract/KivControls.names)

# Adds the command that compiles the contract: kiv_compile_contract(<x86|x64> <-h|-t> <output>).
function(kiv_compile_contract arch kind output)
    if(arch STREQUAL x64)
        set(machine -m64 -DKIV_X64)
    else()
        set(machine -m32)
    endif()
    # A fixed time makes the output the same whenever it is built.
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -E env WIDL_TIME_OVERRIDE=0 TZ=UTC ${KIV_WIDL} ${machine}
            -I${CMAKE_SOURCE_DIR} -I${KIV_WINE_IDL_DIR} -L${KIV_STDOLE_DIR} ${kind} -o ${output} ${KIV_CONTRACT_IDL}
        DEPENDS ${KIV_CONTRACT_IDL} ${KIV_CONTRACT_PARTS}
        COMMENT "Compiling the contract for ${arch} (widl ${kind})" VERBATIM)
endfunction()
