# Root uses only what is root's.

# way_to PATH: every place on the way to PATH, from / on, links and what they lead through too; each ended by a NUL
way_to()
{
    local place=/ name target links=0
    local -a rest head
    mapfile -t -d / rest < <(printf '%s/' "$1")
    printf '/\0'
    while [ ${#rest[@]} -gt 0 ]; do
        name=${rest[0]}
        rest=("${rest[@]:1}")
        case "$name" in
        '' | .) continue ;;
        ..)
            place=${place%/*}
            continue
            ;;
        esac
        place=${place%/}/$name
        printf '%s\0' "$place"
        [ -L "$place" ] || continue
        [ $((++links)) -le 40 ] || return 0 # no program gets through either
        target=$(readlink "$place")
        mapfile -t -d / head < <(printf '%s/' "$target")
        rest=("${head[@]}" "${rest[@]}")
        case "$target" in
        /*) place= ;;
        *) place=${place%/*} ;;
        esac
    done
}

# path_problem WHAT PATH: says who beside root can replace what stands at PATH, by the file or directory itself, by a
# directory above it, or by one that a link on the way leads through. On the way a directory may be writable where its
# sticky bit is set: what is looked at in it is root's. Silent about what is not there.
path_problem()
{
    local what=$1 path=$2 places user group mode owner group_name place writer
    [ -z "$trust_paths" ] || return 0
    case "$path" in
    /*) ;;
    *) path=$PWD/$path ;;
    esac
    mapfile -t -d '' places < <(way_to "$path")
    while IFS=: read -r -d '' user group mode owner group_name place; do
        writer=
        mode=$((16#$mode))
        if [ "$user" -ne 0 ]; then
            writer="user ${owner/#UNKNOWN/$user}, who owns"
        elif [ $((mode & 0170000)) -eq $((0120000)) ]; then
            continue # permissions of a link mean nothing
        elif [ $((mode & 01000)) -ne 0 ] && [ "$place" != "${places[-1]}" ]; then
            continue
        elif [ $((mode & 02)) -ne 0 ]; then
            writer="everybody, as all may write"
        elif [ $((mode & 020)) -ne 0 ] && [ "$group" -ne 0 ]; then
            writer="group ${group_name/#UNKNOWN/$group}, which may write"
        elif [ $((mode & 020)) -ne 0 ] && [[ $(ls -ld "$place") == ??????????+* ]]; then
            writer="the users in the access list of"
        fi
        if [ -n "$writer" ]; then
            echo "$what $path can be replaced by $writer $place: let root alone own and write it, or give --trust-paths"
            return 1
        fi
    done < <(stat --printf '%u:%g:%f:%U:%G:%n\0' "${places[@]}" 2>/dev/null)
}
