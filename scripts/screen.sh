# A screen of its own with the program on it, and the hands and eyes for it: keys, windows, pictures. Sourced behind
# common.sh by what drives the real program. The caller sets `work` (a folder of its own) and `home` (the application
# folder), and may set `speed` and the size of the `screen`.

pictures=$work/pictures
speed=${speed:-1}
screen=${screen:-1280x900}
failures=0

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
verdict() {
  printf '\n%s\n' "pictures: $pictures"
  if [ "$failures" -gt 0 ]; then
    say "saw $failures thing(s) that must not be"
    exit 1
  fi
  say "everything was as it must be"
}

# Looks again and again until the command succeeds; gives up after so many seconds, and at once when the program has ended.
wait_for() {
  local seconds=$1 what=$2 until
  shift 2
  until=$((SECONDS + seconds))
  until "$@"; do
    [ $SECONDS -lt $until ] || give_up "$what did not come within $seconds s"
    kill -0 "${program_pid:-$$}" 2>/dev/null || give_up "the program ended while waiting for $what"
    sleep 0.1
  done
}

# Whatever is started here ends with this script, even when the script is killed.
start_screen() {
  unset QT_QPA_PLATFORM
  rm -rf "$work"
  mkdir -p "$pictures"
  trap clear_away EXIT
  bound_to_me Xvfb -displayfd 6 -screen 0 "${screen}x24" -nolisten tcp 6>"$work/display" 2>/dev/null &
  screen_pid=$!
  wait_for 30 "the virtual screen" test -s "$work/display"
  DISPLAY=:$(cat "$work/display")
  export DISPLAY
  bound_to_me openbox --sm-disable >/dev/null 2>&1 &
  window_manager_pid=$!
  wait_for 30 "the window manager" has_window_manager
}

has_window_manager() { xdotool get_num_desktops >/dev/null 2>&1; }

clear_away() {
  local pid
  for pid in ${program_pid:-} ${INSTRUMENT_PID:-} ${window_manager_pid:-} ${screen_pid:-}; do
    kill "$pid" 2>/dev/null || true
  done
  wait 2>/dev/null || true
}

# Its clock runs `speed` times as fast as the wall's.
start_program() {
  local clock=()
  # shellcheck disable=SC2016 # $LIB is the loader's
  [ "$speed" = 1 ] || clock=(env 'LD_PRELOAD=/usr/$LIB/faketime/libfaketime.so.1' FAKETIME="+0 x$speed")
  CALIDORA_HOME=$(cd "$home" && pwd) LC_ALL=C.UTF-8 bound_to_me "${clock[@]}" "$build_folder/src/calidora" \
    >>"$work/program.log" 2>&1 &
  program_pid=$!
}

program_ended() { ! kill -0 "$program_pid" 2>/dev/null; }
wait_for_end() {
  local until=$((SECONDS + 30))
  until program_ended; do
    [ $SECONDS -lt $until ] || give_up "the program goes on and on"
    sleep 0.1
  done
  if wait "$program_pid"; then saw "the program ended by itself"; else wrong "the program ended with a failure"; fi
  program_pid=
}

picture() { import -window root "$pictures/$1.png" && saw "picture $pictures/$1.png"; }

window_there() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
window_gone() { ! window_there "$1"; }
# Gives the keyboard to the window of that name.
focus() { xdotool search --onlyvisible --name "$1" windowactivate --sync >/dev/null 2>&1; }
keys() { xdotool key --clearmodifiers --delay 60 "$@"; }

# The login of the demo company, whose technician may do everything but edit the operators. Behind it the tree has the
# keyboard.
type_the_login() {
  wait_for 60 "the login" window_there 'LogOn-LogOff'
  at_rest
  focus 'LogOn-LogOff'
  keys T Return 1 2 3 4 Return
  wait_for 20 "the operator's name in the caption" window_there 'User: TECNICO'
}
log_in() {
  type_the_login
  focus 'User: TECNICO'
  keys shift+Tab
}

# Waits until the screen shows the same twice. What never rests, such as a clock, is waited for three seconds.
at_rest() {
  local before='' now until=$((SECONDS + 3))
  while [ $SECONDS -lt $until ]; do
    now=$(import -window root -depth 8 rgb:- | md5sum)
    [ "$now" != "$before" ] || return 0
    before=$now
    sleep 0.15
  done
}
shown() {
  at_rest
  picture "$1"
}

# A command of the window of that name by its letters in the menu, again if it was lost, until the condition holds.
choose() {
  local window=$1 letters=$2 what=$3 try
  shift 3
  for try in 1 2 3; do
    focus "$window" || true
    # shellcheck disable=SC2086 # one key a word
    keys $letters
    local until=$((SECONDS + 5))
    while [ $SECONDS -lt $until ]; do
      ! "$@" || return 0
      kill -0 "$program_pid" 2>/dev/null || give_up "the program ended while waiting for $what"
      sleep 0.1
    done
    keys Escape
  done
  give_up "$what did not come"
}
