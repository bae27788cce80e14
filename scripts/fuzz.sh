#!/usr/bin/env bash
# Builds the libFuzzer targets under fuzz/ with clang (ASan + UBSan) and runs each of them for
# SECONDS (default 60), one after the other, starting from the seed corpus in fuzz/corpus/.
# New inputs go to BUILD_DIR/corpus/<target>, crashes to BUILD_DIR/artifacts/.
# Usage: scripts/fuzz.sh [SECONDS] [TARGET...]   (BUILD_DIR: $FUZZ_BUILD_DIR or build-fuzz)
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
install_packages "${BUILD_PACKAGES[@]}" clang libclang-rt-14-dev

seconds=${1:-60}
shift || true
build_dir=${FUZZ_BUILD_DIR:-build-fuzz}
cmake -S . -B "$build_dir" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" \
    -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DMENSURA_BUILD_FUZZERS=ON -DMENSURA_BUILD_TESTS=OFF >/dev/null
cmake --build "$build_dir" --target fuzzers -j2

targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for seeds in fuzz/corpus/*/; do targets+=("$(basename "$seeds")"); done
fi
mkdir -p "$build_dir/artifacts"
failed=()
ran=0
for target in "${targets[@]}"; do
    corpus="$build_dir/corpus/$target"
    mkdir -p "$corpus"
    options=(-max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
        -artifact_prefix="$build_dir/artifacts/$target-")
    [ -f "fuzz/dict/$target.dict" ] && options+=(-dict="fuzz/dict/$target.dict")
    echo "== $target for ${seconds}s"
    ran=$((ran + 1))
    if ! "$build_dir/fuzz/$target" "${options[@]}" "$corpus" "fuzz/corpus/$target" \
        >"$build_dir/$target.log" 2>&1; then
        failed+=("$target")
        tail -n 40 "$build_dir/$target.log"
    fi
    grep -E '^#[0-9]+[[:space:]]+DONE' "$build_dir/$target.log" || true
done
if [ ${#failed[@]} -ne 0 ]; then
    echo "fuzzing found problems in: ${failed[*]} (inputs in $build_dir/artifacts)"
    exit 1
fi
echo "fuzzing: $ran passed, 0 failed"
