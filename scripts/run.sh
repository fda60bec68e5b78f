#!/usr/bin/env bash
# Builds Handle Checker where that is needed, and runs it with the options given.
# Standard output and the exit status are the tool's own; a build that fails exits with 1.

# shellcheck source=scripts/setup.sh
source "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/setup.sh"

needPackages "${productPackages[@]}"
build=$root/build/release
if [ ! -f "$build/build.ninja" ]; then
  # The tool alone needs no GoogleTest. test.sh turns the tests on in the same folder.
  (cd "$root" && cmake --preset release -DTARVIK_TESTS=OFF) >&2 || exit 1
fi
ninja -C "$build" HandleChecker >&2 || exit 1
exec "$build/apps/handlechecker/HandleChecker" "$@"
