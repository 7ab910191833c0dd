# Sourced by the scripts in this folder: makes sure Debian packages are installed.
#
#   require_packages cmake g++ libgtest-dev
#
# Installs what is missing with apt-get when run as root; otherwise prints the exact
# command to run and stops.

require_packages() {
    command -v dpkg-query >/dev/null 2>&1 || return 0   # not Debian: the build reports what it misses
    local missing=()
    local package
    for package in "$@"; do
        if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if [ "$(id -u)" -eq 0 ]; then
        echo "Installing ${missing[*]}" >&2
        if ! DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null; then
            apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
        fi
    else
        echo "Missing packages. Run:" >&2
        echo "  sudo apt-get install -y ${missing[*]}" >&2
        exit 1
    fi
}

# Packages every build needs.
BUILD_PACKAGES=(cmake g++ make pkg-config android-liblog-dev)
TEST_PACKAGES=(libgtest-dev libgmock-dev)
# Packages the benchmarks need: Google Benchmark, and the SDP parsers the SDP layer is
# measured against (sofia-sip, oSIP, GStreamer), which nothing else uses.
BENCH_PACKAGES=(libbenchmark-dev python3 libsofia-sip-ua-dev libosip2-dev libgstreamer-plugins-base1.0-dev)
