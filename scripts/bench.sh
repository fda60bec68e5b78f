#!/usr/bin/env bash
# Builds the benchmarks optimised, in build/bench, and runs them. The arguments go to the benchmarks:
#   scripts/bench.sh --benchmark_filter=validHandle

# shellcheck source=scripts/setup.sh
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

needPackages "${productPackages[@]}" "${benchPackages[@]}"
build=$root/build/bench
(
  cd "$root"
  cmake --preset release -B "$build" -DTARVIK_TESTS=OFF -DTARVIK_BENCH=ON
  cmake --build "$build" --target benchmarks
) >&2
exec "$build/bench/benchmarks" "$@"
