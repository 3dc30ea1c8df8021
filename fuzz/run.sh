#!/bin/sh
# run.sh BUILD [SECONDS] [TARGET...]: runs each fuzz target for SECONDS, by default 60, two at once.
# Useful inputs stay in BUILD/corpus, where the next run begins. An input that breaks a promise
# stays in BUILD/findings/TARGET, and BUILD/fuzz/fuzz_TARGET FILE shows it again; this script then
# fails.
set -eu
seeds=$(cd "$(dirname "$0")" && pwd)/seeds
build=$(cd "$1" && pwd)
shift
seconds=${1-60}
[ $# = 0 ] || shift
if [ $# = 0 ]; then
  for dictionary in "$seeds"/*.dict; do
    name=${dictionary##*/}
    set -- "$@" "${name%.dict}"
  done
fi
# A short run makes the same choices each time, so that no change fails by chance.
seed=0
[ "$seconds" -ge 60 ] || seed=1
# UBSan stops at the first finding anyway; the rest is as in the tests with sanitizers.
export ASAN_OPTIONS="${ASAN_OPTIONS-detect_stack_use_after_return=1:strict_string_checks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS-print_stacktrace=1}"

# Runs one target. Prints one line when it finds nothing, otherwise all of its output.
fuzz() {
  log=$build/log/$1
  mkdir -p "$build/corpus/$1" "$build/findings/$1" "$build/log"
  found=0
  "$build/fuzz/fuzz_$1" -max_total_time="$seconds" -seed=$seed -timeout=20 -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="$build/findings/$1/" -dict="$seeds/$1.dict" \
    "$build/corpus/$1" "$seeds/$1" >"$log" 2>&1 || found=1
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  if [ $found = 0 ]; then
    printf '%-14s %10s executions, no finding\n' "$1" "$runs"
  else
    printf '%-14s %10s executions, A FINDING:\n' "$1" "${runs:-?}"
    sed -n '/^==.*ERROR\|runtime error\|^broken promise/,$p' "$log"
  fi
  return $found
}

result=0
while [ $# != 0 ]; do
  fuzz "$1" &
  first=$!
  second=
  [ $# = 1 ] || {
    fuzz "$2" &
    second=$!
    shift
  }
  shift
  wait $first || result=1
  [ -z "$second" ] || wait "$second" || result=1
done
exit $result
