#!/usr/bin/env bash
# Takes docs/designer.png: Qt Designer 6 with the plugin of a build, a form holding a grid whose
# rows come from its definition property, the grid selected, its property editor showing the
# grid's own properties (the codes by name, the definition last) and the tool tip of
# FieldNameWidth open over the grid's empty part. Runs Designer on a private X server, so no display is needed.
# Usage: scripts/designer-screenshot.sh [build folder] [output PNG]
# The clicks are placed for Designer 6.4 with DejaVu fonts (Debian 12); elsewhere, look at the
# picture before keeping it.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(cd "${1:-$root/build}" && pwd)"
out="${2:-$root/docs/designer.png}"
plugin="$build/designer/libkwfielddeck-designer.so"
designer=/usr/lib/qt6/bin/designer
[ -f "$plugin" ] || { echo "No Designer plugin in $build; build with qt6-tools-dev first." >&2; exit 1; }

missing=()
for p in designer-qt6 xvfb xdotool imagemagick fonts-dejavu-core; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -ne 0 ] && sudo="sudo"
    export DEBIAN_FRONTEND=noninteractive
    $sudo apt-get update -q
    $sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
fi

work="$(mktemp -d)"
pids=()
cleanup() {
    for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

# Designer finds plugins in <each Qt plugin path>/designer. Its settings start empty, with every
# tool in a window of its own (UI mode 1), so each can be placed by name.
mkdir -p "$work/plugins/designer" "$work/config/QtProject"
ln -s "$plugin" "$work/plugins/designer/"
cat >"$work/config/QtProject/Designer.conf" <<'EOF'
[UI]
currentMode=1

[PropertyEditor]
SplitterPosition=215
EOF
# A form as Designer saves it: one grid with rows from its definition, two colours picked, the rest
# left at their defaults.
cat >"$work/GridForm.ui" <<'EOF'
<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>GridForm</class>
 <widget class="QWidget" name="GridForm">
  <property name="geometry"><rect><x>0</x><y>0</y><width>360</width><height>280</height></rect></property>
  <widget class="kwFieldDeck::kwPropertyControl" name="propertyControl">
   <property name="geometry"><rect><x>10</x><y>10</y><width>340</width><height>260</height></rect></property>
   <property name="RowHeight"><double>360.000000000000000</double></property>
   <property name="backgroundColor"><color><red>214</red><green>228</green><blue>242</blue></color></property>
   <property name="fieldNameForegroundColor"><color><red>32</red><green>64</green><blue>128</blue></color></property>
   <property name="definition">
    <string notr="true">FIELDNAMEWIDTH=1500
ADDFIELD Server
TYPE=TEXT
VALUE=db.example.org
DESCRIPTION=Name or address of the server
ENDFIELD
ADDFIELD Port
TYPE=NUMERIC
VALUE=5432
ENDFIELD
ADDFIELD Use TLS
TYPE=CHECKBOX
VALUE=1
ENDFIELD
ADDFIELD Mode
TYPE=COMBO
VALUE=2
ADDCOMBOITEMS
1=Read only
2=Read and write
ENDCOMBOITEMS
ENDFIELD
ADDFIELD Retries
TYPE=SLIDER
MIN=0
MAX=10
VALUE=3
ENDFIELD
ADDFIELD Expires
TYPE=DATE
VALUE=2030-01-01
ENDFIELD</string>
   </property>
  </widget>
 </widget>
 <customwidgets>
  <customwidget>
   <class>kwFieldDeck::kwPropertyControl</class>
   <extends>QWidget</extends>
   <header>kwFieldDeck/kwPropertyControl</header>
  </customwidget>
 </customwidgets>
</ui>
EOF

Xvfb -displayfd 3 -screen 0 940x430x24 -wr -nolisten tcp 3>"$work/display" 2>/dev/null &
pids+=($!)
for _ in $(seq 50); do [ -s "$work/display" ] && break; sleep 0.1; done
export DISPLAY=":$(cat "$work/display")"

XDG_CONFIG_HOME="$work/config" QT_PLUGIN_PATH="$work/plugins" "$designer" "$work/GridForm.ui" \
    >"$work/designer.log" 2>&1 &
pids+=($!)
window() { xdotool search --name "$1" 2>/dev/null | head -1; }
form=""
for _ in $(seq 100); do form="$(window 'GridForm.ui')" && [ -n "$form" ] && break; sleep 0.2; done
[ -n "$form" ] || { cat "$work/designer.log" >&2; echo "Designer showed no form." >&2; exit 1; }
editor="$(window '^Property Editor')"

for name in '^Qt Designer$' '^Widget Box' '^Object Inspector' '^Resource Browser' \
    '^Action Editor' '^Signal/Slot Editor'; do
    for w in $(xdotool search --name "$name" 2>/dev/null); do xdotool windowmove "$w" 3000 3000; done
done
# The property editor ends at the screen's right edge, so the tool tip, too wide to open to the
# right of the pointer, opens to its left, over the form, and hides no property.
xdotool windowmove "$form" 10 10
xdotool windowmove "$editor" 520 10
xdotool windowsize "$editor" 420 410
sleep 0.5
# Select the grid, then fold the QObject and QWidget groups so the grid's own properties show.
xdotool mousemove --window "$form" 180 150 click 1
sleep 0.5
xdotool mousemove --window "$editor" 60 84 click 1 key Left Down Left
sleep 0.5
# Rest the pointer at the left end of FieldNameWidth's row until its tool tip opens.
xdotool mousemove --window "$editor" 10 155
sleep 0.2
xdotool mousemove --window "$editor" 8 157
sleep 2
import -window root -colors 128 "png8:$out"
echo "Screenshot: $out ($(stat -c %s "$out") bytes)"
