# shellcheck shell=bash
# Tries the packages as whoever gets them does: in a Wine prefix that has seen nothing of this tree, unpacked elsewhere.

TRY=$PACKAGES_DIR/try
OLD_VERSION=0.9.0
# What each trial is called, and what it does.
TRIALS="\
A host that registers nothing (x86)|try_registration_free x86
A host that registers nothing (x64)|try_registration_free x64
Installing, upgrading, repairing|try_setup
Samples, built and run|try_samples
Uninstalling|try_uninstall
A library that others use|try_shared
For the current user|try_for_user"
TEST_TRIAL="The tests on another machine|try_tests"

# try_packages TESTS
try_packages() {
    local title action all=$TRIALS number=0
    ensure run
    [[ -z $1 ]] || all+=$'\n'$TEST_TRIAL
    VERSION=$(project_version)
    start_display
    ELSEWHERE=$(mktemp -d)
    at_end remove_elsewhere
    rm -rf "$TRY"
    mkdir -p "$TRY"
    export WINEPREFIX=$ROOT/$TRY/wine WINEARCH=win64
    if ((${#WINE_PREFIXES[@]} == 0)); then at_end stop_wine; fi
    WINE_PREFIXES+=("$WINEPREFIX")
    PROGRAMS=$WINEPREFIX/drive_c/Program\ Files/KivCtls
    step "Making a fresh Wine prefix" "$TRY/prefix.log" twice make_prefix x11 '' ||
        die "the Wine prefix could not be made." "$TRY/prefix.log has Wine's messages."
    make_setup "$OLD_VERSION" "$TRY/old-setup.exe" >"$TRY/old-setup.log" || die "no older set-up program could be made."
    make_codes "$DEMO_CODES" examples/codes.sql
    while IFS='|' read -r title action; do
        # shellcheck disable=SC2086 # a command and its arguments
        step "$title" "$TRY/$number.log" $action || {
            tail -n 20 "$TRY/$number.log" >&2
            die "the packages do not stand the trial." "$TRY/$number.log has all of it."
        }
        ((number += 1))
    done <<<"$all"
    say "The packages have stood $number trials."
}

remove_elsewhere() { rm -rf "$ELSEWHERE"; }

# must COMMAND ...: for trials, which run in a shell of their own.
must() { must_end 0 "$@"; }

# must_end STATUS COMMAND ...
must_end() {
    local due=$1 status=0
    shift
    printf '+ %s\n' "$*"
    timeout --foreground --kill-after=10 300 "$@" || status=$?
    ((status == due)) || refuse "it ended with $status, not with $due"
}

refuse() {
    printf 'not as it should be: %s\n' "$*"
    exit 1
}

# must_be WHAT ACTUAL EXPECTED
must_be() { [[ $2 == "$3" ]] || refuse "$1 is '$2', not '$3'"; }

# unpack NAME: ELSEWHERE has its folder then.
unpack() { [[ -d $ELSEWHERE/$1 ]] || must unzip -q "$PACKAGES_DIR/$1.zip" -d "$ELSEWHERE"; }

is_known() { wine reg query "$1" >/dev/null 2>&1; }

value_of() { wine reg query "$1" /v "$2" "${@:3}" 2>/dev/null | tr -d '\r' | sed -nE 's/^ .*REG_[A-Z]+ +(.*)$/\1/p'; }

YESNO='{3E649237-873E-11D3-BB17-00105A16D8EF}'
UNINSTALL_KEY='Software\Wow6432Node\Microsoft\Windows\CurrentVersion\Uninstall\KivCtls'
SHARED_KEY='Software\Wow6432Node\Microsoft\Windows\CurrentVersion\SharedDLLs'

nothing_is_registered() {
    local key
    for key in 'HKCR\KivControls.YesNo' "HKCR\\CLSID\\$YESNO" "HKCR\\Wow6432Node\\CLSID\\$YESNO"; do
        ! is_known "$key" || refuse "$key is there"
    done
}

# try_registration_free ARCH
try_registration_free() {
    local name=KivCtls-$VERSION-$1 folder=$ELSEWHERE/KivCtls-$VERSION-$1 host
    unpack "$name"
    nothing_is_registered
    host=(wine "$folder/FolioHost.exe" --database "$(windows_path "$ROOT/$DEMO_CODES")" --script "$folder/interview.script")
    must "${host[@]}" --shot "$(windows_path "$folder/shot.png")" "$(windows_path "$folder/interview.form")"
    [[ -s $folder/shot.png ]] || refuse "there is no picture"
    # Without the manifest it cannot be done: nothing else has led to the library.
    mv "$folder/KivCtls.manifest" "$folder/KivCtls.elsewhere"
    printf '+ without KivCtls.manifest\n'
    ! timeout --foreground 60 "${host[@]}" "$(windows_path "$folder/interview.form")" || refuse "the host does without the manifest"
    mv "$folder/KivCtls.elsewhere" "$folder/KivCtls.manifest"
}

# use_all_classes: in a script host of each architecture.
use_all_classes() {
    local folder script
    script=$(windows_path "$ROOT/packaging/sdk/samples/script/answers.vbs")
    for folder in "$@"; do
        printf '+ %s cscript\n' "$folder"
        timeout --foreground 60 wine "C:\\windows\\$folder\\cscript.exe" //nologo "$script" >"$TRY/classes.txt" 2>&1 ||
            refuse "the script ended early: $(cat "$TRY/classes.txt")"
        must_be "what all classes answer" "$(tr -d '\r' <"$TRY/classes.txt" | tr '\n' ' ')" \
            'YesNo Y NumberBox 123-45-6789 DateBox 2024 CurrencyBox 1234 PercentBox False ChkCombo 1099 EnumList Filing Status PicCommand &Details PicLite 16711935 '
    done
}

BOTH=(system32 syswow64)

# What every Windows has, or Wine writes at the first use of a script host.
make_usual() {
    local folder script=$ELSEWHERE/nothing.vbs
    printf 'Dim nothingAtAll\r\n' >"$script"
    for folder in "${BOTH[@]}"; do must wine "C:\\windows\\$folder\\cscript.exe" //nologo "$(windows_path "$script")"; done
    must wine reg add "HKLM\\$SHARED_KEY" /f
    must wine reg add "HKLM\\${SHARED_KEY/Wow6432Node\\/}" /f /reg:64
    must wine reg add "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall" /f
    for folder in CLSID Interface TypeLib; do must wine reg add "HKCU\\Software\\Classes\\$folder" /f; done
}

try_setup() {
    local setup=$PACKAGES_DIR/KivCtls-$VERSION-setup.exe status tries
    make_usual
    take_snapshot before
    must wine "$TRY/old-setup.exe" /S
    must_be "the version" "$(value_of "HKLM\\$UNINSTALL_KEY" DisplayVersion)" "$OLD_VERSION"
    use_all_classes "${BOTH[@]}"
    must wine "$setup" /S
    must_be "the version after the upgrade" "$(value_of "HKLM\\$UNINSTALL_KEY" DisplayVersion)" "$VERSION"
    must_end 3 wine "$TRY/old-setup.exe" /S
    must_be "the version after an older one" "$(value_of "HKLM\\$UNINSTALL_KEY" DisplayVersion)" "$VERSION"
    # The file tells its version too, where another installation has registered it.
    must_end 3 wine "$TRY/old-setup.exe" /S /CurrentUser
    # A host holds the library: nothing can take its place.
    wine "$PROGRAMS/x86/FolioHost.exe" "$(windows_path "$PROGRAMS/workbench/interview.form")" &
    for ((status = 0, tries = 0; status != 5 && tries < 20; ++tries)); do
        sleep 0.2
        status=0
        wine "$setup" /S || status=$?
    done
    must_be "what installing ends with while a host runs" "$status" 5
    must wine taskkill /f /im FolioHost.exe
    must rm "$PROGRAMS/x86/KivCtls.ocx"
    must wine reg delete "HKCR\\CLSID\\$YESNO" /f
    must wine "$setup" /S
    use_all_classes "${BOTH[@]}"
    must_be "how many use it" "$(value_of "HKLM\\$SHARED_KEY" 'C:\Program Files\KivCtls\x86\KivCtls.ocx')" 0x1
    must test -e "$PROGRAMS/workbench/interview.form"
    must test ! -e "$PROGRAMS/sdk"
}

# What a header declares: interfaces with their members in order, and enumerations, whoever has written it.
declared_in() {
    awk '/^MIDL_INTERFACE/ { type = toupper($1); count = 0 }
        /^(typedef enum|enum class) / { type = $0; gsub(/^typedef enum |^enum class | .*/, "", type); count = 0 }
        /^}/ { type = "" }
        match($0, /virtual HRESULT STDMETHODCALLTYPE [A-Za-z_]+/) { print type, ++count, substr($0, RSTART + 34, RLENGTH - 34) }
        type ~ /Enums$/ && / = / { sub(/,.*/, ""); print type, ++count, $1, $3 }' "$1" | LC_ALL=C sort
}

try_samples() {
    local sdk=$ELSEWHERE/KivCtls-$VERSION-sdk arch sample
    unpack "KivCtls-$VERSION-sdk"
    [[ $(declared_in "$sdk/include/KivControls.h" | wc -l) -gt 200 ]] || refuse "the header declares next to nothing"
    diff <(declared_in build/x86/contract/KivControls.h) <(declared_in "$sdk/include/KivControls.h") ||
        refuse "the header is not that of the contract"
    printf '#include <KivControls.h>\n' >"$sdk/alone.cpp"
    for arch in x86 x64; do
        must "$(triplet_of $arch)-g++" -std=c++11 -Wall -Wextra -Werror -fsyntax-only -I "$sdk/include" "$sdk/alone.cpp"
        must "$sdk/samples/cpp/build.sh" $arch
        for sample in AtlAxWin OwnContainer; do must wine "$sdk/samples/cpp/$sample.exe" --check; done
    done
    must wine cscript //nologo "$(windows_path "$sdk/samples/script/answers.vbs")"
    must wine cscript //nologo "$(windows_path "$sdk/samples/script/answers.js")"
    must widl -m32 -I "$sdk/idl" -I /usr/include/wine/wine/windows -L /usr/lib/i386-linux-gnu/wine/i386-windows \
        -t -o "$sdk/KivControls.tlb" "$sdk/idl/framework/contract/KivControls.idl"
}

# uninstall FOLDER SCOPE: it goes on by itself, and its own file goes last.
uninstall() {
    local patience=300
    must wine "$1/uninstall.exe" "/$2" /S
    while [[ -e $1/uninstall.exe ]]; do
        ((patience-- > 0)) || refuse "$1/uninstall.exe does not go"
        sleep 0.1
    done
    # The folder goes right after it, where nothing keeps it.
    sleep 0.5
}

try_uninstall() {
    uninstall "$PROGRAMS" all
    nothing_is_left
}

nothing_is_left() {
    take_snapshot after
    diff "$TRY/before.txt" "$TRY/after.txt" || refuse "something is left, or gone"
}

# Somebody else's count keeps the file and its registration.
try_shared() {
    local setup=$PACKAGES_DIR/KivCtls-$VERSION-setup.exe folder=$WINEPREFIX/drive_c/kiv
    must wine "$setup" /S /SDK /NoWorkbench '/D=C:\kiv'
    must test -e "$folder/sdk/include/KivControls.h"
    must test ! -e "$folder/workbench"
    must wine reg add "HKLM\\$SHARED_KEY" /v 'C:\kiv\x86\KivCtls.ocx' /t REG_DWORD /d 2 /f
    uninstall "$folder" all
    must_be "how many use it" "$(value_of "HKLM\\$SHARED_KEY" 'C:\kiv\x86\KivCtls.ocx')" 0x1
    must test -e "$folder/x86/KivCtls.ocx"
    must test ! -e "$folder/x64"
    use_all_classes syswow64
    must wine reg delete "HKLM\\$SHARED_KEY" /v 'C:\kiv\x86\KivCtls.ocx' /f
    must wine "$setup" /S /SDK '/D=C:\kiv'
    uninstall "$folder" all
    nothing_is_left
}

try_for_user() {
    local setup=$PACKAGES_DIR/KivCtls-$VERSION-setup.exe folder
    must wine "$setup" /S /CurrentUser
    folder=$(find "$WINEPREFIX/drive_c/users" -path '*Programs/KivCtls/uninstall.exe' -printf '%h')
    [[ -n $folder ]] || refuse "it is not among the user's programs"
    # Wine has one place for what both architectures register for a user; the 64-bit library comes last.
    wine reg query "HKCU\\Software\\Classes\\CLSID\\$YESNO\\InprocServer32" | grep -F 'Programs\KivCtls\x64\KivCtls.ocx' ||
        refuse "the library is not registered for the user"
    nothing_is_registered
    uninstall "$folder" user
    nothing_is_left
}

# One group of them.
try_tests() {
    local folder=$ELSEWHERE/KivCtls-$VERSION-tests
    unpack "KivCtls-$VERSION-tests"
    # Wine does not look at what is registered for one user.
    (cd "$folder" && must wine cmd /c run-tests.cmd /all-users clients) || exit 1
    must test -s "$folder/results/results.html"
    must_be "the number of tests in results.xml" \
        "$(grep -c '<testcase .* classname="x\(86\|64\)-clients\.' "$folder/results/results.xml")" \
        "$(cat "$folder"/results/x*.xml | grep -c '<testcase ')"
    nothing_is_registered
    # Wine writes anew what it has itself registered of the standard types when programs of the system ask for them.
    take_snapshot after
    diff <(grep -iE "kiv|${YESNO#*-}" "$TRY/before.txt") <(grep -iE "kiv|${YESNO#*-}" "$TRY/after.txt") ||
        refuse "something of the tests is left"
}

# take_snapshot NAME: the registry, but for the time of the start and what the next one deletes of temporary files, and
# the names of all other files.
take_snapshot() {
    wineserver -k || true
    wineserver -w
    {
        sed -E -e 's/^(\[.*\]) [0-9]+$/\1/' -e '/^#time=|^"(DriverDateData|PendingFileRenameOperations)"=/d' \
            "$WINEPREFIX"/{system,user,userdef}.reg
        find "$WINEPREFIX/drive_c" -ipath '*/temp/*' -prune -o -printf '%P\n' | LC_ALL=C sort
    } >"$TRY/$1.txt"
}
