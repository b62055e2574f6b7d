#!/usr/bin/env bash
# A quit request (SIGTERM, as SDL reports a closed window) ends the game with status 0 whatever
# it is doing: fading from the title into the game, playing, or fading out after Escape. (The
# title screen itself is sigterm_ends_game.)
source "$(dirname "$0")/lib/common.sh"

# Starts the game and waits for its title; the window's id is left in WINDOW.
start_at_title() {
  start_game
  WINDOW="$(wait_for_window)"
  wait_for_startup
  wait_until 10 title_on_screen || fail "the title never showed"
  cp "$WORK/screen.png" "$WORK/title.png"
}

# quit_now WHEN: sends the request and expects the game to end with status 0.
quit_now() {
  game_running || fail "kelvane ended $1 before the quit request"
  kill -TERM "$GAME_PID"
  wait_for_exit 2
  [ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after SIGTERM $1, expected 0"
}

# Return leaves the title for the fade into the game: the screen starts to change.
start_at_title
press_key_until "$WINDOW" Return 10 screen_differs_from "$WORK/title.png" || fail "the title stayed after Return"
quit_now "during the fade into the game"

# In play, the fade-in over.
start_at_title
RADAR_BRIGHTNESS=0
press_key_until "$WINDOW" Return 10 game_faded_in || fail "the game never faded in after Return"
quit_now "in play"

# Escape in play starts the fade to black; the request comes while the radar's corner darkens.
start_at_title
RADAR_BRIGHTNESS=0
press_key_until "$WINDOW" Return 10 game_faded_in || fail "the game never faded in after Return"
playing="$RADAR_BRIGHTNESS"
darkening() {
  import -window root -crop "$RADAR_CORNER" "$WORK/corner.bmp" &&
    [ "$(brightness "$WORK/corner.bmp" "${RADAR_CORNER%%+*}+0+0")" -lt $((playing * 9 / 10)) ]
}
# The fade lasts a second, so the request goes out as soon as it shows, with Escape still held.
xdotool keydown --window "$WINDOW" Escape
wait_until 5 darkening || fail "Escape did not start the fade to black"
quit_now "while fading out after Escape"
xdotool keyup Escape 2>/dev/null || true
echo "ok: SIGTERM ended kelvane with status 0 during the fade into the game, in play and while fading out"
