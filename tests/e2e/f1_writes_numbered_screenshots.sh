#!/usr/bin/env bash
# Each F1 writes the frame on screen to screenshot_N.bmp in the working directory, numbered
# from 1, at the window's size and the right way up: the same picture the X server shows.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
wait_for_startup
wait_until 10 title_on_screen || fail "the title never showed"
for n in 1 2 3; do
  hold_key_until "$window" F1 10 test -e "$GAME_DIR/screenshot_$n.bmp" || \
    fail "F1 number $n wrote no screenshot_$n.bmp"
done
# The title stands still, so the screen now shows what the last F1 saved.
capture_screen
press_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
wait_for_exit 1
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS"

for n in 1 2 3; do
  shot="$GAME_DIR/screenshot_$n.bmp"
  [ -s "$shot" ] || fail "screenshot_$n.bmp was not written"
  [ "$(head -c 2 "$shot")" = "BM" ] || fail "screenshot_$n.bmp is not a BMP file"
  size="$(identify -format '%w %h' "$shot")"
  [ "$size" = "1280 720" ] || fail "screenshot_$n.bmp is $size, expected 1280 x 720"
done
[ ! -e "$GAME_DIR/screenshot_4.bmp" ] || fail "more screenshots than F1 presses"

# Both pictures hold 8 bits a channel of the same frame, so they must agree exactly.
differing="$(differing_pixels "$GAME_DIR/screenshot_3.bmp" "$WORK/screen.png")"
[ "$differing" = "0" ] || fail "screenshot_3.bmp differs from the screen in $differing pixels"
[ "$(lit_pixels "$WORK/screen.png" 1280x720+0+0)" -gt 1000 ] || fail "the screen shows no title to compare"
echo "ok: three F1 presses wrote screenshot_1.bmp to screenshot_3.bmp, matching the screen"
