# Sourced by the scripts in this folder: makes sure Debian packages are installed.
#
#   require_packages cmake g++ libgtest-dev
#
# Installs what is missing with apt-get when run as root; otherwise prints the exact
# command to run and stops.

# Whether a package is installed. A name without ":arch" means the build machine's own
# architecture (or none): a copy of another architecture, installed for a cross build,
# does not count.
package_installed() {
    local native
    native=$(dpkg --print-architecture)
    case "$1" in
        *:*) dpkg-query -W -f='${Status}\n' "$1" 2>/dev/null ;;
        *) dpkg-query -W -f='${Status} ${Architecture}\n' "$1" 2>/dev/null | grep -E " ($native|all)\$" ;;
    esac | grep '^install ok installed' >/dev/null
}

require_packages() {
    command -v dpkg-query >/dev/null 2>&1 || return 0   # not Debian: the build reports what it misses
    local missing=()
    local package
    for package in "$@"; do
        package_installed "$package" || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -eq 0 ]; then
        echo "Installing ${missing[*]}" >&2
        if ! DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null; then
            # An index that failed to download (a mirror in sync) need not hold these
            # packages: the install says whether they were found.
            apt-get update -qq || echo "apt-get update failed in part; installing from the lists it has" >&2
            DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
        fi
    else
        echo "Missing packages. Run:" >&2
        echo "  sudo apt-get install -y ${missing[*]}" >&2
        exit 1
    fi
}

# Packages every build needs.
BUILD_PACKAGES=(cmake g++ make pkg-config android-liblog-dev)
# The 32-bit ARM cross compiler: the suite's 32-bit compilation test uses it. clang: the
# install-and-consume test builds an outside program with clang++ as well as g++.
TEST_PACKAGES=(libgtest-dev libgmock-dev g++-arm-linux-gnueabihf clang)
# Packages the benchmarks need: Google Benchmark, and the SDP parsers the SDP layer is
# measured against (sofia-sip, oSIP, GStreamer), which nothing else uses.
BENCH_PACKAGES=(libbenchmark-dev python3 libsofia-sip-ua-dev libosip2-dev libgstreamer-plugins-base1.0-dev)

# Cross builds (./scripts/test.sh --arch ARCH): Debian's cross compiler and qemu-user on
# the build machine, and liblog and GoogleTest built for the target, installed beside the
# build machine's own through dpkg's multiarch (static GoogleTest libraries included).
#
#   require_architecture armhf
#   require_packages $(cross_packages armhf)
require_architecture() {
    command -v dpkg >/dev/null 2>&1 || return 0
    local arch=$1
    [ "$arch" = "$(dpkg --print-architecture)" ] && return 0
    dpkg --print-foreign-architectures | grep -qx "$arch" && return 0
    if [ "$(id -u)" -eq 0 ]; then
        echo "Adding the $arch architecture to dpkg" >&2
        dpkg --add-architecture "$arch"
        apt-get update -qq || echo "apt-get update failed in part; installing from the lists it has" >&2
    else
        echo "Packages of the $arch architecture are needed. Run:" >&2
        echo "  sudo dpkg --add-architecture $arch && sudo apt-get update" >&2
        exit 1
    fi
}

# The GNU triplet of a Debian architecture: armhf -> arm-linux-gnueabihf.
cross_triplet() {
    case "$1" in
        armhf) echo arm-linux-gnueabihf ;;
        arm64) echo aarch64-linux-gnu ;;
        *) echo "no cross build for architecture $1" >&2; return 1 ;;
    esac
}

# What a cross build and its test run need beyond BUILD_PACKAGES, for one architecture.
cross_packages() {
    local arch=$1 triplet
    triplet=$(cross_triplet "$arch") || return 1
    echo g++-"$triplet" qemu-user android-liblog-dev:"$arch" libgtest-dev:"$arch" libgmock-dev:"$arch"
}
