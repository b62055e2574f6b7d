#!/usr/bin/env bash
# Without an X display SDL falls back to a text-mode driver that cannot open a GL window:
# the game must say so on stderr and end with status 1 instead of touching GL.
source "$(dirname "$0")/lib/common.sh"

start_ms="$(date +%s%3N)"
set +e
(cd "$GAME_DIR" && exec env -u DISPLAY -u WAYLAND_DISPLAY timeout "$(scaled 10)" ./kelvane >"$WORK/stdout" 2>"$WORK/stderr")
status=$?
set -e
elapsed=$(( $(date +%s%3N) - start_ms ))

[ "$status" -eq 1 ] || fail "exit status $status without a display, expected 1"
grep -q "^Error setting video mode: ." "$WORK/stderr" || \
  grep -q "^Error initializing SDL: ." "$WORK/stderr" || fail "no start-up error message on stderr"
[ "$elapsed" -lt "$(scaled_ms 5)" ] || fail "took ${elapsed} ms to give up"
echo "ok: status 1 in ${elapsed} ms with: $(head -n 1 "$WORK/stderr")"
