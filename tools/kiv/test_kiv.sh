#!/usr/bin/env bash
# Gives a copy of this tree its command lines, where the build, Wine and what runs under it are pretended.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/kiv/ui.sh
source tools/kiv/test.sh

place=$(mktemp -d)
remove_place() { rm -rf "$place"; }
at_end remove_place
failures=0

# Another user may be let in, and a path may have a blank in it.
chmod 755 "$place"
tree="$place/a tree"
mkdir "$tree" "$place/bin" "$place/empty"
tar -c --exclude ./build --exclude ./.git . | tar -x -C "$tree"
cat >>"$tree/tools/kiv/mutate.sh" <<'END'
ensure() { [[ -z ${ONLY_PARSE:-} ]] || exit 0; }
start_display() { at_end stop_display; }
stop_display() { echo display >>"$place/stopped"; }
make_prefix() { mkdir -p "$WINEPREFIX" && touch "$WINEPREFIX/made-by-kiv"; }
make_codes() { :; }
END

export place
unset COLUMNS
PATH=$place/bin:$PATH
fake() {
    printf '#!/bin/bash\n%s\n' "$2" >"$place/bin/$1"
    chmod +x "$place/bin/$1"
}
# shellcheck disable=SC2016 # these are the fakes' own variables
{
    # What it builds comes from the sources that the tree was configured for, and is told in a file there.
    fake cmake '[[ -z ${CMAKE_FAILS:-} ]] || exit 1
        if [[ $1 == --preset ]]; then
            mkdir -p "build/$2"
            printf "CMAKE_%s:INTERNAL=%s\n" HOME_DIRECTORY "$PWD" CACHEFILE_DIR "$PWD/build/$2" >"build/$2/CMakeCache.txt"
            touch "build/$2/build.ninja"
        else
            sed -n "s/^CMAKE_HOME_DIRECTORY:INTERNAL=//p" "$2/CMakeCache.txt" >"$2/built-from"
            for group in native com gui clients hostile; do
                mkdir -p "$2/tests/$group"
                cp "$place/bin/tests" "$2/tests/$group/kiv-$group-tests"
                cp "$place/bin/tests" "$2/tests/$group/kiv-$group-tests.exe"
            done
        fi'
    fake wine 'case $1 in
        winepath) echo "$3" ;;
        *-tests.exe) exec "$@" ;;
        *FolioHost.exe) echo $$ >"$place/host" && exec sleep 60 ;;
        esac'
    fake wineserver 'echo wine >>"$place/stopped"'
    # A test program, as far as its names, its list and its filter go.
    fake tests 'names=(YesNoTest.Shows YesNoTest.DISABLED_Waits Rows/YesNoKey.Types/Up Rows/YesNoKey.Types/Down
            MaskedTest.Shows Rows/MaskedKey.Types/Up Controls/EachView.Draws/YesNo Controls/EachView.Draws/DateBox)
        if [[ $* == *--gtest_list_tests* ]]; then
            for name in "${names[@]}"; do printf "%s.\n  %s\n" "${name%%.*}" "${name#*.}"; done
            exit
        fi
        filter=${!#}
        filter=${filter#--gtest_filter=}
        matches() {
            local pattern IFS=:
            set -f
            for pattern in $1; do [[ $name != $pattern ]] || return 0; done
            return 1
        }
        ran=()
        for name in "${names[@]}"; do
            [[ $name != *DISABLED_* ]] && matches "${filter%%-*}" || continue
            [[ $filter == *-* ]] && matches "${filter#*-}" || ran+=("$name")
        done
        echo "[==========] Running ${#ran[@]} tests from 9 test suites."
        for name in "${ran[@]}"; do printf "[ RUN      ] %s\n[       OK ] %s (0 ms)\n" "$name" "$name"; done
        echo "[==========] ${#ran[@]} tests from 9 test suites ran. (0 ms total)"'
}

# hear COMMAND ...: STATUS, what it SAID and what it COMPLAINED of.
hear() {
    STATUS=0
    "$@" >"$place/said" 2>"$place/complained" || STATUS=$?
    SAID=$(<"$place/said") COMPLAINED=$(<"$place/complained")
    [[ ! $COMPLAINED =~ line\ [0-9]+: ]] || complain "the complaint of: ${*@Q}" "$COMPLAINED" "none of a shell's own"
}

kiv() { hear "$tree/kiv" "$@"; }

complain() {
    printf 'tools/kiv/test_kiv.sh:%s: %s is "%s", expected "%s"\n' "${BASH_LINENO[-2]}" "$1" "$2" "$3"
    failures=$((failures + 1))
}

# expect WHAT ACTUAL PATTERN
expect() {
    # shellcheck disable=SC2053 # a pattern
    [[ $2 == $3 ]] || complain "$@"
}

# expect_run STATUS SAID COMPLAINED, of what was heard
expect_run() {
    expect status "$STATUS" "$1"
    expect "what it said" "$SAID" "$2"
    expect "what it complained of" "$COMPLAINED" "$3"
}

longest_line() { awk '{ if (length > most) most = length } END { print most + 0 }'; }

# Commands are names.
kiv
expect_run 0 'kiv: *  ./kiv COMMAND*demo*' ''
for word in '' 'b.*' '.*' 'build|' 'build ' build_tree --no-such-option; do
    kiv "$word"
    expect_run 2 '' "kiv: there is no command '$word'"$'\n     ./kiv help lists them.'
done
kiv $'build\ntest'
expect_run 2 '' $'kiv: there is no command \'build test\'\n*'

# Each of them is there, tells its line, and knows what it does not take.
mapfile -t listed < <(sed -n '/^COMMANDS=/,/"$/p' kiv | sed -nE 's/^([a-z]+)\|.*/\1/p')
mapfile -t written < <(grep -hoE '^cmd_[a-z]+' kiv tools/kiv/*.sh | sed 's/cmd_//')
expect 'the list' "$(printf '%s\n' "${listed[@]}" | sort)" "$(printf '%s\n' "${written[@]}" | sort)"
for command in "${listed[@]}"; do
    kiv "$command" --help
    expect_run 0 "  $command *" ''
    expect 'the lines of its help' "$(wc -l <"$place/said")" 1
    kiv "$command" --no-such-option
    expect_run 2 '' 'kiv: *--no-such-option*'
done
kiv test --arch x64 'A.*' -h
expect_run 0 '  test *' ''
kiv help bench
expect_run 0 '  bench *' ''
kiv help such
expect_run 2 '' "kiv: there is no command 'such'*"
kiv --help
expect_run 0 'kiv: *' ''

# The version is the project's.
kiv --version
expect_run 0 "KivCtls $(sed -nE 's/^project\(KivCtls VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt)" ''
kiv --version again
expect_run 2 '' 'kiv: --version does not know: again*'
sed -i 's/^project(KivCtls VERSION/project(KivCtls/' "$tree/CMakeLists.txt"
kiv --version
expect_run 1 '' 'kiv: CMakeLists.txt tells no version.*'
cp CMakeLists.txt "$tree"

# Offsets are hexadecimal numbers, of one architecture, into a library that has been built.
for word in KivCtls.ocx+0x12345g 123456789 ''; do
    kiv where "$word"
    expect_run 2 '' "kiv: '"*"' is no offset into the library"$'\n*'
done
kiv where
expect_run 2 '' 'kiv: where needs an offset*'
kiv where --arch all 1000
expect_run 2 '' 'kiv: an offset is one of one architecture*'
kiv where --arch x64 KivCtls.ocx+0x1000
expect_run 1 '' 'kiv: there is no build/x64/KivCtls.ocx.debug.*'

# Words that are lists of known words, or nearly numbers.
kiv bench 'YesNo ChkCombo'
expect_run 2 '' "kiv: there are no measurements 'YesNo ChkCombo'*"
kiv attack 'streams storages'
expect_run 2 '' "kiv: there is no attack called 'streams storages'*"
for word in 0 00 123456; do
    kiv fuzz $word
    expect_run 2 '' "kiv: '$word' is no number of seconds to go by"$'\n     It takes 1 to 99999.'
    kiv attack $word
    expect_run 2 '' "kiv: '$word' is no number of minutes to go by"*
done
kiv test such
expect_run 2 '' "kiv: there is no group 'such'*"

# The command lines of the documents, and the suites of tests that they name.
while IFS= read -r line; do
    mapfile -t words < <(xargs printf '%s\n' <<<"${line/ FILE/ runtime/core/Decimal.cpp}")
    ONLY_PARSE=yes kiv "${words[@]:1}"
    expect "the complaint of the documented $line" "$COMPLAINED" ''
    expect "the status of the documented $line" "$STATUS" 0
    for word in "${words[@]:2}"; do
        [[ $word == *\** ]] || continue
        suite=${word%%.*}
        grep -rqE "^TEST(_[FP])?\(${suite//\*/[A-Za-z]*}," tests || complain "what the documented $line names" '' "$suite"
    done
done < <(find README.md CONTRIBUTING.md docs -name '*.md' -exec grep -ohE "\./kiv( [^\`#|]*[^\`#| ])?" {} + | sort -u)

# By a link, by another shell, from elsewhere, and without the tree.
ln -s "$tree/kiv" "$place/kiv"
ln -s kiv "$place/linked"
cd "$place/empty"
hear ../linked help build
expect_run 0 '  build *' ''
hear env CDPATH="$place" sh "$tree/kiv" help build
expect_run 0 '  build *' ''
if [[ $(sh -c 'echo ${BASH_VERSION:-none}') == none ]]; then
    hear env PATH="$place/empty" "$(command -v sh)" "$tree/kiv"
    expect_run 1 '' 'kiv: it needs bash, which is not installed.'
fi
cp "$tree/kiv" copied
hear ./copied
expect_run 1 '' 'kiv: it has no tools/kiv beside it*'
cd "$tree"

# Nobody listens, or not for long.
hear bash -c './kiv help >&-'
expect_run 0 '' ''
hear bash -c 'POSIXLY_CORRECT=1 ./kiv help >&-'
expect_run 0 '' ''
hear bash -c './kiv such 2>&-'
expect_run 2 '' ''
mkdir -p build/native
touch build/native/CMakeCache.txt
hear bash -c './kiv build <&- 2>&-'
expect_run 0 '*Built: *' ''
hear bash -c 'set -o pipefail; { sleep 0.1; env --default-signal=PIPE ./kiv help; } | true'
expect_run 141 '' ''
hear bash -c 'trap "" PIPE; set -o pipefail; { sleep 0.1; ./kiv help; } | true'
expect_run 1 '' 'kiv: its output cannot be written any more.'
hear bash -c './kiv help >/dev/full'
expect_run 1 '' 'kiv: its output cannot be written any more.'

# Little room.
for COLUMNS in 40 50 60 100; do
    export COLUMNS
    kiv help
    expect "the longest line of $COLUMNS" $((COLUMNS < $(longest_line <"$place/said"))) 0
    kiv build
    expect "the longest step of $COLUMNS" $((COLUMNS < $(grep ' s$' "$place/said" | longest_line))) 0
    CMAKE_FAILS=yes kiv build
    expect "the longest failure of $COLUMNS" $((COLUMNS < $(grep 'failed$' "$place/said" | longest_line))) 0
done
unset COLUMNS
kiv build
expect_run 0 '*  Building x86 (KivCtls FolioHost)   *Built: build/x86/KivCtls.ocx and build/x86/FolioHost.exe' ''

# Moved, a tree is built from the sources that are there now, and from nothing.
cp -a "$tree" "$place/copy"
cd "$place/copy"
kiv_here() { hear ./kiv "$@"; }
touch build/x86/old.o
mkdir -p build/x86/wine build/fuzz/artifacts
printf 'CMAKE_%s:INTERNAL=%s\n' HOME_DIRECTORY "$tree" CACHEFILE_DIR "$tree/build/fuzz" >build/fuzz/CMakeCache.txt
touch build/fuzz/{build.ninja,old.o,artifacts/kept}
kiv_here build
expect_run 0 '*Configuring native *Configuring x86 *Built: *' \
    "kiv: build/native was made for the sources in $tree; making it anew."$'\n'"kiv: build/x86 was made for the *anew."
expect 'what was built' "$(<build/x86/built-from)" "$place/copy"
expect 'what was left' "$(cd build/x86 && echo [ow]*)" '\[ow]\*'
kiv_here build
expect_run 0 '  Building*Built: *' ''
kiv_here fuzz 1 query
expect 'what it complained of' "$COMPLAINED" 'kiv: build/fuzz was made for the sources *'
expect 'what fuzzing left' "$(cd build/fuzz && echo artifacts/* [o]*)" 'artifacts/kept \[o]\*'

# As it is where the folder of all that is built is shared.
sed -i "s|^\(CMAKE_HOME_DIRECTORY:INTERNAL=\).*|\1$tree|" build/x86/CMakeCache.txt
kiv_here build
expect_run 0 '*Configuring x86 *Built: *' "kiv: build/x86 was made for the sources in $tree; making it anew."

# Through a link it is still the same tree.
sed -i "s|=$place/copy|=$place/other|" build/*/CMakeCache.txt
ln -s copy "$place/other"
kiv_here build
expect_run 0 '  Building*Built: *' ''

# Half a configuration is none.
for half in 'rm build/x86/build.ninja' ': >build/x86/CMakeCache.txt'; do
    bash -c "$half"
    touch build/x86/old.o
    kiv_here build
    expect_run 0 '*Configuring x86 *Built: *' 'kiv: build/x86 was left half configured; making it anew.'
    expect 'what was left' "$(cd build/x86 && echo [o]*)" '\[o]\*'
done

# Another user's build/: for root, who may do anything, there has to be one.
as_other=()
((EUID != 0)) || as_other=(setpriv --reuid nobody --regid nogroup --clear-groups)
for locked in build/x86 build; do
    chmod a-w $locked
    hear "${as_other[@]}" ./kiv build
    expect_run 1 '' "kiv: * cannot write to build/*, which is $(id -un)'s."$'\n     Run kiv *'
    chmod u+w $locked
done
rm -rf build
chmod a-w .
hear "${as_other[@]}" ./kiv build
expect_run 1 '' $'kiv: * cannot make the folder build/ here.\n     Run kiv *'
chmod u+w .
cd "$tree"

# A test is found by the name that people know, wherever it is.
kiv test 'YesNo*.*' com hostile
expect_run 0 '*Testing com (x86) *    4 of 7 tests picked*Testing hostile *    4 of 7 tests picked*8 passed, 0 failed' ''
kiv test native
expect_run 0 '*7 passed, 0 failed' ''
expect 'what it said' "${SAID/picked/}" "$SAID"
kiv test native 'Such.*' 'It*'
expect_run 1 '*    0 of 7 tests picked*0 passed, 0 failed' "kiv: no test ran: nothing matches 'Such.*' 'It*'."

# picks PATTERN ... = TEST ...
picks() {
    local patterns=() picked
    while [[ $1 != = ]]; do
        patterns+=("$1")
        shift
    done
    shift
    picked=$("$place/bin/tests" "--gtest_filter=$(filter_for "${patterns[@]}")" | sed -n 's/^\[ RUN      \] //p')
    expect "what ${patterns[*]@Q} picks" "${picked//$'\n'/ }" "$*"
}
picks 'YesNoKey.*' = Rows/YesNoKey.Types/Up Rows/YesNoKey.Types/Down
picks YesNoKey.Types = Rows/YesNoKey.Types/Up Rows/YesNoKey.Types/Down
picks YesNoKey.Types/Up = Rows/YesNoKey.Types/Up
picks Rows/YesNoKey.Types/Up = Rows/YesNoKey.Types/Up
picks 'Masked*' = MaskedTest.Shows Rows/MaskedKey.Types/Up
picks '*.Shows' = YesNoTest.Shows MaskedTest.Shows
picks '*Key*' = Rows/YesNoKey.Types/Up Rows/YesNoKey.Types/Down Rows/MaskedKey.Types/Up
picks 'DateBox.*' = Controls/EachView.Draws/DateBox
picks DateBox.Draws = Controls/EachView.Draws/DateBox
picks DateBox.Shows =
picks 'EachView.*' MaskedTest.Shows = MaskedTest.Shows Controls/EachView.Draws/YesNo Controls/EachView.Draws/DateBox
picks 'MaskedTest.*:DateBox.*' = MaskedTest.Shows Controls/EachView.Draws/DateBox
picks 'YesNo*.*-YesNoKey.*' 'MaskedTest.*' = YesNoTest.Shows MaskedTest.Shows Controls/EachView.Draws/YesNo
picks '*.*-YesNo*.*:Masked*' = Controls/EachView.Draws/DateBox

# Interrupted in the middle of a demo, it leaves nothing behind and says nothing more.
wait_until() {
    local tries=100
    until "$@" || ((--tries == 0)); do sleep 0.05; done
}
host_is_gone() { ! kill -0 "$(<"$place/host")" 2>/dev/null; }
for signal in INT:130 TERM:143 HUP:129; do
    rm -f "$place"/{host,stopped}
    set -m
    env --default-signal ./kiv demo --headless >"$place/said" 2>"$place/complained" &
    set +m
    wait_until test -s "$place/host"
    kill "-${signal%:*}" -- -$!
    STATUS=0
    wait $! || STATUS=$?
    wait_until host_is_gone
    SAID=$(<"$place/said") COMPLAINED=$(<"$place/complained")
    expect_run "${signal#*:}" '*A script answers the interview:' ''
    host_is_gone || complain 'the host of an interrupted demo' running gone
    # Without its display Wine would complain.
    expect 'what was stopped' "$(<"$place/stopped")" $'wine\ndisplay'
done

((failures == 0))
