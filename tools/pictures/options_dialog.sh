# shellcheck shell=bash
# The dialog of the folder options.
start_workbench
options=105
click "$(place_of_button 32000 $options)"
wait_for "the options" probe_answers find '#32770' '*' 'Explore Options'
park_mouse
sleep 0.3 # the button under the mouse cools down
picture dialog-options "$(place_of_window '#32770' '*' 'Explore Options')" 128
press Return
