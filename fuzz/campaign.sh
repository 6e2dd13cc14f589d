#!/usr/bin/env bash
# A fuzzing session that counts: runs the named targets of build/fuzz (all
# when none is named) for SECONDS each with JOBS workers, merges what they
# found into a minimised corpus in fuzz/corpus/<target>, and adds the CPU
# time spent to fuzz/hours.tsv, the running total per target that says how
# long each target has been fuzzed without an open finding.
#
#   fuzz/campaign.sh SECONDS [JOBS] [target...]
#
# A finding stops the target's run, keeps the input under fuzz/findings/ and
# is not counted; fix it, add the input to the target's corpus, run again.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:?seconds per target}"
jobs="${2:-1}"
shift $(( $# > 1 ? 2 : 1 ))
bin=build/fuzz/fuzz
ledger=fuzz/hours.tsv
[ -f "$ledger" ] || printf 'target\tcpu_seconds\truns\n' > "$ledger"
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
  for t in "$bin"/fuzz_*; do [ -x "$t" ] && targets+=("$(basename "$t")"); done
fi
# The fuzzer's CPU seconds (user and system, its workers included) are what
# bash's `time` reports for it, written to a file of their own. (A `times`
# taken inside $(...) would read a fresh subshell's children: always zero.)
TIMEFORMAT='%U %S'
parallel=()
[ "$jobs" -gt 1 ] && parallel=(-jobs="$jobs" -workers="$jobs")
status=0
for name in "${targets[@]}"; do
  target="$bin/$name"
  [ -x "$target" ] || { echo "$name: not built"; status=1; continue; }
  work="$(mktemp -d)"
  mkdir -p "fuzz/corpus/$name" fuzz/findings "$work/new"
  echo "== $name: ${seconds}s x $jobs"
  if { time "$target" -max_total_time="$seconds" -timeout=10 -malloc_limit_mb=1024 -rss_limit_mb=2048 \
       "${parallel[@]}" -print_final_stats=1 -artifact_prefix="fuzz/findings/$name-" \
       "$work/new" "fuzz/corpus/$name" > "$work/log" 2>&1; } 2> "$work/cpu"; then
    cpu=$(awk '{printf "%d", $1 + $2}' "$work/cpu")
    runs=$( (grep -ho "stat::number_of_executed_units: *[0-9]*" "$work/log" fuzz-*.log 2>/dev/null || true) |
           awk '{s += $2} END {print s + 0}')
    # Minimise: the union of the old corpus and the new inputs, reduced to
    # the inputs that add coverage.
    mkdir -p "$work/min"
    if ! "$target" -merge=1 -timeout=10 -malloc_limit_mb=1024 -rss_limit_mb=2048 \
         "$work/min" "fuzz/corpus/$name" "$work/new" > "$work/merge.log" 2>&1; then
      echo "$name: the merge failed; corpus left as it was, new inputs in $work/new"
      tail -n 20 "$work/merge.log"
      status=1
      continue
    fi
    rm -rf "fuzz/corpus/$name" && mv "$work/min" "fuzz/corpus/$name"
    awk -F'\t' -v t="$name" -v c="$cpu" -v r="$runs" 'BEGIN {OFS = "\t"}
      NR == 1 {print; next} $1 == t {$2 += c; $3 += r; found = 1} {print}
      END {if (!found) print t, c, r}' "$ledger" > "$work/ledger" && mv "$work/ledger" "$ledger"
    echo "$name: +${cpu} CPU-s, $(ls "fuzz/corpus/$name" | wc -l) inputs kept"
  else
    echo "$name: FINDING"
    tail -n 30 "$work/log"
    ls fuzz/findings/"$name"-* 2>/dev/null || true
    status=1
  fi
  rm -f fuzz-*.log
  rm -rf "$work"
done
exit $status
