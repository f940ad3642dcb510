#!/usr/bin/env bash
# Runs every fuzz target on a copy of its corpus: fuzz.sh FOLDER LIMIT, where the limit is an option
# of libFuzzer, -max_total_time=SECONDS or -runs=INPUTS. What is found is left in FOLDER/findings.
set -euo pipefail
findings=$1/findings
mkdir -p "$findings"
for target in "$1"/fuzz_*; do
  name=$(basename "$target")
  name=${name#fuzz_}
  options=("$2" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 "-artifact_prefix=$findings/$name-")
  if [[ $name == *_channel ]]; then
    # They keep a program from one input to the next: leaks are looked for in the end. Weighing tens
    # of thousands of features for each input would take more time than the input.
    options+=(-dict=fuzz/dictionaries/channels.dict -detect_leaks=0 -entropic=0 -max_len=400)
  fi
  scratch=$(mktemp -d)
  trap 'rm -rf "$scratch"' EXIT
  echo "== $name"
  "$target" "${options[@]}" "$scratch" "fuzz/corpus/$name"
  rm -rf "$scratch"
done
