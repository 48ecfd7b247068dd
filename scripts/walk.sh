#!/usr/bin/env bash
# Walks the built program through the central job, in its real window on a real pseudo-terminal: open, connect, read a
# parameter group, change values, write them in three passes (a bit field among them), read the whole instrument by banks,
# disconnect, leave. Prints what it did and saw, leaves pictures, and succeeds only if the company file and the
# instrument's memory hold what they must.
#
#   scripts/walk.sh [cable|modem] [folder]
#
# SPEED=n lets the program's clock run n times as fast (under faketime); without it the pacing is the real one.
cd "$(dirname "$0")/.."
source scripts/common.sh

link=${1:-cable}
work=${2:-$build_folder/walk}
speed=${SPEED:-1}
home=$work/home
pictures=$work/pictures
plant='SUPERMERCATO AURORA'
room='CELLA CARNE'
group=G0201 # Temperature control

rm -rf "$work"
mkdir -p "$pictures"
home_company=$home/Data/Demo.mdb
failures=0

finish() {
  [ -z "${program_pid:-}" ] || kill "$program_pid" 2>/dev/null || true
  stop_instrument
  for pid in ${window_manager_pid:-} ${screen_pid:-}; do kill "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
}
trap finish EXIT

step() { printf '\n%s\n' "--- $*"; }
saw() { printf '    %s\n' "$*"; }
wrong() {
  printf '    WRONG: %s\n' "$*"
  failures=$((failures + 1))
}
give_up() {
  wrong "$*"
  picture gave-up
  cat "$work/program.log" >&2 || true
  exit 1
}

company() { sqlite3 -readonly -cmd '.timeout 5000' "$home_company" "$@"; }

# Looks again and again until the command succeeds; gives up after so many seconds.
wait_for() {
  local seconds=$1 what=$2 until
  shift 2
  until=$((SECONDS + seconds))
  until "$@"; do
    [ $SECONDS -lt $until ] || give_up "$what did not come within $seconds s"
    kill -0 "$program_pid" 2>/dev/null || give_up "the program ended while waiting for $what"
    sleep 0.1
  done
}

picture() {
  import -window root "$pictures/$1.png" && saw "picture $pictures/$1.png"
}

window_there() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
window_gone() { ! window_there "$1"; }
keys() {
  for key in "$@"; do
    xdotool key --clearmodifiers "$key"
    sleep 0.3
  done
}
event_logged() { [ "$(company "SELECT Count(*) FROM tbEvent WHERE Description LIKE '$1'")" -gt "${2:-0}" ]; }
log_written() { compgen -G "$home/Log/Calidora_[0-9]*.log" >/dev/null; }

step "a company and a plant"
prepare_application "$home"
start_instrument "$home" --link "$link" --speed "$speed"
saw "$instrument_ready, link over $link"
saw "company of $(company 'SELECT Count(*) FROM tbGroupsUser') groups, $(company 'SELECT Count(*) FROM tbInstrumentsUser') instruments, $(company 'SELECT Count(*) FROM tbParametersUser') parameters"

step "a screen of its own"
Xvfb -displayfd 6 -screen 0 1280x900x24 -nolisten tcp 6>"$work/display" 2>/dev/null &
screen_pid=$!
until [ -s "$work/display" ]; do sleep 0.1; done
export DISPLAY=:$(cat "$work/display")
openbox --sm-disable >/dev/null 2>&1 &
window_manager_pid=$!
saw "Xvfb on $DISPLAY"

step "the program starts on the company"
under_clock=()
[ "$speed" = 1 ] || under_clock=(faketime -f "+0 x$speed")
CALIDORA_HOME=$(cd "$home" && pwd) "${under_clock[@]}" "$build_folder/src/calidora" >"$work/program.log" 2>&1 &
program_pid=$!
sleep 1
picture 01-splash
wait_for 60 "the main window on the company" window_there 'Calidora - Database: Demo.mdb'
sleep 1
picture 02-main

step "the operator walks to $plant, $room, temperature control"
xdotool search --onlyvisible --name 'Calidora - Database' windowactivate --sync
xdotool type "${plant:0:8}"
sleep 1
keys Right Down Right Down
sleep 0.5
picture 03-parameters

step "the console connects over the $link"
keys alt+c w
wait_for 20 "the console" window_there 'Read/Write'
sleep 0.5
picture 04-console
[ "$link" = modem ] || keys alt+f s
keys alt+f c
wait_for 90 "the connection" event_logged 'Connected.'
saw "$(company "SELECT Description FROM tbEvent LIMIT 1")"
sleep 1
picture 05-connected

step "reads the parameter group"
before=$(company "SELECT group_concat(Value) FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, IDInst) WHERE i.Name='$room' AND IDGrp=1 AND IDParGrp='$group'")
keys alt+c r
sleep 12
picture 06-reading
wait_for 120 "the end of the read" event_logged '--- Reading process end ---'
saw "values before: $before"

# What the instrument must hold for each parameter of a group, as the catalogue's scale says; compared with its memory.
parameters_of() {
  company -separator ' ' "SELECT p.IDPar, i.Address, m.mReadCmd, a.mAddr, a.mBitFirst, a.mBitCount, a.mType, p.State,
      CASE WHEN t.mTag LIKE 'TIME%' THEN
        CAST((substr(p.Value,1,2)*3600 + substr(p.Value,4,2)*60 - a.mLR) * (a.mHW-a.mLW) / (a.mHR-a.mLR) + a.mLW AS INTEGER)
      ELSE CAST(round((p.Value - a.mLR) * (a.mHW-a.mLW) / (a.mHR-a.mLR) + a.mLW) AS INTEGER) END
    FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, IDInst) JOIN tbParam a ON a.mID = p.IDPar
      JOIN tbParamType t ON t.mID = a.mKeyType JOIN tbInstMem m ON m.mID = a.mMemBank
    WHERE i.Name = '$room' AND p.IDGrp = 1 AND a.mType IN ('BYTE', 'BIT') AND p.Value IS NOT NULL $1 ORDER BY p.IDPar"
}
compare_with_instrument() {
  local checked=0 id address command from first count type state expected answer byte
  while read -r id address command from first count type state expected; do
    answer=$(ask_instrument peek 1 "$address" "$command" "$from" 1)
    byte=$((16#${answer##* }))
    [ "$type" = BYTE ] || byte=$(((byte >> first) & ((1 << count) - 1)))
    [ "$byte" -eq "$expected" ] || wrong "$id: the company says $expected, the instrument holds $byte"
    [ "$state" -eq 0 ] || wrong "$id is still marked ($state)"
    checked=$((checked + 1))
  done < <(parameters_of "$1")
  saw "$checked parameters: the company file and the instrument's memory agree"
  [ "$checked" -ge "$2" ] || wrong "only $checked parameters compared, not $2"
}
compare_with_instrument "AND p.IDParGrp = '$group'" 15

step "changes four values, a bit field among them"
change() {
  sqlite3 -cmd '.timeout 5000' "$home_company" "UPDATE tbParametersUser SET Value = '$2', State = 1
    WHERE IDGrp = 1 AND IDPar = '$1' AND IDInst = (SELECT IDInst FROM tbInstrumentsUser WHERE IDGrp = 1 AND Name = '$room')"
  saw "$1 becomes $2"
}
change P020101 1.5
change P020106 22:30:00
change P020110 1
change P020113 90

step "writes them in three passes"
keys alt+c w
sleep 5
picture 07-writing
wait_for 180 "the end of the write" event_logged '--- Writing process end ---'
sleep 1
picture 08-written
saw "$(company "SELECT Count(*) FROM tbEvent WHERE Description = 'OK'") of 4 checks came back OK"
[ "$(company "SELECT Count(*) FROM tbEvent WHERE Description = 'OK'")" -eq 4 ] || wrong "not every check came back OK"
compare_with_instrument "AND p.IDParGrp = '$group'" 15

step "reads the whole instrument by banks on the same connection"
keys alt+f e
wait_for 10 "the console's end" window_gone 'Read/Write'
keys Left Left
keys alt+c w
wait_for 20 "the console" window_there 'Read/Write'
banks=$(company "SELECT Count(DISTINCT a.mMemBank) FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, IDInst) JOIN tbParam a ON a.mID = p.IDPar WHERE IDGrp = 1 AND i.Name = '$room'")
keys alt+c r
wait_for 120 "the end of the bank read" event_logged '--- Reading process end ---' 1
saw "$banks banks requested, $(company "SELECT Count(*) FROM tbEvent WHERE Description = 'Parameter value: OK'") decoded"
[ "$(company "SELECT Count(*) FROM tbEvent WHERE Description = 'Parameter value: OK'")" -eq "$banks" ] || wrong "not every bank was decoded"
picture 09-banks
compare_with_instrument '' 60

step "disconnects"
keys alt+f d
wait_for 60 "the log file" log_written
sleep 1
picture 10-disconnected
saw "log file of $(cat "$home"/Log/Calidora_[0-9]*.log | wc -l) lines, $(company 'SELECT Count(*) FROM tbEvent') events left in the company"
keys alt+f e
wait_for 10 "the console's end" window_gone 'Read/Write'
picture 11-main-with-new-values

step "leaves"
keys alt+F4
sleep 1
picture 12-question
keys Return
tail --pid="$program_pid" -f /dev/null &
wait_for_end=$!
until ! kill -0 "$program_pid" 2>/dev/null; do
  [ $SECONDS -lt 3600 ] && sleep 0.2
done
kill "$wait_for_end" 2>/dev/null || true
wait "$program_pid" && saw "the program ended by itself" || wrong "the program ended with a failure"
program_pid=
saw "$(ask_instrument status)"
[ "$(company 'PRAGMA integrity_check')" = ok ] || wrong "the company file is damaged"
compgen -G "$home/Log/Calidora_Error_*" >/dev/null && wrong "failure reports: $(ls "$home"/Log/Calidora_Error_*)"

printf '\n%s\n' "pictures: $pictures"
if [ $failures -gt 0 ]; then
  say "the walk saw $failures thing(s) that must not be"
  exit 1
fi
say "the walk saw everything as it must be"
