# shellcheck shell=bash disable=SC2034
# What the scripts share: finding the repository and installing Debian's packages. Sourced, not run.

set -euo pipefail

root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)

productPackages=(g++ cmake ninja-build libjsoncpp-dev zlib1g-dev)
testPackages=(libgtest-dev python3)
checkPackages=(clang clang-format clang-tidy)
fuzzPackages=(clang libclang-rt-14-dev)
coveragePackages=(clang llvm-14 libclang-rt-14-dev)
benchPackages=(libbenchmark-dev)

# Standard output belongs to what the caller runs in the end; all chatter goes to standard error.
aptInstall() {
  "$@" apt-get update -qq >&2 &&
    "$@" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# Installs those of the packages that are not there, or names them and exits with 1.
needPackages() {
  local package
  missing=()
  local installed
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep -qxF "$package installed" <<<"$installed" || missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then return; fi
  if [ "$(id -u)" = 0 ]; then
    aptInstall || exit 1
  elif command -v sudo >/dev/null; then
    aptInstall sudo || exit 1
  else
    echo "Please install: apt-get install ${missing[*]}" >&2
    exit 1
  fi
}
