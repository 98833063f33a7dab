# Sourced after setup.sh: the environment in which Windows programs run here. Wine gets a prefix and a
# home of its own under wine/ in the repository; its usual prefix shows the whole machine as drive Z:
# and the real home as the user's folders, and a program that deletes files has no business there.
# The repository is drive T:. Another folder than wine/ is taken from wine_root, if that is set.

wine_root=${wine_root:-$root/wine}
wine_display=${DISPLAY-}
export XAUTHORITY=${XAUTHORITY:-${HOME-}/.Xauthority}
if command -v ccache >/dev/null; then
  CCACHE_DIR=${CCACHE_DIR:-$(ccache -k cache_dir)}
  export CCACHE_DIR
fi
export HOME=$wine_root/home XDG_DATA_HOME=$wine_root/home/.local/share LC_ALL=C.UTF-8
export WINEPREFIX=$wine_root/prefix WINEDEBUG=-all
export WINEDLLOVERRIDES='mscoree=;mshtml=;winemenubuilder.exe=d'

if [[ ! -e $wine_root/ready ]]; then
  echo "Making a Wine prefix" >&2
  rm -rf "$WINEPREFIX"
  # Deleted files go to a trash below the data folder; without that folder they are gone for good.
  mkdir -p "$XDG_DATA_HOME"
  logged wine-prefix env -u DISPLAY wineboot -i
  cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts/"
  logged wine-prefix env -u DISPLAY wine regedit /s "$root/tools/test-prefix.reg"
  wineserver -k || true
  wineserver -w
  rm "$WINEPREFIX/dosdevices/z:"
  touch "$wine_root/ready"
fi

ln -sfn "$root" "$WINEPREFIX/dosdevices/t:"

# The first window fixes whether windows are real (a display) or only in memory (none).
if [[ $(cat "$wine_root/display" 2>/dev/null) != "$wine_display" ]]; then
  wineserver -k || true
  wineserver -w
  echo "$wine_display" >"$wine_root/display"
fi
# Started here, with their output closed, the services can't hold a caller's pipe open; they stay for
# five idle minutes. The first program starts them, and no program that is set up to start with the
# system; wineboot, called by hand, would start them a second time, and then some can't be started.
wineserver -p300 </dev/null >/dev/null 2>&1 || true
wine cmd /c exit </dev/null >/dev/null 2>&1
