#!/usr/bin/env bash
# Runs every libFuzzer target of build/fuzz for a short time under ASan and
# UBSan (the fuzz preset stops on the first report of either), starting from
# its corpus in fuzz/corpus/<target>. New inputs go to a scratch directory,
# so the kept corpus changes only when someone minimises it on purpose.
#
#   fuzz/smoke.sh [seconds per target]      (default: $FUZZ_SECONDS or 20)
#
# Memory limits make amplification a finding: a small input that asks for
# more than 1 GB in one allocation or 2 GB in all fails the run. An input
# fails after 20 s: CI's machine is shared and slower than a developer's, so
# the smoke run only catches hangs; fuzz/campaign.sh, which keeps the corpus,
# hunts slow inputs with the tighter 10 s limit.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-${FUZZ_SECONDS:-20}}"
bin=build/fuzz/fuzz
scratch="$(mktemp -d)"
trap 'rm -rf "$scratch"' EXIT
status=0
for target in "$bin"/fuzz_*; do
  [ -x "$target" ] || continue
  name="$(basename "$target")"
  mkdir -p "$scratch/$name" "$scratch/artifacts"
  corpus=()
  [ -d "fuzz/corpus/$name" ] && corpus+=("fuzz/corpus/$name")
  echo "== $name: ${seconds}s"
  if ! "$target" -max_total_time="$seconds" -timeout=20 -malloc_limit_mb=1024 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$scratch/artifacts/$name-" \
        "$scratch/$name" "${corpus[@]}" > "$scratch/$name.log" 2>&1; then
    echo "$name: FAILED"
    tail -n 40 "$scratch/$name.log"
    ls "$scratch/artifacts" || true
    status=1
  else
    grep -E "stat::number_of_executed_units|stat::new_units_added" "$scratch/$name.log" | tr '\n' ' '
    echo
  fi
done
exit $status
