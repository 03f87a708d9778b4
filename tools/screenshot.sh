# shellcheck shell=bash
# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Showing the program where there is no display: on a virtual screen, as a picture. To be sourced after setup.sh.

# wait_for SECONDS COMMAND...: tries the command until it succeeds
wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        ((SECONDS < end)) || return 1
        sleep 0.1
    done
}

is_over() { ! kill -0 "$1" 2>/dev/null; }

stop_all() {
    local pid
    for pid in "${started[@]}"; do
        kill "$pid" 2>/dev/null && { wait_for 5 is_over "$pid" || kill -KILL "$pid"; }
    done
    rm -rf "$scratch"
}

window_manager_is_ready() { [[ $(xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null) == *'window id'* ]]; }

# Finds the window, or that the program has ended. A message box may carry the same title, but it is a dialog.
find_main_window() {
    local kind
    is_over "$program" && return
    for window in $(xdotool search --onlyvisible --name '^Obelmark$' 2>/dev/null); do
        kind=$(xprop -id "$window" _NET_WM_WINDOW_TYPE 2>/dev/null)
        [[ $kind == *_TYPE_NORMAL* && $kind != *_TYPE_DIALOG* ]] && return
    done
    window=
    return 1
}

# The window is painted when it shows many colours and the same picture twice.
is_painted() {
    local look colours before=${last_look-}
    is_over "$program" && return
    look=$(import -window "$window" png:- 2>/dev/null | identify -format '%k %#' png:- 2>/dev/null) || return 1
    last_look=$look
    colours=${look%% *}
    ((colours > 16)) && [[ $look == "$before" ]]
}

close_window() {
    is_over "$program" && return
    xdotool key --clearmodifiers alt+F4 # the window manager asks the window to close
    wait_for 2 is_over "$program"
}

# open_screen: a virtual screen with a window manager, for all programs that this script starts from now on. It goes
# when the script ends, and so do the programs.
open_screen() {
    local number
    started=()
    scratch=$(mktemp -d)
    trap stop_all EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    export XDG_RUNTIME_DIR=${XDG_RUNTIME_DIR:-$scratch} QT_QPA_PLATFORM=xcb

    mkfifo "$scratch/display"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -dpi 96 -nolisten tcp 3>"$scratch/display" &>"$scratch/log" &
    started=($!)
    read -r -t 30 number <"$scratch/display" || die "the virtual screen did not start: $(cat "$scratch/log")"
    export DISPLAY=:$number
    openbox --sm-disable &>"$scratch/log" &
    started=($! "${started[@]}")
    wait_for 10 window_manager_is_ready || die "the window manager did not start: $(cat "$scratch/log")"
}

# start_program PROGRAM [ARGUMENT...]: starts the program in the current folder and waits for its main window
start_program() {
    window='' last_look=''
    "$@" </dev/null &
    program=$!
    started=("$program" "${started[@]}")
    wait_for 30 find_main_window && { wait_for 10 is_painted || say "The window is still being painted."; }
    if is_over "$program"; then
        wait "$program" || die "the program ended with status $?"
        die "the program ended by itself"
    fi
}

# save_picture PICTURE: what stands on the screen
save_picture() {
    import -window root -trim +repage "png:$scratch/picture"
    cp "$scratch/picture" "$1"
    [[ -n $window ]] || die "the main window did not come; what stood on the screen: $1"
}

# end_program: closes the main window, so that the program ends as it does for a user
end_program() {
    wait_for 10 close_window || die "the program did not end when its window was closed"
    wait "$program" || die "the program ended with status $?"
    started=("${started[@]:1}")
}

# take_screenshot PROGRAM PICTURE: starts the program in the current folder, saves the picture of the screen and closes
# the program.
take_screenshot() {
    open_screen
    start_program "$1"
    save_picture "$2"
    printf 'The main window as it looks: %s\n' "$2"
    end_program
}
