#!/usr/bin/env bash
# Each F1 writes the frame on screen to screenshot_N.bmp in the working directory, numbered
# from 1, at the window's size and the right way up: the same picture the X server shows.
source "$(dirname "$0")/lib/common.sh"
use_readable_front_buffer

start_game
window="$(wait_for_window)"
wait_for_startup
sleep 1
for n in 1 2 3; do press_key "$window" F1; done
deadline=$((SECONDS + 10))
while [ ! -s "$GAME_DIR/screenshot_3.bmp" ] && [ $SECONDS -lt $deadline ]; do sleep 0.1; done
import -window root "$WORK/screen.png"
press_key "$window" Escape
wait_for_exit 10
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS"

for n in 1 2 3; do
  shot="$GAME_DIR/screenshot_$n.bmp"
  [ -s "$shot" ] || fail "screenshot_$n.bmp was not written"
  [ "$(head -c 2 "$shot")" = "BM" ] || fail "screenshot_$n.bmp is not a BMP file"
  size="$(identify -format '%w %h' "$shot")"
  [ "$size" = "1280 720" ] || fail "screenshot_$n.bmp is $size, expected 1280 x 720"
done
[ ! -e "$GAME_DIR/screenshot_4.bmp" ] || fail "more screenshots than F1 presses"

differing="$(compare -metric AE -fuzz 2% "$GAME_DIR/screenshot_3.bmp" "$WORK/screen.png" null: 2>&1 || true)"
[ "$differing" = "0" ] || fail "screenshot_3.bmp differs from the screen in $differing pixels"
echo "ok: three F1 presses wrote screenshot_1.bmp to screenshot_3.bmp, matching the screen"
