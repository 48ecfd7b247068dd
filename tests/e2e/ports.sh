#!/usr/bin/env bash
# The built program and ports that are not what they should be: missing, held by another program, pulled out while open.
# Each gives its box and the program goes on. Last, two programs that are started at once: one stays. Tells, too, what the program costs while it sits on an open port.
#
#   tests/e2e/ports.sh [folder]
cd "$(dirname "$0")/../.."
source scripts/common.sh

work=${1:-$build_folder/ports}
home=$work/home
source scripts/screen.sh

main='Calidora - Database'
box='^Calidora$'
language=EN_English_2000

step "a screen and a company"
start_screen
prepare_application "$home"
link=$home/ports/COM1
saw "Xvfb on $DISPLAY"

# The splash may bear the box's title: first the main window, then the box in front of it.
the_box() {
  wait_for 60 "the main window" window_there "$main"
  type_the_login # the port opens behind it, and its box comes up at once
  wait_for 20 "the box" window_there "$box"
}
goes_on() {
  focus "$box"
  keys Return
  wait_for 10 "the box's end" window_gone "$box"
  window_there "$main" || wrong "the main window is gone"
}
refuses_the_console() {
  focus "$main"
  keys Down alt+c w
  wait_for 10 "the refusal of the console" window_there "$box"
  shown "$1"
  goes_on
}
leave() {
  focus "$main"
  keys alt+f e
  wait_for 10 "the question" window_there "$box"
  keys Return
  wait_for_end
}
reports() { compgen -G "$home/Log/Calidora_Error_*" >/dev/null; }

step "a port that is missing"
ln -s nowhere "$link"
start_program
the_box
shown 01-missing
goes_on
keys shift+Tab # from the list to the tree
refuses_the_console 02-no-console
leave

step "a port that another program holds"
rm "$link"
bound_to_me socat "pty,raw,echo=0,link=$link" "pty,raw,echo=0" &
line_pid=$!
wait_for 10 "the line" test -e "$link"
mkfifo "$work/hold"
bound_to_me "$build_folder/tests/e2e/calidora-e2e-holder" "$home" <"$work/hold" >"$work/holder.out" &
exec 9>"$work/hold"
held() { grep -q held "$work/holder.out"; }
wait_for 10 "the other program" held
start_program
the_box
shown 03-held
goes_on
leave
exec 9>&-

step "a port that is pulled out while open"
! reports || wrong "a failure report before anything failed"
start_program
wait_for 60 "the main window" window_there "$main"
log_in
shown 04-open
ticks() { awk '{ print $14 + $15 }' "/proc/$program_pid/stat"; }
before=$(ticks)
sleep 5 # nothing to wait for: this is what is measured
used=$(($(ticks) - before))
saw "idle on the open port the program used $used of $((5 * $(getconf CLK_TCK))) ticks of processor time"
[ "$used" -lt "$(getconf CLK_TCK)" ] || wrong "that is not idle"
kill "$line_pid"
wait_for 10 "the box" window_there "$box"
shown 05-vanished
goes_on
ln -sfn nowhere "$link" # as a link to an adapter stays behind: without it COM1 is the machine's own
wait_for 10 "the failure report" reports
grep -qh 'vanished' "$home"/Log/Calidora_Error_* || wrong "the report does not say what happened"
refuses_the_console 06-no-console
leave
step "two programs started at once"
rm -f "$link"
bound_to_me socat "pty,raw,echo=0,link=$link" "pty,raw,echo=0" &
line_pid=$!
wait_for 10 "the line" test -e "$link"
settings=$(md5sum <"$home/Calidora.ini")
start_program
first_pid=$program_pid
start_program
second_pid=$program_pid
wait_for 60 "the main window" window_there "$main"
wait_for 20 "the refusal" window_there "$box"
shown 07-twice
focus "$box"
keys Return
wait_for 10 "the box's end" window_gone "$box"
log_in
one_left() {
  program_pid=$first_pid
  ! program_ended || program_pid=$second_pid
  [ "$program_pid" = "$first_pid" ] || { ! program_ended; return; }
  ! kill -0 "$second_pid" 2>/dev/null
}
wait_for 10 "the end of one of them" one_left
window_there "$main" || wrong "the main window went with the other program"
[ "$(md5sum <"$home/Calidora.ini")" = "$settings" ] || wrong "the one that was refused wrote the settings"
leave
kill "$line_pid"
[ "$(sqlite3 "$home/Data/Demo.mdb" 'PRAGMA integrity_check')" = ok ] || wrong "the company file is damaged"
verdict
