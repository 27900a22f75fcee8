#!/usr/bin/env bash
# Prepares an installed program folder as an activated Standalone workstation: the server beside
# the client, the shell already handed to Tafelkrater in the folder's own registry store, and the
# settings file that says the workstation is activated. Nothing outside the folder changes; what
# the folder already holds is left as it is. The client is then run as the workstation's account
# (USERNAME=TAFELKRATER).
# Usage: bash scripts/werkplek.sh FOLDER
set -euo pipefail
map="$(cd "$1" && pwd)"
if [ ! -f "$map/Register/HKEY_LOCAL_MACHINE.reg" ]; then
  mkdir -p "$map/Register"
  # "Locatie server" is the server program, relative to the program folder.
  cat > "$map/Register/HKEY_LOCAL_MACHINE.reg" <<REG
REGEDIT4

[HKEY_LOCAL_MACHINE\SOFTWARE\Tafelkrater]
"Modus"="1"
"Locatie server"="\\\\tafelkrater-server"

[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Winlogon]
"Shell"="$map/tafelkrater"
REG
fi
mkdir -p "$map/Data"
[ -f "$map/Data/Instellingen.ini" ] || printf '[Algemeen]\r\nGeactiveerd=JA\r\n' > "$map/Data/Instellingen.ini"
