#!/usr/bin/env bash
# The title notice shows until a key: its lines are drawn centred on the window, the signature
# line starts at the centre, and after Return and the fade into the game the notice is gone and
# the game's HUD is there.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
wait_for_startup
wait_until 10 title_on_screen || fail "the title never showed"
cp "$WORK/screen.png" "$WORK/title.png"
hold_key_until "$window" F1 10 test -e "$GAME_DIR/screenshot_1.bmp" || fail "no screenshot of the title"

# A second of fade to black, then half a second into the game.
press_key_until "$window" Return 10 game_faded_in || fail "the game's HUD never showed after Return"
hold_key_until "$window" F1 10 test -e "$GAME_DIR/screenshot_2.bmp" || fail "no screenshot after entering the game"
press_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
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

# In the game the notice is gone (at most a few stars where its signature was) and the HUD's
# panels are in their corners: the score panel top left, the radar bottom right.
game="$GAME_DIR/screenshot_2.bmp"
[ "$(lit_pixels "$game" 200x28+650+532)" -lt 120 ] || fail "the notice is still on screen in the game"
[ "$(lit_pixels "$game" 200x60+0+0)" -gt 300 ] || fail "no score panel in the top-left corner"
[ "$(lit_pixels "$game" "$RADAR_CORNER")" -gt 3000 ] || fail "no radar in the bottom-right corner"
echo "ok: title notice drawn centred, gone once the game began with its HUD"
