#!/usr/bin/env bash
# SIGTERM becomes an SDL quit request, which ends the game with status 0 at its next frame.
source "$(dirname "$0")/lib/common.sh"

start_game
wait_for_window >/dev/null
wait_for_startup
# The main loop is running once it has shown the title.
wait_until 10 title_on_screen || fail "the title never showed"
kill -TERM "$GAME_PID"
wait_for_exit 2
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after SIGTERM, expected 0"
echo "ok: SIGTERM ended kelvane with status 0"
