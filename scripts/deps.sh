# Debian packages Orvane needs to build, test and look at its output. Sourced by the scripts.
ORVANE_PACKAGES=(
  build-essential cmake ninja-build ccache pkg-config
  qtbase5-dev qtbase5-dev-tools libqt5svg5-dev qttools5-dev qttools5-dev-tools qttranslations5-l10n
  libqwt-qt5-dev libtinyxml-dev libfast-float-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth fonts-dejavu-core
  librsvg2-bin poppler-utils imagemagick emf2svg
  python3-meshio
)

# What the sanitizer build (scripts/test.sh --sanitize) needs besides: clang and its runtimes.
ORVANE_SANITIZE_PACKAGES=(clang libclang-rt-14-dev)

# Installs every missing package of ORVANE_PACKAGES and of the arguments without prompts; does
# nothing when all are present.
orvane_install_deps() {
  local missing=()
  local p
  for p in "${ORVANE_PACKAGES[@]}" "$@"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
      missing+=("$p")
    fi
  done
  if [ ${#missing[@]} -eq 0 ]; then
    return 0
  fi
  echo "Installing missing packages: ${missing[*]}"
  local sudo=""
  if [ "$(id -u)" -ne 0 ]; then
    sudo="sudo"
  fi
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# Configures (once) and builds the tree into build/.
orvane_build() {
  local generator=()
  if [ ! -f build/CMakeCache.txt ]; then
    generator=(-G Ninja)
  fi
  cmake -S . -B build "${generator[@]}" -DCMAKE_BUILD_TYPE=Release
  cmake --build build -j"$(nproc)"
}

# Configures (once) and builds the tests into build-sanitize/ with AddressSanitizer and
# UndefinedBehaviorSanitizer: clang when installed, else gcc; a Debug build (assertions on, and it
# links the way a developer's debug build does: unoptimised, so odr-used constants need definitions).
orvane_build_sanitized() {
  local flags="-O0 -g -fno-omit-frame-pointer -fsanitize=address,undefined -fno-sanitize-recover=all"
  local compiler=(-DCMAKE_CXX_COMPILER=g++)
  if command -v clang++ >/dev/null 2>&1; then
    compiler=(-DCMAKE_CXX_COMPILER=clang++)
  fi
  local generator=()
  if [ ! -f build-sanitize/CMakeCache.txt ]; then
    generator=(-G Ninja "${compiler[@]}")
  fi
  cmake -S . -B build-sanitize "${generator[@]}" -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS="$flags" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
    -DCMAKE_SHARED_LINKER_FLAGS="-fsanitize=address,undefined" -DORVANE_BUILD_BENCHMARKS=OFF
  cmake --build build-sanitize -j"$(nproc)"
}
