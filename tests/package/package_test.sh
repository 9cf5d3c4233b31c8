#!/usr/bin/env bash
# The installation as a stranger meets it: installs into a temporary folder, builds examples/embed
# there through find_package and the host of docs/embedding.md through pkg-config, imports a database
# with both, looks at the exported symbols, and builds the Debian packages.
# Usage: package_test.sh BUILD-FOLDER SOURCE-FOLDER
#
# No `| grep -q`: it ends before what it reads from, which then counts as failed.
set -euo pipefail
build=$1
source=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAILED: $*"; exit 1; }

prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" > "$work/install.log" || { cat "$work/install.log"; fail "install"; }
libdir=$(dirname "$(find "$prefix" -name libodbcimport.so)")
[ -L "$libdir/libodbcimport.so.0" ] || fail "libodbcimport.so.0 is not a versioned link"
[ -f "$libdir/odbcimport/msgtext.dll" ] || fail "no message library"

# Sanitizer builds of the libraries need the same runtime in the program that loads them.
flags=
if nm -D "$libdir/libodbcimport.so" | grep __asan > /dev/null; then flags=-fsanitize=address,undefined; fi

sqlite3 "$work/shop.db" 'CREATE TABLE customer(id INTEGER PRIMARY KEY, name VARCHAR(40) NOT NULL);
  CREATE TABLE purchase(id INTEGER PRIMARY KEY, customer_id INTEGER REFERENCES customer(id));
  CREATE VIEW names AS SELECT name FROM customer;'
check_host() { # program
  ASAN_OPTIONS=detect_leaks=0 LD_LIBRARY_PATH=$libdir "$1" "Driver=SQLite3;Database=$work/shop.db" > "$work/out.txt" 2> "$work/err.txt" ||
    { code=$?; cat "$work/out.txt" "$work/err.txt"; fail "$1 ended with $code"; }
  grep -q '^table customer$' "$work/out.txt" || { cat "$work/out.txt"; fail "no table customer"; }
  grep -q '^  \*id INTEGER' "$work/out.txt" || { cat "$work/out.txt"; fail "no key column"; }
  grep -q '^view names$' "$work/out.txt" || { cat "$work/out.txt"; fail "no view"; }
}

echo "find_package, outside of the tree"
cp -r "$source/examples/embed" "$work/embed"
[ "$(wc -l < "$work/embed/main.cpp")" -lt 150 ] || fail "the example has 150 lines or more"
cmake -G Ninja -S "$work/embed" -B "$work/embed/build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_FLAGS="$flags" > "$work/embed.log" &&
  cmake --build "$work/embed/build" >> "$work/embed.log" 2>&1 || { cat "$work/embed.log"; fail "find_package build"; }
check_host "$work/embed/build/embed"

echo "pkg-config, and the host of docs/embedding.md"
export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046
page=$source/docs/embedding.md
line=$(sed -n '/^```sh$/,/^```$/s/^c++ .*/&/p' "$page")
sed -n '/^```cpp$/,/^```$/{/^```/!p}' "$page" > "$work/host.cpp"
(cd "$work" && eval "${line/c++ /c++ $flags }") || fail "the host of docs/embedding.md does not build: $line"
ASAN_OPTIONS=detect_leaks=0 LD_LIBRARY_PATH=$libdir "$work/host" "Driver=SQLite3;Database=$work/shop.db" "$work/host.json" \
  > "$work/host.txt" 2> "$work/host.err" || { code=$?; cat "$work/host.err"; fail "the host of docs/embedding.md ended with $code"; }
diff - "$work/host.txt" << END || fail "the host of docs/embedding.md prints something else"
table customer
  id INTEGER
  name VARCHAR not null
  key (id)
table purchase
  id INTEGER
  customer_id INTEGER
  key (id)
  (customer_id) -> customer (id)
view names
  name VARCHAR
END
grep -q '^  customer_id$\|^  purchase$' "$work/host.err" || { cat "$work/host.err"; fail "the host of docs/embedding.md hears of nothing"; }
ASAN_OPTIONS=detect_leaks=0 LD_LIBRARY_PATH=$libdir "$prefix/bin/wbimport" render "$work/host.json" > "$work/host.again" ||
  fail "the host's workbook file cannot be read"
cmp "$work/host.json" "$work/host.again"

echo "wbimport from the installation, which finds its libraries, and none in the folder that it is started in"
for file in "$prefix/bin/wbimport" "$libdir"/*.so "$libdir"/odbcimport/* "$build/host/wbimport" "$build"/lib/*.so; do
  path=$(readelf -d "$file" | sed -nE 's/.*\((RPATH|RUNPATH)\).*\[(.*)\]/:\2:/p')
  [[ $path != *::* ]] || fail "$file takes libraries from the folder that a program is started in: $path"
done
ASAN_OPTIONS=detect_leaks=0 "$prefix/bin/wbimport" import --sqlite "$work/shop.db" --format json > "$work/shop.json" ||
  fail "wbimport ended with $?"
grep -q '"purchase"' "$work/shop.json" || fail "wbimport imported nothing"
ASAN_OPTIONS=detect_leaks=0 LD_LIBRARY_PATH=$libdir "$prefix/bin/wbimport" info --sample informix > "$work/info.txt" || fail "the installed simulator does not load"

echo "exported symbols"
# Allowed: the exported classes, the module's start-up, the platform interface, and what the C++ runtime and
# instrumentation add (type information of the exported classes, weak template code).
nm -DC --defined-only "$libdir/libodbcimport.so" | awk '$2 ~ /[TDBRVWui]/' | cut -d' ' -f3- |
  grep -vE '^(typeinfo( name)? for |vtable for |VTT for |guard variable for |construction vtable )' |
  grep -vE '^(non-virtual |virtual )?(thunk to )?(LcODBC[A-Za-z]*|LcWorkbook[A-Za-z]*|LcObject[A-Za-z]*|TPtrList[A-Za-z]*|TIterator|OdbcImport(Start|Stop|CheckConnection|CheckDialect|TryDialect|Dialects|FindUnsafeName)|platform::)' |
  grep -vE '^(void |bool |int |[a-z:_]+ )*(std::|__gnu_cxx::|operator |__asan|__ubsan|__sanitizer|__odr_asan|__gcov|__start_|__stop_|_init|_fini)' > "$work/symbols.txt" || true
[ ! -s "$work/symbols.txt" ] || { head -20 "$work/symbols.txt"; fail "symbols exported by accident"; }

if [ -n "$flags" ]; then
  echo "the Debian packages are built from builds without sanitizers only"
  exit 0
fi
if ! command -v dpkg-shlibdeps > /dev/null; then
  echo "SKIPPED: no Debian packages without dpkg-dev"
  exit 0
fi
echo "Debian packages"
(cd "$build" && cpack -G DEB -B "$work/deb" > "$work/cpack.log" 2>&1) || { tail -20 "$work/cpack.log"; fail "cpack"; }
for pair in "libodbcimport0_:usr/lib/.*libodbcimport.so.0" "libodbcimport-dev_:odbcimportConfig.cmake" "wbimport_:man1/wbimport.1"; do
  deb=$(echo "$work/deb/${pair%%:*}"*.deb)
  [ -f "$deb" ] || fail "no package ${pair%%:*}"
  dpkg-deb --contents "$deb" | grep "${pair#*:}" > /dev/null || { dpkg-deb --contents "$deb"; fail "$deb lacks ${pair#*:}"; }
done
dpkg-deb --field "$work"/deb/libodbcimport0_*.deb Depends | grep libodbc > /dev/null || fail "the library's package depends on no driver manager"
echo "packages: $(ls "$work/deb" | grep -c 'deb$')"
