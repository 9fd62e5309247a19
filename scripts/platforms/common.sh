# What the scripts of this folder share; they read it with the shell's dot command.
#
# Each script builds and tests one platform below build/platforms/ and writes its rows to build/platforms/rows.d/<script>:
# platform, compiler, flags, tests passed, golden cases equal, differences attributed to the math library.
set -eu

root=$(cd "$(dirname "$0")/../.." && pwd)
platforms=$root/build/platforms
rows=$platforms/rows.d/$(basename "$0")

# setup [TASK]: installs the packages that are missing and takes the rows of an earlier run away.
setup() {
  "$root"/scripts/setup "${1:-platforms}"
  cd "$root"
  . scripts/fast-builds
  mkdir -p "$platforms/rows.d"
  : >"$rows"
}

# add_row PLATFORM COMPILER FLAGS TESTS GOLDEN LIBM
add_row() {
  printf '| %s | %s | %s | %s | %s | %s |\n' "$@" >>"$rows"
  tail -n 1 "$rows"
}

# compiler_of BUILD: the name and version of the compiler, as CMake found it
compiler_of() {
  cat "$1"/CMakeFiles/*/CMakeCXXCompiler.cmake |
    sed -n -e 's/^set(CMAKE_CXX_COMPILER_ID "\(.*\)")/\1/p' -e 's/^set(CMAKE_CXX_COMPILER_VERSION "\(.*\)")/\1/p' |
    sed -e 's/^GNU$/g++/' -e 's/^Clang$/clang++/' | paste -s -d ' '
}

# tests_of LOG...: "N of M" tests of the GoogleTest programs whose output stands in the logs, whether ctest ran the tests
# one by one or a program at a time. Skipped are the tests of kernels for instruction sets that the platform lacks.
tests_of() {
  cat "$@" | tr -d '\r' | awk '
    /^\[  PASSED  \]/ {passed += $4}
    /^\[  SKIPPED \].* listed below/ {skipped += $4}
    /^\[==========\].* ran\./ {all += $2}
    END {print passed + 0 " of " all - skipped (skipped ? ", " skipped " skipped" : "")}'
}

# golden_lines LOG: the output of alidade-verify with the golden files, out of its own log or that of ctest
golden_lines() { tr -d '\r' <"$1" | awk '/^[0-9]+\/[0-9]+ Testing: / {other = $3 != "alidade_verify"} !other'; }

# golden_of LOG: "N of M" equal cases
golden_of() { golden_lines "$1" | awk '$1 == "all" && NF == 5 {r = $3 " of " $2} END {print r == "" ? "-" : r}'; }

# libm_of LOG: the number of differences attributed to the math library, and the functions it answers differently
libm_of() {
  golden_lines "$1" | awk '
    $1 == "all" && NF == 5 {r = $5}
    /^math library: .* answered differently: / {
      sub(/.*answered differently: /, "")
      gsub(/ [0-9]+/, "")
      functions = " (" $0 ")"
    }
    END {print r == "" ? "-" : r functions}'
}

# test_build PLATFORM FLAGS BUILD [CTEST ARGUMENTS]: runs the tests of a finished build and adds its row
test_build() {
  platform=$1 flags=$2 build=$3
  shift 3
  result=0
  ctest --test-dir "$build" --output-on-failure --no-tests=error -j "$(nproc)" "$@" || result=$?
  log=$build/Testing/Temporary/LastTest.log
  add_row "$platform" "$(compiler_of "$build")" "$flags" "$(tests_of "$log")" "$(golden_of "$log")" "$(libm_of "$log")"
  return "$result"
}

# configure BUILD [CMAKE ARGUMENTS]: as in a new directory, but objects that are up to date stay
configure() {
  rm -f "$1/CMakeCache.txt"
  build=$1
  shift
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@"
}

# make_fresh_cases: a fresh round of cases in build/platforms/fresh, made natively by the literal versions
make_fresh_cases() {
  configure "$platforms/native" -DALIDADE_BUILD_EXAMPLES=OFF >/dev/null
  cmake --build "$build" --target alidade-golden
  "$build/tests/golden/generate/alidade-golden" --rounds 1 1 "$platforms/fresh"
}

# try_package BUILD [CMAKE ARGUMENTS]: installs a finished build; a consumer must find the package and run, and the installed
# alidade-verify must start.
try_package() {
  build=$1
  shift
  cmake --install "$build" --prefix "$build/installed" >/dev/null
  cmake -S "$root/tests/package/consumer" -B "$build/consumer" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_PREFIX_PATH="$build/installed" -DCMAKE_RUNTIME_OUTPUT_DIRECTORY="$build/installed/bin" "$@"
  cmake --build "$build/consumer"
  ctest --test-dir "$build/consumer" --output-on-failure --no-tests=error
}

# verify PLATFORM BUILD PROGRAMS FLAGS: runs the alidade-verify of the build PROGRAMS with the library of BUILD and adds its
# row. They are the same build, or libraries in their place are found by LD_LIBRARY_PATH before those linked with.
verify() {
  result=0
  if [ "$2" != "$3" ]; then
    readelf -d "$3/tools/alidade-verify" | grep -q RUNPATH || return 1
  fi
  LD_LIBRARY_PATH=$2/src ctest --test-dir "$3" --output-on-failure --no-tests=error -R '^alidade_verify$' || result=1
  log=$3/Testing/Temporary/LastTest.log
  add_row "$1" "$(compiler_of "$2")" "$4" - "$(golden_of "$log")" "$(libm_of "$log")"
  return "$result"
}

# verify_flags PLATFORM PROGRAMS FLAGS [CMAKE ARGUMENTS]: a row for the library compiled with other flags. Shared, it is
# put under the alidade-verify of the build PROGRAMS; otherwise that is compiled and linked with it anew.
verify_flags() {
  platform=$1 programs=$2 flags=$3
  shift 3
  echo "== $platform $flags"
  configure "$programs$(printf '%s' "$flags" | tr -c 'a-zA-Z0-9\n' -)" -DCMAKE_CXX_FLAGS_RELEASE="$flags" "$@" \
    >/dev/null || return 1
  cmake --build "$build" --target alidade || return 1
  if [ -f "$build/src/libalidade.so" ] && [ -f "$programs/src/libalidade.so" ]; then
    verify "$platform" "$build" "$programs" "$flags"
  else
    cmake --build "$build" --target alidade-verify || return 1
    verify "$platform" "$build" "$build" "$flags"
  fi
}

# verify_levels PLATFORM PROGRAMS "FLAGS ..." [CMAKE ARGUMENTS]: verify_flags for each level of optimisation
verify_levels() {
  platform=$1 programs=$2 levels=$3
  shift 3
  for level in $levels; do
    verify_flags "$platform" "$programs" "$level" "$@" || return 1
  done
}

# cross PLATFORM TOOLCHAIN [CMAKE ARGUMENTS]: configures, builds and tests for another processor; other levels of
# optimisation run alidade-verify
cross() {
  setup
  platform=$1 toolchain=$2
  shift 2
  make_fresh_cases
  echo "== $platform"
  set -- -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchains/$toolchain.cmake" \
    -DALIDADE_GTEST_SOURCE_DIR=/usr/src/googletest -DALIDADE_TEST_TIMEOUT=3000 -DALIDADE_BUILD_EXAMPLES=OFF \
    -DALIDADE_FRESH_CASES="$platforms/fresh" "$@"
  configure "$platforms/$toolchain" -DCMAKE_CXX_FLAGS_RELEASE=-O2 "$@"
  cmake --build "$build"
  test_build "$platform" -O2 "$build"
  try_package "$build" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchains/$toolchain.cmake"
  verify_levels "$platform" "$build" "-O0 -Os -O3" "$@"
}
