#!/bin/sh
# Appends the text under the date and time to Journal.md in the documents folder.
set -eu
documents=$(xdg-user-dir DOCUMENTS 2>/dev/null || echo "$HOME/Documents")
[ "$documents" != "$HOME" ] || documents=$HOME/Documents # none is configured
mkdir -p "$documents"
{
    printf '## %s\n\n' "$(date '+%Y-%m-%d %H:%M')"
    cat
    printf '\n\n'
} >>"$documents/Journal.md"
