#!/usr/bin/env bash
# Builds Mensura with AddressSanitizer and UndefinedBehaviorSanitizer (the "asan" preset) and
# runs the whole test suite under them, leak checking included. A leak that belongs to the
# system libraries under Qt rather than to Mensura goes into tests/lsan.supp. Extra arguments go
# to ctest (-R PATTERN).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"

cmake --preset asan >/dev/null
cmake --build --preset asan -j2

export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:strict_string_checks=1:detect_stack_use_after_return=1"
export LSAN_OPTIONS="print_suppressions=0:suppressions=$PWD/tests/lsan.supp"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
ctest --preset asan -j2 "$@"
