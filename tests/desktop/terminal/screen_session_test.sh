#!/usr/bin/env bash
# Drives the program in a terminal as a person does, by keys and by mouse, and reads its screen:
#   screen_session_test.sh PROGRAM SAMPLE_PC
# It waits for texts on the screen, never for a time.
set -euo pipefail
program=$1 sample=$2
work=$(mktemp -d)
server=(tmux -S "$work/server" -f /dev/null)
# A program that goes with its terminal writes its PC first.
trap '"${server[@]}" kill-server 2>/dev/null || true; until rm -rf "$work" 2>/dev/null; do sleep 0.1; done' EXIT

screen() { "${server[@]}" capture-pane -p; }
fail() { echo "FAILED: $*" >&2; screen >&2; exit 1; }

# see TEXT / see_no TEXT: waits until it is on the screen, or gone from it.
see() { wait_for "$1" grep -qF -- "$1"; }
see_no() { wait_for "no $1" not_there "$1"; }
not_there() { ! grep -qF -- "$1"; }
wait_for() {
  local what=$1 end=$((SECONDS + 60))
  until screen | "${@:2}"; do
    ((SECONDS < end)) || fail "waited for: $what"
    sleep 0.02
  done
}

# keys KEY... as tmux names them; text TEXT; press BUTTON COLUMN TEXT: the mouse on the first line with
# that text, button 0 left, 1 middle, 2 right, 64 wheel up, 65 wheel down.
keys() { "${server[@]}" send-keys "$@"; }
text() { "${server[@]}" send-keys -l "$1"; }
press() {
  local row bytes
  row=$(screen | grep -nF -m1 -- "$3" | cut -d: -f1) || fail "no line to press: $3"
  bytes=$(printf '%x %x %x' $((32 + $1)) $((32 + $2)) $((32 + row)))
  "${server[@]}" send-keys -H 1b 5b 4d $bytes
  (($1 >= 64)) || "${server[@]}" send-keys -H 1b 5b 4d 23 ${bytes#* }
}

# start COLUMNS ROWS PC [VARIABLE=VALUE...]: ncurses keeps a terminal's description, which is no leak.
start() {
  "${server[@]}" new-session -d -x "$1" -y "$2" \
    "env LC_ALL=C.UTF-8 ASAN_OPTIONS=detect_leaks=0:handle_segv=0 TERM=tmux-256color ${*:4} bash --norc --noprofile -i"
  "${server[@]}" set -g status off
  text "PS1='shell> '; '$program' '$3'; echo \"status \$?\""
  keys Enter
}
stop() { "${server[@]}" kill-server; }

a_partial_repair_its_undo_and_a_junk_clean_up() {
  cp -r "$sample" "$work/pc"
  start 80 24 "$work/pc"
  see 'Problems Found : 111'

  press 0 6 'Interfaces  ' # the row, then the first row's tick below
  see '> Interfaces'
  see '1-7 of 8'
  press 0 5 '048E1A930251}'
  see '[ ] HKEY_CLAS'
  keys BTab
  text dll # no key of a button: finds the shared libraries, of which two are marked together
  see '> Shared Dll'
  keys Enter
  keys Tab Down S-Down Space
  see '+ [ ]'
  text r
  see 'Registry health: Healthy'
  text sc
  see 'Problems Found : 4' # three that were left, and one that cannot go
  text bg
  see 'Manual Backup Complete'
  keys Enter
  see_no 'Manual Backup Complete'
  keys BTab Up
  text m
  see 'Are you sure'
  keys Enter # the answer that does no harm, whatever box was there before
  see_no 'Are you sure'
  see '2 rows'
  press 0 6 undo_
  see '> undo_'
  text r
  see 'Are you sure'
  keys Escape
  see 'Are you sure' # has to be answered
  text y
  see 'has been restored'
  keys Enter
  see '1 row'
  text sc
  see '[Registry Scan]'
  see 'Problems Found : 101' # what the repair took is back, but for what it put on the ignore list

  text hj
  see 'Drives to scan'
  press 0 5 'Local Disk (C:)'
  see '[x] Local Disk (C:)'
  text c
  see 'Total 22 Junk Files'
  press 65 20 'autoexec.bak'
  see '4-16 of 22'
  text /
  text 'autoexec'
  keys Enter Space
  see '> [ ] C:\autoexec.bak'
  text r
  see ' 2 rows '
  [[ -e $work/pc/drives/C/autoexec.bak ]] || fail 'the file that was unticked is gone'
  text q
  see 'status 0'
  stop
}

boxes_help_commands_and_the_tray() {
  cp -r "$sample" "$work/pc2"
  start 100 30 "$work/pc2" NO_COLOR=1
  see 'Problems Found : 111'
  screen | grep -q $'\x1b' && fail 'escape sequences on the screen'
  text ':frob'
  keys Enter
  see 'there is no command frob'
  text ':show lvProblems 1 2'
  keys Enter
  see '1 | '
  keys Escape
  see_no '1 | '
  text '?'
  see 'a letter'
  keys Escape
  see_no 'a letter' # what follows Esc at once would be a key with Alt
  text ':minimise'
  keys Enter
  see 'The window is minimised'
  text m
  see 'About'
  text a
  keys Down Enter
  see '2.1.0'
  keys Escape
  see_no '2.1.0'
  keys Escape
  see 'Leave Tidemark?'
  keys Enter
  see_no 'Leave Tidemark?'
  keys C-c
  see 'status 0'
  stop
}

a_resize_in_mid_scan_a_stop_and_a_crash() {
  cp -r "$sample" "$work/large"
  awk 'BEGIN { for (i = 0; i < 400000; ++i) printf "\r\n[HKEY_CLASSES_ROOT\\CLSID\\{%06d}\\ProgID]\r\n", i }' \
    >>"$work/large/registry.reg"
  start 120 40 "$work/large"
  see Analyzing
  "${server[@]}" resize-window -x 50 -y 15
  see 'needs 60 columns'
  keys C-z
  see 'Stopped'
  "${server[@]}" resize-window -x 60 -y 20
  text fg
  keys Enter
  see Analyzing
  see 'q: leave'
  keys BTab
  text p
  see 'Problems Found : '
  see_no 'Problems Found : 111'
  see '[ Repair ]' # with or without findings so far
  keys F1
  see 'goes to the …' # what is cut says so, and how to read on
  see 'Down: more'
  kill -SEGV "$(pgrep -f "^$program $work/large")"
  see 'Segmentation fault'
  text 'stty -a | tr ";" "\n"'
  keys Enter
  see ' icanon'
  see ' echo '
  stop
}

a_partial_repair_its_undo_and_a_junk_clean_up
boxes_help_commands_and_the_tray
a_resize_in_mid_scan_a_stop_and_a_crash
