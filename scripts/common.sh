# What the scripts beside this one share; they source it. Leaves them in the project's folder.

me=scripts/$(basename "$0")
cd "$(dirname "${BASH_SOURCE[0]}")/.."
root=$PWD
logs=$root/build/logs

# Checkouts in different folders share what ccache keeps.
export CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1
# Nothing here needs a display.
export QT_QPA_PLATFORM=offscreen

die() {
    printf '%s: %s\n' "$me" "$*" >&2
    exit 1
}

require_writable_build() {
    mkdir -p "$logs" 2>/dev/null && [ -w "$logs" ] && [ -w "$root/build" ] ||
        die "cannot write to $root/build (made by another user?). Remove it, or run as that user."
}

# step <what> <command...>: one line when it goes well; when not, all its output and the end.
step() {
    local what=$1 start=$SECONDS
    shift
    local log=$logs/${what//[^[:alnum:]]/_}.log
    printf '==> %s ... ' "$what"
    if "$@" >"$log" 2>&1 </dev/null; then
        printf 'done (%d s)\n' $((SECONDS - start))
    else
        printf 'FAILED\n'
        cat "$log"
        die "stopped at this step: $what"
    fi
}
