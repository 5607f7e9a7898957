# Debian packages by purpose, and their installation. Sourced by the scripts beside this folder.

PACKAGES_BUILD="ca-certificates g++ cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev
    qt6-tools-dev qt6-l10n-tools
    libgl-dev libxcb1-dev libxcb-randr0-dev libxcb-xkb-dev libglib2.0-dev libical-dev
    libecal2.0-dev"

# A private X server with hot-plug, window managers and windows to manage.
PACKAGES_DESKTOP="xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils x11-xkb-utils
    xkb-data dbus-daemon openbox xfwm4 icewm metacity xterm file-roller fonts-dejavu-core
    qt6-qpa-plugins xfce4-panel xfconf libglib2.0-bin"

PACKAGES_TEST="clang-format libasan8 libubsan1 libxcb-icccm4-dev libxcb-xtest0-dev tzdata
    gsettings-desktop-schemas cinnamon-desktop-data mate-desktop-common
    evolution-data-server desktop-file-utils appstream groff-base zsh fish
    clang libclang-rt-14-dev libgnustep-base-dev libobjc-12-dev"

# Every window manager whose exactness is known, and what it is compared with. KWin draws
# decorations only with a theme; without its desktop's data marco and muffin don't start.
PACKAGES_SOAK="marco mate-settings-daemon-common mate-desktop-common mutter muffin
    cinnamon-settings-daemon kwin-x11 kwin-style-breeze wmctrl xdotool"

PACKAGES_PACKAGE="dpkg-dev lintian desktop-file-utils appstream git"

# Those that make a system of their own to try the packages in, and what runs there beside them.
PACKAGES_TRIAL="debootstrap"
PACKAGES_TRIED_WITH="xserver-xorg-core xserver-xorg-video-dummy x11-xserver-utils xkb-data
    dbus-daemon openbox trayer xterm x11-utils libglib2.0-bin"

PACKAGES_DEMO="x11-utils x11-apps wmctrl imagemagick geany galculator l3afpad linguist-qt6 jq
    xdotool adwaita-icon-theme hicolor-icon-theme"

# What is measured against what, and the window managers to measure on.
PACKAGES_BENCH="libbenchmark-dev wmctrl xdotool kwin-x11 kwin-style-breeze trayer python3"

# Runs a command as root, through sudo where need be.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

# install_packages NAME...: installs what is missing; quick when nothing is.
install_packages() {
    missing=""
    for package in "$@"; do
        status=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
        [ "$status" = installed ] || missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "Installing:$missing"
    as_root apt-get update -q >/dev/null
    # shellcheck disable=SC2086 # a list of words
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends \
        $missing >/dev/null
}
