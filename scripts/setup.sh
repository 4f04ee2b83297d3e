# What Torvane needs of a Debian 12, in one place. Sourced by make-disc, run-tests and check-style; not a program of its own.
# shellcheck shell=bash disable=SC2034,SC2154  # the caller uses the lists and sets root

# To build the programs.
build_packages=(build-essential cmake ninja-build pkg-config qt6-base-dev)

# To author a disc with them: the tools that the generated batches call, a font, and ffmpeg for the sample's media.
run_packages=(dvdauthor mjpegtools genisoimage ffmpeg fontconfig fonts-liberation)

# To build and run the tests.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev libdvdnav-dev libdvdread-dev fuse2fs fuse3)

# To check the form of the code.
style_packages=(clang-format clang-tidy)

die() {
  echo "$(basename "$0"): $*" >&2
  exit 1
}

# need_packages NAME...: installs what is missing. Asks dpkg only, and says nothing, when all of them are there.
need_packages() {
  local missing=() package installed
  installed=" $(dpkg-query -W -f='${db:Status-Abbrev}${Package}\n' 2>/dev/null | sed -n 's/^[hi]i //p' | tr '\n' ' ')" ||
    die "this needs Debian 12 (no dpkg-query here). Install by hand: $*"
  for package in "$@"; do
    [[ $installed == *" $package "* ]] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      die "these packages are missing, and installing them needs root or sudo: ${missing[*]}"
    as_root=(sudo)
    # No password can be typed where no terminal is.
    [ -t 0 ] || as_root+=(-n)
  fi
  echo "Installing ${missing[*]} ..."
  local log
  log=$(mktemp)
  # A package list that cannot be refreshed may still do.
  "${as_root[@]}" apt-get update -q >"$log" 2>&1 </dev/null || true
  if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}" \
    >>"$log" 2>&1 </dev/null; then
    tail -n 20 "$log" >&2
    rm -f "$log"
    die "the packages could not be installed"
  fi
  rm -f "$log"
}

# configure PRESET [OPTION...]: writes the build files; shows CMake's words only when it fails.
configure() {
  local preset=$1 dir=$root/build/$1
  shift
  mkdir -p "$dir"
  (cd "$root" && cmake --preset "$preset" "$@") >"$dir/configure.log" 2>&1 && return
  # A half-made configuration must not pass for a whole one in the next run.
  rm -f "$dir/build.ninja"
  tail -n 30 "$dir/configure.log" >&2
  die "CMake could not configure the build (all it said: $dir/configure.log)"
}
