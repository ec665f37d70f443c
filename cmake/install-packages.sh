#!/usr/bin/env bash
# Installs those Debian packages of packages.txt that this machine lacks, and says which.
set -euo pipefail
cd "$(dirname "$0")/.."

wanted=$(sed 's/#.*//' packages.txt | tr -s '[:space:]' '\n' | sed '/^$/d')
missing=()
for package in $wanted; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing, and neither root rights nor sudo are at hand: ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
echo "Installing packages: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
# The environment is handed on by name: sudo would drop it.
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
