#!/usr/bin/env bash
# Runs clang-tidy over folders, over all of src without any. It takes minutes, so no test runs it.
# Usage: tidy.sh [FOLDER...], for example tidy.sh src/core/ledger src/cli
set -euo pipefail
cd "$(dirname "$0")/../.."
folders=("$@")
[ $# -gt 0 ] || folders=(src)
cmake --preset tidy >/dev/null
find "${folders[@]}" -name '*.cpp' -print0 | sort -z |
  xargs -0 -P "$(nproc)" -n 1 nice -n 15 \
    clang-tidy -p build/tidy --quiet --extra-arg=-Wno-unknown-warning-option 2>/dev/null
echo "nothing to mend"
