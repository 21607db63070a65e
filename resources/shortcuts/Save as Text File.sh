#!/bin/sh
# Saves the text as a new file in the documents folder and prints its path.
set -euC
documents=$(xdg-user-dir DOCUMENTS 2>/dev/null || echo "$HOME/Documents")
[ "$documents" != "$HOME" ] || documents=$HOME/Documents # none is configured
mkdir -p "$documents"
name="$documents/Text $(date '+%Y-%m-%d %H.%M.%S')"
file=$name.txt
number=2
while [ -e "$file" ]; do
    file="$name ($number).txt"
    number=$((number + 1))
done
cat >"$file"
printf '%s\n' "$file"
