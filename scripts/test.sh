#!/usr/bin/env bash
# Installs what is missing, builds Orvane into build/ and runs the whole test suite headless.
# A second run builds incrementally.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh

orvane_install_deps
orvane_build

export QT_QPA_PLATFORM=offscreen
ctest --test-dir build --output-on-failure -j"$(nproc)" --timeout 600
