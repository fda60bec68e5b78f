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
mapfile -t programs < <(
  find "$build" -type f -executable \( -name '*_test' -o -name HandleChecker \))
# llvm-cov needs one program by position; it may be named among the objects again.
options=(-instr-profile "$build/tests.profdata" -ignore-filename-regex='/(test|build)/')
arguments=("${programs[0]}" "${programs[@]/#/-object=}" "${options[@]}")
llvm-cov-14 show "${arguments[@]}" -format html -output-dir "$build/html" >/dev/null
llvm-cov-14 report "${arguments[@]}"
