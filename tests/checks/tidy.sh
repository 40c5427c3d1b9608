#!/usr/bin/env bash
# Runs clang-tidy over folders or files, over all of src without any, or with --changed over what
# the last commit changed. All of src takes many minutes, so no test runs it.
# Usage: tidy.sh [--changed | PATH...], for example tidy.sh src/core/ledger src/cli
set -euo pipefail
cd "$(dirname "$0")/../.."
most=30  # files of one commit, ten seconds each
places=("$@")
if [ "${1:-}" = --changed ]; then
  if ! git rev-parse --quiet --verify HEAD^ >/dev/null; then
    echo "nothing to compare with: the commit before is not in this clone"
    exit
  fi
  mapfile -t places < <(git diff --name-only --diff-filter=d HEAD^ -- 'src/*.cpp')
  if [ "${#places[@]}" -eq 0 ]; then
    echo "no file was changed"
    exit
  fi
  [ "${#places[@]}" -le "$most" ] || echo "checking $most of ${#places[@]} changed files"
  places=("${places[@]:0:$most}")
elif [ $# -eq 0 ]; then
  places=(src)
fi
cmake --preset tidy >/dev/null
find "${places[@]}" -name '*.cpp' -print0 | sort -z |
  xargs -0 -P "$(nproc)" -n 1 nice -n 15 \
    clang-tidy -p build/tidy --quiet --extra-arg=-Wno-unknown-warning-option 2>/dev/null
echo "nothing to mend"
