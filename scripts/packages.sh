# Installs the Debian packages named as arguments when any of them is missing.
# Sourced by run.sh and test.sh; uses sudo when not run as root.
install_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" \
            || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    echo "Installing: ${missing[*]}"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-base-dev-tools libgl-dev libqt6svg6 fonts-dejavu-core)
TEST_PACKAGES=(units xvfb xauth poppler-utils trayer xdotool
    at-spi2-core dbus-daemon python3-gi gir1.2-atspi-2.0)
