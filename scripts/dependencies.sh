# shellcheck shell=bash
# What each entry point needs from Debian 12, and how it gets there. Sourced by the scripts at the root.

build_packages=(
  ca-certificates ccache cmake g++ ninja-build pkg-config
  qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools
  zlib1g-dev libbz2-dev libxxhash-dev libfontconfig-dev libicu-dev libglib2.0-dev libcurl4-openssl-dev libmd-dev libssl-dev
  libgtest-dev libgmock-dev librsvg2-bin
)
# What Vesk needs to open its window, and the demo source and its sandbox besides.
window_packages=(
  bubblewrap dpkg-dev fonts-dejavu-core fonts-inter fonts-wqy-microhei python3 qml6-module-qtqml-workerscript qml6-module-qtquick qml6-module-qtquick-templates
  qt6-wayland
)
run_packages=("${build_packages[@]}" "${window_packages[@]}")
# shellcheck disable=SC2034  # the lists are for the scripts that source this file
test_packages=(
  "${run_packages[@]}" at-spi2-core clang dbus desktop-file-utils gir1.2-atspi-2.0 git libclang-rt-14-dev libegl1 libgl1-mesa-dri
  libglib2.0-bin nghttp2-server openssl python3-gi weston xdotool xvfb
)
# shellcheck disable=SC2034
lint_packages=("${run_packages[@]}" appstream clang-format clang-tidy desktop-file-utils git shellcheck)
# shellcheck disable=SC2034
bench_packages=("${run_packages[@]}" xdotool xvfb)

# missing_packages NAME...: prints those that are not installed, one a line.
missing_packages() {
  local installed
  # dpkg-query answers for the packages it knows and exits with 1 when there are others; those are the missing ones.
  installed=$(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null || true)
  comm -23 <(printf '%s\n' "$@" | sort -u) <(sed -n 's/^installed //p' <<<"$installed" | sort -u)
}

can_be_root() {
  [[ $(id -u) -eq 0 ]] || command -v sudo >/dev/null
}

# as_root COMMAND...: directly or by sudo.
as_root() {
  if [[ $(id -u) -eq 0 ]]; then
    "$@"
  else
    sudo "$@"
  fi
}

apt_install() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "$@" </dev/null
}

# ensure_packages NAME...: installs from Debian what is missing; says so first, and says nothing when all is there.
ensure_packages() {
  local missing
  if ! command -v dpkg-query >/dev/null; then
    echo "This needs Debian 12: there is no dpkg on this system." >&2
    return 1
  fi
  mapfile -t missing < <(missing_packages "$@")
  [[ ${#missing[@]} -eq 0 ]] && return
  if ! can_be_root; then
    echo "Missing from Debian, and to be installed by root, for there is no sudo here:" >&2
    echo "  apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
    return 1
  fi
  echo "Installing from Debian: ${missing[*]}"
  # The lists on the machine are used as they are while they know every package and their files are still there.
  if apt-get install --simulate --no-install-recommends "${missing[@]}" >/dev/null 2>&1 && apt_install "${missing[@]}"; then
    return
  fi
  as_root apt-get update </dev/null
  apt_install "${missing[@]}"
}

# build_preset NAME [TARGET...]: configures when that was never done or the presets have changed since, then builds.
build_preset() {
  local preset=$1 targets=()
  shift
  [[ $# -gt 0 ]] && targets=(--target "$@")
  [[ build/$preset/build.ninja -nt CMakePresets.json ]] || cmake --preset "$preset"
  cmake --build --preset "$preset" ${targets[@]+"${targets[@]}"}
}
