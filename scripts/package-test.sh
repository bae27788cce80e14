#!/usr/bin/env bash
# Builds the Debian package mensura_<version>_<arch>.deb and checks what it installs: unpacked
# into a scratch root, the programs start and print the project's version, the desktop entry
# and the AppStream metainfo are valid, the icons and help topics are in place and the package
# declares the Qt libraries it needs.
# Usage: scripts/package-test.sh [BUILD_DIR]   (default: build-package; the .deb is left there)
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
install_packages "${BUILD_PACKAGES[@]}" dpkg-dev file desktop-file-utils appstream

build_dir=${1:-build-package}
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Release -DMENSURA_BUILD_TESTS=OFF >/dev/null
cmake --build "$build_dir" -j2
(cd "$build_dir" && cpack -G DEB >/dev/null)

version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$build_dir/CMakeCache.txt")
deb="$build_dir/mensura_${version}_$(dpkg --print-architecture).deb"
root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT

passed=0
failed=0
check() { # check DESCRIPTION COMMAND...
    local description=$1
    shift
    if "$@" >"$root.out" 2>&1; then
        passed=$((passed + 1))
        echo "ok   $description"
    else
        failed=$((failed + 1))
        echo "FAIL $description"
        sed 's/^/     /' "$root.out"
    fi
}
prints_version() { # prints_version PROGRAM: its --version output names the project's version
    QT_QPA_PLATFORM=offscreen timeout 20 "$@" --version | tee /dev/stderr | grep -qF "$version"
}
png_size() { # png_size FILE SIZE
    file "$1" | grep -q "PNG image data, $2 x $2"
}

check "package $deb exists" test -f "$deb"
dpkg -x "$deb" "$root"
depends=$(dpkg-deb -f "$deb" Depends)
echo "Depends: $depends"
for library in libqt6core6 libqt6widgets6 libqt6svg6; do
    check "depends on $library" grep -q "$library" <<<"$depends"
done

for program in mensura mensura-cli; do
    check "$program installed" test -x "$root/usr/bin/$program"
    check "$program --version prints $version" prints_version "$root/usr/bin/$program"
done

share="$root/usr/share"
check "desktop entry valid" desktop-file-validate "$share/applications/io.github.mensura.Mensura.desktop"
metainfo="$share/metainfo/io.github.mensura.Mensura.metainfo.xml"
check "metainfo valid" appstreamcli validate --no-net "$metainfo"
check "metainfo names version $version" grep -q "version=\"$version\"" "$metainfo"
check "metainfo names the home page" grep -q '<url type="homepage">https://' "$metainfo"
screenshot_in_repository() { # the software centres' screenshot is a file of this repository
    local home image
    home=$(sed -n 's|.*<url type="homepage">\(.*\)</url>.*|\1|p' "$metainfo")
    image=$(sed -n 's|.*<image>\(.*\)</image>.*|\1|p' "$metainfo")
    echo "$image"
    [[ $image == "$home/raw/main/"* ]] && test -s "${image#"$home/raw/main/"}"
}
check "metainfo shows a screenshot of this repository" screenshot_in_repository
check "scalable icon" test -s "$share/icons/hicolor/scalable/apps/mensura.svg"
for size in 16 22 24 32 48 64 128 256; do
    check "icon ${size}x${size}" png_size "$share/icons/hicolor/${size}x${size}/apps/mensura.png" "$size"
done
check "help topics" test -s "$share/doc/mensura/html/index.html"

echo "$(basename "$deb"): $(du -k "$deb" | cut -f1) KiB"
echo "package check: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
