#!/usr/bin/env bash
# The first seconds of a game, played for real: Return fades the title to black and the game
# in; the HUD shows its three panels, the score 0 and "Energy: 350", the reticle sits under the
# mouse and the ship at the centre over the stars and the sky; thrust to the right moves the
# view, the stars drift and the ship falls behind the leading camera; the left button fires
# violet bolts toward the reticle, the right one lays a blue beam from the ship to the reticle
# and costs energy; "Wave 1 incoming" shows five seconds into the game; Escape fades out
# and ends the program with status 0.
source "$(dirname "$0")/lib/common.sh"

SCORE_PANEL=200x60+0+0
WEAPON_PANEL=200x80+0+632
SCORE_DIGIT=12x16+14+11     # the one "0" of the score, 15 pixels high at (15, 12)
AFTER_SCORE=60x16+30+11     # where a second digit would be
ENERGY_TEXT=100x16+4+24     # "Energy: 350", 15 pixels high at (5, 25)
ENERGY_DIGITS=28x16+72+24   # its "350"
WAVE_TEXT=280x80+500+226    # a centred notice at 40 % of the height, in its first second of rising
SKY_TOP=760x180+220+40      # sky and stars away from the HUD, the ship, the shots and notices
SKY_BOTTOM=760x120+220+480
CENTRE_X=640
CENTRE_Y=360
RETICLE_X=1000              # the mouse, on the ship's row so that shots fly along it
RETICLE_Y=360
# The row of the shots from the ship to the reticle, either side of the reticle itself.
SHOT_ROW_NEAR=240x32+740+344
SHOT_ROW_FAR=220x32+1040+344
# The beam's aim straight below the ship, clear of the notices above it; the beam is looked
# for part of its way, short of the sparks that spray round its end.
BEAM_END_Y=650
# Either side of the centre, on the ship's row: where the ship is seen behind the camera.
SHIP_LEFT=100x80+540+320
SHIP_RIGHT=100x80+640+320

start_game
window="$(wait_for_window)"
wait_for_startup
wait_until 10 title_on_screen || fail "the title never showed"
xdotool mousemove "$RETICLE_X" "$RETICLE_Y"

# Watched from Return on: the radar's violet dials through both fades (the title's corner, its
# white and the black hold none of them), and the middle of the screen for the wave's notice.
radar_dials() {
  tinted_pixels "$1" "$2" B RG 15
}
returned="$(now_ms)"
watch_screen "$RADAR_CORNER" radar_dials "$returned" "$WORK/radar.log"
watch_screen "$WAVE_TEXT" lit_pixels "$returned" "$WORK/wave.log"
radar_showing() {
  [ -s "$WORK/radar.log" ] && [ -n "$(first_reaching "$WORK/radar.log" 500)" ]
}
press_key_until "$window" Return 10 radar_showing || fail "the game did not come in after Return"

# The screenshots come first, while the first wave is still seconds away and the field holds
# nothing but the ship, and the flight last, so that the guns fire from the centre. The HUD's
# is taken once the fades are over, 1.6 s after Return by the clock (the fades run on real
# time however slow the frames, and a slow build's scaled wait would let the first wave in),
# and what it shows is checked after:
wait_until 10 watched_for "$WORK/radar.log" 1600 || fail "the radar's corner was not watched for 1.6 s"
take_screenshot "$window"
hud="$SHOT"

# The energy figure is watched while the guns fire: "350" at rest, other digits once a shot's
# cost shows. energy_changed LOG succeeds once a capture in LOG differs from the rest.
digit_pixels() {
  bright_pixels "$1" "$2" 50
}
at_rest="$(digit_pixels "$hud" "$ENERGY_DIGITS")"
energy_changed() {
  [ -s "$1" ] && awk -v rest="$at_rest" '$2 != rest { found = 1 } END { exit !found }' "$1"
}
energy_at_rest() {
  import -window root -crop "$ENERGY_DIGITS" "$WORK/energy.bmp" &&
    [ "$(digit_pixels "$WORK/energy.bmp" "${ENERGY_DIGITS%%+*}+0+0")" = "$at_rest" ]
}

# The left button, held until bolts fly along the row to the reticle and the energy figure has
# dipped. Each bolt costs 2, shown from the next frame on unless that frame's refill (35 a
# second) has already paid it back: so the dip is only looked for where frames take less than
# 57 ms, in the normal build and not under the sanitizers.
# F1 screenshots are taken until one shows the bolts: over 100 more violet pixels along the row
# to the reticle, either side of it, than the HUD's screenshot had there.
violet_on_row() {
  echo $(( $(tinted_pixels "$1" "$SHOT_ROW_NEAR" B RG 25) + $(tinted_pixels "$1" "$SHOT_ROW_FAR" B RG 25) ))
}
calm="$(violet_on_row "$hud")"
bolts_in_screenshot() {
  take_screenshot "$window" && violet="$(violet_on_row "$SHOT")" && [ "$violet" -gt $((calm + 100)) ]
}
watch_screen "$ENERGY_DIGITS" digit_pixels "$returned" "$WORK/plasma_energy.log"
xdotool mousedown 1
wait_until 5 bolts_in_screenshot ||
  fail "no screenshot showed violet bolts toward the reticle while the left button was held: $violet violet pixels, $calm before"
bolts="$SHOT"
if [ "$TIME_SCALE" = 1 ]; then
  wait_until 5 energy_changed "$WORK/plasma_energy.log" ||
    fail "the energy figure never changed while the plasma fired: $(tr '\n' ' ' <"$WORK/plasma_energy.log")"
fi
xdotool mouseup 1
stop_watching "$WATCH"

# The right button with the mouse straight below the ship, clear of the bolts, once the store
# is full again: held until a beam shows on the way there and the energy figure has fallen
# below 350. Each beam costs 8, which the store takes a quarter of a second to refill.
wait_until 5 energy_at_rest || fail "the energy store did not fill up again after the plasma"
xdotool mousemove "$CENTRE_X" "$BEAM_END_Y"
watch_screen "$ENERGY_DIGITS" digit_pixels "$returned" "$WORK/laser_energy.log"
# A beam thins as it ages, so F1 screenshots are taken until one shows a beam running down the
# column from the ship to the reticle, with nothing either side of it.
beam_down_the_column_in() {
  for beam_y in 440 490 540; do
    [ "$(tinted_pixels "$1" "16x20+$((CENTRE_X - 8))+$beam_y" B RG 25)" -gt 40 ] &&
      [ "$(tinted_pixels "$1" "16x20+$((CENTRE_X - 48))+$beam_y" B RG 25)" -lt 10 ] &&
      [ "$(tinted_pixels "$1" "16x20+$((CENTRE_X + 32))+$beam_y" B RG 25)" -lt 10 ] || return 1
  done
}
beam_in_screenshot() {
  take_screenshot "$window" && beam_down_the_column_in "$SHOT"
}
xdotool mousedown 3
wait_until 5 beam_in_screenshot ||
  fail "no screenshot showed a beam down to the reticle, alone in its column, while the right button was held (last at y $beam_y)"
beam="$SHOT"
wait_until 5 energy_changed "$WORK/laser_energy.log" ||
  fail "the energy figure never changed while the laser fired: $(tr '\n' ' ' <"$WORK/laser_energy.log")"
xdotool mouseup 3
stop_watching "$WATCH"
xdotool mousemove "$RETICLE_X" "$RETICLE_Y"

# Thrust to the right, held until the view has moved on with the ship: the stars drifted (many
# more of their pixels changed since the beam's picture than while the ship stood still, when
# only the slowly turning sky moves), and the camera leads the ship, so it fell behind to the
# left of the centre, its violet rim and exhaust there and not right of it. F1 screenshots are
# taken with the key held until one shows both.
standing="$(moved_pixels "$hud" "$bolts" "$SKY_TOP" 30)"
stars_drifted_in() {
  drifted="$(moved_pixels "$beam" "$1" "$SKY_TOP" 30)"
  [ "$drifted" -gt $((standing * 3 / 2 + 100)) ]
}
ship_behind_in() {
  behind="$(tinted_pixels "$1" "$SHIP_LEFT" B RG 25)"
  ahead="$(tinted_pixels "$1" "$SHIP_RIGHT" B RG 25)"
  [ "$behind" -gt $((3 * ahead + 100)) ]
}
view_moved_in_screenshot() {
  behind="" ahead=""
  take_screenshot "$window" && stars_drifted_in "$SHOT" && ship_behind_in "$SHOT"
}
xdotool keydown --window "$window" d
wait_until 5 view_moved_in_screenshot ||
  fail "holding d never moved the view on with the ship: $drifted star pixels changed ($standing while it stood), violet pixels ${behind:-?} left of the centre, ${ahead:-?} right"
xdotool keyup --window "$window" d

# The fades: the title fades to black over a second, and nothing of the game shows before it
# ends; then the game comes in over half a second, its radar at three quarters of its full
# strength or more from 1.6 s on.
full="$(radar_dials "$hud" "$RADAR_CORNER")"
[ "$full" -ge 2000 ] || fail "the radar's dials are not lit in the game ($full pixels)"
early="$(first_reaching "$WORK/radar.log" $((full / 2)))"
[ "$early" -ge 1000 ] || fail "the game showed $early ms after Return, before the fade to black ended: $(tr '\n' ' ' <"$WORK/radar.log")"
in_game="$(scaled_ms 1.6)"
late="$(first_below "$WORK/radar.log" $((full * 3 / 4)) "$in_game")"
[ -z "$late" ] || fail "the game had not faded in $late ms after Return: $(tr '\n' ' ' <"$WORK/radar.log")"

# The HUD: the three panels in their corners, the score and the energy line lit.
[ "$(lit_pixels "$hud" "$SCORE_PANEL")" -gt 300 ] || fail "no score panel in the top-left corner"
[ "$(lit_pixels "$hud" "$WEAPON_PANEL")" -gt 300 ] || fail "no weapon dials in the bottom-left corner"
[ "$(lit_pixels "$hud" "$RADAR_CORNER")" -gt 3000 ] || fail "no radar in the bottom-right corner"
[ "$(bright_pixels "$hud" "$SCORE_DIGIT" 50)" -gt 15 ] || fail "no score digit at the top left"
[ "$(bright_pixels "$hud" "$AFTER_SCORE" 50)" -eq 0 ] || fail "the score has more than one digit"
[ "$(bright_pixels "$hud" "$ENERGY_TEXT" 50)" -gt 150 ] || fail "no energy line under the score"
# The reticle under the mouse, the ship at the centre. The ship's hull layers turn and carry
# their highlights round, so it is seen whole, down to its dim glow ring, and not by its
# brightest parts.
centred_on "$hud" "$RETICLE_X" "$RETICLE_Y" 22 25 100 ||
  fail "no reticle centred under the mouse: $(lit_halves "$hud" "$RETICLE_X" "$RETICLE_Y" 22 25)"
centred_on "$hud" "$CENTRE_X" "$CENTRE_Y" 40 10 1500 ||
  fail "no ship centred on the screen: $(lit_halves "$hud" "$CENTRE_X" "$CENTRE_Y" 40 10)"
# Stars over the sky box: hardly a black pixel, and bright star streaks.
for part in "$SKY_TOP" "$SKY_BOTTOM"; do
  size=$(( ${part%%x*} * $(cut -d x -f 2 <<<"${part%%+*}") ))
  [ "$(bright_pixels "$hud" "$part" 0.5)" -gt $((size * 9 / 10)) ] || fail "black where the sky should be ($part)"
  [ "$(bright_pixels "$hud" "$part" 40)" -gt 50 ] || fail "no stars over the sky ($part)"
done

# "Wave 1 incoming": the game starts a second after Return and the wave five seconds later.
wave_seen() {
  [ -n "$(first_reaching "$WORK/wave.log" 300 "$in_game")" ]
}
wait_until 9 wave_seen || fail "no wave notice within $(scaled 9) s"
wave="$(first_reaching "$WORK/wave.log" 300 "$in_game")"
[ "$wave" -ge 5500 ] && [ "$wave" -le $((1000 + $(scaled_ms 7))) ] ||
  fail "the wave's notice showed $wave ms after Return: $(tr '\n' ' ' <"$WORK/wave.log")"
stop_watching

# Escape: a second's fade to black, then the program ends with status 0.
escaped="$(now_ms)"
press_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
wait_for_exit 1
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"
[ $(( $(now_ms) - escaped )) -ge 1000 ] || fail "kelvane ended without its second of fading out"
echo "ok: faded in, HUD, reticle, ship and stars shown; flight, bolts, energy and beam seen; wave notice after $wave ms; Escape ended it"
