# The repository of a server that does not run. It is never written to: a copy of it is given to a server of our own, which
# has no network, is changed there as on any running server, read back, and takes the repository's place when all is
# right. Whatever goes wrong before, the repository is as it was.

# Sets the places beside the repository, in its file system: the copy, and where the repository waits for the moment in
# which the copy takes its place.
find_work()
{
    work=${repository%/*}/.vq-register
    copy=$work/${repository##*/}
    before=$copy.before
}

own_server_processes()
{
    local process
    for process in $(server_processes); do
        # The process may end before it is looked at.
        ! { tr '\0' '\n' <"/proc/$process/cmdline"; } 2>/dev/null | grep -xF "repositoryDir=$copy" >/dev/null || say "$process"
    done
}

interrupted_problem()
{
    [ ! -e "$work" ] ||
        { echo "an interrupted vq-register has left $work: run vq-register repair"; return 1; }
}

# Takes back what a run that was killed has left: its server, its copy, and the repository in its other place.
clear_interrupted()
{
    local process
    [ -e "$work" ] || return 0
    need path_problem "what an interrupted vq-register left," "$work"
    for process in $(own_server_processes); do
        kill -KILL "$process"
        while [ -e "/proc/$process/exe" ]; do sleep 0.1; done
    done
    [ -e "$repository" ] || [ ! -e "$before" ] || run "put the repository back in its place" mv -T "$before" "$repository"
    run "remove $work" rm -rf "$work"
    say "repository: what an interrupted vq-register left is taken back"
}

# The files of the repository that a full disk or a lost machine has cut off, among those that register writes; a server
# does not start with them, or can't read our classes.
cut_files()
{
    local file
    for file in "$repository/root#PG_InterOp/instances/PG_Provider"{Module,,Capabilities}.instances.rollback; do
        # It holds a length of eight digits; a server that finds less does not start.
        [ ! -e "$file" ] || [ "$(stat -c %s "$file")" -ge 8 ] || say "$file"
    done
    for file in "$repository/root#cimv2/classes/"{QORTAL,QORx}_*; do
        if [ -e "$file" ] && [ ! -s "$file" ]; then
            say "$file"
        elif [ "$(head -c 6 "$file" 2>/dev/null | tr -d '\0')" = "<CLASS" ] && [[ $(tail -c 10 "$file") != *"</CLASS>" ]]; then
            say "$file"
        fi
    done
}

cut_files_problem()
{
    local first
    first=$(cut_files | head -n 1)
    [ -z "$first" ] || {
        echo "the server's repository is damaged, $first is cut off: stop the server where it runs (cimserver -s), run vq-register repair, and start it (cimserver)"
        return 1
    }
}

# Takes the files away that are cut off. A rollback file that is too short is that of a change that did not begin, or was
# undone in the index; where the index has its own rollback file, that is the index to go back to.
mend()
{
    local file index
    while read -r file; do
        index=${file%.instances.rollback}.idx
        [ ! -e "$index.rollback" ] || run "mend $index" mv -T "$index.rollback" "$index"
        run "remove $file" rm "$file"
        say "repository: ${file#"$repository/"}, which was cut off, is removed"
    done < <(cut_files)
}

# on_copy CHANGE: runs `CHANGE -p` (for ask_settings) while our own server has the copy; then lets the copy take the repository's
# place.
on_copy()
{
    local tries
    undo=drop_copy
    run "make $work" mkdir -m 711 "$work"
    run "copy the repository to $copy" cp -a "$repository" "$copy"
    run "start a CIM server for the copy of the repository" \
        cimserver "repositoryDir=$copy" enableHttpConnection=false enableHttpsConnection=false 9<&-
    "$1" -p
    run "stop the CIM server for the copy of the repository" cimserver -s
    for ((tries = 0; tries < 100; ++tries)); do
        [ -n "$(own_server_processes)" ] || break
        sleep 0.1
    done
    [ "$tries" -lt 100 ] || die "the CIM server for the copy of the repository does not end"
    # The names must not reach the disk before what they stand for.
    run "write the copy of the repository to the disk" sync -f "$copy"
    run "put the copy in the repository's place" mv -T "$repository" "$before"
    run "put the copy in the repository's place" mv -T "$copy" "$repository"
    undo=
    run "remove $work" rm -rf "$work"
}

drop_copy()
{
    ! server_runs || cimserver -s >/dev/null 2>&1
    clear_interrupted >/dev/null
    link_back "$link_before"
    complain "nothing is changed"
}
