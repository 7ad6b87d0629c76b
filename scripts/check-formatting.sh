#!/usr/bin/env bash
# Every source is as clang-format leaves it.   check-formatting.sh CLANG-FORMAT
set -eu -o pipefail
cd "$(dirname "$0")/.."
find app bench cli firmware modules QxKivEmuLib resources tests tools \
    \( -name '*.cpp' -o -name '*.h' -o -name '*.c' \) -print0 |
    xargs -0 "$1" --dry-run -Werror
