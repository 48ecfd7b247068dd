# What ./run, ./test and .ci/run share. Sourced, from the project's folder.
set -euo pipefail

build_folder=${BUILD_FOLDER:-build}
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

build_packages=(cmake ninja-build g++ ccache qt6-base-dev qt6-serialport-dev qt6-svg-dev libsqlite3-dev
  libsqlitecpp-dev libgtest-dev libgmock-dev libbenchmark-dev)
run_packages=(libqt6widgets6 libqt6printsupport6 libqt6serialport6 libqt6svg6 qt6-translations-l10n libsqlite3-0
  fonts-dejavu-core fonts-liberation2 sqlite3)
screen_packages=(xvfb openbox xdotool imagemagick)
test_packages=(socat faketime iaxmodem poppler-utils cups cups-client)
package_packages=(dpkg-dev librsvg2-bin desktop-file-utils appstream lintian)
check_packages=(clang clang-format clang-tidy libclang-rt-14-dev)

say() { printf '==> %s\n' "$*"; }

# Installs what is missing of the packages named, and says so.
need() {
  local missing=()
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  say "installing ${missing[*]}"
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { say "not root and no sudo: install these packages first"; return 1; }
    as_root=(sudo)
  fi
  "${as_root[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Runs a command that is killed when this shell ends, whatever ends it.
bound_to_me() { exec setpriv --pdeathsig KILL "$@"; }

# Configures once, then builds what has changed. Arguments are targets; none builds all.
build() {
  say "building in $build_folder"
  [ -f "$build_folder/build.ninja" ] || cmake -S . -B "$build_folder" -G Ninja "${cmake_options[@]}" >"$build_folder.log" 2>&1 ||
    { cat "$build_folder.log"; return 1; }
  rm -f "$build_folder.log"
  cmake --build "$build_folder" ${1:+--target "$@"} -- --quiet
}
cmake_options=()

# Makes an application folder: the model of the instruments, the demo company, the settings that open it.
prepare_application() {
  local home=$1
  mkdir -p "$home/Data/Safety" "$home/Data Model" "$home/Log" "$home/ports"
  "$build_folder/catalogue/calidora-catalogue" model catalogue "$home/Data Model/Calidora_Model_Instrument.mdb"
  if [ ! -f "$home/Data/Demo.mdb" ]; then
    "$build_folder/catalogue/calidora-catalogue" demo catalogue "$demo_source" \
      "$home/Data Model/Calidora_Model_Instrument.mdb" "$home/Data/Demo.mdb"
  fi
  [ -f "$home/Calidora.ini" ] || write_settings "$home"
}
demo_source=catalogue/demo/freddopiano.txt

# The settings file is read by position: these lines stand in its own order.
write_settings() {
  local home
  home=$(cd "$1" && pwd)
  printf '%s\n' '[Language]' "ID=${language:-EN_English_2000}" '[Toolbar]' 'View=-1' 'Icons=-1' \
    '[ListBus]' 'View=3' 'Col1Width=-1' 'Col2Width=-1' 'Col3Width=-1' '[TreeBus]' 'Visible=-1' 'Width=-1' \
    '[Log]' 'DelLog=-1' 'DelLogRuntimeErr=-1' 'DelLogInstErr=-1' 'LogDays=180' \
    '[Database]' 'Name=Demo.mdb' "Path=$home/Data" '[Directory]' "Backup=$home/Data" "Export=$home/Log" \
    "Import=$home/Data" '[COMPort]' 'Port=0' 'Speed=3' 'DataBit=3' 'Parity=2' 'StopBit=0' 'FlowCtrl=0' >"$home/Calidora.ini"
}

# The virtual instrument as a process of its own on <home>/ports/COM1, its memory near to the company's but not the same.
# Its commands go to file descriptor 7, its answers come from 8. It calls in with the demo's alarms where alarm_calls is
# set; else nothing comes in between.
start_instrument() {
  local home=$1
  shift
  "$build_folder/catalogue/calidora-catalogue" memory catalogue "$demo_source" "$home/Data/Demo.mdb" "$home/instrument.txt"
  [ -n "${alarm_calls:-}" ] || sed -i '/^call /d' "$home/instrument.txt"
  rm -f "$home/ports/COM1"
  coproc INSTRUMENT { bound_to_me "$build_folder/instrument/calidora-instrument" --memory "$home/instrument.txt" --home "$home" "$@"; }
  exec 7>&"${INSTRUMENT[1]}" 8<&"${INSTRUMENT[0]}"
  read -r -u 8 -t 10 instrument_ready || { say "the instrument did not start"; return 1; }
}

# One command to the virtual instrument, and its answer.
ask_instrument() {
  printf '%s\n' "$*" >&7
  read -r -u 8 -t 10 answer || { say "the instrument does not answer to \"$*\"" >&2; return 1; }
  printf '%s\n' "$answer"
}

stop_instrument() {
  [ -z "${INSTRUMENT_PID:-}" ] || kill "$INSTRUMENT_PID" 2>/dev/null || true
}
