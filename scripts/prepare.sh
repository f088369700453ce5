# Sourced by run and test. Goes to the checkout, sees to the packages of packages.txt, and defines build().
cd "$(dirname "${BASH_SOURCE[0]}")/.."
jobs=$(nproc 2>/dev/null || echo 2)

see_to_packages() {
  local wanted lists=(scripts/packages.txt) missing=() package as_root=()
  [[ -z ${MORVANDEL_ALL_TOOLS:-} ]] || lists+=(scripts/packages-readers.txt)
  mapfile -t wanted < <(grep -h -v -e '^#' -e '^$' "${lists[@]}")
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    local tool
    for tool in g++ cmake ninja pkg-config python3; do
      command -v "$tool" >/dev/null && continue
      echo "There is no apt here and $tool is missing. Install what these Debian packages bring:" >&2
      printf '  %s\n' "${wanted[@]}" >&2
      exit 1
    done
    return
  fi
  for package in "${wanted[@]}"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if [[ $(id -u) != 0 ]]; then
    if ! command -v sudo >/dev/null; then
      echo "Packages are missing and there is no sudo. As root: apt-get install ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures and builds into build/PRESET.
build() {
  local preset=$1 launcher=()
  shift
  if command -v ccache >/dev/null; then
    launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    export CCACHE_SLOPPINESS=pch_defines,time_macros # what it asks for to keep objects made with them
    [[ -n ${HOME:-} ]] || export CCACHE_DIR=${CCACHE_DIR:-$PWD/build/ccache}
  fi
  cmake --preset "$preset" "${launcher[@]}" &&
    cmake --build --preset "$preset" -j "$jobs" ${1:+--target "$@"}
}
