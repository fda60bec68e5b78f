#!/usr/bin/env bash
# Runs all fuzzers within SECONDS, which they share evenly, as many side by side as there are
# processors, and exits with 1 on a finding.
#
# All that they write stays under build/fuzz: the inputs that they collect in corpus, from where the
# next run goes on, the inputs of findings in findings, and their output in <fuzzer>.log.

# shellcheck source=scripts/setup.sh
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

if [ $# -ne 1 ] || ! [[ $1 =~ ^[1-9][0-9]*$ ]]; then
  echo "Usage: scripts/fuzz.sh SECONDS" >&2
  exit 2
fi
build=$root/build/fuzz

needPackages "${productPackages[@]}" "${fuzzPackages[@]}"
cd "$root"
cmake --preset fuzz
cmake --build --preset fuzz

# Name and directories of seeds, as CMake has them.
declare -A seedsOf=()
while read -r fuzzer seeds; do seedsOf[$fuzzer]=$seeds; done <"$build/fuzz/fuzzers.txt"
seconds=$(($1 * $(nproc) / ${#seedsOf[@]}))
if [ "$seconds" -eq 0 ]; then seconds=1; fi

# Where the seeds that name a file find it.
cd "$root/fuzz"
export TZ=UTC UBSAN_OPTIONS=print_stacktrace=1

# The first directory gets what is new; the others are only read.
startFuzzer() {
  local seeds
  read -ra seeds <<<"corpus/$1 ${seedsOf[$1]}"
  mkdir -p "$build/corpus/$1" "$build/findings/$1"
  "$build/fuzz/$1" -max_total_time="$seconds" -max_len=8192 -timeout=10 -rss_limit_mb=1024 \
    -dict="$1.dict" -artifact_prefix="$build/findings/$1/" -print_final_stats=1 \
    "$build/corpus/$1" "${seeds[@]}" >"$build/$1.log" 2>&1 &
  running[$1]=$!
}

declare -A running=()
trap 'kill "${running[@]}" 2>/dev/null' INT TERM
for fuzzer in "${!seedsOf[@]}"; do
  while [ "$(jobs -rp | wc -l)" -ge "$(nproc)" ]; do
    wait -n || true
  done
  startFuzzer "$fuzzer"
done

status=0
for fuzzer in "${!seedsOf[@]}"; do
  if wait "${running[$fuzzer]}"; then
    echo "$fuzzer: no finding in $(grep -oP 'number_of_executed_units: \K.*' "$build/$fuzzer.log") runs"
  else
    status=1
    echo "$fuzzer failed. The end of build/fuzz/$fuzzer.log:"
    tail -n 60 "$build/$fuzzer.log"
    input=$(grep -oP 'Test unit written to \K.*' "$build/$fuzzer.log" || true)
    if [ -n "$input" ]; then
      echo "The input is $input"
      echo "Once more: cd fuzz && TZ=UTC $build/fuzz/$fuzzer $input"
    fi
  fi
done
exit "$status"
