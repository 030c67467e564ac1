# SPDX-License-Identifier: GPL-3.0-or-later
# bash completion for zib
_zib()
{
    local cur prev
    _get_comp_words_by_ref cur prev || return
    case $prev in
        --services) return ;;
        --export-library)
            _filedir
            return
            ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--services --export-library --play-pause --next --previous --help --version" -- "$cur")
    else
        _filedir '@(mp3|m4a|mp4|aac|flac|ogg|oga|opus|wav|aif|aiff|caf)'
    fi
} && complete -F _zib zib
