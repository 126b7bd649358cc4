# shellcheck shell=bash
# The go-to menu, open under its button.
start_workbench
go_to=924
click "$(place_of_button 32000 $go_to)"
wait_for "the menu" probe_answers find '#32768' '*' '*'
hover "$(place_of_window '#32768' '*' '*' | awk '{ print $1, $2 + 4, $3, 18 }')"
menu=$(place_of_window '#32768' '*' '*')
button=$(place_of_button 32000 $go_to)
picture menu-go-to "$(grow "$(join "$menu" "$button")" 6)" 128
press Escape
