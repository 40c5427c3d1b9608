#!/usr/bin/env bash
# The shell completion offers what the program's help says. Usage: completion.sh SOURCE_ROOT QUORVANECTL
set -euo pipefail
source "$1/packaging/completion/quorvanectl"
ctl=$2

# complete_words WORD... completes the last word.
complete_words() {
  COMP_WORDS=("$ctl" "$@")
  COMP_CWORD=$#
  _quorvanectl
  printf '%s\n' "${COMPREPLY[@]}" | sort -u | tr '\n' ' '
}

failed=0
expect() {
  local wanted=$1 got
  shift
  got=$(complete_words "$@")
  [ "$got" = "$wanted " ] || { echo "after '$*' expected '$wanted', got '$got'"; failed=1; }
}

expect "export" exp
expect "capital-gain" statement cap
expect "capital-gain" --data /nowhere statement cap
expect "--layout" statement profit --lay
expect "detail summary" statement profit --layout ""
expect "stax stt" statement profit --charges st
exit "$failed"
