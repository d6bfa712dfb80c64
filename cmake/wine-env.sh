# shellcheck shell=bash
# Sourced by check, tour, bench and run-under-wine: a display, a Wine prefix of our own and a desktop
# in it, all ended when the script that asked for them ends.
#
#   end_with COMMAND            runs it when the script ends, be it by a signal
#   wine_begin FOLDER [COMMAND] the prefix lives in FOLDER; made at the first use. What it began
#                               ends with the script, and COMMAND runs then, too. With
#                               wine_own_display=no the windows go to the user's display
#   wine_run SECONDS PROGRAM... runs a Windows program with a time limit; gives its exit code
#   wine_end                    ends the prefix's processes and the display
#   windows_path PATH           the same file as a Windows program names it

wine_prefix=
wine_child=
wine_display_process=
wine_own_display=yes
wine_desktop_size=1280x800
# Tests run in a time zone that is no whole number of hours from UTC, and in which the clocks turn:
# taking the one time for the other can't go unseen.
# shellcheck disable=SC2034
wine_test_zone='NST3:30NDT,M3.2.0,M11.1.0'

find_wine() {
  local folder
  for folder in /usr/lib/wine /usr/lib/*/wine /usr/lib/wine-*; do
    # The `wine` wrapper insists on a 32-bit Wine; the 64-bit loader itself doesn't.
    if [[ -x $folder/wine64 ]]; then
      wine_loader=$folder/wine64
      wine_server=$folder/wineserver64
      [[ -x $wine_server ]] || wine_server=$folder/wineserver
      return
    fi
  done
  wine_loader=$(command -v wine64) && wine_server=$(command -v wineserver64 wineserver | head -n 1)
}

windows_path() {
  printf 'Z:%s' "${1//\//\\}"
}

end_with() {
  # A second signal must not cut the ending short. The command is meant to be the one of now.
  # shellcheck disable=SC2064
  trap "trap '' INT TERM HUP; $1" EXIT
  trap 'exit 130' INT
  trap 'exit 143' TERM HUP
}

# Waits for a command in the background: a trap would wait for the end of one in the foreground.
run_and_wait() {
  local result
  "$@" <&0 &
  wine_child=$!
  wait "$wine_child"
  result=$?
  wine_child=
  return $result
}

wine_begin() {
  local folder=$1
  find_wine || { echo "There is no 64-bit Wine." >&2; return 1; }
  # Without a single X resource, Xlib reads its files again for every font.
  mkdir -p "$folder/home" && echo 'wine.resources: read' >"$folder/home/.Xdefaults" || return 1
  end_with "wine_end; ${2:-}"
  # Two runs in one prefix would end each other's server; the second waits.
  exec 9>"$folder/lock"
  if ! flock --nonblock 9; then
    echo "Another run uses $folder; waiting for it." >&2
    run_and_wait flock 9 || return
  fi
  wine_prefix=$folder/prefix
  export WINEPREFIX=$wine_prefix HOME=$folder/home LC_ALL=C.UTF-8
  export WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
  unset WAYLAND_DISPLAY WINEARCH
  start_display "$folder" && make_prefix
}

start_display() {
  [[ $wine_own_display == no ]] && return
  local number=$1/display left=100
  : >"$number"
  Xvfb -displayfd 8 -screen 0 ${wine_desktop_size}x24 -nolisten tcp \
    8>"$number" >/dev/null 2>&1 </dev/null 9>&- &
  wine_display_process=$!
  until [[ -s $number ]]; do
    if ((left-- == 0)) || ! kill -0 $wine_display_process 2>/dev/null; then
      echo "Xvfb doesn't start." >&2
      return 1
    fi
    sleep 0.1
  done
  DISPLAY=:$(<"$number")
  export DISPLAY
}

make_prefix() {
  # The loader finds Wine's own fonts only inside the prefix: among them the one whose letters are
  # the signs on the buttons of a caption.
  [[ -e $WINEPREFIX/complete ]] && return
  rm -rf "$WINEPREFIX"
  # Of two that are made at the same time one may fail.
  exec 7>"${WINEPREFIX%/*/*}/wine.lock"
  run_and_wait flock 7 || return
  wine_run 300 wineboot --init >"$WINEPREFIX.log" 2>&1 &&
    wine_settings >>"$WINEPREFIX.log" 2>&1 &&
    timeout 60 "$wine_server" -w 7>&- 9>&- &&
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/" &&
    : >"$WINEPREFIX/complete" && exec 7>&- && return
  cat "$WINEPREFIX.log" >&2
  echo "The Wine prefix couldn't be made." >&2
  return 1
}

wine_settings() {
  local wine='HKCU\Software\Wine'
  # Windows only get captions and frames inside a desktop of Wine's own.
  wine_run 60 reg add "$wine\\Explorer" /v Desktop /d Default /f &&
    wine_run 60 reg add "$wine\\Explorer\\Desktops" /v Default /d $wine_desktop_size /f &&
    # A program that crashes prints its stack and ends; nobody is there to answer a box.
    wine_run 60 reg add "$wine\\WineDbg" /v ShowCrashDialog /t REG_DWORD /d 0 /f
}

wine_run() {
  local seconds=$1
  shift
  run_and_wait timeout --foreground --kill-after=5 "$seconds" "$wine_loader" "$@" 7>&- 9>&-
}

wine_end() {
  trap - EXIT
  [[ -z $wine_child ]] || kill "$wine_child" 2>/dev/null
  if [[ -d $wine_prefix ]]; then
    timeout 30 "$wine_server" -k 9>&- 2>/dev/null
  fi
  [[ -z $wine_child ]] || wait "$wine_child" 2>/dev/null
  wine_child=
  wine_prefix=
  if [[ -n $wine_display_process ]]; then
    kill "$wine_display_process" 2>/dev/null
    wait "$wine_display_process" 2>/dev/null
    wine_display_process=
  fi
  exec 9>&-
}
