#!/usr/bin/env bash
# Builds everything and runs all tests. Exits with another status than 0 if anything fails.

# shellcheck source=scripts/setup.sh
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

needPackages "${productPackages[@]}" "${testPackages[@]}"
cd "$root"
cmake --preset release -DTARVIK_TESTS=ON
cmake --build --preset release
# Every public header compiles by itself.
cmake --build --preset release --target all_verify_interface_header_sets
ctest --preset release
