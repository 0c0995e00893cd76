# shellcheck shell=bash
# Code tables for the host: a database made from the samples, and for the tests a PostgreSQL server as well.

# make_codes FILE SQL ...: an SQLite database of the scripts, unless it is there and newer than they are.
make_codes() {
    local file=$1 source made=''
    shift
    for source in "$@" tools/kiv/data.sh; do [[ $file -nt $source ]] || made=no; done
    [[ -n $made ]] || return 0
    mkdir -p "${file%/*}"
    rm -f "$file.new"
    if ! cat "$@" | sqlite3 -bail "$file.new" >"$file.log" 2>&1; then
        tail -n 5 "$file.log" >&2
        die "the code tables could not be made of: $*" "sqlite3's messages are in $file.log."
    fi
    mv "$file.new" "$file"
}

TEST_CODES=(examples/codes.sql tests/gui/lists/odd-codes.sql)
OTHER_CODES=tests/gui/lists/wrong-columns.sql

# The databases that the tests of code tables read.
prepare_test_data() {
    make_codes build/test/codes.db "${TEST_CODES[@]}"
    make_codes build/test/wrong-columns.db "$OTHER_CODES"
    start_postgresql
}

# use_test_data ARCH: tells the tests where their databases are, or else why there is no server.
use_test_data() {
    local driver=x86_64-linux-gnu
    [[ $1 == x64 ]] || driver=i386-linux-gnu
    KIV_CODES=$(windows_path "$ROOT/build/test/codes.db")
    KIV_WRONG_COLUMNS=$(windows_path "$ROOT/build/test/wrong-columns.db")
    export KIV_CODES KIV_WRONG_COLUMNS
    export KIV_NO_POSTGRESQL=$POSTGRESQL_LACKS KIV_POSTGRESQL='' KIV_POSTGRESQL_WRONG_COLUMNS=''
    if [[ -z $KIV_NO_POSTGRESQL && ! -e /usr/lib/$driver/odbc/psqlodbcw.so ]]; then
        KIV_NO_POSTGRESQL="the package odbc-postgresql is not installed for $1; ./kiv setup installs it"
    fi
    [[ -z $KIV_NO_POSTGRESQL ]] || return 0
    KIV_POSTGRESQL=$(postgresql_source codes)
    KIV_POSTGRESQL_WRONG_COLUMNS=$(postgresql_source other)
}

postgresql_source() {
    printf 'Driver=PostgreSQL Unicode;Server=127.0.0.1;Port=%s;Database=%s;Uid=kiv;Pwd=%s' \
        "$POSTGRESQL_PORT" "$1" "$PGPASSWORD"
}

# A server of kiv's own, on a port of this machine's own network and with an unguessable password. It dies with kiv.
POSTGRESQL_LACKS=''
start_postgresql() {
    local log=build/test/postgresql.log bin=(/usr/lib/postgresql/*/bin)
    if [[ ! -x ${bin[-1]}/postgres ]]; then
        POSTGRESQL_LACKS="the package postgresql is not installed; ./kiv setup installs it"
        return
    fi
    POSTGRESQL_BIN=${bin[-1]}
    # Where the user that it runs as can reach it, whoever calls kiv.
    POSTGRESQL_HOME=$(mktemp -d)
    at_end stop_postgresql
    export PGPASSWORD
    PGPASSWORD=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
    POSTGRESQL_PORT=$(free_port)
    if step "Preparing PostgreSQL" "$log" init_postgresql; then
        unprivileged "$POSTGRESQL_BIN/postgres" -D "$POSTGRESQL_HOME/data" -c listen_addresses=127.0.0.1 \
            -c port="$POSTGRESQL_PORT" -c unix_socket_directories= -c fsync=off >"$log" 2>&1 9>&- &
        POSTGRESQL=$!
        step "Filling PostgreSQL" "$log.filling" fill_postgresql && return
    fi
    POSTGRESQL_LACKS="the server did not start; build/test/postgresql.log* say why"
}

init_postgresql() {
    printf '%s\n' "$PGPASSWORD" >"$POSTGRESQL_HOME/password" || return
    if ((EUID == 0)); then chown -R nobody "$POSTGRESQL_HOME"; fi
    unprivileged "$POSTGRESQL_BIN/initdb" -D "$POSTGRESQL_HOME/data" -U kiv -A scram-sha-256 \
        --pwfile "$POSTGRESQL_HOME/password" -E UTF8 --locale=C.UTF-8 --no-sync
}

# The server refuses to run as root. Takes the place of the shell that calls it.
unprivileged() {
    local user=()
    if ((EUID == 0)); then user=(--reuid nobody --regid nogroup --clear-groups); fi
    cd "$POSTGRESQL_HOME" && exec setpriv --pdeathsig TERM "${user[@]}" "$@"
}

fill_postgresql() {
    local tries=100 database
    until sql_to postgres -c 'SELECT 1'; do
        ((--tries)) && kill -0 "$POSTGRESQL" || return
        sleep 0.1
    done
    for database in codes other; do sql_to postgres -c "CREATE DATABASE $database" || return; done
    # The one word that the scripts have for SQLite only.
    sed 's/char(13, 10)/chr(13) || chr(10)/' "${TEST_CODES[@]}" | sql_to codes && sql_to other <"$OTHER_CODES"
}

# sql_to DATABASE [OPTION ...]
sql_to() {
    "$POSTGRESQL_BIN/psql" -X -q -h 127.0.0.1 -p "$POSTGRESQL_PORT" -U kiv -v ON_ERROR_STOP=1 -d "$@"
}

free_port() {
    local port
    while port=$((20000 + RANDOM % 20000)); do
        (: </dev/tcp/127.0.0.1/$port) 2>/dev/null || break
    done
    printf '%s' "$port"
}

stop_postgresql() {
    if [[ -n ${POSTGRESQL:-} ]]; then
        kill -INT "$POSTGRESQL" 2>/dev/null || true
        wait "$POSTGRESQL" 2>/dev/null || true
    fi
    rm -rf "$POSTGRESQL_HOME"
}
