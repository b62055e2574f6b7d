#!/usr/bin/env bash
# A game played to its end: after "Wave 1 incoming" a bot flies and fires its plasma all round
# until the last ship is lost. On the way the enemies close in and fire green bolts, and a
# screenshot shows their red hulls with their engine glows and their bolts near the ship; at the
# end "Game Over" shows in big white letters at 40 % of the height, where it was not before, and
# Escape still ends the program with status 0.
source "$(dirname "$0")/lib/common.sh"

WAVE_TEXT=280x56+500+250    # a centred notice at 40 % of the height, as it starts to rise
FIELD=1280x580+0+60         # the playing field between the top and bottom HUD panels
# "Game Over" centred at 40 % of the height: its first and last letters and its middle, where
# no notice and nothing but the big text is white.
OVER_LEFT=36x40+484+266
OVER_MIDDLE=60x40+610+266
OVER_RIGHT=36x40+760+266
CENTRE_X=640
CENTRE_Y=360
BOT_RADIUS=220              # pixels from the centre to where the bot aims
BOT_DASH=4                  # seconds of the first dash, from the middle to near the corner
BOT_HOLD=0.1                # seconds a thrust key is held while enemies are in sight
BOT_PATIENCE=3              # turns without enemies in sight before the bot edges on
BOT_SEARCH_HOLD=0.3         # seconds it then holds the two keys of the diagonal
GAME_OVER_LIMIT=240         # seconds from the first wave for the bot to lose all four ships (it took
                            # 60 to 140 in trials)

# look PICTURE: prints what the bot reads off a picture of the screen, from one reading of it:
# the enemies' red hull and green bolt pixels on the field, then the white pixels of the three
# parts of "Game Over".
look() {
  local red green part parts=()
  mapfile -t red < <(tint_mask R GB 25)
  mapfile -t green < <(tint_mask G RB 30)
  for part in "$OVER_LEFT" "$OVER_MIDDLE" "$OVER_RIGHT"; do
    parts+=('(' -clone 0 -crop "$part" +repage -colorspace Gray -threshold 80% ')')
  done
  convert "$1" '(' -clone 0 -crop "$FIELD" +repage "${red[@]}" ')' '(' -clone 0 -crop "$FIELD" +repage "${green[@]}" ')' \
    "${parts[@]}" -delete 0 -format '%[fx:int(mean*w*h+0.5)] ' info:
}

# Whether the white pixels of the three parts of "Game Over", as look prints them, show it.
game_over_shown() {
  [ "$1" -gt 100 ] && [ "$2" -gt 100 ] && [ "$3" -gt 100 ]
}

# "Game Over" in a picture.
game_over_in() {
  local left middle right
  read -r _ _ left middle right <<<"$(look "$1")"
  game_over_shown "$left" "$middle" "$right"
}

start_game
window="$(wait_for_window)"
wait_for_startup
wait_until 10 title_on_screen || fail "the title never showed"
xdotool mousemove "$CENTRE_X" $((CENTRE_Y - BOT_RADIUS))
started="$(now_ms)"
press_key_until "$window" Return 10 game_faded_in || fail "the game never faded in after Return"
take_screenshot "$window"
before="$SHOT"
game_over_in "$before" && fail "\"Game Over\" before the game began"

# The first wave's notice, then the bot plays until "Game Over" shows on screen: the plasma
# gun held and its aim going round the ship. An enemy that has lost sight of the ship across
# the world's edge waits at that edge until the ship comes within about a quarter of the world
# of it, and the ship starts in the middle, as far from the edges as it can be: so the bot
# first dashes up and left toward the corner, where every edge is near. Then, with enemies in
# sight (their red hulls, or their green bolts from just off the screen), it circles where it
# is, a short thrust at a time round w, d, s, a, so that their bolts find it; with none in
# sight for a few turns, it edges on up and left, slower than they fly, so that any that
# sets out after it catches up. The laser stays off: its sweeping beam clears a wave in
# seconds, and the next one takes long to arrive.
wave_on_screen() {
  import -window root -crop "$WAVE_TEXT" "$WORK/wave.bmp" &&
    [ "$(lit_pixels "$WORK/wave.bmp" "${WAVE_TEXT%%+*}+0+0")" -gt 300 ]
}
wait_until 10 wave_on_screen || fail "no wave notice within $(scaled 10) s of the start"
calm_green="$(tinted_pixels "$before" "$FIELD" G RB 30)"
# The first time the screen shows enemies firing, a screenshot must show a red hull or more
# with their engine glows, and green bolts.
enemies_firing() {
  take_screenshot "$window"
  hulls="$(tinted_pixels "$SHOT" "$FIELD" R GB 25)"
  glows="$(tinted_pixels "$SHOT" "$FIELD" RG B 25)"
  fight_green="$(tinted_pixels "$SHOT" "$FIELD" G RB 30)"
  [ "$hulls" -gt 1000 ] && [ "$glows" -gt 30 ] && [ "$fight_green" -gt $((calm_green + 60)) ]
}
fight=""
xdotool mousedown 1
deadline=$(( $(now_ms) + $(scaled_ms "$GAME_OVER_LIMIT") ))
xdotool keydown --window "$window" w keydown --window "$window" a
sleep "$BOT_DASH"
xdotool keyup --window "$window" w keyup --window "$window" a
turn=0
unseen=0
while :; do
  capture_screen "$WORK/screen.bmp"
  read -r red green left middle right <<<"$(look "$WORK/screen.bmp")"
  ! game_over_shown "$left" "$middle" "$right" || break
  [ "$(now_ms)" -lt "$deadline" ] || fail "no \"Game Over\" within $(scaled "$GAME_OVER_LIMIT") s of the first wave"
  game_running || fail "kelvane ended during the fight"
  if [ -z "$fight" ] && [ "$red" -gt 1000 ] && [ "$green" -gt $((calm_green + 60)) ] && enemies_firing; then
    fight="$SHOT"
  fi
  aim_x="$(awk -v t="$turn" -v r="$BOT_RADIUS" -v c="$CENTRE_X" 'BEGIN { print int(c + r * sin(t * 0.7)) }')"
  aim_y="$(awk -v t="$turn" -v r="$BOT_RADIUS" -v c="$CENTRE_Y" 'BEGIN { print int(c - r * cos(t * 0.7)) }')"
  xdotool mousemove "$aim_x" "$aim_y"
  if [ "$red" -gt 300 ] || [ "$green" -gt 30 ]; then unseen=0; else unseen=$((unseen + 1)); fi
  if [ "$unseen" -lt "$BOT_PATIENCE" ]; then
    keys="$(cut -d ' ' -f $((turn % 4 + 1)) <<<"w d s a")"
    hold="$BOT_HOLD"
  else
    keys="w a"
    hold="$BOT_SEARCH_HOLD"
  fi
  for key in $keys; do xdotool keydown --window "$window" "$key"; done
  sleep "$hold"
  for key in $keys; do xdotool keyup --window "$window" "$key"; done
  turn=$((turn + 1))
done
fought=$(( $(now_ms) - started ))
[ -n "$fight" ] || fail "no screenshot showed enemies firing near the ship before the game ended"
xdotool mouseup 1
take_screenshot "$window"
over="$SHOT"
game_over_in "$over" || fail "\"Game Over\" left the screen again"

press_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
wait_for_exit 1
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"
echo "ok: enemies fired ($fight_green green bolt pixels by $hulls red hull pixels); \"Game Over\" $fought ms after Return"
