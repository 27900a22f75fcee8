#!/usr/bin/env bash
# Installs what building, running and testing Tafelkrater needs on Debian 12. Idempotent: when
# every package is already there it does nothing.
set -euo pipefail
here="$(cd "$(dirname "$0")" && pwd)"
mapfile -t wanted < <(grep -v '^\s*#' "$here/packages.txt" | grep -v '^\s*$')
missing=()
for pkg in "${wanted[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$pkg")
  fi
done
if [ ${#missing[@]} -eq 0 ]; then
  echo "setup: all ${#wanted[@]} packages present"
  exit 0
fi
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
echo "setup: installing ${#missing[@]} packages: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
echo "setup: done"
