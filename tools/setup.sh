# Shared by ./run, ./test and the other scripts, which source it: the packages they need and quiet
# builds. All of it is for Debian 12, as root or with sudo. Messages go to standard error.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

native_packages=(cmake ninja-build g++ libhivex-dev libncurses-dev)
windows_packages=(cmake ninja-build g++-mingw-w64-x86-64-posix wine wine64 fonts-wine)
windows_test_packages=(locales)
installer_packages=(nsis)
display_packages=(xvfb imagemagick)
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev googletest xz-utils tmux libwin-hivex-perl)
clang_packages=(clang libclang-rt-14-dev)
format_packages=(clang-format)
tidy_packages=(clang-format clang-tidy)

# For ccache, where it is installed: the tests have a precompiled header.
export CCACHE_SLOPPINESS=pch_defines,time_macros

# need PACKAGE...: installs those Debian packages that are lacking; touches nothing when none is.
need() {
  local package state missing=() sudo=()
  for package; do
    state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) || true
    [[ $state == installed ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  echo "Installing ${missing[*]} (apt-get)" >&2
  ((EUID == 0)) || sudo=(sudo)
  # Lists that can not all be brought up to date may still do.
  logged apt-get "${sudo[@]}" apt-get update || true
  logged apt-get "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}

# logged NAME COMMAND...: runs the command with its output in build/NAME.log, whose end is shown when
# the command fails.
logged() {
  local log=$root/build/$1.log status=0
  shift
  mkdir -p "$root/build"
  "$@" </dev/null >"$log" 2>&1 || status=$?
  ((status == 0)) && return 0
  tail -n 60 "$log" >&2
  echo "Failed: $* (the whole log: $log)" >&2
  return "$status"
}

# configure PRESET [CMAKE OPTION...]
configure() {
  logged "$1-configure" cmake -S "$root" --preset "$@"
}

# build PRESET TARGET...: builds the targets of a preset that is configured.
build() {
  local preset=$1
  shift
  echo "Building $* ($preset)" >&2
  logged "$preset-build" cmake --build "$root/build/$preset" --target "$@"
}

# stage_program FOLDER: the program's folder, as it is installed. An ignore list that is there stays.
stage_program() {
  mkdir -p "$1"/{backup,images} "$1/Startup Folder/"{"All Users","Current User"}
  x86_64-w64-mingw32-strip -o "$1/tidemark.exe" "$root/build/windows/src/desktop/tidemark.exe"
  cp "$root"/assets/images/*.{jpg,ico,bmp} "$1/images/"
  [[ -e $1/Ignorelst.ini ]] || cp "$root/assets/Ignorelst.ini" "$1/"
}

program_version() {
  sed -n 's/^project(Tidemark VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt"
}

# make_installer PROGRAM_FOLDER VERSION FILE
make_installer() {
  logged installer makensis -V2 -WX -DVERSION="$2" -DPROGRAM="$1" -DOUTPUT="$3" \
    "$root/packaging/tidemark.nsi"
}
