#!/usr/bin/env bash
# Builds the tests with coverage, runs them, and prints for each file how many of its functions, lines
# and branches they reach. build/coverage/html then shows them line by line.

# shellcheck source=scripts/setup.sh
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

needPackages "${productPackages[@]}" "${testPackages[@]}" "${coveragePackages[@]}"
cd "$root"
build=build/coverage
rm -rf "$build/profiles"
cmake --workflow --preset coverage >&2

llvm-profdata-14 merge -o "$build/tests.profdata" "$build"/profiles/*.profraw
programs=()
while read -r program; do
  programs+=(-object "$program")
done < <(find "$build" -type f -executable \( -name '*_test' -o -name HandleChecker \))
product=(apps libraries shared -ignore-filename-regex='/(test|build)/')
llvm-cov-14 show "${programs[@]}" -instr-profile "$build/tests.profdata" -format html \
  -output-dir "$build/html" "${product[@]}" >/dev/null
llvm-cov-14 report "${programs[@]}" -instr-profile "$build/tests.profdata" "${product[@]}"
