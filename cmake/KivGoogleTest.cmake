# GoogleTest, built from Debian's sources for whichever platform is being built: link to GTest::gtest_main,
# or to GTest::gtest where a test program has a main of its own. Compiled from its two amalgamated sources;
# its own project would ask for a C compiler as well.
include_guard(GLOBAL)

set(KIV_GOOGLETEST_DIR /usr/src/googletest/googletest CACHE PATH "Folder of GoogleTest's sources")
if(NOT EXISTS ${KIV_GOOGLETEST_DIR}/src/gtest-all.cc)
    message(FATAL_ERROR "Cannot find GoogleTest's sources in ${KIV_GOOGLETEST_DIR}. ./kiv setup installs them "
        "(Debian package googletest); if they are elsewhere, configure with -DKIV_GOOGLETEST_DIR=…")
endif()

add_library(gtest STATIC EXCLUDE_FROM_ALL ${KIV_GOOGLETEST_DIR}/src/gtest-all.cc)
# Nobody steps through it.
target_compile_options(gtest PRIVATE -O1 -g1)
target_include_directories(gtest SYSTEM PUBLIC ${KIV_GOOGLETEST_DIR}/include PRIVATE ${KIV_GOOGLETEST_DIR})
if(WIN32)
    # Windows' own threads, so that no pthread library has to lie beside the test programs.
    target_compile_definitions(gtest PUBLIC GTEST_HAS_PTHREAD=0)
    target_include_directories(gtest SYSTEM BEFORE PUBLIC ${CMAKE_SOURCE_DIR}/cmake/googletest)
endif()
add_library(GTest::gtest ALIAS gtest)

add_library(gtest_main STATIC EXCLUDE_FROM_ALL ${KIV_GOOGLETEST_DIR}/src/gtest_main.cc)
target_link_libraries(gtest_main PUBLIC gtest)
add_library(GTest::gtest_main ALIAS gtest_main)
