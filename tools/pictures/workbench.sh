# shellcheck shell=bash
# The whole program as it opens.
start_workbench
picture workbench "$(place_of_window WorkbenchMainWindow '*' '*')" 255
