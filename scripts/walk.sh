#!/usr/bin/env bash
# Walks the built program through the central job, in its real window on a real pseudo-terminal: open, connect, read a
# parameter group, change values, write them in three passes (a bit field among them), read the whole instrument by banks,
# disconnect, leave. Prints what it did and saw, leaves pictures, and succeeds only if the company file and the
# instrument's memory hold what they must.
#
#   scripts/walk.sh [cable|modem] [folder]
#
# SPEED=n lets the program's clock run n times as fast; without it the pacing is the real one.
cd "$(dirname "$0")/.."
source scripts/common.sh

link=${1:-cable}
work=${2:-$build_folder/walk}
speed=${SPEED:-1}
home=$work/home
source scripts/screen.sh

plant='SUPERMERCATO AURORA'
room='CELLA CARNE'
group=G0201 # Temperature control
company_file=$home/Data/Demo.mdb
main='Calidora - Database'
console='Read/Write'
language=EN_English_2000 # the letters in the menus are English

company() { sqlite3 -readonly -cmd '.timeout 5000' "$company_file" "$@"; }
of_room="FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, IDInst) JOIN tbGroupsUser g USING (IDGrp)
  JOIN tbParam a ON a.mID = p.IDPar WHERE g.Name = '$plant' AND i.Name = '$room'"
events() { company "SELECT Count(*) FROM tbEvent WHERE Description LIKE '$1'"; }
logged() { [ "$(events "$1")" -ge "${2:-1}" ]; }
splash_there() { xdotool search --onlyvisible --pid "$program_pid" >/dev/null 2>&1; }
log_written() { compgen -G "$home/Log/Calidora_[0-9]*.log" >/dev/null; }

step "a screen of its own"
start_screen
saw "Xvfb on $DISPLAY"

step "a company and a plant"
prepare_application "$home"
start_instrument "$home" --link "$link" --speed "$speed"
saw "$instrument_ready, link over $link"
saw "company of $(company 'SELECT Count(*) FROM tbGroupsUser') groups, $(company 'SELECT Count(*) FROM tbInstrumentsUser') instruments, $(company 'SELECT Count(*) FROM tbParametersUser') parameters"

step "the program starts on the company"
start_program
if [ "$speed" = 1 ]; then
  wait_for 60 "the splash" splash_there
  shown 01-splash
fi
wait_for 60 "the main window on the company" window_there "$main: Demo.mdb"
step "the technician logs in"
log_in
shown 02-main

# How many rows of the tree lie before and at this one, among its siblings.
downs() { for _ in $(seq "$(company "$1")"); do printf 'Down '; done; }

step "the operator walks to $plant, $room, temperature control"
focus "$main"
# shellcheck disable=SC2046 # one key a word
keys Home $(downs "SELECT Count(*) FROM tbGroupsUser WHERE Name <= '$plant'") Right \
  $(downs "SELECT Count(*) FROM tbInstrumentsUser i JOIN tbGroupsUser g USING (IDGrp) WHERE g.Name = '$plant' AND i.Name <= '$room'") Right \
  $(downs "SELECT Count(DISTINCT p.IDParGrp) $of_room AND p.IDParGrp <= '$group'")
shown 03-parameters

step "the console connects over the $link"
choose "$main" 'alt+c w' "the console" window_there "$console"
shown 04-console
[ "$link" = modem ] || keys alt+f s
at_rest
choose "$console" 'alt+f c' "the start of the connection" logged '*** CONNECTION TO:%'
wait_for 90 "the connection" logged 'Connected.'
saw "$(company "SELECT Description FROM tbEvent LIMIT 1")"
shown 05-connected

step "reads the parameter group"
saw "values before: $(company "SELECT group_concat(Value) $of_room AND p.IDParGrp = '$group'")"
choose "$console" 'alt+c r' "the start of the read" logged '--- Reading process start ---'
wait_for 60 "two values" logged 'Parameter value:%' 2
picture 06-reading
wait_for 180 "the end of the read" logged '--- Reading process end ---'
saw "values after:  $(company "SELECT group_concat(Value) $of_room AND p.IDParGrp = '$group'")"

# What the instrument must hold for each parameter, as the catalogue's scale says, against what it does hold. Takes a
# condition on the parameters and how many there must be at least.
# A time is "hours:minutes:seconds", each of them perhaps with decimals.
parameters_of() {
  company -separator ' ' "SELECT p.IDPar, i.Address, m.mReadCmd, a.mAddr, a.mBitFirst, a.mBitCount, a.mType, p.State,
      CAST(round((CASE WHEN t.mTag LIKE 'TIME%' THEN
          p.Value * 3600 + substr(p.Value, instr(p.Value, ':') + 1) * 60
            + substr(p.Value, instr(p.Value, ':') + 1 + instr(substr(p.Value, instr(p.Value, ':') + 1), ':'))
        ELSE p.Value END - a.mLR) * (a.mHW-a.mLW) / (a.mHR-a.mLR) + a.mLW) AS INTEGER)
    FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, IDInst) JOIN tbGroupsUser g USING (IDGrp)
      JOIN tbParam a ON a.mID = p.IDPar JOIN tbParamType t ON t.mID = a.mKeyType JOIN tbInstMem m ON m.mID = a.mMemBank
    WHERE g.Name = '$plant' AND i.Name = '$room' AND a.mType IN ('BYTE', 'BIT') AND p.Value IS NOT NULL $1 ORDER BY p.IDPar"
}
compare_with_instrument() {
  local checked=0 id address command from first count type state expected answer byte
  while read -r id address command from first count type state expected; do
    answer=$(ask_instrument peek "$connected_group" "$address" "$command" "$from" 1)
    byte=$((16#${answer##* }))
    [ "$type" = BYTE ] || byte=$(((byte >> first) & ((1 << count) - 1)))
    [ "$byte" -eq "$expected" ] || wrong "$id: the company says $expected, the instrument holds $byte"
    [ "$state" -eq 0 ] || wrong "$id is still marked ($state)"
    checked=$((checked + 1))
  done < <(parameters_of "$1")
  saw "$checked parameters: the company file and the instrument's memory agree"
  [ "$checked" -ge "$2" ] || wrong "only $checked parameters compared, not $2"
}
connected_group=$(company "SELECT IDGrp FROM tbGroupsUser WHERE Name = '$plant'")
compare_with_instrument "AND p.IDParGrp = '$group'" 15

step "changes four values, a bit field among them"
change() {
  sqlite3 -cmd '.timeout 5000' "$company_file" "UPDATE tbParametersUser SET Value = '$2', State = 1
    WHERE IDGrp = $connected_group AND IDPar = '$1'
      AND IDInst = (SELECT IDInst FROM tbInstrumentsUser WHERE IDGrp = $connected_group AND Name = '$room')"
  saw "$1 becomes $2"
}
change P020101 1.5
change P020106 22:30:00
change P020110 1
change P020113 90

step "writes them in three passes"
choose "$console" 'alt+c w' "the start of the write" logged '--- Writing process start ---'
wait_for 60 "the second pass" logged '--- Step 2/3%'
picture 07-writing
wait_for 180 "the end of the write" logged '--- Writing process end ---'
shown 08-written
saw "$(events OK) of 4 checks came back OK"
[ "$(events OK)" -eq 4 ] || wrong "not every check came back OK"
compare_with_instrument "AND p.IDParGrp = '$group'" 15

step "reads the whole instrument by banks on the same connection"
choose "$console" 'alt+f e' "the console's end" window_gone "$console"
focus "$main"
keys Left
at_rest
choose "$main" 'alt+c w' "the console" window_there "$console"
banks=$(company "SELECT Count(DISTINCT a.mMemBank) $of_room")
choose "$console" 'alt+c r' "the start of the bank read" logged '--- Reading process start ---' 2
wait_for 180 "the end of the bank read" logged '--- Reading process end ---' 2
decoded=$(events 'Parameter value: OK')
saw "$banks banks requested, $decoded decoded"
[ "$decoded" -eq "$banks" ] || wrong "not every bank was decoded"
shown 09-banks
compare_with_instrument '' 60

step "disconnects"
disconnecting() { log_written || logged '*** DISCONNECTION TO:%'; }
no_events() { [ "$(events '%')" -eq 0 ]; }
choose "$console" 'alt+f d' "the start of the disconnection" disconnecting
wait_for 60 "the log file" log_written
wait_for 10 "the emptying of the events" no_events
shown 10-disconnected
saw "log file of $(cat "$home"/Log/Calidora_[0-9]*.log | wc -l) lines, $(company 'SELECT Count(*) FROM tbEvent') events left in the company"
choose "$console" 'alt+f e' "the console's end" window_gone "$console"
focus "$main"
# shellcheck disable=SC2046
keys $(downs "SELECT Count(DISTINCT p.IDParGrp) $of_room AND p.IDParGrp <= '$group'")
shown 11-main-with-new-values

step "leaves"
focus "$main"
keys alt+f e
wait_for 10 "the question" window_there '^Calidora$'
shown 12-question
keys Return
wait_for_end
saw "$(ask_instrument status)"
[ "$(company 'PRAGMA integrity_check')" = ok ] || wrong "the company file is damaged"
! compgen -G "$home/Log/Calidora_Error_*" >/dev/null || wrong "failure reports: $(ls "$home"/Log/Calidora_Error_*)"
verdict
