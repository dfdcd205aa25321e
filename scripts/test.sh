#!/usr/bin/env bash
# Installs what is missing, builds Orvane into build/ and runs the whole test suite headless.
# A second run builds incrementally.
#
#   scripts/test.sh              the normal build (Release) and suite
#   scripts/test.sh --sanitize   the suite built with AddressSanitizer and UndefinedBehaviorSanitizer
#                                in build-sanitize/ (clang when installed, else gcc); fails on any
#                                report from Orvane's code (suppressions only for system libraries,
#                                scripts/sanitizers/)
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh

case "${1:-}" in
  "") mode=normal ;;
  --sanitize) mode=sanitize ;;
  -h|--help) sed -n '2,9p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
  *) echo "Unknown option '$1' (see --help)." >&2; exit 2 ;;
esac

export QT_QPA_PLATFORM=offscreen
if [ "$mode" = normal ]; then
  orvane_install_deps
  orvane_build
  ctest --test-dir build --output-on-failure -j"$(nproc)" --timeout 600
else
  orvane_install_deps "${ORVANE_SANITIZE_PACKAGES[@]}"
  orvane_build_sanitized
  supp="$PWD/scripts/sanitizers"
  export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:strict_string_checks=1:detect_stack_use_after_return=1:check_initialization_order=1"
  export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1:suppressions=$supp/ubsan.supp"
  export LSAN_OPTIONS="suppressions=$supp/lsan.supp:print_suppressions=0"
  ctest --test-dir build-sanitize --output-on-failure -j"$(nproc)" --timeout 1200
fi
