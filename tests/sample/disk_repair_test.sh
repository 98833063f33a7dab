#!/usr/bin/env bash
# What a repair changes in the hives of the sample's disk, by the tools of the library that made them:
# the same as in the registry of the sample itself. disk_repair_test.sh TIDEMARK
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(cd "$(dirname "$0")" && pwd)
program=$1
sample=$here/../../sample
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
export XDG_DATA_HOME=$work/own
user='HKEY_USERS\S-1-5-21-0-0-0-1000'

# Keys, and values by their names.
lines() { iconv -f "$1" -t UTF-8 | perl "$here/../grounds/registry_lines.pl" | sed 's/=.*//'; }
hive() { hivexregedit --export --prefix "$2" "$(find disk -name "$1")" '\' | lines CP1252; }
disk() {
  hive SOFTWARE 'HKEY_LOCAL_MACHINE\SOFTWARE'
  hive SYSTEM 'HKEY_LOCAL_MACHINE\SYSTEM'
  hive NTUSER.DAT "$user"
  hive UsrClass.dat "$user\\Software\\Classes"
}
repair() { printf 'click cmdFix\nquit\n' | "$program" "$@" >/dev/null 2>&1; }

mkdir disk
perl "$here/make_disk.pl" "$sample" disk
cp -r "$sample" pc
disk >disk.before
lines CP1252 <pc/registry.reg >pc.before
printf 'quit\n' | "$program" disk >/dev/null 2>&1
cp 'pc/drives/C/Program Files/Tidemark/Ignorelst.ini' own/tidemark/*/Tidemark/
repair disk --drive "D=$sample/drives/D"
repair pc
disk >disk.after
lines UTF-16 <pc/registry.reg >pc.after

gone() { comm -23 <(sort "$1.before") <(sort "$1.after"); }
# On a disk nobody's rights keep a key, and a drive that is not mounted may hold what is looked for.
gone pc | sed 's/currentcontrolset/controlset002/' | grep -v 'libsort.dll' >expected
gone disk | grep -v '\\harrow.sealed' >found
diff expected found
if [[ -n $(comm -13 <(sort disk.before) <(sort disk.after)) ]]; then
  echo "something was added to the disk's hives" >&2
  exit 1
fi
