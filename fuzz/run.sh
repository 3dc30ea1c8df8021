#!/bin/sh
# run.sh BUILD [SECONDS] [TARGET...]: gives each fuzz target so many seconds, 60 when none are
# given, as many at once as there are processors. What was of use is kept in BUILD/corpus and is
# where the next run begins; an input that broke a promise is kept in BUILD/findings/TARGET, and
# BUILD/fuzz/fuzz_TARGET FILE shows it again. Fails when there was one.
set -eu
seeds=$(cd "$(dirname "$0")" && pwd)
build=$(cd "$1" && pwd)
seconds=${2-60}
shift
[ $# = 0 ] || shift

# Give one target its time: one line when it found nothing, all it has to say otherwise.
if [ "${QUORKIT_FUZZ_TARGET-}" ]; then
  target=$QUORKIT_FUZZ_TARGET
  log=$build/log/$target
  mkdir -p "$build/corpus/$target" "$build/findings/$target" "$build/log"
  set -- "$build/corpus/$target"
  [ ! -d "$seeds/seeds/$target" ] || set -- "$@" "$seeds/seeds/$target"
  [ ! -f "$seeds/seeds/$target.dict" ] || set -- "-dict=$seeds/seeds/$target.dict" "$@"
  found=0
  "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -max_len=4096 \
    -print_final_stats=1 -artifact_prefix="$build/findings/$target/" "$@" >"$log" 2>&1 || found=1
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  if [ $found = 0 ]; then
    printf '%-14s %10s executions, no finding\n' "$target" "$runs"
  else
    printf '%-14s %10s executions, A FINDING:\n' "$target" "${runs:-?}"
    sed -n '/^==.*\(ERROR\|DEADLYSIGNAL\)\|runtime error\|^broken promise/,$p' "$log"
  fi
  exit $found
fi

if [ $# = 0 ]; then
  for program in "$build"/fuzz/fuzz_*; do
    [ ! -x "$program" ] || [ -d "$program" ] || set -- "$@" "${program##*/fuzz_}"
  done
fi
# UBSan stops at the first finding anyway; the rest is as in the tests with sanitizers.
export ASAN_OPTIONS="${ASAN_OPTIONS-detect_stack_use_after_return=1:strict_string_checks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS-print_stacktrace=1}"
printf '%s\n' "$@" |
  xargs -P "$(nproc)" -I TARGET env QUORKIT_FUZZ_TARGET=TARGET "$0" "$build" "$seconds"
