#!/usr/bin/env bash
# What a captured PC consists of: capture_pc_test.sh CAPTURE_PC
set -euo pipefail
export LC_ALL=C.UTF-8
capture=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
failures=0

expect() {  # expect WHAT ACTUAL EXPECTED
  [[ $2 == "$3" ]] && return
  printf '%s:\n--- expected\n%s\n--- got\n%s\n' "$1" "$3" "$2"
  failures=$((failures + 1))
}
refused() {  # refused WHAT COMMAND...
  if "${@:2}" >log 2>&1; then
    echo "$1: was not refused"
    failures=$((failures + 1))
  fi
}
setting() { sed -n "s/^$2=//p" "$1/pc.ini"; }
# Without what the program itself brings.
tree() { (cd "$1" && find . -mindepth 1 ! -name '*.jpg' ! -name Ignorelst.ini | sort); }

iconv -f UTF-8 -t UTF-16LE >body <<'END'
Windows Registry Editor Version 5.00

[HKEY_LOCAL_MACHINE\System\CurrentControlSet\Control\Session Manager\Environment]
"Path"=hex(2):25,00,53,00,79,00,73,00,74,00,65,00,6d,00,52,00,6f,00,6f,00,74,\
  00,25,00,5c,00,e9,00,00,00
"TOOLS"="D:\\My \"Tools\""

[HKEY_LOCAL_MACHINE\Software\Microsoft\Windows NT\CurrentVersion]
"SystemRoot"="C:\\WINNT"

[HKEY_USERS\S-1-5-21-1-2-3-500\Software]

[HKEY_USERS\S-1-5-21-1-2-3-1001\Volatile Environment]
"USERNAME"="zoë"
"USERPROFILE"="C:\\Users\\zoë"

[HKEY_USERS\S-1-5-21-1-2-3-1001\Environment]
"PATH"="D:\\bin"

[HKEY_USERS\S-1-5-21-1-2-3-1001\Control Panel\International]
"sShortDate"="dd.MM.yyyy"
END
{ printf '\xff\xfe' && cat body; } >pc.reg
printf '%s\r\n' 'C:\WINNT\Größe 1\a b.txt' 'c:\winnt\GRÖSSE 1\c.txt' 'C:\WINNT\GRößE 1\d.txt' \
  'C:\winnt\größe 1\A B.TXT' 'D:\Empty folder\' >list

"$capture" --registry pc.reg --files list pc 2>log
cmp pc.reg pc/registry.reg
expect "names that differ in case are one" "$(tree pc/drives)" "./C
./C/Program Files
./C/Program Files/Tidemark
./C/Program Files/Tidemark/backup
./C/Program Files/Tidemark/images
./C/Program Files/Tidemark/tidemark.exe
./C/WINNT
./C/WINNT/GRÖSSE 1
./C/WINNT/GRÖSSE 1/c.txt
./C/WINNT/Größe 1
./C/WINNT/Größe 1/a b.txt
./C/WINNT/Größe 1/d.txt
./D
./D/Empty folder"
expect "search path" "$(setting pc Path)$(setting pc PATH)" 'C:\WINNT\é;D:\bin'
expect "variable" "$(setting pc TOOLS)" 'D:\My "Tools"'
expect "logged-on user" "$(setting pc sid) $(setting pc name)" 'S-1-5-21-1-2-3-1001 zoë'
expect "desktop" "$(setting pc desktop)" 'C:\Users\zoë\Desktop'
expect "fonts" "$(setting pc fonts)" 'C:\WINNT\Fonts'
expect "date" "$(setting pc 'short date')" 'dd.MM.yyyy'
expect "drives" "$(setting pc C) $(setting pc D)" 'fixed fixed'

printf 'REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Environment]\r\n"A"="\xe4\x80"\r\n"B"=hex(2):25,41,25,00\r\n' >old.reg
mkdir -p disk/Windows elsewhere/secret
echo text >disk/Windows/x.ini
ln -s "$work/elsewhere" disk/linked
xz -k old.reg
"$capture" --with-contents --registry old.reg.xz --files disk old 2>log
expect "contents" "$(cat old/drives/C/Windows/x.ini)" text
expect "8-bit export" "$(setting old A) $(setting old B)" 'ä€ ä€'
expect "a link leads nowhere" "$(ls -A old/drives/C/linked)" ''

refused "a folder that holds something" "$capture" --registry pc.reg --files list old
printf 'C:\\a\\..\\..\\..\\b\n' >list
refused "a path out of the drive" "$capture" --registry pc.reg --files list out1
echo 'no path' >list
refused "a line that is no path" "$capture" --registry pc.reg --files list out2
expect "what was refused leaves nothing" "$(ls -A out1 out2)" $'out1:\n\nout2:'
exit "$((failures > 0))"
