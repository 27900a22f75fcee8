# A virtual X session for the scripts that show the client without a display. Sourced:
#   source scripts/xsessie.sh; start_xsessie :77
# starts Xvfb at 1024x768 on that display with openbox managing it, exports DISPLAY, adds both
# processes to the caller's `pids` array (for its clean-up), and returns once openbox has taken
# the screen: the client marks its windows for the window manager, so it must come first.
start_xsessie() {
  export DISPLAY="$1"
  Xvfb "$DISPLAY" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
  pids+=($!)
  for _ in $(seq 50); do
    xprop -root >/dev/null 2>&1 && break
    sleep 0.1
  done
  openbox >/dev/null 2>&1 &
  pids+=($!)
  for _ in $(seq 50); do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
    sleep 0.1
  done
}
