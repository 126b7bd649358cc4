#!/usr/bin/env bash
# Usage: tools/check-clang.sh [--all] [-j JOBS]
#
# Compiles the plug-in, what lies below it and the workbench for Windows with a second compiler, clang, with our warnings;
# with --all the tests and benchmarks too. Writes no object files. The newest clang of the machine is taken
# (apt-get install clang-19), with the headers and the C++ library of the mingw-w64 GCC that builds the product. Needs
# python3 and what a build needs.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

folders=(base src workbench)
jobs=$(nproc)
while (($# > 0)); do
  case $1 in
    --all) folders+=(tests bench) ;;
    -j) jobs=${2:?-j needs a number} && shift ;;
    *) sed -n '2,8s/^# \{0,1\}//p' "$0" >&2 && exit 2 ;;
  esac
  shift
done

clang=$(compgen -c clang++- | grep -E '^clang\+\+-[0-9]+$' | sort -t- -k2 -n | tail -n 1 || true)
clang=${clang:-clang++}
command -v "$clang" >/dev/null || { echo "check-clang: there is no clang++ (apt-get install clang-19)" >&2; exit 1; }
gcc_headers=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++

# The flags of every file are those of the build; it need not have been made.
commands=build/windows-debug/compile_commands.json
[[ -f $commands ]] || cmake --preset windows-debug >/dev/null

compile=(
  "$clang" --target=x86_64-w64-mingw32 -fsyntax-only -O1
  -nostdinc++ -isystem "$gcc_headers" -isystem "$gcc_headers/x86_64-w64-mingw32" -isystem "$gcc_headers/backward"
  -Wall -Wextra -Wpedantic -Werror
  # GCC 12's own stable_sort calls what its headers call deprecated.
  -Wno-deprecated-declarations
)

# One line a file: its path, and the flags that say what is to be compiled.
list() {
  python3 - "$commands" "${folders[@]}" <<'PYTHON'
import json, os, shlex, sys

commands, folders = sys.argv[1], tuple(folder + "/" for folder in sys.argv[2:])
seen = set()
for entry in json.load(open(commands)):
    path = os.path.relpath(entry["file"])
    if not path.startswith(folders) or not path.endswith(".cpp") or path in seen:
        continue
    seen.add(path)
    words = shlex.split(entry["command"])
    flags = []
    for word, following in zip(words, words[1:] + [""]):
        if word == "-isystem":
            flags += [word, following]
        elif word.startswith(("-D", "-I", "-std=")):
            flags.append(word)
    print(shlex.join(flags + [path]))
PYTHON
}

export CLANG_COMMAND=${compile[*]}
files=$(list | wc -l)
echo "check-clang: $files files with $("$clang" --version | head -n 1)"
# shellcheck disable=SC2016  # the inner shell expands it
list | xargs -d '\n' -P "$jobs" -I{} bash -c 'eval "$CLANG_COMMAND $1" || { echo "check-clang: ${1##* } does not compile" >&2; exit 1; }' check {}
