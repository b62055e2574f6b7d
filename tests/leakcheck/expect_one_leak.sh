#!/usr/bin/env bash
# Runs the leak-check program (the argument) and passes only when LeakSanitizer reports exactly
# one direct leak, the surface from SDL_CreateRGBSurface: the suppressions in force must hide
# every allocation SDL, X and Mesa keep, and must not hide a surface that our code lost.
set -uo pipefail
program="${1:?usage: $0 PROGRAM}"
report="$(mktemp)"
trap 'rm -f "$report"' EXIT

fail() {
  echo "FAIL: $*" >&2
  cat "$report" >&2
  exit 1
}

"$program" 2>"$report"
status=$?
[ "$status" -ne 0 ] || fail "the program ended with status 0: the lost surface was not reported"
grep -q 'ERROR: LeakSanitizer: detected memory leaks' "$report" || fail "no LeakSanitizer report"
[ "$(grep -c '^Direct leak of' "$report")" -eq 1 ] || fail "not exactly one direct leak"
# The leak's stack, from its first line to the blank line after it.
awk '/^Direct leak of/ { p = 1 } p && /^$/ { exit } p' "$report" | grep -q ' in SDL_CreateRGBSurface ' ||
  fail "the direct leak is not the surface from SDL_CreateRGBSurface"
echo "ok: LeakSanitizer reported the lost surface and nothing else (status $status)"
