#!/usr/bin/env bash
# Escape on the title screen quits the program with status 0.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
wait_for_startup
press_key "$window" Escape
wait_for_exit 5
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"
echo "ok: Escape ended kelvane with status 0"
