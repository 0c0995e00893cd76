# The project's version as resource files see it: link to kiv_version and include resources/Version.h.
add_library(kiv_version INTERFACE)
target_include_directories(kiv_version INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(kiv_version INTERFACE
    KIV_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
    KIV_VERSION_MINOR=${PROJECT_VERSION_MINOR}
    KIV_VERSION_PATCH=${PROJECT_VERSION_PATCH})
