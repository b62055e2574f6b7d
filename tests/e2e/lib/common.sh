# Shared helpers of the end-to-end scripts: start the real kelvane in its run directory,
# find its window, press keys until they take effect, take its F1 screenshots, look at the
# screen (its brightness, its colours, a part of it watched over time), and wait for the game
# to end. Each script is called with the run directory.
set -euo pipefail

RUN_DIR="${1:?usage: $0 RUN_DIR}"
# Every time limit is multiplied by KELVANE_TIME_SCALE (1 unless set), which the sanitizer
# build's tests raise since the game runs several times slower there (tests/CMakeLists.txt).
TIME_SCALE="${KELVANE_TIME_SCALE:-1}"
# Seconds a released key stays up before the next press, so that at least one of the game's
# frames (about 40 a second under llvmpipe) sees it up: a press only counts on a frame that
# sees the key down after one that saw it up.
KEY_UP_SECONDS=0.2
# Seconds a key the game may have ignored is held before it is let go and pressed again: longer
# than the longest fade (a second), during which the game takes no Return or Escape.
PRESS_AGAIN_SECONDS=1.5
CAPTION="Kelvane - Unfinished TSY '11 version"
# The sanitizer build's tests preload Mesa's driver (scripts/test says why). It is kept for the
# game alone: the scripts' own tools (ImageMagick, xdotool) run several times slower with it.
GAME_PRELOAD="${LD_PRELOAD:-}"
unset LD_PRELOAD
WORK="$(mktemp -d)"
GAME_PID=""
WATCHES=""
trap 'cleanup' EXIT

cleanup() {
  stop_watching
  # Buttons and keys a script held stay down in the X server, which the next script shares.
  [ -z "${DISPLAY:-}" ] || xdotool mouseup 1 mouseup 3 keyup w keyup a keyup s keyup d 2>/dev/null || true
  if [ -n "$GAME_PID" ] && kill -0 "$GAME_PID" 2>/dev/null; then kill -KILL "$GAME_PID" 2>/dev/null || true; fi
  rm -rf "$WORK"
}

# A failing script copies the game's screenshots into KELVANE_E2E_KEEP when that is set.
fail() {
  echo "FAIL: $*" >&2
  if [ -n "${KELVANE_E2E_KEEP:-}" ] && [ -d "${GAME_DIR:-}" ]; then
    mkdir -p "$KELVANE_E2E_KEEP" && find "$GAME_DIR" -maxdepth 1 -name '*.bmp' -exec cp {} "$KELVANE_E2E_KEEP" \;
  fi
  for f in stdout stderr; do
    [ -s "$WORK/$f" ] && { echo "--- game $f:" >&2; tail -n 40 "$WORK/$f" >&2; }
  done
  exit 1
}

# Milliseconds since the epoch.
now_ms() {
  date +%s%3N
}

# Prints SECONDS (fractions allowed) times the time scale, in whole milliseconds.
scaled_ms() {
  awk -v s="$1" -v f="$TIME_SCALE" 'BEGIN { print int(s * f * 1000) }'
}

# Prints SECONDS times the time scale, in seconds, for sleep and timeout.
scaled() {
  awk -v s="$1" -v f="$TIME_SCALE" 'BEGIN { printf "%.3f\n", s * f }'
}

# wait_until SECONDS COMMAND...: runs COMMAND every 50 ms until it succeeds; fails with status 1
# once SECONDS (scaled) have passed without that.
wait_until() {
  local deadline
  deadline=$(( $(now_ms) + $(scaled_ms "$1") ))
  shift
  until "$@"; do
    [ "$(now_ms)" -lt "$deadline" ] || return 1
    sleep 0.05
  done
}

# A scratch working directory that sees the run directory's data, so that files the game
# writes (screenshots) stay out of the build.
GAME_DIR="$WORK/run"
mkdir -p "$GAME_DIR"
for entry in "$RUN_DIR"/*; do ln -s "$(cd "$(dirname "$entry")" && pwd)/$(basename "$entry")" "$GAME_DIR/"; done

# Starts kelvane in the background in $GAME_DIR; its output goes to $WORK.
start_game() {
  [ -x "$GAME_DIR/kelvane" ] || fail "no kelvane in $RUN_DIR"
  (cd "$GAME_DIR" && exec env ${GAME_PRELOAD:+LD_PRELOAD="$GAME_PRELOAD"} ./kelvane >"$WORK/stdout" 2>"$WORK/stderr") &
  GAME_PID=$!
}

game_running() {
  kill -0 "$GAME_PID" 2>/dev/null
}

game_ended() {
  ! game_running
}

# Succeeds once the game's window exists, leaving its id in WINDOW.
window_found() {
  game_running || fail "kelvane ended before its window appeared"
  WINDOW="$(xdotool search --name "^${CAPTION}\$" 2>/dev/null | head -n 1 || true)"
  [ -n "$WINDOW" ]
}

# Waits until the game's window exists and prints its id.
wait_for_window() {
  wait_until 30 window_found || fail "no window captioned \"$CAPTION\" within $(scaled 30) s"
  echo "$WINDOW"
}

startup_done() {
  game_running || fail "kelvane ended during start-up"
  grep -q '^Used texture memory: ' "$WORK/stdout" 2>/dev/null
}

# Waits until start-up is over (its last line, the texture memory, is on stdout) so that keys
# reach the running main loop rather than a program still loading its pictures.
wait_for_startup() {
  wait_until 120 startup_done || fail "start-up did not finish within $(scaled 120) s"
}

# Waits at most SECONDS (scaled) for the game to end; sets GAME_STATUS.
wait_for_exit() {
  wait_until "$1" game_ended || fail "kelvane still running after $(scaled "$1") s"
  set +e
  wait "$GAME_PID"
  GAME_STATUS=$?
  set -e
  GAME_PID=""
}

# hold_key_until WINDOW KEY SECONDS COMMAND...: holds KEY down in the game's window until
# COMMAND succeeds or SECONDS (scaled) pass, then lets it go. A key is only seen when it is
# down across two of the game's frames, so it is held until its effect shows rather than for a
# fixed time. Fails with status 1 when the effect never showed.
hold_key_until() {
  local window="$1" key="$2" limit="$3" status=0
  shift 3
  xdotool keydown --window "$window" "$key" 2>/dev/null
  wait_until "$limit" "$@" || status=1
  # The key may have closed the game already, taking the window with it.
  xdotool keyup --window "$window" "$key" 2>/dev/null || true
  game_ended || sleep "$(scaled "$KEY_UP_SECONDS")"
  return $status
}

# press_key_until WINDOW KEY SECONDS COMMAND...: hold_key_until for the keys the game ignores
# while a fade runs (Return on the title, Escape). A key that went down during a fade is not
# seen again however long it is held, so a key whose effect has not shown after
# PRESS_AGAIN_SECONDS (scaled) is let go and pressed again, until SECONDS (scaled) have passed.
press_key_until() {
  local window="$1" key="$2" deadline
  deadline=$(( $(now_ms) + $(scaled_ms "$3") ))
  shift 3
  until hold_key_until "$window" "$key" "$PRESS_AGAIN_SECONDS" "$@"; do
    [ "$(now_ms)" -lt "$deadline" ] || return 1
  done
}

# bright_pixels PICTURE WIDTHxHEIGHT+X+Y PERCENT: prints how many of the pixels in that part of
# the picture are brighter than PERCENT.
bright_pixels() {
  convert "$1" -crop "$2" +repage -colorspace Gray -threshold "$3%" -format '%[fx:int(mean*w*h+0.5)]' info:
}

# Prints how many of the pixels in WIDTHxHEIGHT+X+Y of a picture are lit (brighter than 25%).
lit_pixels() {
  bright_pixels "$1" "$2" 25
}

# Prints the mean brightness of WIDTHxHEIGHT+X+Y of a picture, from 0 (black) to 1000 (white).
brightness() {
  convert "$1" -crop "$2" +repage -colorspace Gray -format '%[fx:int(mean*1000+0.5)]' info:
}

# The place of a colour channel named R, G or B among the separated channels of a picture.
channel_index() {
  case "$1" in R) echo 0 ;; G) echo 1 ;; B) echo 2 ;; *) fail "no colour channel $1" ;; esac
}

# tint_mask LEADERS OTHERS PERCENT: prints, one a line, the convert operators that turn the
# list's one picture into a mask, white where every channel in LEADERS (letters of RGB) is above
# every channel in OTHERS by more than PERCENT of full scale. G over RB finds the enemies'
# green bolts, B over RG the ship's violet bolts and blue beams, R over GB the enemies' red
# hulls, RG over B their engine glows.
tint_mask() {
  local a b
  printf '%s\n' -channel RGB -separate +channel
  for a in $(grep -o . <<<"$1"); do
    for b in $(grep -o . <<<"$2"); do
      printf '%s\n' '(' -clone "$(channel_index "$a")" -clone "$(channel_index "$b")" -compose minus_src -composite ')'
    done
  done
  printf '%s\n' -delete 0-2 -evaluate-sequence min -threshold "$3%"
}

# tinted_pixels PICTURE WIDTHxHEIGHT+X+Y LEADERS OTHERS PERCENT: prints how many pixels of that
# part are in tint_mask's mask.
tinted_pixels() {
  local mask
  mapfile -t mask < <(tint_mask "$3" "$4" "$5")
  convert "$1" -crop "$2" +repage "${mask[@]}" -format '%[fx:int(mean*w*h+0.5)]' info:
}

# tinted_on_screen WIDTHxHEIGHT+X+Y LEADERS OTHERS PERCENT LEAST: captures that part of the
# screen and succeeds when more than LEAST of its pixels are tinted so (tinted_pixels).
tinted_on_screen() {
  import -window root -crop "$1" "$WORK/tinted.bmp" &&
    [ "$(tinted_pixels "$WORK/tinted.bmp" "${1%%+*}+0+0" "$2" "$3" "$4")" -gt "$5" ]
}

# lit_halves PICTURE X Y HALF PERCENT: prints the pixels brighter than PERCENT in the square of
# side 2 x HALF centred on (X, Y): all of them, then those in its left, right, top and bottom
# halves.
lit_halves() {
  local picture="$1" x="$2" y="$3" half="$4" percent="$5" side
  side=$((2 * half))
  echo "$(bright_pixels "$picture" "${side}x${side}+$((x - half))+$((y - half))" "$percent")" \
    "$(bright_pixels "$picture" "${half}x${side}+$((x - half))+$((y - half))" "$percent")" \
    "$(bright_pixels "$picture" "${half}x${side}+${x}+$((y - half))" "$percent")" \
    "$(bright_pixels "$picture" "${side}x${half}+$((x - half))+$((y - half))" "$percent")" \
    "$(bright_pixels "$picture" "${side}x${half}+$((x - half))+${y}" "$percent")"
}

# centred_on PICTURE X Y HALF PERCENT LEAST: succeeds when the square of lit_halves holds at
# least LEAST pixels brighter than PERCENT and each of its four halves between a third and two
# thirds of them: something bright is drawn centred on (X, Y).
centred_on() {
  local all left right top bottom part
  read -r all left right top bottom <<<"$(lit_halves "$1" "$2" "$3" "$4" "$5")"
  [ "$all" -ge "$6" ] || return 1
  for part in "$left" "$right" "$top" "$bottom"; do
    [ $((3 * part)) -ge "$all" ] && [ $((3 * part)) -le $((2 * all)) ] || return 1
  done
}

# capture_screen [FILE]: saves the X server's picture of the whole screen (the game's window
# fills it) to FILE, $WORK/screen.png unless given.
capture_screen() {
  import -window root "${1:-$WORK/screen.png}"
}

# Succeeds when the screen shows the title: the word "Kelvane" at the top centre is lit.
title_on_screen() {
  capture_screen && [ "$(lit_pixels "$WORK/screen.png" 100x30+540+27)" -gt 200 ]
}

# Succeeds once the game is on screen with its fade-in over: the radar's corner is lit but no
# longer white from the title (its mean brightness between 4 and 15 %), and no brighter or
# darker than on the capture before, as it would be while the game fades in.
RADAR_CORNER=250x250+1025+465
game_faded_in() {
  local before="${RADAR_BRIGHTNESS:-0}"
  capture_screen || return 1
  RADAR_BRIGHTNESS="$(brightness "$WORK/screen.png" "$RADAR_CORNER")"
  [ "$RADAR_BRIGHTNESS" -gt 40 ] && [ "$RADAR_BRIGHTNESS" -lt 150 ] &&
    [ $(( RADAR_BRIGHTNESS - before )) -le 2 ] && [ $(( before - RADAR_BRIGHTNESS )) -le 2 ]
}

# Prints how many pixels differ between two pictures.
differing_pixels() {
  compare -metric AE "$1" "$2" null: 2>&1 || true
}

# moved_pixels PICTURE1 PICTURE2 WIDTHxHEIGHT+X+Y PERCENT: prints how many pixels of that part
# are brighter than PERCENT in one picture and not in the other: where bright things (stars,
# shots, text) moved, came or went, whatever slow change the dim sky behind them made.
moved_pixels() {
  convert "$1" "$2" -crop "$3" +repage -colorspace Gray -threshold "$4%" -compose difference -composite \
    -format '%[fx:int(mean*w*h+0.5)]' info:
}

# Succeeds once the screen no longer shows the picture in FILE.
screen_differs_from() {
  capture_screen && [ "$(differing_pixels "$1" "$WORK/screen.png")" != "0" ]
}

# A screenshot file of the 1280 x 720 window: a 54-byte header and 3 bytes a pixel.
SCREENSHOT_BYTES=$((54 + 1280 * 720 * 3))
SCREENSHOTS_TAKEN=0

screenshot_written() {
  [ "$(stat -c %s "$1" 2>/dev/null || echo 0)" -eq "$SCREENSHOT_BYTES" ]
}

# take_screenshot WINDOW: presses F1 until the game has written the whole of its next
# screenshot, and leaves that file's path in SHOT.
take_screenshot() {
  SHOT="$GAME_DIR/screenshot_$((SCREENSHOTS_TAKEN + 1)).bmp"
  hold_key_until "$1" F1 10 screenshot_written "$SHOT" || fail "F1 wrote no $(basename "$SHOT") within $(scaled 10) s"
  SCREENSHOTS_TAKEN=$((SCREENSHOTS_TAKEN + 1))
}

# watch_screen WIDTHxHEIGHT+X+Y MEASURE START_MS LOG: captures that part of the screen over and
# over in the background and appends a line per capture to LOG: the milliseconds from START_MS
# to the capture, then what the function MEASURE prints when called with the captured picture
# (a file of just that part) and its whole geometry. Runs until the game ends or stop_watching;
# several watches may run at once, and WATCH holds the latest one's id.
watch_screen() {
  local geometry="$1" measure="$2" start="$3" log="$4" picture="$4.bmp"
  (
    set +e
    while game_running; do
      taken=$(( $(now_ms) - start ))
      import -window root -crop "$geometry" "$picture" 2>/dev/null &&
        echo "$taken $("$measure" "$picture" "${geometry%%+*}+0+0" 2>/dev/null)"
      # Room between captures for the game, which shares the processors.
      sleep 0.03
    done >>"$log"
  ) &
  WATCH=$!
  WATCHES="$WATCHES $WATCH"
}

# stop_watching [WATCH...]: ends the watches given by id, or every watch.
stop_watching() {
  local watch
  for watch in ${@:-$WATCHES}; do
    kill "$watch" 2>/dev/null || true
    wait "$watch" 2>/dev/null || true
  done
  [ $# -gt 0 ] || WATCHES=""
}

# watched_for LOG MS: succeeds once the watch's LOG holds a capture taken MS or more after its
# start.
watched_for() {
  [ -s "$1" ] && [ "$(tail -n 1 "$1" | cut -d ' ' -f 1)" -ge "$2" ]
}

# first_reaching LOG VALUE [FROM_MS]: prints the time of the first capture in a watch's LOG, at
# or after FROM_MS (0 unless given), whose value is at least VALUE; nothing when none is.
first_reaching() {
  awk -v value="$2" -v from="${3:-0}" '$1 >= from && $2 >= value { print $1; exit }' "$1"
}

# first_below LOG VALUE [FROM_MS]: the same for the first capture whose value is below VALUE.
first_below() {
  awk -v value="$2" -v from="${3:-0}" '$1 >= from && $2 < value { print $1; exit }' "$1"
}
