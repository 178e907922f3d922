#!/bin/sh
# check_format.sh: fails when clang-format would change a file; exit code 77 (skipped) without it.
set -u
cd "$(dirname "$0")/.."
command -v clang-format >/dev/null || exit 77
find src tests benchmarks demo -name '*.h' -o -name '*.cpp' | xargs -r clang-format --dry-run --Werror
