# Sourced by ./demo and ./test: the Debian packages of the project, in one place, and installing those
# that are missing. Asks the package lists for news only when something is missing.

PATH=$PATH:/usr/sbin:/sbin # which apt needs, and root lacks after a plain su

# To build the program and import the sample database.
packages_build=(
  g++ cmake ninja-build ccache pkg-config
  unixodbc unixodbc-dev libsqliteodbc libsqlite3-dev
  libfmt-dev nlohmann-json3-dev libutfcpp-dev libtomlplusplus-dev libcli11-dev libdtl-dev libgraphviz-dev
  libzstd-dev zlib1g-dev libsimdjson-dev libsodium-dev
)
# For what .ci/run looks at beside the demo and the tests.
packages_style=(clang clang-format)
# To build and run the tests that need nothing else.
packages_test=(git libgtest-dev libgmock-dev libbenchmark-dev python3 python3-jsonschema sqlite3 strace groff-base zsh fish)
# The servers and drivers of the real-server tests.
packages_real=(odbc-postgresql postgresql odbc-mariadb mariadb-server odbc-mdbtools mdbtools)
# The HTML test drives a real browser. Debian parts npm from node; node of another origin brings it.
packages_browser=(chromium nodejs)
command -v npm > /dev/null || packages_browser+=(npm)
# For what ./test checks beside the tests.
packages_checks=(cppcheck clang libclang-rt-14-dev)
# For ./test --long.
packages_long=(valgrind gcovr clang-tidy dpkg-dev debootstrap)

say() { printf '%s: %s\n' "$(basename "$0")" "$*"; }

is_installed() {
  [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# ensure_packages NAME... installs those that are not there yet, as root or through sudo. Asks the package
# lists for news only when something is missing.
ensure_packages() {
  local missing=() package as_root=()
  for package in "$@"; do is_installed "$package" || missing+=("$package"); done
  if [ ${#missing[@]} = 0 ]; then
    say "all Debian packages are there"
    return
  fi
  [ "$(id -u)" = 0 ] || as_root=(sudo)
  if [ "$(id -u)" = 0 ] || command -v sudo > /dev/null; then
    say "installs with apt-get: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq &&
      "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null && return
  fi
  say "cannot install what is missing. As root: apt-get install --no-install-recommends ${missing[*]}" >&2
  return 1
}

# Shows how far a build is: in one line that ninja rewrites on a terminal, else in a line for each tenth of
# the steps. What the compiler says passes.
show_progress() {
  local line done all tenth=0
  while IFS= read -r line; do
    if [[ $line =~ ^\[([0-9]+)/([0-9]+)\]\  ]]; then
      done=${BASH_REMATCH[1]} all=${BASH_REMATCH[2]}
      [ $((done * 10 / all)) != "$tenth" ] || continue
      tenth=$((done * 10 / all))
      say "$done of $all steps"
    elif [ "$line" != "ninja: no work to do." ]; then
      printf '%s\n' "$line"
    fi
  done
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
  local command=(cmake --build --preset "$preset" ${1:+--target "$@"})
  if [ -t 1 ]; then
    NINJA_STATUS='[%f of %t steps] ' "${command[@]}"
  else
    NINJA_STATUS='[%f/%t] ' "${command[@]}" | show_progress
  fi
}

# Brings playwright-core as locked. Without the registry the browser test is skipped, with a line that says so.
ensure_playwright() {
  local folder=tests/export/browser
  [ $folder/node_modules/.package-lock.json -nt $folder/package-lock.json ] ||
    npm ci --prefix $folder --fetch-retries=1 --no-audit --no-fund --silent ||
    say "npm brought no playwright-core: the browser test will be skipped" >&2
}
