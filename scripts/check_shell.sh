#!/bin/sh
# check_shell.sh: parses every shell script of the project without running it.
set -u
cd "$(dirname "$0")/.."
broken=0
for script in build run test bench package .ci/run scripts/*.sh; do
    [ -f "$script" ] || continue
    sh -n "$script" || broken=1
    [ -x "$script" ] || { echo "$script is not executable"; broken=1; }
done
exit $broken
