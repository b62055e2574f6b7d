#!/usr/bin/env bash
# A quit request (SIGTERM, as SDL reports a closed window) ends the game at once with status 0
# after Return has left the title screen, not only on the title screen itself.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
wait_for_startup
wait_until 10 title_on_screen || fail "the title never showed"
cp "$WORK/screen.png" "$WORK/title.png"
# Return leaves the title screen for the fade into the game: the screen starts to change.
press_key_until "$window" Return 10 screen_differs_from "$WORK/title.png" || fail "the title stayed after Return"
game_running || fail "kelvane ended on Return"
kill -TERM "$GAME_PID"
wait_for_exit 2
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after SIGTERM in play, expected 0"
echo "ok: SIGTERM after Return ended kelvane with status 0"
