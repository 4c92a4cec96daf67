# Wine set-up shared by tests/e2e/run.sh and tools/run.sh: a 64-bit prefix of our own, made once.
WINE=/usr/lib/wine/wine64
WINESERVER=/usr/lib/wine/wineserver

# Points Wine at a prefix and a socket folder under the given folder, quiet and without prompts.
wine_env() {
  local root; root=$(realpath -m "$1")
  mkdir -p "$root/tmp"
  export WINEPREFIX="$root/prefix" TMPDIR="$root/tmp"
  export WINEDEBUG=-all WINEARCH=win64 WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe="
  WINE_LOGS="$root"
}

# Creates the prefix without DISPLAY, so that wineboot opens no window. The registry gives a virtual
# desktop (a window hidden under bare Xvfb costs 2 s otherwise), no crash dialog (it would hang a test),
# and the panel's face, Palatino Linotype, as TeX Gyre Pagella of the same metrics. This Wine loads its
# own faces (Marlett draws the caption buttons) only from the prefix. An older recipe's prefix is remade.
wine_prefix() {
  [ -f "$WINEPREFIX/.velok3-ready-fonts" ] && return 0
  echo "wine: creating the prefix $WINEPREFIX (once)"
  rm -rf "$WINEPREFIX"
  local reg="$WINE_LOGS/settings.reg"
  printf '%s\r\n' 'REGEDIT4' '' \
    '[HKEY_CURRENT_USER\Software\Wine\Explorer]' '"Desktop"="Default"' '' \
    '[HKEY_CURRENT_USER\Software\Wine\Explorer\Desktops]' '"Default"="1024x768"' '' \
    '[HKEY_CURRENT_USER\Software\Wine\WineDbg]' '"ShowCrashDialog"=dword:00000000' '' \
    '[HKEY_CURRENT_USER\Software\Wine\Fonts\Replacements]' '"Palatino Linotype"="TeX Gyre Pagella"' '' >"$reg"
  (
    unset DISPLAY
    timeout 300 "$WINE" wineboot -i >"$WINE_LOGS/wineboot.log" 2>&1 || true
    timeout 60 "$WINE" reg import "$(winepath_of "$reg")" >"$WINE_LOGS/reg.log" 2>&1
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    timeout 30 "$WINESERVER" -k >/dev/null 2>&1 || true
  ) || { echo "wine: prefix set-up failed, see $WINE_LOGS/*.log" >&2; return 1; }
  touch "$WINEPREFIX/.velok3-ready-fonts"
}

# The Windows form of a Unix path, through the Z: drive that every prefix maps to /.
winepath_of() { local path; path=$(realpath -m "$1"); printf 'Z:%s' "${path//\//\\}"; }
