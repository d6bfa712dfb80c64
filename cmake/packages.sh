# shellcheck shell=bash
# Sourced by check, tour, bench, link and package: the Debian packages that building and running need.

debian_packages=(
  cmake ninja-build clang-19 lld-19 llvm-19 libc++-19-dev libwine-dev wine64
  mingw-w64-common mingw-w64-tools xz-utils ca-certificates
  googletest nlohmann-json3-dev clang-format-19 clang-tidy-19
  xvfb fonts-wine fonts-dejavu-core python3-ezdxf wixl msitools python3-markdown)

# Installs what is missing; without the right to, names it and fails.
install_missing_packages() {
  local package missing=() as_root=()
  for package in "${debian_packages[@]}"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ((EUID)); then
    if ! sudo -n true 2>/dev/null; then
      echo "Missing Debian packages: ${missing[*]}" >&2
      echo "Install them with: sudo apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo -n)
  fi
  echo "Installing ${missing[*]} (a few minutes) ..."
  # Its own progress is for a terminal only.
  local quiet=(-qq) words=/dev/null
  [[ -t 1 ]] && quiet=() words=/dev/stdout
  "${as_root[@]}" apt-get update "${quiet[@]}" </dev/null &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y "${quiet[@]}" --no-install-recommends "${missing[@]}" </dev/null >"$words"
}
