# SPDX-License-Identifier: BSL-1.0
# Prints what a completion script offers: complete.bash SCRIPT PROGRAM WORD...
source "$1"
COMP_WORDS=("${@:2}")
COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
_calculations_programs "$2"
printf '%s\n' "${COMPREPLY[@]}"
