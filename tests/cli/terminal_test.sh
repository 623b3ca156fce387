#!/usr/bin/env bash
# The terminal adding machine in a real pseudo-terminal: what is typed reaches the tape file, and
# the terminal is given back (the alternate screen left) however the session ends: q, Ctrl+C, or
# SIGTERM from another process.
# Usage: terminal_test.sh PATH-TO-zavrello-cli
set -uo pipefail
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A copy under a path of its own, so a signal reaches this test's program and no other.
cli="$work/zavrello-cli"
cp "$1" "$cli"
failed=0
fail() { echo "terminal: $1" >&2; failed=1; }

# Runs a session fed `keys` (printf format) after a second; `kill_after` seconds later sends
# SIGTERM when given. Leaves the typescript in $work/$name.ts and the data in $work/$name.
session() {
    local name=$1 keys=$2 kill_after=${3:-}
    mkdir -p "$work/$name"
    ZAVRELLO_HOME="$work/$name" TERM=xterm LC_ALL=C.UTF-8 timeout 20 \
        script -qfec "$cli tape" "$work/$name.ts" < <(sleep 1; printf "$keys"; sleep 4) >/dev/null &
    local runner=$!
    if [ -n "$kill_after" ]; then
        sleep "$kill_after"
        pkill -TERM -f "^$cli tape" || fail "$name: the program was not running"
    fi
    wait "$runner"
}

restored() {
    grep -q $'\e\\[?1049h' "$work/$1.ts" && grep -q $'\e\\[?1049l' "$work/$1.ts" &&
        grep -q 'COMMAND_EXIT_CODE="0"' "$work/$1.ts"
}

session typed '10+20=q'
grep -q '30.00 T' "$work/typed/calc.fita" 2>/dev/null || fail "typed: the total is not on the tape"
restored typed || fail "typed: the terminal was not given back"

session interrupted '7+\003'
grep -q '7.00 +' "$work/interrupted/calc.fita" 2>/dev/null || fail "Ctrl+C: the line is not on the tape"
restored interrupted || fail "Ctrl+C: the terminal was not given back"

session terminated '5+' 2
grep -q '5.00 +' "$work/terminated/calc.fita" 2>/dev/null || fail "SIGTERM: the line is not on the tape"
restored terminated || fail "SIGTERM: the terminal was not given back"

[ "$failed" -eq 0 ] && echo "terminal: 3 passed"
exit "$failed"
