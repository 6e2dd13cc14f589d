#!/bin/bash
# Kills saves with kill -9 at random moments and checks, after each, that
# the project still loads and holds either the old or the new value, and
# that at most one temporary of ours (and nothing else) lies beside it.
#
#   kill_saves.sh QVDOC WORK_DIR [RUNS] [SEED]
set -u
QVDOC=$1
WORK=$2
RUNS=${3:-100}
RANDOM=${4:-20241124}
fail() { echo "kill_saves: $*" >&2; exit 1; }

rm -rf "$WORK"
mkdir -p "$WORK/target" || fail "cannot make $WORK"
"$QVDOC" demo --out "$WORK/demo" >/dev/null || fail "the demo did not run"
T="$WORK/target/project.qvz"
cp "$WORK/demo/demo.qvz" "$T" || fail "no demo project"
NAME="analyses[1].Name"

# How long one whole save takes (load, change, write, rename): the kills
# fall anywhere within it.
start=$(date +%s%N)
"$QVDOC" set "$T" "$NAME" "Run 0" >/dev/null 2>&1 || fail "a plain save failed"
span_us=$(( ($(date +%s%N) - start) / 1000 ))
prev="Run 0"
killed=0
for i in $(seq 1 "$RUNS"); do
  "$QVDOC" set "$T" "$NAME" "Run $i" >/dev/null 2>&1 &
  pid=$!
  delay_us=$(( (RANDOM * 32768 + RANDOM) % (span_us + 1) ))
  sleep "$(printf '%d.%06d' $((delay_us / 1000000)) $((delay_us % 1000000)))"
  kill -9 "$pid" 2>/dev/null && killed=$((killed + 1))
  wait "$pid" 2>/dev/null
  now=$("$QVDOC" get "$T" "$NAME" 2>"$WORK/get.err") || fail "run $i: the project no longer loads: $(cat "$WORK/get.err")"
  [ "$now" = "$prev" ] || [ "$now" = "Run $i" ] || fail "run $i: the name reads \"$now\", neither \"$prev\" nor \"Run $i\""
  prev=$now
  others=$(ls -A "$WORK/target" | grep -v '^project\.qvz$')
  ours=$(printf '%s\n' "$others" | grep -c '^project\.qvz\.qvv7-save-[a-z0-9]\{6\}$')
  count=$(printf '%s' "$others" | grep -c '')
  [ "$count" -le 1 ] && [ "$count" -eq "$ours" ] || fail "run $i: beside the project lie: $others"
done
echo "kill_saves: $RUNS saves of ${span_us} us each, $killed killed before they ended; the project always loaded and at most one temporary of ours remained"
