# Debian packages Orvane needs to build, test and look at its output. Sourced by the scripts.
ORVANE_PACKAGES=(
  build-essential cmake ninja-build ccache pkg-config
  qtbase5-dev qtbase5-dev-tools libqt5svg5-dev qttools5-dev qttools5-dev-tools qttranslations5-l10n
  libqwt-qt5-dev libtinyxml-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth fonts-dejavu-core
  librsvg2-bin poppler-utils imagemagick emf2svg
)

# Installs every missing package without prompts; does nothing when all are present.
orvane_install_deps() {
  local missing=()
  local p
  for p in "${ORVANE_PACKAGES[@]}"; do
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
