# shellcheck shell=bash disable=SC2034
# Sourced by run, test, package and .ci/run: installs the Debian packages that are missing and builds a preset.

fennel_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# What the build needs, and what the tests need beside it.
build_packages="g++ cmake ninja-build pkg-config qt6-base-dev qt6-base-dev-tools qt6-svg-dev
 qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools qt6-translations-l10n libqt6svg6 libdeflate-dev
 libfontconfig-dev libfreetype-dev libjpeg62-turbo-dev libmagick++-6.q16-dev libgtest-dev libgmock-dev
 seabios vgabios gfxboot-dev python3 fonts-dejavu-core fonts-liberation qt6-qpa-plugins"
run_packages="xvfb xauth xdotool openbox imagemagick qemu-system-x86 qemu-system-gui"
test_packages="cpio fontconfig libarchive-tools p7zip-full gfxboot-themes syslinux syslinux-common mtools
 qemu-system-x86 qemu-system-gui procps imagemagick xvfb openbox xdotool libbenchmark-dev"
package_packages="lintian appstream desktop-file-utils dpkg-dev fakeroot file"
check_packages="clang-format clang-tidy git shellcheck"

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# install_missing PACKAGE...
install_missing() {
    local missing
    missing=$(for package in "$@"; do
        dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || echo "$package"
    done)
    [ -z "$missing" ] && return 0
    echo "Installing:" $missing
    as_root apt-get update -qq
    # shellcheck disable=SC2086
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
}

# build_preset PRESET [TARGET]
build_preset() {
    cd "$fennel_root" || return 1
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" || return 1
    cmake --build --preset "$1" --target "${2:-all}"
}
