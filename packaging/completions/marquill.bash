# bash completion for marquill

_marquill() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local commands="list show probe set record connect disconnect import export"
    local global="--settings --language --theme --demo --exit-after-first-paint --version --help"
    local command="" index
    for ((index = 1; index < COMP_CWORD; index++)); do
        case ${COMP_WORDS[index]} in
            --settings | --language | --theme) ((index++)) ;;
            -*) ;;
            *)
                command=${COMP_WORDS[index]}
                break
                ;;
        esac
    done

    local words=""
    case $previous in
        --theme) words="system dark light" ;;
        --language) words="en de fr" ;;
        --kind) words="qt red-h red-p red-m red-raw p2" ;;
        --format) words="xmeml text tab comma" ;;
        --name | --scene | --marker-set | --labels | --timecode) return ;;
        --settings | --output | --media | --converted)
            compopt -o default
            COMPREPLY=()
            return
            ;;
        *)
            case $command in
                "") words="$commands $global" ;;
                list | show) words="--json" ;;
                probe) words="--json --timecode" ;;
                set) words="scene= take= rating= label= comment=" ;;
                record) words="--name --scene --marker-set" ;;
                connect) words="--kind --media --converted --clips --dry-run --json" ;;
                disconnect) words="--clips" ;;
                export) words="--format --output --labels" ;;
            esac
            [ -z "$command" ] || words="$words --settings --language --help"
            if [[ -n $command && $current != -* && ! ($command == set && $COMP_CWORD -gt $((index + 1))) ]]; then
                compopt -o default
                COMPREPLY=()
                return
            fi
            ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    # What begins like no command may be a folder or a movie to be opened.
    if [[ -z $command && ${#COMPREPLY[@]} -eq 0 ]]; then
        compopt -o default
    elif [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
        compopt -o nospace
    fi
}
complete -F _marquill marquill
