#!/bin/sh
# SPDX-License-Identifier: AGPL-3.0-or-later
# Takes away exactly what install.sh has installed for the user who calls it. Presets, settings and sessions stay.
#
#   ./uninstall.sh
set -eu

list=${XDG_DATA_HOME:-$HOME/.local/share}/Morlek/Orlo/installed

if [ ! -f "$list" ]; then
    echo "$0: Orlo is not installed for $(id -un): there is no $list" >&2
    exit 1
fi

grep -v '/$' "$list" | while IFS= read -r file; do
    rm -f "$file"
done

# Deeper folders first. Those that hold something else stay.
folders=$(grep '/$' "$list" | sort -r || true)
rm -f "$list"
printf '%s\n' "$folders" | while IFS= read -r folder; do
    [ -z "$folder" ] || rmdir "$folder" 2> /dev/null || true
done

echo "Orlo has been removed; your presets, settings and sessions stay."
