# SPDX-License-Identifier: GPL-3.0-or-later
# bash completion for zib-catalogue
_zib_catalogue()
{
    local cur prev
    _get_comp_words_by_ref cur prev || return
    case $prev in
        --music | --data)
            _filedir -d
            return
            ;;
        --port | --bind | --listen-fd | --database | --public-url | --rate) return ;;
    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--port --bind --listen-fd --music --data --database --public-url --rate
            --until-stdin-closes --help --help-all --version" -- "$cur")
    else
        mapfile -t COMPREPLY < <(compgen -W "serve" -- "$cur")
    fi
} && complete -F _zib_catalogue zib-catalogue
