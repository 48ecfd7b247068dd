#!/usr/bin/env bash
# The built program at rest with an open port, the virtual instrument on its other end: how much processor time it takes.
# Reads BUILD_FOLDER; SECONDS_IDLE tells how long it is watched.
cd "$(dirname "$0")/.."
source scripts/common.sh

watched=${SECONDS_IDLE:-20}
home=$(mktemp -d)
finish() {
  [ -z "${program_pid:-}" ] || kill "$program_pid" 2>/dev/null || true
  stop_instrument
  wait 2>/dev/null || true
  rm -rf "$home"
}
trap finish EXIT

# Clock ticks of the process so far, in itself and for it in the kernel.
ticks() { sed 's/.*) //' "/proc/$program_pid/stat" | awk '{ print $12 + $13 }'; }
wake_ups() { awk '/^voluntary_ctxt_switches/ { print $2 }' "/proc/$program_pid/status"; }
port_open() { [ -n "$(find "/proc/$program_pid/fd" -lname "$port" 2>/dev/null)" ]; }

prepare_application "$home"
start_instrument "$home"
port=$(readlink -f "$home/ports/COM1")
CALIDORA_HOME=$home QT_QPA_PLATFORM=offscreen "$build_folder/src/calidora" >"$home/program.log" 2>&1 &
program_pid=$!
until port_open; do
  kill -0 "$program_pid" 2>/dev/null || { cat "$home/program.log" >&2; exit 1; }
  sleep 0.2
done
sleep 3 # the company is drawn, the start is over

ticks_before=$(ticks)
wake_ups_before=$(wake_ups)
sleep "$watched"
printf '%-44s%13s%13s%8s  %s\n' "Idle with an open port, $watched s" "$(($(ticks) - ticks_before)) ticks" '' '' \
  "0; a tick is $((1000 / $(getconf CLK_TCK))) ms; woken $(($(wake_ups) - wake_ups_before)) times"
