# What every target of the project is compiled with. Link to kiv_options; third-party targets do not.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

option(KIV_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer (native builds)" OFF)

add_library(kiv_options INTERFACE)
target_compile_options(kiv_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# Includes read from the root of the tree, so that a line shows which layer it reaches into.
target_include_directories(kiv_options INTERFACE ${CMAKE_SOURCE_DIR})
# What is built says nothing of the folder that it was built in, so that any other one gives the same bytes.
# Compiler caches may name the sources, and what is made of the contract, as the build tree sees them.
file(RELATIVE_PATH fromBuild ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR})
string(REGEX REPLACE "/$" "" fromBuild ${fromBuild})
file(RELATIVE_PATH toBuild ${CMAKE_SOURCE_DIR} ${CMAKE_BINARY_DIR})
set(KIV_NO_PLACE
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.
    -ffile-prefix-map=${fromBuild}=.
    -ffile-prefix-map=contract=./${toBuild}/contract)
target_compile_options(kiv_options INTERFACE ${KIV_NO_PLACE})

if(WIN32)
    # Windows 7 is the oldest system whose declarations are used.
    target_compile_definitions(kiv_options INTERFACE
        WIN32_LEAN_AND_MEAN NOMINMAX STRICT WINVER=0x0601 _WIN32_WINNT=0x0601)
    # The newest debug format that Wine's backtraces can read.
    target_compile_options(kiv_options INTERFACE -gdwarf-4)
    # Nor of the time.
    target_link_options(kiv_options INTERFACE -static -Wl,--no-insert-timestamp)
elseif(KIV_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(kiv_options INTERFACE ${sanitizers})
    target_link_options(kiv_options INTERFACE ${sanitizers})
endif()
