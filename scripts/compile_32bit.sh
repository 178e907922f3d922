#!/bin/sh
# compile_32bit.sh SCRATCH_DIR: compiles the Windows backend as a 32-bit program would be. What ships
# is 64-bit; this holds the sizes of the records that are given for the 32-bit form (static_assert),
# and that no code takes a handle for a number.
set -u
cd "$(dirname "$0")/.."
objects=$1
compiler=i686-w64-mingw32-g++-posix
mkdir -p "$objects"
command -v $compiler >/dev/null || {
    echo "compile_32bit.sh: $compiler is missing" >&2
    exit 1
}
command -v ccache >/dev/null && compiler="ccache $compiler"

# The record of the shell's icon comes first: a header, and the reason for all this.
echo '#include "platform/windows/notify_record.h"
static_assert(sizeof(void*) == 4 && nerolith::windows::kNotifyRecordSize == 88);' \
    >"$objects/notify_record.cpp"
sources=$(ls src/platform/windows/*.cpp)
for source in "$objects/notify_record.cpp" $sources; do
    echo "$source"
done | xargs -P "$(nproc)" -I SOURCE sh -c '
    name=$(basename "$1" .cpp)
    '"$compiler"' -std=c++20 -O1 -Wall -Wextra -Werror -Isrc -DUNICODE -DNOMINMAX \
        -D_WIN32_WINNT=0x0A00 -DNEROLITH_VERSION=\"0\" -c "$1" -o "$2/$name.o" || exit 255' \
    compile SOURCE "$objects" || exit 1
echo "$(ls "$objects"/*.o | wc -l) objects of $(($(echo "$sources" | wc -l) + 1)) compiled for 32 bits"
