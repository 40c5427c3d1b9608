#!/usr/bin/env bash
# Every C++ file is formatted as .clang-format says. Usage: format.sh SOURCE_ROOT
set -euo pipefail
cd "$1"
find src tests bench -name '*.h' -o -name '*.cpp' | sort | xargs clang-format --dry-run --Werror
