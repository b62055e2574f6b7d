#!/usr/bin/env bash
# Start-up reports every picture it loads, in the order the game loads them, and ends by
# printing the texture memory in use, in megabytes with six decimals.
source "$(dirname "$0")/lib/common.sh"

start_game
window="$(wait_for_window)"
wait_for_startup
press_key_until "$window" Escape 5 game_ended || fail "kelvane still running $(scaled 5) s after Escape"
wait_for_exit 1
[ "$GAME_STATUS" -eq 0 ] || fail "exit status $GAME_STATUS after Escape, expected 0"

out="$WORK/stdout"
[ "$(sed -n 1p "$out")" = ":: loading resources..." ] || fail "first line is not the loading banner"
[ "$(grep -c '^Loading texture gfx/[a-z0-9_]*\.png\.\.\. OK$' "$out")" -eq 38 ] || fail "not 38 textures loaded OK"
[ "$(grep -c '^Loading image gfx/[a-z]*font\.png\.\.\. OK$' "$out")" -eq 4 ] || fail "not 4 font images loaded OK"
grep -q '^:: Generating procedural textures... :: All done\.$' "$out" || fail "no procedural textures line"
! grep -q 'ERROR' "$out" || fail "a picture failed to load"

line="$(grep '^Used texture memory: ' "$out" || true)"
[ -n "$line" ] || fail "no texture memory line on stdout"
[ "$(printf '%s\n' "$line" | wc -l)" -eq 1 ] || fail "texture memory printed more than once"
printf '%s\n' "$line" | grep -Eq '^Used texture memory: [0-9]+\.[0-9]{6} megabytes$' || \
  fail "unexpected texture memory line: $line"
[ "$(tail -n 1 "$out")" = "$line" ] || fail "the texture memory line is not the last start-up line"
echo "ok: 38 textures and 4 fonts loaded; $line"
