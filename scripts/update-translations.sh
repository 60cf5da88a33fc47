#!/usr/bin/env bash
# Brings the catalogs in translations/ up to date with the sources and lists the texts that still
# need an English translation. New tr() texts appear as unfinished entries; texts gone from the
# sources are dropped. Fill in the listed texts (Qt Linguist, or by hand in the .ts file: replace
# <translation type="unfinished"></translation> by <translation>English</translation>; where
# lupdate proposed the translation of the same text elsewhere, check it and drop
# type="unfinished") and build; the build embeds the catalogs.
#
#   scripts/update-translations.sh              update the catalogs in place
#   scripts/update-translations.sh --check DIR  write updated copies into DIR, leave the tree as
#                                               it is; exit 1 when a text is untranslated
set -euo pipefail
cd "$(dirname "$0")/.."

lupdate=${LUPDATE:-/usr/lib/qt6/bin/lupdate}
out_dir=translations
check=0
if [ "${1:-}" = "--check" ]; then
  check=1
  out_dir=${2:?"--check needs a folder for the updated copies"}
  mkdir -p "$out_dir"
fi

# The host's catalog covers host/ and the preview sandbox it shows the messages of; the editor's
# covers every other folder of sources (the editor's subsystems and the store, whose texts the
# editor shows), so that a new subsystem folder is picked up without touching this script. The
# command-line tool speaks English.
editor_folders=()
for folder in */; do
  folder=${folder%/}
  case "$folder" in
    host | preview | tools | tests | bench | examples | packaging | scripts | docs | cmake \
      | translations | build*) ;;
    *) compgen -G "$folder/*.cpp" >/dev/null && editor_folders+=("$folder") ;;
  esac
done

update() {  # catalog, folders...
  local catalog=$1
  shift
  local target="$out_dir/${catalog}_en.ts"
  [ "$target" = "translations/${catalog}_en.ts" ] || cp "translations/${catalog}_en.ts" "$target"
  "$lupdate" -silent -locations none -no-obsolete -source-language zh_CN -target-language en \
    "$@" -ts "$target"
}
update vordpm_editor "${editor_folders[@]}"
update vordpm_host host preview

# Every unfinished entry as "context: source text".
untranslated=$(awk '
  /<name>/ { context = $0; sub(/.*<name>/, "", context); sub(/<\/name>.*/, "", context) }
  /<source>/ { source = ""; collecting = 1 }
  collecting { source = source $0 "\n" }
  /<\/source>/ { collecting = 0 }
  /type="unfinished"/ {
    text = source; sub(/^[ \t]*<source>/, "", text); sub(/<\/source>\n$/, "", text)
    printf "  %s: %s\n", context, text
  }' "$out_dir"/vordpm_editor_en.ts "$out_dir"/vordpm_host_en.ts)

if [ -z "$untranslated" ]; then
  echo "Every text has an English translation."
  exit 0
fi
echo "Texts without an English translation (fill them in in translations/*_en.ts):"
echo "$untranslated"
[ "$check" -eq 0 ] || exit 1
