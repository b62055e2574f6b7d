#!/usr/bin/env bash
# Start-up ends by printing the texture memory in use, in megabytes with six decimals.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
sleep 0.5
press_key "$window" Escape
wait_for_exit 5
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"
line="$(grep '^Used texture memory: ' "$WORK/stdout" || true)"
[ -n "$line" ] || fail "no texture memory line on stdout"
[ "$(printf '%s\n' "$line" | wc -l)" -eq 1 ] || fail "texture memory printed more than once"
printf '%s\n' "$line" | grep -Eq '^Used texture memory: [0-9]+\.[0-9]{6} megabytes$' || \
  fail "unexpected texture memory line: $line"
echo "ok: $line"
