#!/usr/bin/env bash
# The long run against dova-serve: soak-serve.sh FOLDER_WITH_PROGRAMS [OPTIONS OF DOVA-LOAD].
# VISITORS (20) have a target each behind one service, which is stopped, killed and started again
# among the other faults; prints what dova-load prints; exits as it does.
set -euo pipefail
programs=$(realpath "$1")
shift
visitors=${VISITORS:-20}
folder=$(mktemp -d)
trap 'kill "$(cat "$folder/pid")" 2>/dev/null || true; sleep 1; rm -rf "$folder"' EXIT

umask 077
for number in $(seq "$visitors"); do
  echo "v$number $(printf 'token-%034d' "$number")"
done >"$folder/visitors"

# Started again, it keeps its port.
cat >"$folder/start" <<END
#!/bin/sh
echo \$\$ >"$folder/pid"
port=\$(sed -n '1s/.*:\\([0-9]*\\)\/.*/\\1/p' "$folder/out" 2>/dev/null)
exec "$programs/dova-serve" --visitors "$folder/visitors" --socket-folder "$folder" --port "\${port:-0}" \
  --connections 4000 --programs 4000 --log-level warning "$programs/dova-load-target" >>"$folder/out"
END
chmod +x "$folder/start"
"$folder/start" &
until grep -q http "$folder/out" 2>/dev/null; do sleep 0.05; done
service=$(head -n 1 "$folder/out")

options=()
while read -r _ token; do
  echo "$service#$token"
done <"$folder/visitors" >"$folder/addresses"
[ -n "${CALM:-}" ] || options+=(--pid "serve=$(cat "$folder/pid")" --restart "$folder/start")
"$programs/dova-load" --addresses "$folder/addresses" "${options[@]}" \
  --duration "${DURATION:-300}" --actions "${ACTIONS:-50000}" --faults "${FAULTS:-150}" "$@"
