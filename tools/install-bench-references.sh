#!/usr/bin/env bash
# Installs what only the benchmarks compare with: assimp, and models that nobody here made. The benchmarks do without
# what can't be installed, so this never fails.
set -uo pipefail

packages=(libassimp-dev assimp-testmodels)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "Not installed, so not compared with: ${missing[*]}" >&2; exit 0; }
  as_root=(sudo)
fi
echo "Installing for the benchmarks: ${missing[*]}" >&2
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq update >/dev/null
for package in "${missing[@]}"; do
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get -qq -y --no-install-recommends install "$package" >/dev/null ||
    echo "Not installed, so not compared with: $package" >&2
done
exit 0
