# Shared helpers of the end-to-end scripts: start the real kelvane in its run directory,
# find its window, and wait for it to end. Each script is called with the run directory.
set -euo pipefail

RUN_DIR="${1:?usage: $0 RUN_DIR}"
# Seconds a key is held: several frames, since a key that goes down and up between two of the
# game's frames is never seen.
HOLD_SECONDS=0.3

# F1 reads the frame back from the front buffer, which Mesa's llvmpipe leaves black under Xvfb.
# A script that looks at what a screenshot shows calls this first: softpipe keeps the front
# buffer, at roughly a tenth of the frame rate, so keys are held longer.
use_readable_front_buffer() {
  export GALLIUM_DRIVER=softpipe
  HOLD_SECONDS=1
}
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

# Waits until the game's window exists and prints its id.
wait_for_window() {
  local deadline=$((SECONDS + ${1:-30})) id
  while [ $SECONDS -lt $deadline ]; do
    kill -0 "$GAME_PID" 2>/dev/null || fail "kelvane ended before its window appeared"
    id="$(xdotool search --name "^${CAPTION}\$" 2>/dev/null | head -n 1 || true)"
    if [ -n "$id" ]; then echo "$id"; return 0; fi
    sleep 0.1
  done
  fail "no window captioned \"$CAPTION\" within ${1:-30} s"
}

# Waits until start-up is over (its last line, the texture memory, is on stdout) so that keys
# reach the running main loop rather than a program still loading its pictures.
wait_for_startup() {
  local deadline=$((SECONDS + ${1:-120}))
  while ! grep -q '^Used texture memory: ' "$WORK/stdout" 2>/dev/null; do
    kill -0 "$GAME_PID" 2>/dev/null || fail "kelvane ended during start-up"
    [ $SECONDS -lt $deadline ] || fail "start-up did not finish within ${1:-120} s"
    sleep 0.1
  done
}

# Waits at most $1 seconds (fractions allowed) for the game to end; sets GAME_STATUS.
wait_for_exit() {
  local limit_ms
  limit_ms="$(awk "BEGIN { print int($1 * 1000) }")"
  local start_ms now_ms
  start_ms="$(date +%s%3N)"
  while kill -0 "$GAME_PID" 2>/dev/null; do
    now_ms="$(date +%s%3N)"
    [ $((now_ms - start_ms)) -le "$limit_ms" ] || fail "kelvane still running after $1 s"
    sleep 0.05
  done
  set +e
  wait "$GAME_PID"
  GAME_STATUS=$?
  set -e
  GAME_PID=""
}

# Presses one key in the game's window, releases it HOLD_SECONDS later and waits as long again,
# so that the game sees the key up before any next press.
press_key() {
  xdotool keydown --window "$1" "$2" 2>/dev/null
  sleep "$HOLD_SECONDS"
  # The key may have closed the game already, taking the window with it.
  xdotool keyup --window "$1" "$2" 2>/dev/null || true
  sleep "$HOLD_SECONDS"
}
