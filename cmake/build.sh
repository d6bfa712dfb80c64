# shellcheck shell=bash
# Sourced by check, tour, bench, link and package: the build, from a bare machine on. `root` and `build` are the
# project's folder and that of the build.
#
#   prepare_toolchain           installs missing packages and makes the compiler's libraries; says what
#                               it is waiting for
#   run_build LOG ARGS...       cmake --build; on a terminal it shows its progress, elsewhere it
#                               speaks only if it fails
#   build_target TARGET LOG     all of it: the toolchain, and the target

. "$root/cmake/packages.sh"

prepare_toolchain() {
  mkdir -p "$build" && install_missing_packages && cmake -P "$root/toolchain/Prepare.cmake"
}

run_build() {
  local log=$1
  shift
  if [[ -t 1 ]]; then
    cmake --build --preset clang "$@"
    return
  fi
  cmake --build --preset clang "$@" >"$log" 2>&1 && return
  cat "$log"
  return 1
}

build_target() {
  local target=$1 log=$2
  prepare_toolchain && cd "$root" || return
  echo "Configuring ..."
  if ! cmake --preset clang >"$log" 2>&1; then
    cat "$log"
    return 1
  fi
  echo "Building $target (the first time takes a few minutes) ..."
  run_build "$log" --target "$target"
}
