# Everything that the module needs, with what is wrong and what to do: asked of the files, of the tool (vqinventory check,
# which looks at the SMBIOS table and at the module in process), and of the server, as a client asks it.

answer_limit=30                        # seconds for a question to the server
guarded=(QORTAL_BIOS QORTAL_BaseBoard) # a damaged table can make these never end, unless the tool has looked at it
findings=()                            # kind, tab, text
problems=0
declare -A in_process=()               # class -> number of instances, where the module answered the tool
declare -A refused=()                  # class -> yes, where nobody should ask
declare -A served=()                   # class -> number of instances and seconds, where the server answered
declare -A failed=()                   # what the server said -> the classes that it said it of
reasons=()                             # what it said, in that order

# Texts of the server and of firmware, without what a terminal would obey.
harmless() { LC_ALL=C tr '\000-\037\177' ' ' <<<"$*" | LC_ALL=C sed 's/\xc2[\x80-\x9f]/ /g; s/ *$//'; }

# finding KIND TEXT
finding()
{
    local text
    text=$(harmless "$2")
    findings+=("$1"$'\t'"$text")
    [ "$1" != problem ] || problems=$((problems + 1))
    [ -n "$json" ] || printf '%-9s%s\n' "$1" "$text"
}

# look SENTENCE PROBLEM...: tells the sentence, or what is wrong
look()
{
    local sentence=$1 problem
    shift
    if problem=$("$@"); then
        finding ok "$sentence"
    else
        finding problem "$problem"
        return 1
    fi
}

bounded() { timeout -k 5 "$answer_limit" "$(type -P "$1")" "${@:2}"; }

# From here on no command of the server's takes longer than the limit.
# shellcheck disable=SC2317 # the functions that they stand in front of call them
bound_commands()
{
    cimserver() { bounded cimserver "$@"; }
    cimprovider() { bounded cimprovider "$@"; }
    cimcli() { bounded cimcli "$@"; }
    cimconfig() { bounded cimconfig "$@"; }
}

# ---- the tool ------------------------------------------------------------------------------------------------------

# Takes over what the tool finds. What it says of a class is told later, with what the server says of it.
look_in_process()
{
    local kind text class lines
    if [ ! -x "$tool" ]; then
        finding problem "$tool is not there, so nobody looks at the SMBIOS table and into the module: install it again"
        return
    fi
    lines=$(timeout -k 5 120 "$tool" check --module "$module" 2>&1)
    while read -r kind text; do
        class=${text%%: *}
        case "$kind $text" in
        "ok $class: "[0-9]*" instance"*)
            text=${text#"$class: "}
            in_process[$class]=${text%% *}
            continue
            ;;
        "problem $class: not asked: "*) refused[$class]=yes ;;
        esac
        case "$kind" in ok | note | problem) finding "$kind" "$text" ;; esac
    done <<<"$lines"
    [[ $lines == *"found" ]] || finding problem "$tool ended early: $(tail -n 1 <<<"$lines"); install it again"
}

# ---- the server ----------------------------------------------------------------------------------------------------

# What the registration leaves out means the user who asks; 4 is the privileged user.
user_problem()
{
    cimcli gi "PG_ProviderModule.Name=\"$module_name\"" -n "$interop_space" 2>&1 |
        grep -x ' *UserContext = 4; *' >/dev/null ||
        { echo "the module is not registered to run as root (UserContext 4), and only root can read the SMBIOS table: run vq-register register"; return 1; }
}

# remedy REASON: what to do about an error of the server's
remedy()
{
    case "$1" in
    *"provider blocked"*) echo "the module is disabled, enable it: cimprovider -e -m $module_name" ;;
    *CIM_ERR_INVALID_CLASS*) echo "the class is missing in $class_space: run vq-register register" ;;
    *CIM_ERR_INVALID_NAMESPACE*) echo "the server has no namespace $class_space: load the CIM schema into its repository" ;;
    *CIM_ERR_ACCESS_DENIED*) echo "ask as a user who may use $class_space (cimauth)" ;;
    *CIM_ERR_NOT_SUPPORTED*) echo "the server knows nobody who answers for the class: run vq-register register" ;;
    *"Permission denied"*) echo "the module does not run as root: run vq-register register" ;;
    *"SMBIOS entry point"*) echo "the SMBIOS table is damaged: update the firmware of the machine" ;;
    *"Lost connection with cimprovagt"*) echo "the process of the module ended over the question: the system's log tells more; if the module is damaged, install it again" ;;
    *"was not found for provider module"*) echo "the module is not where the server looks for it: run vq-register register" ;;
    *onnect*) echo "the server has ended meanwhile: start it (cimserver)" ;;
    *) echo "the system's log may tell more" ;;
    esac
}

# ask CLASS: all its instances, as a client gets them. Fails when the server gave no answer in time.
ask()
{
    local class=$1 begin answer status=0 reason time count
    begin=${EPOCHREALTIME/[.,]/}
    answer=$(cimcli ei "$class" -n "$class_space" --sum 2>&1) || status=$?
    time=$((${EPOCHREALTIME/[.,]/} - begin))
    time=$(printf '%d.%03d' $((time / 1000000)) $((time % 1000000 / 1000)))
    if [ "$status" -eq 124 ] || [ "$status" -eq 137 ]; then
        finding problem "$class: no answer from the server in $answer_limit seconds: the process of the module hangs; restart the server (cimserver -s, cimserver)"
        return 1
    elif [ "$status" -ne 0 ]; then
        reason=$(LC_ALL=C grep -aE 'CIM_ERR|Exception: ' <<<"$answer" | tail -n 1)
        reason=${reason:-$(tail -n 1 <<<"$answer")}
        reason=${reason//": $class"/}
        reason=${reason%.}
        [ -n "${failed[$reason]-}" ] || reasons+=("$reason")
        failed[$reason]="${failed[$reason]:+${failed[$reason]}, }$class"
        return 0
    fi
    # The server says nothing at all of a class without instances.
    count=$(sed -n 's/^\([0-9]*\) instances of class .*/\1/p' <<<"$answer")
    count=${count:-0}
    served[$class]="$count $time"
    if [ "$count" = "${in_process[$class]-$count}" ]; then
        finding ok "$class: $count $(instances "$count") through the server in $time s"
    else
        finding problem "$class: $count $(instances "$count") through the server and ${in_process[$class]} in process: the server asks another module, or none; run vq-register register, and restart the server"
    fi
}

instances() { if [ "$1" = 1 ]; then echo instance; else echo instances; fi; }

ask_all()
{
    local class reason
    for class in "${classes[@]}"; do
        if [ -n "${refused[$class]-}" ]; then
            continue
        elif [[ " ${guarded[*]} " == *" $class "* ]] && [ -z "${in_process[$class]-}" ]; then
            finding note "$class: not asked of the server, because it may never answer over a table that could not be looked at first"
        elif ! ask "$class"; then
            finding note "the classes behind $class are not asked of the server"
            break
        fi
    done
    for reason in "${reasons[@]}"; do
        finding problem "${failed[$reason]}: $reason; $(remedy "$reason")"
    done
}

# Who may do what, as register says it when it ends.
tell_access()
{
    local line
    find_access -c
    while IFS= read -r line; do
        finding note "$line"
    done < <(report_access)
}

look_at_server()
{
    look "all ${#classes[@]} classes are in $class_space" classes_problem
    look "the module is registered and enabled" registration_problem
    registered || return 0
    look "the module runs as root" user_problem
    ask_all
    tell_access
}

# ---- the result ----------------------------------------------------------------------------------------------------

json_text()
{
    local text
    text=$(printf '%s' "$1" | iconv -c -f UTF-8 -t UTF-8)
    text=${text//\\/\\\\}
    printf '"%s"' "${text//\"/\\\"}"
}

print_json()
{
    local separator='' entry class
    printf '{\n  "problems": %s,\n  "findings": [' "$problems"
    for entry in "${findings[@]}"; do
        printf '%s\n    {"kind": "%s", "text": %s}' "$separator" "${entry%%$'\t'*}" "$(json_text "${entry#*$'\t'}")"
        separator=,
    done
    separator=
    printf '\n  ],\n  "classes": {'
    for class in "${classes[@]}"; do
        entry=${served[$class]-null null}
        printf '%s\n    "%s": {"instances": %s, "seconds": %s, "inProcess": %s}' "$separator" "$class" \
            "${entry% *}" "${entry#* }" "${in_process[$class]-null}"
        separator=,
    done
    printf '\n  }\n}\n'
}

# The server's commands tell nobody but root how things stand.
running_problem()
{
    [ "$(id -u)" -eq 0 ] || { echo "only root can ask the server about the module: run vq-register doctor as root"; return 1; }
    server_runs || hidden_server_problem || return 1
    server_runs || { echo "the CIM server is not running: start it (cimserver), then run vq-register doctor again"; return 1; }
}

# The module as the server finds it, and the server's own files.
look_at_places()
{
    look "the server's settings are root's" config_problem
    find_places
    find_work
    if look "the server's provider directory is $provider_dir" provider_dir_problem; then
        look "the server finds the module there" link_problem
    fi
    if look "the server's repository is $repository" repository_problem && [ "$(id -u)" -eq 0 ]; then
        look "no vq-register was interrupted" interrupted_problem
        look "the repository is whole" cut_files_problem
    fi
}

# What the module answers in process, where the server did not say.
tell_in_process()
{
    local class
    for class in "${classes[@]}"; do
        [ -n "${served[$class]-}" ] || [ -z "${in_process[$class]-}" ] ||
            finding ok "$class: ${in_process[$class]} $(instances "${in_process[$class]}") in process"
    done
}

tell_result()
{
    if [ -n "$json" ]; then
        print_json
    elif [ "$problems" -le 1 ]; then
        say "${problems/0/no} problem found"
    else
        say "$problems problems found"
    fi
    [ "$problems" -eq 0 ]
}

doctor()
{
    bound_commands
    if look "the server's commands are there" commands_problem; then
        look "the server can load $module" module_problem
        look_in_process
        look_at_places
        ! look "the CIM server is running" running_problem || look_at_server
    else
        look_in_process
    fi
    tell_in_process
    tell_result
}
