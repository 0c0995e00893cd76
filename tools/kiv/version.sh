# shellcheck shell=bash
# Which version this is. The project's line in the top CMakeLists.txt says it, and nothing else.

project_version() {
    local version
    version=$(sed -nE 's/^project\(KivCtls VERSION ([0-9]+\.[0-9]+\.[0-9]+) .*/\1/p' CMakeLists.txt)
    [[ -n $version ]] || die "CMakeLists.txt tells no version." "Its line is: project(KivCtls VERSION 1.2.3 ...)."
    printf '%s' "$version"
}
