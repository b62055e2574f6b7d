#!/usr/bin/env bash
# Escape on the title screen quits the program with status 0.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
wait_for_startup
# The second it takes to fade out, and a margin.
press_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
wait_for_exit 1
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"
echo "ok: Escape ended kelvane with status 0"
