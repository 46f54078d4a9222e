# SPDX-License-Identifier: BSL-1.0
# Completion of tunnel_survey and free_station in bash. The options come from the help of the program
# itself; those that have few words to choose from offer these; all else is a file.

_calculations_programs() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words=
  case $before in
    --delimiter) words="comma semicolon tab bar blank" ;;
    --decimal) words="point comma" ;;
    --angles) words="gon deg dms d.mmss rad" ;;
    --lengths) words="m mm ft usft" ;;
    *)
      if [[ $word == -* ]]; then
        words=$("$1" --help 2>/dev/null | grep -oE '^ +(-h,)?--[a-z-]+' | grep -oE -- '--[a-z-]+')
      fi
      ;;
  esac
  if [[ -n $words ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
  else
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  fi
}

complete -F _calculations_programs tunnel_survey free_station
