#!/usr/bin/env bash
# The title notice shows until a key: its lines are drawn centred on the window, the signature
# line starts at the centre, and after Return and the fade into the game the notice is gone.
source "$(dirname "$0")/lib/common.sh"

# Succeeds once the screen shows something else than the title, and the same picture as at
# the last call: both fades, out of the title and into the game, are over.
settled_after_title() {
  [ ! -e "$WORK/screen.png" ] || mv "$WORK/screen.png" "$WORK/before.png"
  screen_differs_from "$WORK/title.png" && [ -e "$WORK/before.png" ] &&
    [ "$(differing_pixels "$WORK/before.png" "$WORK/screen.png")" = "0" ]
}

start_game
window="$(wait_for_window)"
wait_for_startup
wait_until 10 title_on_screen || fail "the title never showed"
cp "$WORK/screen.png" "$WORK/title.png"
hold_key_until "$window" F1 10 test -e "$GAME_DIR/screenshot_1.bmp" || fail "no screenshot of the title"

# A second of fade to black, then half a second into the game.
hold_key_until "$window" Return 10 settled_after_title || fail "the screen did not settle after Return"
hold_key_until "$window" F1 10 test -e "$GAME_DIR/screenshot_2.bmp" || fail "no screenshot after entering the game"
capture_screen
hold_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
wait_for_exit 1
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"

title="$GAME_DIR/screenshot_1.bmp"
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

# The playing field is still empty: one colour from edge to edge, as on the screen.
game="$GAME_DIR/screenshot_2.bmp"
[ "$(convert "$game" -format '%[fx:maxima == minima]' info:)" = "1" ] || fail "the notice is still on screen in the game"
differing="$(differing_pixels "$game" "$WORK/screen.png")"
[ "$differing" = "0" ] || fail "screenshot_2.bmp differs from the screen in $differing pixels"
echo "ok: title notice drawn centred, gone once the game began"
