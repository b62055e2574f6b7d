#!/usr/bin/env bash
# The title notice shows until a key: its lines are drawn centred on the window, the signature
# line starts at the centre, and after Return and the fade into the game the notice is gone.
source "$(dirname "$0")/lib/common.sh"
use_readable_front_buffer

# Prints how many of the pixels in WIDTHxHEIGHT+X+Y of a picture are lit (brighter than 25%).
lit_pixels() {
  convert "$1" -crop "$2" +repage -colorspace Gray -threshold 25% -format '%[fx:int(mean*w*h+0.5)]' info:
}

start_game
window="$(wait_for_window)"
wait_for_startup
sleep 1
press_key "$window" F1
deadline=$((SECONDS + 10))
while [ ! -s "$GAME_DIR/screenshot_1.bmp" ] && [ $SECONDS -lt $deadline ]; do sleep 0.1; done
[ -s "$GAME_DIR/screenshot_1.bmp" ] || fail "no screenshot of the title"

press_key "$window" Return
sleep 3 # the one-second fade to black, then half a second back in, at softpipe's pace
press_key "$window" F1
deadline=$((SECONDS + 10))
while [ ! -s "$GAME_DIR/screenshot_2.bmp" ] && [ $SECONDS -lt $deadline ]; do sleep 0.1; done
press_key "$window" Escape
wait_for_exit 15
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"

title="$GAME_DIR/screenshot_1.bmp"
convert "$title" "$WORK/title.png"
# "Kelvane" hangs 25 pixels below the top, centred: ink on both sides of the centre line.
[ "$(lit_pixels "$title" 100x30+540+27)" -gt 200 ] || fail "no title word at the top centre"
[ "$(lit_pixels "$title" 40x30+600+27)" -gt 20 ] || fail "title word not centred"
# The signature "-- Orvendil --" (the 11th line, 530 pixels down with the 32-pixel medium
# font) starts at the centre line instead of being centred on it.
[ "$(lit_pixels "$title" 200x28+650+532)" -gt 200 ] || fail "no signature right of the centre"
[ "$(lit_pixels "$title" 90x28+545+532)" -eq 0 ] || fail "signature reaches left of the centre"
# Nothing at the far left and right of the notice's rows, nor in the corners.
[ "$(lit_pixels "$title" 100x700+0+10)" -eq 0 ] || fail "ink at the left edge"
[ "$(lit_pixels "$title" 100x700+1180+10)" -eq 0 ] || fail "ink at the right edge"
[ -s "$GAME_DIR/screenshot_2.bmp" ] || fail "no screenshot after entering the game"
[ "$(lit_pixels "$GAME_DIR/screenshot_2.bmp" 1280x720+0+0)" -eq 0 ] || fail "the notice is still on screen in the game"
echo "ok: title notice drawn centred, gone once the game began"
