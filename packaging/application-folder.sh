# What the two launchers share: the folder of one user, made at the first start. Sourced; `shared` is the folder of the
# package's own files. Whatever can't be made is left to the program, which tells it in a window.

# Makes what is missing in the application folder $1; what is there stays as it is. The model of the instruments is a
# link, so that a newer package brings the newer one.
make_application_folder() {
  mkdir -p "$1/Data/Safety" "$1/Log" "$1/ports" || return 0
  [ -e "$1/Data Model" ] || ln -sfn "$shared/Data Model" "$1/Data Model"
}

# Copies the file $1 to $2, whole or not at all.
copy_whole() {
  cp "$1" "$2.part" && chmod u+w "$2.part" && mv -f "$2.part" "$2"
}
