# shellcheck shell=bash
# Makes what other machines get: archives, the set-up program, and the sums of both. What goes in comes from one stage,
# and is the same, byte for byte, wherever and whenever it is made.

PACKAGES_DIR=build/package
STAGE=$PACKAGES_DIR/stage
# What comes along of the compiler's and others' run-times, and where Debian keeps their notices.
NOTICES="\
the run-times of GCC (libgcc, libstdc++)|all programs|/usr/share/doc/gcc-mingw-w64-base/copyright
the run-time of mingw-w64 (winpthreads included)|all programs|/usr/share/doc/mingw-w64-common/copyright
GoogleTest|the test programs|/usr/share/doc/googletest/copyright"
GROUPS_OF_KIT=(com gui clients hostile)

cmd_package() {
    local argument tries='' twice='' tests=yes
    for argument in "$@"; do
        case $argument in
        --try) tries=yes ;;
        --twice) twice=yes ;;
        --without-tests) tests='' ;;
        *) misused "package does not know $argument" "It takes --try, --twice and --without-tests." ;;
        esac
    done
    ensure build package ${tests:+run}
    lock_tree package
    build_packaged "$tests"
    step "Packing $(project_version)" "$PACKAGES_DIR/package.log" make_packages "$tests" || {
        tail -n 10 "$PACKAGES_DIR/package.log" >&2
        die "the packages could not be made." "$PACKAGES_DIR/package.log has all messages."
    }
    [[ -z $tries ]] || try_packages "$tests"
    [[ -z $twice ]] || package_again
    say "The packages of $(project_version) are in $PACKAGES_DIR/:"
    say "$(cd "$PACKAGES_DIR" && sed 's/^[0-9a-f]*  /  /' SHA256SUMS)"
}

# build_packaged TESTS
build_packaged() {
    local arch
    build_tree native kiv-tools
    for arch in x86 x64; do
        if [[ -n $1 ]]; then build_tree "$arch" all; else build_tree "$arch" "${PRODUCT_TARGETS[@]}" KivRegister; fi
    done
}

# The version's heading tells the day that all files bear.
release_day() {
    local version day
    version=$(project_version)
    day=$(sed -nE "s/^## ${version//./\\.} \\(([0-9]{4}-[0-9]{2}-[0-9]{2})\\)\$/\\1/p" CHANGELOG.md)
    [[ -n $day ]] || die "CHANGELOG.md has no heading for $version." "It is: ## $version (2026-01-31)"
    printf '%s' "$day"
}

# make_packages TESTS
make_packages() {
    local version day
    version=$(project_version)
    day=$(release_day)
    # What strips programs, and what makes the set-up program, would write the time into them.
    export SOURCE_DATE_EPOCH=0
    rm -rf "$STAGE" "$PACKAGES_DIR"/{KivCtls-*,SHA256SUMS,CHANGELOG,THIRD-PARTY.txt,files.nsh}
    mkdir -p "$STAGE"
    stage_debug
    stage_product
    stage_sdk
    if [[ -n $1 ]]; then stage_tests; fi
    settle "$STAGE" "$day"
    write_file_list >"$PACKAGES_DIR/files.nsh"
    make_setup "$version" "$PACKAGES_DIR/KivCtls-$version-setup.exe"
    pack "KivCtls-$version-x86" x86 "$day" common x86 host-x86
    pack "KivCtls-$version-x64" x64 "$day" common x64 host-x64
    pack "KivCtls-$version-sdk" sdk "$day" sdk
    pack "KivCtls-$version-debug" debug "$day" debug
    if [[ -n $1 ]]; then pack "KivCtls-$version-tests" tests "$day" tests; fi
    cp "$STAGE/common/CHANGELOG.txt" "$PACKAGES_DIR/CHANGELOG"
    cp "$STAGE/common/THIRD-PARTY.txt" "$PACKAGES_DIR/"
    (cd "$PACKAGES_DIR" && sha256sum CHANGELOG KivCtls-* THIRD-PARTY.txt >SHA256SUMS)
}

triplet_of() { if [[ $1 == x86 ]]; then printf i686-w64-mingw32; else printf x86_64-w64-mingw32; fi; }

# strip_into FOLDER ARCH PROGRAM ...: without what only a debugger reads.
strip_into() {
    local folder=$1 arch=$2 program
    shift 2
    mkdir -p "$folder"
    for program in "$@"; do
        "$(triplet_of "$arch")-strip" --strip-all -o "$folder/${program##*/}" "$program"
    done
}

# What `kiv where` reads, and debuggers.
stage_debug() {
    local arch
    for arch in x86 x64; do
        mkdir -p "$STAGE/debug/$arch"
        cp "build/$arch/KivCtls.ocx.debug" "$STAGE/debug/$arch/"
        "$(triplet_of $arch)-objcopy" --only-keep-debug "build/$arch/FolioHost.exe" "$STAGE/debug/$arch/FolioHost.exe.debug"
    done
}

stage_product() {
    local arch
    mkdir -p "$STAGE"/{common,workbench/workbench}
    fill_in packaging/README.txt >"$STAGE/common/README.txt"
    fill_in packaging/setup/README.txt >"$STAGE/common/SETUP.txt"
    sed 's/$/\r/' CHANGELOG.md >"$STAGE/common/CHANGELOG.txt"
    third_party >"$STAGE/common/THIRD-PARTY.txt"
    for arch in x86 x64; do
        mkdir -p "$STAGE/$arch" "$STAGE/host-$arch"
        cp "build/$arch/KivCtls.ocx" "build/$arch/KivCtls.manifest" "$STAGE/$arch/"
        strip_into "$STAGE/$arch" "$arch" "build/$arch/KivRegister.exe"
        strip_into "$STAGE/host-$arch" "$arch" "build/$arch/FolioHost.exe"
        cp packaging/FolioHost.exe.manifest examples/interview.{form,script} examples/codes.sql "$STAGE/host-$arch/"
    done
    mkdir -p "$STAGE/workbench/x86"
    cp "$STAGE/host-x86/FolioHost.exe" "$STAGE/workbench/x86/"
    cp examples/interview.{form,script} examples/codes.sql "$STAGE/workbench/workbench/"
}

# fill_in FILE: with the version, and line ends that every editor of Windows knows.
fill_in() { sed -e "s/@VERSION@/$(project_version)/g" -e 's/$/\r/' "$1"; }

third_party() {
    local what where file
    printf 'The programs of KivCtls contain parts of others. Their notices follow.\r\n'
    while IFS='|' read -r what where file; do
        printf '\r\n%s\r\nin %s: %s\r\n%s\r\n\r\n' "$(printf '=%.0s' {1..100})" "$where" "$what" "$(printf '=%.0s' {1..100})"
        [[ -r $file ]] || die "the notices of $what are missing: $file" "Debian's packages bring them."
        sed 's/\r*$/\r/' "$file"
    done <<<"$NOTICES"
}

stage_sdk() {
    local sdk=$STAGE/sdk arch
    mkdir -p "$sdk"/{include,lib,idl/framework/contract}
    fill_in packaging/sdk/README.txt >"$sdk/README.txt"
    cp build/x86/contract/sdk/KivControls.h "$sdk/include/"
    cp framework/contract/*.idl "$sdk/idl/framework/contract/"
    for arch in x86 x64; do cp "build/$arch/contract/KivControls.tlb" "$sdk/lib/KivControls-$arch.tlb"; done
    cp -r packaging/sdk/samples "$sdk/"
    mkdir -p "$sdk/docs/controls" "$sdk/docs/pictures"
    cp docs/*.md "$sdk/docs/"
    cp docs/controls/*.md "$sdk/docs/controls/"
    cp docs/pictures/*.png "$sdk/docs/pictures/"
}

# The test programs with all that they read, and what runs them.
stage_tests() {
    local tests=$STAGE/tests arch group
    mkdir -p "$tests/data"/{docs,resources,tests}
    fill_in packaging/tests/README.txt >"$tests/README.txt"
    cp packaging/tests/run-tests.cmd packaging/tests/report.js "$tests/"
    for arch in x86 x64; do
        strip_into "$tests/$arch" "$arch" "build/$arch/KivRegister.exe" "build/$arch/FolioHost.exe"
        # The titles of hosts are looked for beside the folder of the gui tests.
        for group in "${GROUPS_OF_KIT[@]}" module; do
            strip_into "$tests/$arch/$group" "$arch" "build/$arch/tests/$group"/*.exe
        done
        cp "build/$arch/KivCtls.ocx" "build/$arch/KivCtls.manifest" "$tests/$arch/"
    done
    cp -r examples "$tests/data/"
    cp -r docs/numbers.md docs/pictures "$tests/data/docs/"
    cp -r resources/pictures "$tests/data/resources/"
    # All that is no source.
    find tests -type f ! -name '*.cpp' ! -name '*.h' ! -name '*.rc' ! -name CMakeLists.txt -print0 |
        xargs -0 -r cp --parents -t "$tests/data"
    make_codes build/test/codes.db "${TEST_CODES[@]}"
    make_codes build/test/wrong-columns.db "$OTHER_CODES"
    cp build/test/codes.db build/test/wrong-columns.db "$tests/data/"
}

# settle FOLDER DAY: nothing of who made it, and when.
settle() {
    find "$1" -type d -exec chmod 755 {} +
    find "$1" -type f -exec chmod 644 {} +
    find "$1" -name '*.sh' -exec chmod 755 {} +
    find "$1" -exec touch -h -d "$2T12:00:00Z" {} +
}

# pack NAME FOLDER DAY PART ...: one archive, all of it in a folder of the archive's name.
pack() {
    local name=$1 day=$3 work=$PACKAGES_DIR/work part
    rm -rf "$work"
    mkdir -p "$work/$name"
    for part in "${@:4}"; do cp -a "$STAGE/$part/." "$work/$name/"; done
    settle "$work" "$day"
    (cd "$work" && find "$name" | LC_ALL=C sort | TZ=UTC zip -q -X -9 -@ "../$name.zip")
    rm -rf "$work"
}

# write_file_list: for the set-up program, what each part installs and takes away again.
write_file_list() {
    file_list common '' common
    file_list x86 '\x86' x86
    file_list x64 '\x64' x64
    file_list workbench '' workbench
    file_list sdk '\sdk' sdk
}

# file_list PART PLACE FOLDER: the dollars are the set-up program's.
# shellcheck disable=SC2016
file_list() {
    local place=$2 folder=$STAGE/$3 name last='' below
    printf '!macro Install_%s\n' "$1"
    while read -r name; do
        below=${name%/*}
        [[ $name == */* ]] || below=''
        below="\$INSTDIR$place${below:+\\${below//\//\\}}"
        [[ $below == "$last" ]] || printf '    SetOutPath "%s"\n' "$below"
        last=$below
        printf '    File "%s"\n' "$PWD/$folder/$name"
    done < <(files_below "$folder")
    printf '!macroend\n!macro Remove_%s\n' "$1"
    files_below "$folder" | while read -r name; do printf '    Delete "$INSTDIR%s\\%s"\n' "$place" "${name//\//\\}"; done
    # The innermost first; the folder of the installation itself is taken away in the end.
    find "$folder" -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort -r | while read -r name; do
        printf '    RMDir "$INSTDIR%s\\%s"\n' "$place" "${name//\//\\}"
    done
    [[ -z $place ]] || printf '    RMDir "$INSTDIR%s"\n' "$place"
    printf '!macroend\n'
}

files_below() { find "$1" -type f -printf '%P\n' | LC_ALL=C sort; }

# make_setup VERSION OUTPUT
make_setup() {
    makensis -V2 -NOCD -INPUTCHARSET UTF8 "-DVERSION=$1" "-DSTAGE=$PWD/$STAGE" "-DOUTPUT=$PWD/$2" packaging/setup/KivCtls.nsi
    touch "$2"
}

# Once more from nothing, in a copy of this tree elsewhere: every file must come out the same. The tests are left out,
# which take longest to build.
package_again() {
    local copy name different=''
    TWIN=$(mktemp -d)
    at_end remove_twin
    copy=$TWIN/another/tree
    mkdir -p "$copy"
    tar -c --exclude ./build --exclude ./.git . | tar -x -C "$copy"
    step "Building all of it elsewhere" "$PACKAGES_DIR/twice.log" "$copy/kiv" package --without-tests || {
        tail -n 10 "$PACKAGES_DIR/twice.log" >&2
        die "the packages could not be made a second time." "$PACKAGES_DIR/twice.log has all messages."
    }
    while read -r name; do
        cmp -s "$PACKAGES_DIR/$name" "$copy/$PACKAGES_DIR/$name" || different+=" $name"
    done < <(cd "$copy/$PACKAGES_DIR" && find . -maxdepth 1 -type f -name 'KivCtls-*' -printf '%P\n' | LC_ALL=C sort)
    [[ -z $different ]] || die "made twice, these differ:$different"
    say "Made twice in two places, all packages are the same."
}

remove_twin() { rm -rf "$TWIN"; }
