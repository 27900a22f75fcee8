#!/usr/bin/env bash
# Walks through the demo the way a pupil would, on the display $DISPLAY, and leaves a screenshot
# of every step in the folder given: the start screen, the desktop of class 1 after a click on
# its button, a program started from the desktop's first icon with its task button, and the
# desktop again after that program's window was closed.
set -uo pipefail
out="$1"
shot() { import -display "$DISPLAY" -window root "$out/$1" && echo "tour: $2: $out/$1"; }
windows() { xdotool search --onlyvisible --name '.' 2>/dev/null | sort; }

sleep 8
shot screenshot.png "the start screen"

# Class 1 is the first button of the default grid (left 130, top 304).
xdotool mousemove 178 340 click 1
sleep 3
shot screenshot-desktop.png "the desktop of class 1"

before="$(windows)"
# The first icon of the desktop's grid (left 56, top 170, 32 by 32).
xdotool mousemove 72 186 click 1
sleep 3
shot screenshot-program.png "a program started from the desktop, with its task button"

new="$(comm -13 <(echo "$before") <(windows) | head -n 1)"
if [ -n "$new" ]; then
  xdotool windowclose "$new" 2>/dev/null || xdotool windowkill "$new"
  sleep 2
  shot screenshot-closed.png "the program closed, its task button gone"
else
  echo "tour: no new window appeared after the click on the first icon"
fi
