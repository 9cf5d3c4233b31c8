# Sourced by ./demo and ./test: the Debian packages of the project, in one place, and installing those
# that are missing. Asks the package lists for news only when something is missing.

# To build the program and import the sample database.
packages_build=(
  g++ cmake ninja-build ccache
  unixodbc unixodbc-dev libsqliteodbc libsqlite3-dev
  libfmt-dev nlohmann-json3-dev libutfcpp-dev libtomlplusplus-dev libcli11-dev libgraphviz-dev
)
# To run every test: the servers and drivers of the real-server tests, the browser of the HTML test.
packages_test=(
  libgtest-dev libgmock-dev libbenchmark-dev python3
  odbc-postgresql postgresql odbc-mariadb mariadb-server odbc-mdbtools mdbtools
  chromium nodejs
  cppcheck clang libclang-rt-14-dev
  pkg-config sqlite3
  groff-base zsh fish
)
# For ./test --long.
packages_long=(valgrind gcovr clang-tidy dpkg-dev)

say() { printf '%s: %s\n' "$(basename "$0")" "$*"; }

# Runs a command as root: directly, or through sudo.
as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  elif command -v sudo > /dev/null; then
    sudo "$@"
  else
    say "needs root or sudo to run: $*" >&2
    return 1
  fi
}

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# ensure_packages NAME... installs those that are not there yet.
ensure_packages() {
  local missing=() package
  for package in "$@"; do is_installed "$package" || missing+=("$package"); done
  if [ ${#missing[@]} = 0 ]; then
    say "all Debian packages are there"
    return
  fi
  say "installs with apt-get: ${missing[*]}"
  as_root apt-get update -qq
  as_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
}

# build PRESET TARGET... configures where needed and builds; CONFIGURE holds options for a first
# configuration.
build() {
  local preset=$1
  shift
  if [ ! -f "build/$preset/build.ninja" ]; then
    say "configures build/$preset"
    cmake --preset "$preset" ${CONFIGURE:-} > /dev/null
  fi
  say "builds build/$preset (the first time takes minutes)"
  cmake --build --preset "$preset" ${1:+--target "$@"} -- --quiet | grep -v "^ninja: no work to do" || [ "${PIPESTATUS[0]}" = 0 ]
}

# Where node came without npm (as Debian's packages part them), npm is installed. Without the registry the
# browser test is skipped, with a line that says so.
ensure_browser_test() {
  command -v npm > /dev/null || ensure_packages npm
  [ -d tests/export/browser/node_modules ] ||
    npm ci --prefix tests/export/browser --no-audit --no-fund --silent ||
    say "npm brought no playwright-core: the browser test will be skipped" >&2
}
