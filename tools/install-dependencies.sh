#!/usr/bin/env bash
# Installs what building, running and testing need on Debian 12. Does nothing, and needs no rights, when all is there.
set -euo pipefail

packages=(
  cmake ninja-build g++ g++-mingw-w64-x86-64-posix mingw-w64-tools  # native and cross compilers, IDL compiler
  wine64 fonts-wine fonts-liberation fonts-dejavu-extra             # running Windows programs
  xvfb xdotool x11-utils imagemagick                                # virtual display, real input, pictures
  googletest                                                        # sources, compiled for both worlds
  python3                                                           # sample folder
)

missing=()
for package in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$status" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  if ! command -v sudo >/dev/null; then
    echo "These packages are missing, and installing them needs root or sudo: ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq update
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
  apt-get -qq -y --no-install-recommends install "${missing[@]}" >/dev/null
