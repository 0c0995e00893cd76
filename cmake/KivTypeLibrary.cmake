# The published contract, made from framework/contract/KivControls.idl by Wine's IDL compiler:
#   contract/KivControls.h    the interfaces as C++ sees them, included as <KivControls.h>
#   contract/KivMembers.h     its properties and events as the controls' classes have them
#   contract/sdk/KivControls.h  the contract for C++ hosts
#   KivCtls.manifest          what a host needs of it where nothing is registered; it lies beside the library
#   contract/KivControls.tlb  the type library that the resources embed; its path is KIV_TYPE_LIBRARY
# Link to kiv_contract to get the header and the identifiers (IID_…, CLSID_…, LIBID_KivControls).
include(KivWidl)

set(contractDir ${CMAKE_BINARY_DIR}/contract)
set(KIV_TYPE_LIBRARY ${contractDir}/KivControls.tlb)
file(MAKE_DIRECTORY ${contractDir})

kiv_compile_contract(${KIV_ARCH} -h ${contractDir}/KivControls.h)
kiv_compile_contract(${KIV_ARCH} -t ${contractDir}/compiled.tlb)
add_custom_command(
    OUTPUT ${KIV_TYPE_LIBRARY}
    COMMAND ${KIV_TOOLS_DIR}/kiv-names ${contractDir}/compiled.tlb ${KIV_CONTRACT_NAMES} ${KIV_TYPE_LIBRARY}
    DEPENDS ${contractDir}/compiled.tlb ${KIV_CONTRACT_NAMES} ${KIV_TOOLS_DIR}/kiv-names
    COMMENT "Writing the published names into the type library" VERBATIM)
add_custom_command(
    OUTPUT ${contractDir}/KivMembers.h
    COMMAND awk -f ${CMAKE_SOURCE_DIR}/tools/contract/members.awk ${KIV_CONTRACT_IDL} ${KIV_CONTRACT_PARTS}
        > ${contractDir}/KivMembers.h
    DEPENDS ${CMAKE_SOURCE_DIR}/tools/contract/members.awk ${KIV_CONTRACT_IDL} ${KIV_CONTRACT_PARTS}
    COMMENT "Writing what the controls' classes have of the contract" VERBATIM)
# kiv_write_from_contract(<program> <output> [<name>=<value> ...])
function(kiv_write_from_contract program output)
    set(reader ${CMAKE_SOURCE_DIR}/tools/contract/idl.awk)
    set(writer ${CMAKE_SOURCE_DIR}/tools/contract/${program}.awk)
    set(settings)
    foreach(setting ${ARGN})
        list(APPEND settings -v ${setting})
    endforeach()
    add_custom_command(
        OUTPUT ${output}
        COMMAND awk ${settings} -f ${reader} -f ${writer} ${KIV_CONTRACT_IDL} ${KIV_CONTRACT_PARTS} > ${output}
        DEPENDS ${reader} ${writer} ${KIV_CONTRACT_IDL} ${KIV_CONTRACT_PARTS} ${KIV_CONTRACT_NAMES}
        COMMENT "Writing the ${program} of the contract" VERBATIM)
endfunction()

if(KIV_ARCH STREQUAL x64)
    set(processor amd64)
else()
    set(processor x86)
endif()
set(manifest ${CMAKE_BINARY_DIR}/KivCtls.manifest)
kiv_write_from_contract(manifest ${manifest} processor=${processor})
file(MAKE_DIRECTORY ${contractDir}/sdk)
kiv_write_from_contract(header ${contractDir}/sdk/KivControls.h names=${KIV_CONTRACT_NAMES})

add_custom_target(kiv_contract_files
    DEPENDS ${contractDir}/KivControls.h ${contractDir}/KivMembers.h ${KIV_TYPE_LIBRARY} ${manifest}
        ${contractDir}/sdk/KivControls.h)

# The header only declares its identifiers. The one source that defines them is a single include made here:
# __uuidof knows interfaces and classes, but not the library's own identifier.
file(CONFIGURE OUTPUT ${contractDir}/identifiers.cpp
    CONTENT "#include <initguid.h>\n\n#include <KivControls.h>\n" @ONLY)
add_library(kiv_contract_ids STATIC ${contractDir}/identifiers.cpp)
target_compile_options(kiv_contract_ids PRIVATE ${KIV_NO_PLACE})
add_dependencies(kiv_contract_ids kiv_contract_files)
target_include_directories(kiv_contract_ids SYSTEM PRIVATE ${contractDir})

add_library(kiv_contract INTERFACE)
add_dependencies(kiv_contract kiv_contract_files)
target_include_directories(kiv_contract SYSTEM INTERFACE ${contractDir})
target_link_libraries(kiv_contract INTERFACE kiv_contract_ids)
