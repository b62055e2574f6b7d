# Shared helpers of the end-to-end scripts: start the real kelvane in its run directory,
# find its window, press keys until they take effect, look at the screen, and wait for the
# game to end. Each script is called with the run directory.
set -euo pipefail

RUN_DIR="${1:?usage: $0 RUN_DIR}"
# Every time limit is multiplied by KELVANE_TIME_SCALE (1 unless set), which the sanitizer
# build's tests raise since the game runs several times slower there (tests/CMakeLists.txt).
TIME_SCALE="${KELVANE_TIME_SCALE:-1}"
# Seconds a released key stays up before the next press, so that at least one of the game's
# frames (about 40 a second under llvmpipe) sees it up: a press only counts on a frame that
# sees the key down after one that saw it up.
KEY_UP_SECONDS=0.2
CAPTION="Kelvane - Unfinished TSY '11 version"
WORK="$(mktemp -d)"
GAME_PID=""
trap 'cleanup' EXIT

cleanup() {
  if [ -n "$GAME_PID" ] && kill -0 "$GAME_PID" 2>/dev/null; then kill -KILL "$GAME_PID" 2>/dev/null || true; fi
  rm -rf "$WORK"
}

fail() {
  echo "FAIL: $*" >&2
  for f in stdout stderr; do
    [ -s "$WORK/$f" ] && { echo "--- game $f:" >&2; tail -n 40 "$WORK/$f" >&2; }
  done
  exit 1
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
  deadline=$(( $(date +%s%3N) + $(scaled_ms "$1") ))
  shift
  until "$@"; do
    [ "$(date +%s%3N)" -lt "$deadline" ] || return 1
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
  (cd "$GAME_DIR" && exec ./kelvane >"$WORK/stdout" 2>"$WORK/stderr") &
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

# Prints how many of the pixels in WIDTHxHEIGHT+X+Y of a picture are lit (brighter than 25%).
lit_pixels() {
  convert "$1" -crop "$2" +repage -colorspace Gray -threshold 25% -format '%[fx:int(mean*w*h+0.5)]' info:
}

# Saves the X server's picture of the whole screen (the game's window fills it) to $WORK/screen.png.
capture_screen() {
  import -window root "$WORK/screen.png"
}

# Succeeds when the screen shows the title: the word "Kelvane" at the top centre is lit.
title_on_screen() {
  capture_screen && [ "$(lit_pixels "$WORK/screen.png" 100x30+540+27)" -gt 200 ]
}

# Prints how many pixels differ between two pictures.
differing_pixels() {
  compare -metric AE "$1" "$2" null: 2>&1 || true
}

# Succeeds once the screen no longer shows the picture in FILE.
screen_differs_from() {
  capture_screen && [ "$(differing_pixels "$1" "$WORK/screen.png")" != "0" ]
}
