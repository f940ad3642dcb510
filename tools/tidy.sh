#!/usr/bin/env bash
# Has clang-tidy read the C++: tidy.sh all|changed [JOBS]. "changed" are the lines that differ from
# the merge base with origin/main or, where that is the last commit, from the one before it. Prints
# what it finds and exits 1 if there is anything. Nothing has to be built.
set -euo pipefail
cd "$(dirname "$0")/.."
options=(-p build/tidy -quiet -clang-tidy-binary clang-tidy-14 -j "${2-1}")

read_all() {
  run-clang-tidy-14 "${options[@]}"
}

read_changed() {
  local base
  base=$(git merge-base HEAD origin/main 2>/dev/null || git rev-parse HEAD)
  if [ "$base" = "$(git rev-parse HEAD)" ] && git diff --quiet HEAD; then
    base=$(git rev-parse --verify --quiet HEAD^ || echo "$base")
  fi
  git diff -U0 "$base" -- '*.cpp' '*.h' | clang-tidy-diff-14.py -p1 -path build/tidy "${options[@]:2}"
}

case ${1-} in
  all | changed) ;;
  *)
    echo "tidy.sh: usage: tidy.sh all|changed [JOBS]" >&2
    exit 2
    ;;
esac
mkdir -p build
cmake --preset tidy >build/tidy.log || {
  cat build/tidy.log
  exit 1
}
# One of the two says by its exit code that something was found, the other only by the line.
if ! "read_$1" >build/tidy.log 2>&1 || grep -q ': error:' build/tidy.log; then
  grep -A 4 ': error:' build/tidy.log || cat build/tidy.log
  exit 1
fi
