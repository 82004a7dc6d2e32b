# docs/classes.md is what the MOF says now.
. "$(dirname "$0")/common.bash"

"$source_dir/scripts/update-docs" "$scratch/classes.md"
check "docs/classes.md (run scripts/update-docs)" "$(cat "$scratch/classes.md")" "$(cat "$source_dir/docs/classes.md")"
# Every class and property of the MOF has its line: a generator that loses one makes no difference to the check above.
names() { sed -n 's/^class \([A-Za-z0-9_]*\) .*/\1/p; s/^    [a-z0-9]* \([A-Za-z]*\)\(\[\]\|()\)\{0,1\};$/\1/p' "$source_dir/schema/SystemProvider.mof"; }
check "classes, properties and methods" "$(names)" \
    "$(sed -n 's/^## //p; /^| property/d; s/^| \**\([A-Za-z]*\)\**\(()\)\{0,1\} |.*/\1/p' "$source_dir/docs/classes.md")"
finish
