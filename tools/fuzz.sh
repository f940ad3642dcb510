#!/usr/bin/env bash
# Runs every fuzz target for some seconds on a copy of its corpus: fuzz.sh FOLDER SECONDS.
set -euo pipefail
for target in "$1"/fuzz_*; do
  name=$(basename "$target"); name=${name#fuzz_}
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  echo "== $name"
  "$target" -max_total_time="$2" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 "$scratch" "fuzz/corpus/$name"
  rm -rf "$scratch"
done
