#!/usr/bin/env bash
# The long run against the embedded gateway: soak.sh FOLDER_WITH_PROGRAMS [OPTIONS OF DOVA-LOAD].
# Starts PROGRAMS (10) targets, each with its own gateway, acts in all of them under faults, and
# prints what dova-load prints; exits as it does.
set -euo pipefail
programs=$1
shift
folder=$(mktemp -d)
pids=()
trap 'kill "${pids[@]}" 2>/dev/null; rm -rf "$folder"' EXIT

options=()
for number in $(seq "${PROGRAMS:-10}"); do
  mkfifo "$folder/$number"
  "$programs/dova-load-target" >"$folder/$number" &
  pids+=("$!")
  read -r address <"$folder/$number"
  options+=("$address" --pid "program=$!")
done
"$programs/dova-load" "${options[@]}" --actions 50000 --duration 300 --faults 150 "$@"
