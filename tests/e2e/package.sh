#!/usr/bin/env bash
# The Debian package as somebody gets it: made by ./package, installed by apt in a fresh root, its demo started from the
# command of its desktop entry by an ordinary user. An older version stands there first: walks the central job in it, starts
# the program itself for the first time, brings the new version with its newer catalogue over it, upgrades the company, and
# removes the package again.
#
#   FRESH_ROOT=yes tests/e2e/package.sh [folder]
#
# Without FRESH_ROOT, and where no fresh root can be made (it takes mmdebstrap and a Debian mirror), the package is unpacked
# beside and runs on the libraries of this machine.
cd "$(dirname "$0")/../.."
source scripts/common.sh

work=${1:-$build_folder/package-walk}
user=64321 # nobody's number
root=$work/root
source scripts/screen.sh
trap - EXIT

skip() {
  say "skipped: $*"
  exit 77
}
[ "$(id -u)" -eq 0 ] || skip "installing a package takes root"

fresh=
make_root() {
  [ -n "${FRESH_ROOT:-}" ] || { fresh_reason="FRESH_ROOT is not set"; return 1; }
  command -v mmdebstrap >/dev/null || { fresh_reason="mmdebstrap is not installed"; return 1; }
  local sources=/etc/apt/sources.list.d/debian.sources options=() file
  [ -e "$sources" ] || sources=/etc/apt/sources.list
  # How this machine reaches its mirror.
  for file in $(grep -ls '^Acquire' /etc/apt/apt.conf.d/* /etc/apt/apt.conf 2>/dev/null); do options+=(--aptopt="$file"); done
  fresh_reason="no fresh root: $(timeout 900 mmdebstrap --quiet --variant=apt "${options[@]}" bookworm "$root" "$sources" 2>&1 | tail -1)"
  [ -x "$root/usr/bin/apt-get" ]
}
in_root() { chroot "$root" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 "$@"; }
# Gives way to the program, as the user, in the user's session.
as_user() {
  local session=(HOME=/home/technician XDG_DATA_HOME= LC_ALL=C.UTF-8 DISPLAY="${DISPLAY:-}" PATH=/usr/bin:/bin "$@")
  if [ -n "$fresh" ]; then
    exec setpriv --pdeathsig TERM chroot --userspec="$user:$user" "$root" env -i "${session[@]}"
  fi
  session[0]=HOME=$(cd "$root" && pwd)/home/technician
  session[4]=PATH=$(cd "$root" && pwd)/usr/bin:/usr/bin:/bin
  exec setpriv --pdeathsig TERM --reuid "$user" --regid "$user" --clear-groups env -i "${session[@]}"
}
clear_all_away() {
  clear_away
  for part in dev/pts dev/shm dev proc; do ! mountpoint -q "$root/$part" || umount "$root/$part" || true; done
}
trap clear_all_away EXIT

step "the package"
./package
start_screen
trap clear_all_away EXIT
deb=$(ls -t "$build_folder"/package/calidora_*.deb | head -1)
saw "$(dpkg-deb -f "$deb" Package Version Architecture | tr '\n' ' ')"

# The package as an older version was: its catalogue knows one parameter less.
older=$work/older.deb
missing=P020115
unpacked=$work/older
dpkg-deb -R "$deb" "$unpacked"
sed -i 's/^Version: .*/Version: 0.0.1/' "$unpacked/DEBIAN/control"
newest=$(sqlite3 "$unpacked/usr/share/calidora/demo/Demo.mdb" 'SELECT Version FROM tbInfoDatabase')
for file in 'demo/Demo.mdb' 'Data Model/Calidora_Model_Instrument.mdb'; do
  sqlite3 "$unpacked/usr/share/calidora/$file" "DELETE FROM tbParametersUser WHERE IDPar = '$missing';
    DELETE FROM tbParamLanguage WHERE mID = '$missing'; DELETE FROM tbParam WHERE mID = '$missing'; SELECT Changes();
    UPDATE tbInfoDatabase SET Version = '0.1';" | grep -qx 1 || wrong "the catalogue has no $missing"
done
dpkg-deb --root-owner-group -b "$unpacked" "$older" >/dev/null

install_package() {
  local file=$1
  if [ -z "$fresh" ]; then
    dpkg-deb -x "$file" "$root"
    return
  fi
  cp "$file" "$root/tmp/"
  in_root apt-get install -y -qq --no-install-recommends "/tmp/${file##*/}" fonts-dejavu-core >>"$work/apt.log" 2>&1 ||
    { tail -20 "$work/apt.log"; give_up "apt does not install ${file##*/}"; }
  saw "apt has installed version $(in_root dpkg-query -W -f '${Version}' calidora)"
}

step "a fresh root, and an older version in it"
if make_root; then
  fresh=yes
  mount -t proc proc "$root/proc" && mount --bind /dev "$root/dev" && mount --bind /dev/pts "$root/dev/pts"
  # How this machine reaches its mirror, in there too.
  cp /etc/resolv.conf "$root/etc/" 2>/dev/null || true
  for file in $(grep -ls '^Acquire' /etc/apt/apt.conf.d/* /etc/apt/apt.conf 2>/dev/null); do cp "$file" "$root/etc/apt/apt.conf.d/"; done
  in_root apt-get update -qq
else
  say "$fresh_reason; the package is unpacked beside"
  mkdir -p "$root"
  chmod 755 "$work" "$root"
fi
install_package "$older"
mkdir -p "$root/home/technician"
chown "$user:$user" "$root/home/technician"
for name in calidora calidora-demo; do
  entry=$root/usr/share/applications/$name.desktop
  [ -x "$root/usr/bin/$(sed -n 's/^Exec=//p' "$entry")" ] || wrong "$name.desktop starts nothing"
  compgen -G "$root/usr/share/icons/hicolor/48x48/apps/$(sed -n 's/^Icon=//p' "$entry").png" >/dev/null || wrong "$name.desktop has no icon"
done

start_as_user() {
  as_user "$@" >>"$work/program.log" 2>&1 &
  program_pid=$!
}
data=$root/home/technician/.local/share
company_file=$data/calidora-demo/Data/Demo.mdb
company() { sqlite3 -cmd '.timeout 5000' "$company_file" "$@"; }
logged() { [ "$(company "SELECT Count(*) FROM tbEvent WHERE Description LIKE '$1'")" -ge "${2:-1}" ]; }
main='Calidora - Database'
console='Read/Write'

step "the demo, by its entry in the menu"
start_as_user calidora-demo
wait_for 90 "the main window on the demo company" window_there "$main: Demo.mdb"
log_in
shown 01-demo
[ -L "$data/calidora-demo/ports/COM1" ] || wrong "no instrument stands at COM1"

step "connects, reads a parameter group, writes a value and checks it"
plant='SUPERMERCATO AURORA' room='CELLA CARNE' group=G0201
of_room="FROM tbParametersUser p JOIN tbInstrumentsUser i USING (IDGrp, IDInst) JOIN tbGroupsUser g USING (IDGrp)
  WHERE g.Name = '$plant' AND i.Name = '$room'"
downs() { for _ in $(seq "$(company "$1")"); do printf 'Down '; done; }
focus "$main"
# shellcheck disable=SC2046 # one key a word
keys Home $(downs "SELECT Count(*) FROM tbGroupsUser WHERE Name <= '$plant'") Right \
  $(downs "SELECT Count(*) FROM tbInstrumentsUser i JOIN tbGroupsUser g USING (IDGrp) WHERE g.Name = '$plant' AND i.Name <= '$room'") Right \
  $(downs "SELECT Count(DISTINCT p.IDParGrp) $of_room AND p.IDParGrp <= '$group'")
at_rest
choose "$main" 'alt+c w' "the console" window_there "$console"
keys alt+f s
at_rest
choose "$console" 'alt+f c' "the start of the connection" logged '*** CONNECTION TO:%'
wait_for 90 "the connection" logged 'Connected.'
choose "$console" 'alt+c r' "the start of the read" logged '--- Reading process start ---'
wait_for 240 "the end of the read" logged '--- Reading process end ---'
shown 02-read
setpriv --reuid "$user" --regid "$user" --clear-groups sqlite3 -cmd '.timeout 5000' "$company_file" \
  "UPDATE tbParametersUser SET Value = '1.5', State = 1 WHERE IDPar = 'P020101' AND (IDGrp, IDInst) IN (SELECT p.IDGrp, p.IDInst $of_room)"
choose "$console" 'alt+c w' "the start of the write" logged '--- Writing process start ---'
wait_for 120 "the end of the write" logged '--- Writing process end ---'
logged OK || wrong "the check of the written value did not come back OK"
shown 03-written
[ "$(company "SELECT State || Value $of_room AND IDPar = 'P020101'")" = 01.5 ] || wrong "the written value is not kept"

leave() {
  focus "$main"
  keys alt+f e
  wait_for 20 "the question" window_there '^Calidora$'
  keys Return
  wait_for_end
}
step "leaves; the instrument ends with it and remembers"
choose "$console" 'alt+f e' "the console's end" window_gone "$console"
leave
[ ! -e "$data/calidora-demo/ports/COM1" ] || wrong "the instrument still stands at its port"
compgen -G "$data/calidora-demo/Log/Calidora_[0-9]*.log" >/dev/null || wrong "no log of the connection"
if compgen -G "$data/calidora-demo/Log/Calidora_Error_*" >/dev/null; then wrong "a failure was reported"; fi

step "the program's own first start"
start_as_user calidora
wait_for 90 "the choice of a language" window_there 'Language|lingua|Impostazione'
shown 04-language
focus 'Language|lingua|Impostazione'
keys Return
wait_for 60 "the main window" window_there '^Calidora$'
shown 05-first-start
for part in Data Data/Safety Log ports; do
  [ -d "$data/calidora/$part" ] || wrong "the first start makes no folder $part"
done
model=$(readlink "$data/calidora/Data Model")/Calidora_Model_Instrument.mdb
[ -s "${fresh:+$root}$model" ] || wrong "the model is not there: $model"
[ ! -e "$data/calidora/Data/Readme_Data.txt" ] || wrong "the marker of the first start is still there"
kill "$program_pid"
wait "$program_pid" 2>/dev/null || true
program_pid=

step "a new version comes over it, and offers the upgrade of the company"
install_package "$deb"
start_as_user calidora-demo
wait_for 90 "the main window on the demo company" window_there "$main: Demo.mdb"
log_in
at_rest
# Without the clock at its right end.
status_bar() {
  import -window "$(xdotool search --onlyvisible --name "$main" | head -1)" -gravity southwest -crop 60%x28+0+0 +repage "$work/$1.png"
}
status_bar older
shown 06-newer-catalogue
[ "$(company 'SELECT Version FROM tbInfoDatabase')" = 0.1 ] || wrong "the company was changed without being asked"
choose "$main" 'alt+u d u' "the upgrade" window_there 'Aggiornamento Database'
keys Return
wait_for 120 "the end of the upgrade" window_there '^Calidora$'
shown 07-upgraded
keys Return
wait_for 60 "the end of its window" window_gone 'Aggiornamento Database'
type_the_login
at_rest
status_bar newest
shown 08-newest-catalogue
[ "$(company 'SELECT Version FROM tbInfoDatabase')" = "$newest" ] || wrong "the company's catalogue is not $newest"
[ "$(company "SELECT Count(*) FROM tbParam WHERE mID = '$missing'")" = 1 ] || wrong "$missing is not in the catalogue"
[ "$(company "SELECT State || Value $of_room AND IDPar = 'P020101'")" = 01.5 ] || wrong "the upgrade has lost a value"
! cmp -s "$work/older.png" "$work/newest.png" || wrong "the status bar does not tell of the newer catalogue"
leave

step "removal leaves the user's data"
if [ -n "$fresh" ]; then
  in_root apt-get remove -y -qq calidora >>"$work/apt.log" 2>&1 || wrong "apt does not remove it"
  [ ! -e "$root/usr/bin/calidora" ] || wrong "the program is still there"
fi
[ -s "$company_file" ] || wrong "the company is gone"
[ -d "$data/calidora/Data" ] || wrong "the user's folder is gone"
verdict
