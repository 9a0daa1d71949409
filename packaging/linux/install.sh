#!/bin/sh
# SPDX-License-Identifier: AGPL-3.0-or-later
# Installs Orlo for the user who calls it, without root.
#
#   ./install.sh
#
# The scripts lie beside the folders bin, lib and share of an unpacked archive. The list of what has been installed, on
# which uninstall.sh relies, is "Morlek/Orlo/installed" in the user's data folder: one path a line, folders with a slash
# at the end, and only those that were not there before.
set -eu

from=$(cd "$(dirname "$0")" && pwd)
data=${XDG_DATA_HOME:-$HOME/.local/share}
programs=$HOME/.local/bin
list=$data/Morlek/Orlo/installed
new_list=$(mktemp)
trap 'rm -f "$new_list"' EXIT

make_folder() {
    [ ! -d "$1" ] || return 0
    make_folder "$(dirname "$1")"
    mkdir "$1"
    printf '%s/\n' "$1" >> "$new_list"
}

# A file is replaced as a whole, since a running host may have the former one loaded.
install_file() {
    make_folder "$(dirname "$2")"
    cp "$1" "$2.new"
    mv -f "$2.new" "$2"
    printf '%s\n' "$2" >> "$new_list"
}

# Installs all files below a folder of the archive into another folder.
install_folder() {
    [ -d "$from/$1" ] || return 0
    (cd "$from/$1" && find . -type f | sort) | while IFS= read -r file; do
        install_file "$from/$1/${file#./}" "$2/${file#./}"
    done
}

# What an earlier version has made stays listed, as long as it is there.
[ ! -f "$list" ] || grep '/$' "$list" > "$new_list" || true

make_folder "$data/Morlek/Orlo/DesignersPresets"
install_folder lib/vst3 "$HOME/.vst3"
install_folder lib/lv2 "$HOME/.lv2"
install_folder lib/clap "$HOME/.clap"
install_folder bin "$programs"

for folder in Morlek applications doc icons man metainfo; do
    install_folder "share/$folder" "$data/$folder"
done

# Menus start programs without the user's search path.
desktop=$data/applications/com.morlek.orlo.desktop
if [ -f "$desktop" ]; then
    sed "s|^Exec=orlo |Exec=\"$programs/orlo\" |" "$desktop" > "$desktop.new"
    mv -f "$desktop.new" "$desktop"
fi

# Files of an earlier version that this one no longer has.
if [ -f "$list" ]; then
    grep -v '/$' "$list" | while IFS= read -r file; do
        grep -qxF -e "$file" "$new_list" || rm -f "$file"
    done
fi

cp "$new_list" "$list"
chmod 644 "$list"

echo "Orlo is installed for $(id -un): the plug-ins in $HOME/.vst3 and $HOME/.lv2, the programs in $programs."
case ":$PATH:" in
    *":$programs:"*) ;;
    *) echo "$programs is not in your search path (PATH) yet; most systems add it at the next login." ;;
esac
