#!/usr/bin/env bash
# Installs the Debian packages that are missing: setup.sh build [test].
# Prints nothing when everything is there.
set -euo pipefail

build_packages=(g++ cmake make ninja-build qtbase5-dev libboost-dev libcli11-dev pkgconf liblua5.4-dev libedit-dev)
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev clang-14 libclang-rt-14-dev python3-clang-14 binutils clang-format-16 clang-tidy-14 shellcheck shfmt
  chromium firefox-esr webkit2gtk-driver xvfb nginx openssl)

wanted=()
for group in "$@"; do
  case $group in
    build) wanted+=("${build_packages[@]}") ;;
    test) wanted+=("${test_packages[@]}") ;;
    *)
      echo "setup.sh: \"$group\" is not a group of packages: build, test" >&2
      exit 2
      ;;
  esac
done
# Any Node from 18 on serves, wherever it comes from.
if ! node -e 'process.exit(parseInt(process.versions.node) >= 18 ? 0 : 1)' 2>/dev/null; then
  wanted+=(nodejs)
fi
command -v npm >/dev/null || wanted+=(npm)

missing=()
for package in "${wanted[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' || missing+=("$package")
done
mkdir -p build
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || {
    echo "setup.sh: these packages are missing and need root to install: ${missing[*]}" >&2
    exit 1
  }
  as_root=(sudo)
fi
echo "Installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >build/setup.log 2>&1 || {
  tail -20 build/setup.log >&2
  exit 1
}
